#include "tarvordp/json/json_value.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "equipment/processor_time.h"
#include "tarvordp/json/excerpt.h"
#include "tarvordp/mistake.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string mistakeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Mistake& mistake) {
    return mistake.what();
  }
  return "no mistake";
}

std::string mistakeIn(const std::string& text) {
  return mistakeOf([&] { readJsonText(text, "a.json"); });
}

TEST(JsonValue, KeepsNumbersAsTheyWereWritten) {
  const JsonValue value =
      readJsonText("[1250.5000, -0.10, 1e3, 12345678901234567890123]", "a.json");
  ASSERT_EQ(value.elements().size(), 4U);
  EXPECT_EQ(value.elements()[0].numberText(), "1250.5000");
  EXPECT_EQ(value.elements()[1].numberText(), "-0.10");
  EXPECT_EQ(value.elements()[2].numberText(), "1e3");
  EXPECT_EQ(value.elements()[3].numberText(), "12345678901234567890123");
}

TEST(JsonValue, KeepsNumbersThatNoBinaryOneEquals) {
  const std::string digits(300, '7');
  const JsonValue value = readJsonText("[1e-400, 0.10, 0e999, " + digits + "]", "a.json");
  EXPECT_EQ(value.elements()[0].numberText(), "1e-400");
  EXPECT_EQ(value.elements()[1].numberText(), "0.10");
  EXPECT_EQ(value.elements()[2].numberText(), "0e999");
  EXPECT_EQ(value.elements()[3].numberText(), digits);
}

TEST(JsonValue, ANumberBeyondABinaryOnesRangeIsToldWithItsPlace) {
  EXPECT_EQ(mistakeIn(R"({"a": {"n": [1, 1e400]}})"),
            "a.json: /a/n/1: 1e400 is beyond the numbers that can be read");
  EXPECT_EQ(mistakeIn("{\"l\": -" + std::string(401, '1') + "}"),
            "a.json: /l: -" + std::string(39, '1') +
                "... (402 bytes) is beyond the numbers that can be read");
}

TEST(JsonValue, AByteOrderMarkIsNoPartOfTheText) {
  EXPECT_EQ(readJsonText("\xEF\xBB\xBF[1]", "j").elements()[0].numberText(), "1");
}

TEST(JsonValue, TheRootIsToldInWordsAndTheEmptyNameAsASlash) {
  EXPECT_EQ(mistakeOf([] { readJsonText("1", "j").asText(); }),
            "j: the document: must be a text, not a number");
  EXPECT_EQ(mistakeOf([] { readJsonText(R"({"": 1})", "j").find("")->asText(); }),
            "j: /: must be a text, not a number");
  EXPECT_EQ(mistakeIn(R"({"o": {"a": 1, "a": 2}})"), R"(a.json: /o: the key "a" stands twice)");
}

TEST(Excerpt, IsTheTextOrItsBeginningWithoutPartOfACharacter) {
  EXPECT_EQ(excerpt(std::string(60, 'x')), std::string(60, 'x'));
  EXPECT_EQ(excerpt(std::string(61, 'x')), std::string(40, 'x') + "... (61 bytes)");
  EXPECT_EQ(excerpt(std::string(39, 'x') + "ñ" + std::string(60, 'y')),
            std::string(39, 'x') + "... (101 bytes)");
  EXPECT_EQ(quotedExcerpt("x"), "\"x\"");
}

TEST(JsonValue, KeepsMembersInTheirOrderAndCharacterZeroInTexts) {
  const JsonValue value = readJsonText(R"({"b": "\u0000x", "a": {"c": [null, true]}})", "a.json");
  ASSERT_EQ(value.members().size(), 2U);
  EXPECT_EQ(value.members()[0].name, "b");
  EXPECT_EQ(value.members()[0].value.text(), std::string("\0x", 2));
  const JsonValue& inner = value.find("a")->find("c")->elements()[1];
  EXPECT_TRUE(inner.boolean());
  EXPECT_EQ(inner.pointer(), "/a/c/1");
}

TEST(JsonValue, EscapesNamesInPointers) {
  const JsonValue value = readJsonText(R"({"a/b~c": 1})", "a.json");
  EXPECT_EQ(value.find("a/b~c")->pointer(), "/a~1b~0c");
}

