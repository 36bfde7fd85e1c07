// What a person is told who writes JSON by hand and makes a mistake.
#include <gmock/gmock.h>

#include <string>

#include "tarvordp/json/json_value.h"
#include "tarvordp/mistake.h"

namespace tarvordp {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

std::string mistakeIn(const std::string& text) {
  try {
    readJsonText(text, "j");
  } catch (const Mistake& mistake) {
    return mistake.what();
  }
  return "no mistake";
}

struct Case {
  const char* text;
  const char* told;  // behind "j: this is not JSON: "
};

constexpr Case kCases[] = {
    {R"({"a": 1,})", "line 1, column 9: there is a comma before '}'"},
    {"{\n\"a\": [1,\n]}", "line 3, column 1: there is a comma before ']'"},
    {R"({"a": 1 "b": 2})", "line 1, column 11: a comma or '}' is missing before this text"},
    {R"({"a": {} {}})", "line 1, column 10: a comma or '}' is missing before this '{'"},
    {R"([1 2])", "line 1, column 4: a comma or ']' is missing before this number"},
    {R"([[] []])", "line 1, column 5: a comma or ']' is missing before this '['"},
    {R"(["a" true])", "line 1, column 9: a comma or ']' is missing before this true"},
    {R"({"a": 1.250,50})",
     "line 1, column 14: a name in quotation marks must stand here, not a number; decimals are "
     "written behind a full stop: 1250.50"},
    {R"({'a': 1})", "line 1, column 2: quotation marks are written \" here"},
    {"{\"a\": \u201Cx\u201D}", "line 1, column 7: quotation marks are written \" here"},
    {"\uFEFF{\"a\": \u2019x\u2019}", "line 1, column 10: quotation marks are written \" here"},
};

TEST(JsonMistake, OfTheCommonestIsToldInOwnWords) {
  for (const Case& each : kCases) {
    EXPECT_EQ(mistakeIn(each.text), std::string("j: this is not JSON: ") + each.told) << each.text;
  }
}

TEST(JsonMistake, ThatOnlyLooksLikeOneOfThoseIsToldInTheLibrarysWords) {
  for (const char* text : {R"({"a": ]})", R"({"a": [)", "{,}", "[,]", R"({"a" 1})", "{a: 1}", "x",
                           R"({"a": 1}})", R"({"a": .5})", R"({"a": "x)"}) {
    EXPECT_THAT(mistakeIn(text), HasSubstr("j: this is not JSON: parse error at line 1, column "))
        << text;
  }
}

TEST(JsonMistake, WhatIsNotUtf8IsToldWithItsLineAndNeverRepeated) {
  constexpr const char* kTold = ": this is not UTF-8: save the file as UTF-8";
  EXPECT_EQ(mistakeIn("{\"a\": \"Se\xF1or\"}"), std::string("j: line 1") + kTold);
  EXPECT_EQ(mistakeIn("{\"a\": 1,\n\"\xF1\": 2}"), std::string("j: line 2") + kTold);
  EXPECT_EQ(mistakeIn("\xFF\xFE{"), std::string("j: line 1") + kTold);
  EXPECT_THAT(mistakeIn("{\"a\": 1,}\n\xF1"), EndsWith("there is a comma before '}'"))
      << "which comes first";
}

TEST(JsonMistake, HalfALetterIsShownAsItsByte) {
  EXPECT_THAT(mistakeIn("{\"a\": \u00F1}"), EndsWith("last read: '\"a\": \\xC3'"));
  EXPECT_THAT(mistakeIn("{\"a\": \u00F1}"), Not(HasSubstr("\xC3")));
}

}  // namespace
}  // namespace tarvordp
