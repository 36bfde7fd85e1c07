// The properties of a special variable: their types, their defaults, what a setter stores, and what
// sClrObject resets.
#include <limits>
#include <type_traits>

#include "equipment/show_arguments.h"
#include "template/template_test.h"

namespace tarvo::test {
namespace {

using V = clsObSpecialVar;
using Get = std::string (*)(const V& variable);

// A property as it is read.
struct Property {
  const char* name;
  Get read;
  const char* byDefault;
};

// The accessor has the property's type exactly; `read` shows its value.
template <class Type, auto Getter>
constexpr Property property(const char* name, const char* byDefault) {
  static_assert(std::is_same_v<std::decay_t<std::invoke_result_t<decltype(Getter), V&>>, Type>);
  return {name, [](const V& variable) { return show((variable.*Getter)()); }, byDefault};
}

template <auto Getter>
constexpr Property enumeration(const char* name, const char* byDefault) {
  static_assert(std::is_enum_v<std::invoke_result_t<decltype(Getter), V&>>);
  return {name,
          [](const V& variable) { return show(static_cast<std::int32_t>((variable.*Getter)())); },
          byDefault};
}

// All of them, in the order of the interface.
constexpr Property kProperties[] = {
    property<Text, &V::GetReadText>("ReadText", "\"\""),
    property<Text, &V::GetTextToWrite>("TextToWrite", "\"\""),
    property<Text, &V::GetRecordName>("RecordName", "\"\""),
    property<Text, &V::GetFieldName>("FieldName", "\"\""),
    property<bool, &V::GetIsFieldOfArray>("IsFieldOfArray", "false"),
    property<std::uint8_t, &V::GetArrayPosition>("ArrayPosition", "0"),
    property<Text, &V::GetContentString>("ContentString", "\"\""),
    property<Currency, &V::GetContentNumeric>("ContentNumeric", "0/10000"),
    property<Date, &V::GetContentDate>("ContentDate", "day 2"),
    property<bool, &V::GetContentBool>("ContentBool", "false"),
    property<Text, &V::GetContentEnum>("ContentEnum", "\"\""),
    property<bool, &V::GetAlignmentWasRead>("AlignmentWasRead", "false"),
    enumeration<&V::GetAlignmentType>("AlignmentType", "1"),
    enumeration<&V::GetTypeField>("TypeField", "0"),
    property<std::uint8_t, &V::GetLength>("Length", "0"),
    property<std::uint8_t, &V::GetDecimalPlaces>("DecimalPlaces", "0"),
    property<bool, &V::GetPrintComa>("PrintComa", "true"),
    property<bool, &V::GetPrintZero>("PrintZero", "true"),
    property<bool, &V::GetNotSpacesToTheSides>("NotSpacesToTheSides", "false"),
    property<bool, &V::GetFillWithZero>("FillWithZero", "false"),
    property<bool, &V::GetSeparatorOfCommasAndDot>("SeparatorOfCommasAndDot", "false"),
    property<bool, &V::GetRepeatCharsUntilFill>("RepeatCharsUntilFill", "false"),
    property<bool, &V::GetVariableToWriteEmpty>("VariableToWriteEmpty", "false"),
    property<bool, &V::GetVariableToApplyCondition>("VariableToApplyCondition", "false"),
    property<std::int16_t, &V::GetPosEnd>("PosEnd", "0"),
    property<std::int16_t, &V::GetPosBegin>("PosBegin", "0"),
    property<std::int16_t, &V::GetSize>("Size", "0"),
    property<bool, &V::GetValueComesInAttrib>("ValueComesInAttrib", "false"),
    property<Value, &V::GetIifPossibleValues>("IifPossibleValues", "empty"),
    property<bool, &V::GetFieldOfArrayHasPositionInsideTheArray>(
        "FieldOfArrayHasPositionInsideTheArray", "false"),
    property<bool, &V::GetPrintLine>("PrintLine", "true"),
    property<bool, &V::GetLineOfRepeatToPrint>("LineOfRepeatToPrint", "false"),
    property<bool, &V::GetEndOfRepeatPrintLine>("EndOfRepeatPrintLine", "true"),
    property<bool, &V::GetUsingSpecialSeparationString>("UsingSpecialSeparationString", "false"),
    property<Text, &V::GetSpecialSeparationString>("SpecialSeparationString", "\"\""),
};

static_assert(std::is_same_v<decltype(std::declval<V>().GetAlignmentType()), eAlignmentType>);
static_assert(std::is_same_v<decltype(std::declval<V>().GetTypeField()), eTypeFieldRecord>);

using PropertiesTest = TemplateTest;

// The names of the properties that do not have their default.
std::vector<std::string> changedProperties(const V& variable) {
  std::vector<std::string> changed;
  for (const Property& each : kProperties) {
    if (each.read(variable) != each.byDefault) changed.emplace_back(each.name);
  }
  return changed;
}

std::vector<std::string> allProperties() {
  std::vector<std::string> names;
  for (const Property& each : kProperties) names.emplace_back(each.name);
  return names;
}

TEST_F(PropertiesTest, ANewVariableHasTheDefaults) {
  for (const Property& each : kProperties) {
    EXPECT_EQ(each.read(*variable), each.byDefault) << each.name;
  }
}

TEST_F(PropertiesTest, TheDefaultDateIsTheFirstOfJanuary1900) {
  EXPECT_EQ(variable->GetContentDate(), dateOf({.year = 1900, .month = 1, .day = 1}));
}

// --- Setters.

// Stores each value, reads it back, and sees that no other property has changed.
template <class Type, class Setter, class Getter>
void expectStores(const char* name, Setter setter, Getter getter, const std::vector<Type>& values) {
  SCOPED_TRACE(name);
  const Ref<V> variable = make<V>();
  for (const Type& value : values) {
    ((*variable).*setter)(value);
    ASSERT_EQ(((*variable).*getter)(), value);
    for (const Property& each : kProperties) {
      if (std::string(each.name) == name) continue;
      ASSERT_EQ(each.read(*variable), each.byDefault) << each.name;
    }
  }
}

template <class Setter, class Getter>
void expectStoresTexts(const char* name, Setter setter, Getter getter) {
  using namespace std::string_literals;
  expectStores<Text>(name, setter, getter,
                     {u"a", u"  Año {x} ", u"", u"a\0b"s, Text(40000, u'x'), u""});
}
template <class Setter, class Getter>
void expectStoresBooleans(const char* name, Setter setter, Getter getter) {
  expectStores<bool>(name, setter, getter, {true, false, true});
}
template <class Type, class Setter, class Getter>
void expectStoresEveryNumber(const char* name, Setter setter, Getter getter) {
  using Limits = std::numeric_limits<Type>;
  std::vector<Type> values;
  for (int number = Limits::min(); number <= Limits::max(); ++number) {
    values.push_back(static_cast<Type>(number));
  }
  expectStores<Type>(name, setter, getter, values);
}

TEST_F(PropertiesTest, TextsAreStoredAsTheyAre) {
  expectStoresTexts("ReadText", &V::SetReadText, &V::GetReadText);
  expectStoresTexts("TextToWrite", &V::SetTextToWrite, &V::GetTextToWrite);
  expectStoresTexts("RecordName", &V::SetRecordName, &V::GetRecordName);
  expectStoresTexts("FieldName", &V::SetFieldName, &V::GetFieldName);
}

TEST_F(PropertiesTest, ATextMayComeFromTheVariableItself) {
  variable->SetFieldName(u"a text that is longer than what fits into the object");
  variable->SetRecordName(variable->GetFieldName());
  variable->SetFieldName(TextView(variable->GetFieldName()).substr(7));
  EXPECT_EQ(toUtf8(variable->GetRecordName()),
            "a text that is longer than what fits into the object");
  EXPECT_EQ(toUtf8(variable->GetFieldName()), "that is longer than what fits into the object");
}

TEST_F(PropertiesTest, BooleansAreStored) {
  expectStoresBooleans("IsFieldOfArray", &V::SetIsFieldOfArray, &V::GetIsFieldOfArray);
  expectStoresBooleans("AlignmentWasRead", &V::SetAlignmentWasRead, &V::GetAlignmentWasRead);
  expectStoresBooleans("PrintComa", &V::SetPrintComa, &V::GetPrintComa);
  expectStoresBooleans("PrintZero", &V::SetPrintZero, &V::GetPrintZero);
  expectStoresBooleans("NotSpacesToTheSides", &V::SetNotSpacesToTheSides,
                       &V::GetNotSpacesToTheSides);
  expectStoresBooleans("FillWithZero", &V::SetFillWithZero, &V::GetFillWithZero);
  expectStoresBooleans("SeparatorOfCommasAndDot", &V::SetSeparatorOfCommasAndDot,
                       &V::GetSeparatorOfCommasAndDot);
  expectStoresBooleans("RepeatCharsUntilFill", &V::SetRepeatCharsUntilFill,
                       &V::GetRepeatCharsUntilFill);
  expectStoresBooleans("VariableToWriteEmpty", &V::SetVariableToWriteEmpty,
                       &V::GetVariableToWriteEmpty);
  expectStoresBooleans("VariableToApplyCondition", &V::SetVariableToApplyCondition,
                       &V::GetVariableToApplyCondition);
  expectStoresBooleans("ValueComesInAttrib", &V::SetValueComesInAttrib, &V::GetValueComesInAttrib);
  expectStoresBooleans("FieldOfArrayHasPositionInsideTheArray",
                       &V::SetFieldOfArrayHasPositionInsideTheArray,
                       &V::GetFieldOfArrayHasPositionInsideTheArray);
  expectStoresBooleans("PrintLine", &V::SetPrintLine, &V::GetPrintLine);
  expectStoresBooleans("LineOfRepeatToPrint", &V::SetLineOfRepeatToPrint,
                       &V::GetLineOfRepeatToPrint);
  expectStoresBooleans("EndOfRepeatPrintLine", &V::SetEndOfRepeatPrintLine,
                       &V::GetEndOfRepeatPrintLine);
}

TEST_F(PropertiesTest, EveryByteIsStored) {
  expectStoresEveryNumber<std::uint8_t>("ArrayPosition", &V::SetArrayPosition,
                                        &V::GetArrayPosition);
  expectStoresEveryNumber<std::uint8_t>("Length", &V::SetLength, &V::GetLength);
  expectStoresEveryNumber<std::uint8_t>("DecimalPlaces", &V::SetDecimalPlaces,
                                        &V::GetDecimalPlaces);
}

TEST_F(PropertiesTest, EverySixteenBitNumberIsStored) {
  const std::vector<std::int16_t> values = {1, -1, 255, 256, -32768, 32767, 0};
  expectStores<std::int16_t>("PosEnd", &V::SetPosEnd, &V::GetPosEnd, values);
  expectStores<std::int16_t>("PosBegin", &V::SetPosBegin, &V::GetPosBegin, values);
  expectStores<std::int16_t>("Size", &V::SetSize, &V::GetSize, values);
  for (int number = -32768; number <= 32767; ++number) {
    const auto value = static_cast<std::int16_t>(number);
    variable->SetPosEnd(value);
    variable->SetPosBegin(value);
    variable->SetSize(value);
    ASSERT_EQ(variable->GetPosEnd(), value);
    ASSERT_EQ(variable->GetPosBegin(), value);
    ASSERT_EQ(variable->GetSize(), value);
  }
}

TEST_F(PropertiesTest, AnAlignmentIsStoredWithoutACheck) {
  expectStores<eAlignmentType>("AlignmentType", &V::SetAlignmentType, &V::GetAlignmentType,
                               {eAT_Right, eAT_Left, eAT_Center, eAT_Justify,
                                static_cast<eAlignmentType>(4), static_cast<eAlignmentType>(-1)});
}

TEST_F(PropertiesTest, AnyValueIsStoredAsPossibleValues) {
  const Ref<Object> object = variable;
  expectStores<Value>(
      "IifPossibleValues", &V::SetIifPossibleValues, &V::GetIifPossibleValues,
      {Value(Text(u"a")), Value(ValueArray{Value(Text(u"a")), Value(Text())}), Value(ValueArray{}),
       Value(std::int16_t{7}), Value(true), Value(Null()), Value(object), Value()});
}

TEST_F(PropertiesTest, APossibleValueMayComeFromTheVariableItself) {
  variable->SetIifPossibleValues(Value(ValueArray{Value(Text(u"a"))}));
  variable->SetIifPossibleValues(variable->GetIifPossibleValues());
  EXPECT_EQ(variable->GetIifPossibleValues(), Value(ValueArray{Value(Text(u"a"))}));
}

// --- Clearing.

// No property has its default any more, and nothing that no property shows.
void changeEverything(V& variable) {
  variable.sExtract(
      u"a {R.F[3][2],QR,9,1,SC,NC,NB,C0,CP,FILL,VACIO,QLR,DF(yyyy),IIF(\"S\",A,B),"
      u"PATRONSEPARADOR=2C}");
  variable.SetContentDate(Date{40000.5});
  variable.SetContentBoolean(true);
  variable.SetContentEnum(u"S");
  variable.SetContentString(u"text");
  variable.SetContentNumeric(Currency{-70000}, true);
  variable.SetTextToWrite(u"written");
  variable.SetPrintLine(false);
  variable.SetLineOfRepeatToPrint(true);
  variable.SetEndOfRepeatPrintLine(false);
}

TEST_F(PropertiesTest, ClearingResetsEverythingButThePossibleValues) {
  changeEverything(*variable);
  ASSERT_EQ(changedProperties(*variable), allProperties());
  const Value values = variable->GetIifPossibleValues();
  variable->sClrObject();
  EXPECT_EQ(changedProperties(*variable), std::vector<std::string>{"IifPossibleValues"});
  EXPECT_EQ(variable->GetIifPossibleValues(), values);
  variable->sClrObject();
  EXPECT_EQ(changedProperties(*variable), std::vector<std::string>{"IifPossibleValues"});
}

TEST_F(PropertiesTest, ClearingResetsWhatSettersHaveStored) {
  changeEverything(*variable);
  variable->SetReadText(u"r");
  variable->SetFieldName(u"f");
  variable->SetRecordName(u"r");
  variable->SetIifPossibleValues(Value(Null()));
  variable->sClrObject();
  EXPECT_EQ(changedProperties(*variable), std::vector<std::string>{"IifPossibleValues"});
  EXPECT_EQ(variable->GetIifPossibleValues(), Value(Null()));
}

TEST_F(PropertiesTest, ReadingALineClearsFirst) {
  changeEverything(*variable);
  variable->sExtract(u"");
  EXPECT_EQ(changedProperties(*variable), (std::vector<std::string>{"Size", "IifPossibleValues"}));
  EXPECT_EQ(variable->GetSize(), -1);
}

// What the variable would print.
std::string printed(V& variable) {
  variable.sFormatSpecialVar();
  return toUtf8(variable.GetTextToWrite());
}

TEST_F(PropertiesTest, ClearingResetsTheConditionOfTheIif) {
  changeEverything(*variable);
  variable->sClrObject();
  variable->SetContentBoolean(true);
  EXPECT_EQ(printed(*variable), "S");  // the value's own text
  variable->SetContentEnum(u"S");
  EXPECT_EQ(errorNumberOf([this] { variable->sFormatSpecialVar(); }), kTypeMismatch);
}

TEST_F(PropertiesTest, ClearingResetsTheDateFormat) {
  const Date date = dateOf({.year = 2024, .month = 3, .day = 15});
  changeEverything(*variable);
  variable->sClrObject();
  variable->SetContentDate(date);
  EXPECT_EQ(printed(*variable), "15/03/2024");

  variable->sReadAttribute(u"DF");  // it was read, its format is empty
  EXPECT_EQ(printed(*variable), "");
}

TEST_F(PropertiesTest, ClearingResetsThePlaceInAnArray) {
  changeEverything(*variable);
  variable->sClrObject();
  variable->SetFieldOfArrayHasPositionInsideTheArray(true);
  variable->SetContentArray(u"abc", 3, -1, false, false, -1);
  EXPECT_EQ(toUtf8(variable->GetContentString()), "abc");
}

TEST_F(PropertiesTest, NoNumberIsPrintedThatWasGivenBeforeClearing) {
  const auto asked = [this] {
    serviceCalls.clear();
    variable->sFormatSpecialVar();
    return serviceCalls.text();
  };
  variable->SetContentNumeric(Currency{-70000}, true);
  EXPECT_EQ(asked(), "clsConvert.fFormatNumberDotComma -70000/10000, 0, 0, true\n");
  variable->sClrObject();
  EXPECT_EQ(asked(), "");
  variable->SetContentNumeric(Currency{-70000}, false);
  EXPECT_EQ(asked(), "clsConvert.fFormatNumberDotComma -70000/10000, 0, 0, false\n");
}

TEST_F(PropertiesTest, ClearingResetsTheBlanksOfConditionalValues) {
  changeEverything(*variable);
  variable->sClrObject();
  message->fault.raiseAt(3, 4711);
  Text function = u"IIF(S,[1]A,B)";
  EXPECT_EQ(errorNumberOf([&] { variable->sExtractIfHasFunction(function); }), 4711);
  EXPECT_EQ(calls.linesOf("clsMessage").size(), 3U);  // the same one, see sExtractIfHasFunction

  variable->sReadAttribute(u"QLR");
  variable->sExtractIfHasFunction(function);
  EXPECT_EQ(variable->GetIifPossibleValues(),
            Value(ValueArray{Value(Text(u" A")), Value(Text(u"B"))}));
}

}  // namespace
}  // namespace tarvo::test
