// Descriptions become a call trace.
#include "services/clsError.h"

#include <gtest/gtest.h>

#include <string>

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;

Text described(TextView description, TextView className, TextView procedure, TextView module) {
  Text result = u"left from an earlier call";
  tarvo::make<clsError>()->fDescribeError(description, className, procedure, module, 2, 77,
                                          u"help.hlp", 1801, 0, result);
  return result;
}

TEST(ErrorServiceTest, AddsALineThatNamesTheProcedure) {
  const Text once = described(u"Overflow", u"clsUtilImp", u"sWrite", u"Lib. Impresión Texto");
  EXPECT_EQ(once, u"Overflow\r\n   en clsUtilImp.sWrite (Lib. Impresión Texto)");
  EXPECT_EQ(described(once, u"clsObRepPlanilla", u"sPrintLine", u"Ob Rep"),
            u"Overflow\r\n"
            u"   en clsUtilImp.sWrite (Lib. Impresión Texto)\r\n"
            u"   en clsObRepPlanilla.sPrintLine (Ob Rep)");
}

TEST(ErrorServiceTest, EmptyTextsLeaveTheirPlacesEmpty) {
  EXPECT_EQ(described(u"", u"", u"", u""), u"\r\n   en . ()");
}

TEST(ErrorServiceTest, TextsAreNotCutAtACharacterZero) {
  EXPECT_EQ(described(u"a\0b"s, u"c\0"s, u"d\0"s, u"e\0"s), u"a\0b\r\n   en c\0.d\0 (e\0)"s);
}

}  // namespace
}  // namespace LibTarvoCI
