// What a report's records and pages take from the heap, once the report is warm: nothing.
#include <gtest/gtest.h>

#include "bench/report_records.h"
#include "equipment/allocations.h"
#include "frame/modRDPGlobalValues.h"

namespace tarvo::test {
namespace {

class ReportAllocations : public ::testing::Test {
 protected:
  ~ReportAllocations() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  static std::size_t ofReport(long records) {
    const std::size_t before = allocations();
    bench::printLedger(u"file:/dev/null", records);
    return allocations() - before;
  }
};

TEST_F(ReportAllocations, ARecordTakesNothing) {
  constexpr long kFullPages = 20L * bench::kRecordsPerPage;
  ofReport(kFullPages);
  EXPECT_EQ(ofReport(kFullPages - bench::kRecordsPerPage + 1), ofReport(kFullPages));
}

TEST_F(ReportAllocations, APageTakesNothing) {
  constexpr long kPages = 20;
  ofReport(kPages * bench::kRecordsPerPage);
  EXPECT_EQ(ofReport(kPages * bench::kRecordsPerPage),
            ofReport(kPages * 60 * bench::kRecordsPerPage));
}

}  // namespace
}  // namespace tarvo::test
