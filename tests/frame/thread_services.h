// A fixture for tests that put services into this thread's set.
#pragma once

#include <gtest/gtest.h>

#include "frame/modRDPGlobalValues.h"
#include "frame/run_time_error.h"
#include "printer/clsUtilImp.h"

namespace tarvo::test {

// Nothing in the library empties the set, so the tests do, before and after.
inline void emptyServices(modRDPGlobalValues& services) {
  services.refInsError = nullptr;
  services.refInsMessage = nullptr;
  services.refInsTexto = nullptr;
  services.refInsDefGen = nullptr;
  services.refInsConvert = nullptr;
  services.refInsApi = nullptr;
  services.refInsUtilFile = nullptr;
  services.refInsUtilDate = nullptr;
  services.refInsErrorCodesIG = nullptr;
  services.refInsUtilMathOperations = nullptr;
  services.refInsImp = nullptr;
  services.refInsUtReport = nullptr;
}

class ThreadServices : public testing::Test {
 protected:
  ThreadServices() { reset(); }
  ~ThreadServices() override { reset(); }

  static modRDPGlobalValues& services() { return modRDPGlobalValues::ofThisThread(); }

 private:
  static void reset() {
    emptyServices(services());
    setLastSystemError(0);
  }
};

}  // namespace tarvo::test