TEST(JsonValue, MistakesNameFilePlaceAndReason) {
  EXPECT_THAT(mistakeIn("{\n  \"a\": tru,\n}"),
              testing::AllOf(StartsWith("a.json: this is not JSON: "), HasSubstr("line 2")));
  EXPECT_EQ(mistakeIn(R"({"a": 1, "a": 2})"), R"(a.json: the document: the key "a" stands twice)");
  EXPECT_EQ(mistakeIn(""), "a.json: is empty");
  EXPECT_EQ(mistakeIn(std::string("{}\0{", 4)), "a.json: holds a byte 00");
  EXPECT_THAT(mistakeIn(std::string(101, '[')), HasSubstr("too many levels of nesting"));
  EXPECT_THAT(mistakeIn("{\"a\": \"\xff\"}"), HasSubstr("this is not UTF-8"));
}

TEST(JsonValue, AFileThatCannotBeReadSaysWhy) {
  EXPECT_EQ(mistakeOf([] { readJsonFile("/nowhere/a.json"); }),
            "/nowhere/a.json: cannot be read: No such file or directory");
  EXPECT_EQ(mistakeOf([] { readJsonFile("/"); }), "/: cannot be read: Is a directory");
}

TEST(JsonValue, ChecksKindsAndRanges) {
  const JsonValue value = readJsonText(R"({"n": 1.5, "big": 256, "t": "x", "nought": null})", "j");
  EXPECT_EQ(mistakeOf([&] { value.find("n")->asText(); }), "j: /n: must be a text, not a number");
  EXPECT_EQ(mistakeOf([&] { value.find("n")->asWholeNumber(0, 9); }),
            "j: /n: must be a whole number from 0 to 9, not 1.5");
  EXPECT_EQ(mistakeOf([&] { value.find("big")->asWholeNumber(0, 255); }),
            "j: /big: must be a whole number from 0 to 255, not 256");
  EXPECT_EQ(value.find("big")->asWholeNumber(0, 256), 256);
  EXPECT_EQ(mistakeOf([&] { value.find("t")->asBoolean(); }),
            "j: /t: must be true or false, not a text");
  EXPECT_EQ(mistakeOf([&] { value.find("nought")->asObject(); }),
            "j: /nought: must be an object, not null");
  EXPECT_EQ(mistakeOf([&] { value.asArray(); }),
            "j: the document: must be an array, not an object");
}

TEST(KnownKeys, WhatNobodyAskedForIsAMistake) {
  const JsonValue value = readJsonText(R"({"a": 1, "b": 2})", "j");
  KnownKeys keys(value);
  EXPECT_EQ(keys.required("a").numberText(), "1");
  EXPECT_EQ(mistakeOf([&] { keys.nothingElse(); }), R"(j: /b: unknown key "b")");
  EXPECT_NE(keys.optional("b"), nullptr);
  EXPECT_EQ(keys.optional("c"), nullptr);
  keys.nothingElse();
  EXPECT_EQ(mistakeOf([&] { keys.required("d"); }), R"(j: the document: the key "d" is missing)");
}

TEST(JsonValue, ManyKeysTakeNoLongerThanOthers) {
  std::string text = "{";
  for (int i = 0; i < 80'000; ++i) text += "\"k" + std::to_string(i) + "\":0,";
  text += "\"z\":0}";
  std::size_t members = 0;
  const double seconds =
      tarvo::test::processorSecondsOf([&] { members = readJsonText(text, "j").members().size(); });
  EXPECT_EQ(members, 80'001U);
  EXPECT_LT(seconds, 4);
}

TEST(JsonValue, AnInnerObjectMayHaveItsParentsKeys) {
  const JsonValue value = readJsonText(R"({"a": {"a": 1}, "b": [{"a": 2}, {"a": 3}]})", "j");
  EXPECT_EQ(value.members().size(), 2U);
  EXPECT_THROW(readJsonText(R"({"a": {"b": 1}, "c": 1, "a": 2})", "j"), Mistake);
}

}  // namespace
}  // namespace tarvordp
