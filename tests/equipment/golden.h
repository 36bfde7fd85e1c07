// Golden files: what a person has looked at once and called right.
//
//   EXPECT_TRUE(matchesGolden("printer/golden/test_page.txt", bytesDump(spooler->bytes())));
//
// Names count from the tests' folder.  A missing file is a failure.  With TARVO_UPDATE_GOLDENS=1 in
// the environment a file that is missing or differs is written anew, and the run still fails: what
// was written has to be looked at, and the next run has to pass.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tarvo::test {

::testing::AssertionResult matchesGolden(std::string_view name, std::string_view actual);

// The comparison alone: names the first line that differs, with both contents.  `where` is the
// expected text's file.
::testing::AssertionResult sameLines(std::string_view where, std::string_view expected,
                                     std::string_view actual);

}  // namespace tarvo::test
