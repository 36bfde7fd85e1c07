// Faults as loops: a report is printed again and again, and each time another call of what stands
// below it fails.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "master_detail_report.h"

namespace tarvo::test {

// `Report`: the fixture that prints, MasterDetailReport or one derived from it.
template <class Report>
class FaultLoop : public Report {
 protected:
  void begin() {
    this->init(2);
    this->report->SetTopMarginPoints(1);
    this->client->restart();
  }

  // Prints with a fault at every nth call in turn until none is reached; gives the number of
  // faults.  The error comes out, no template stays open, and the next report is `undisturbed`.
  int atEveryCall(Fault& fault, std::int32_t number) {
    for (int nth = 1;; ++nth) {
      begin();
      this->world.error->reports.clear();
      this->world.pageCalls.clear();
      fault.raiseAt(nth, number);
      const std::int32_t raised = this->errorOfPrinting();
      const bool wasReached = !fault.isPending();
      fault.never();
      EXPECT_EQ(this->world.files->openStreams(), 0) << "call " << nth;
      if (!wasReached) {
        EXPECT_EQ(raised, 0);
        return nth - 1;
      }
      EXPECT_EQ(raised, number) << "call " << nth;
      EXPECT_TRUE((" " + this->world.error->trail()).ends_with(" sPrintReport")) << "call " << nth;
      EXPECT_TRUE(this->world.pageCalls.lines().empty()) << "a report that fails is not produced";
      begin();
      EXPECT_EQ(print(), undisturbed) << "after call " << nth;
      if (this->HasFailure() || nth > 2000) return nth;
    }
  }

  // Prints, and gives what came out.
  virtual std::string print() = 0;

  std::string undisturbed;  // what comes out without a fault
};

}  // namespace tarvo::test
