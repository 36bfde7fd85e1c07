#include <gmock/gmock.h>

#include <string>

#include "equipment/golden.h"
#include "reference/reference.h"

namespace tarvo {
namespace {

TEST(Reference, TheDocumentIsWhatTheMemberTablesSay) {
  EXPECT_TRUE(test::matchesGolden("../docs/reference.md", reference::page()));
}

TEST(Reference, DeclaresOperationsAsVisualBasicDoes) {
  const std::string page = reference::page();
  EXPECT_THAT(page, testing::HasSubstr("`Function fReadFirstRecord() As Boolean`"));
  EXPECT_THAT(page, testing::HasSubstr("`Sub sAccumSubTotal(ByRef refMontoSubTotal As Currency)`"));
  EXPECT_THAT(page,
              testing::HasSubstr("| `GetMaxLinPage, SetMaxLinPage As Byte` | lines on a page |"));
  EXPECT_THAT(page, testing::HasSubstr("| `eAT_Justify` | 3 |"));
}

}  // namespace
}  // namespace tarvo
