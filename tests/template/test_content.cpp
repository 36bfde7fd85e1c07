// What the client gives a variable: kind, contents and alignment, one element of an array, and
// which values count as empty.
#include <array>

#include "equipment/forwarding_services.h"
#include "equipment/show_arguments.h"
#include "template/template_test.h"

namespace tarvo::test {
namespace {

constexpr eAlignmentType kAlignments[] = {eAT_Right, eAT_Left, eAT_Center, eAT_Justify};

void giveString(clsObSpecialVar& v) { v.SetContentString(u"Ana"); }
void giveNumber(clsObSpecialVar& v) { v.SetContentNumeric(Currency{12'500}, true); }
void giveDate(clsObSpecialVar& v) { v.SetContentDate(Date{35869.5}); }
void giveEnum(clsObSpecialVar& v) { v.SetContentEnum(u"C"); }
void giveBoolean(clsObSpecialVar& v) { v.SetContentBoolean(true); }
void giveArray(clsObSpecialVar& v) { v.SetContentArray(u"xyz", 0, -1, false, false, 2); }

// The alignment that an operation chooses where none was read.
enum class Chooses { kLeft, kRight, kNothing };

struct Operation {
  const char* shows;
  void (*give)(clsObSpecialVar& variable);
  eTypeFieldRecord kind;
  Chooses alignment;
};

constexpr Operation kOperations[] = {
    {"SetContentString", giveString, TFR_String, Chooses::kLeft},
    {"SetContentNumeric", giveNumber, TFR_Numeric, Chooses::kRight},
    {"SetContentDate", giveDate, TFR_Date, Chooses::kNothing},
    {"SetContentEnum", giveEnum, TFR_Enum, Chooses::kNothing},
    {"SetContentBoolean", giveBoolean, TFR_Boolean, Chooses::kNothing},
    {"SetContentArray", giveArray, TFR_String, Chooses::kLeft},
};

eAlignmentType chosen(Chooses chooses, eAlignmentType before) {
  if (chooses == Chooses::kNothing) return before;
  return chooses == Chooses::kLeft ? eAT_Left : eAT_Right;
}

std::string contentsOf(const clsObSpecialVar& v) {
  return showArguments(v.GetContentString(), v.GetContentNumeric(), v.GetContentDate(),
                       v.GetContentBool(), v.GetContentEnum());
}

class Content : public TemplateTest {};

TEST_F(Content, IsKeptByKind) {
  const std::array<const char*, std::size(kOperations)> contents{
      R"("Ana", 0/10000, day 2, false, "")",    R"("", 12500/10000, day 2, false, "")",
      R"("", 0/10000, day 35869.5, false, "")", R"("", 0/10000, day 2, false, "C")",
      R"("", 0/10000, day 2, true, "")",        R"("y", 0/10000, day 2, false, "")"};
  for (std::size_t i = 0; i < std::size(kOperations); ++i) {
    variable->sClrObject();
    kOperations[i].give(*variable);
    EXPECT_EQ(contentsOf(*variable), contents[i]) << kOperations[i].shows;
    EXPECT_EQ(variable->GetTypeField(), kOperations[i].kind) << kOperations[i].shows;
  }
}

TEST_F(Content, KeepsTextsWithEveryCharacter) {
  const Text text{u'a', u'\0', char16_t{0xD800}, u' '};
  variable->SetContentString(text);
  EXPECT_EQ(variable->GetContentString(), text);
  variable->SetContentEnum(text);
  EXPECT_EQ(variable->GetContentEnum(), text);
  variable->SetContentString({});
  variable->SetContentEnum({});
  EXPECT_EQ(variable->GetContentString() + variable->GetContentEnum(), u"");
}

TEST_F(Content, TakesATextOfTheVariableItself) {
  variable->SetContentString(u"one two three four");
  variable->SetContentString(TextView(variable->GetContentString()).substr(4));
  EXPECT_EQ(variable->GetContentString(), u"two three four");
  variable->SetContentArray(variable->GetContentString(), 0, -1, false, false, 5);
  EXPECT_EQ(variable->GetContentString(), u"t");
}

TEST_F(Content, ChoosesAnAlignmentUnlessOneWasRead) {
  for (const Operation& operation : kOperations) {
    for (const eAlignmentType before : kAlignments) {
      for (const bool wasRead : {false, true}) {
        variable->sClrObject();
        variable->SetAlignmentType(before);
        variable->SetAlignmentWasRead(wasRead);
        operation.give(*variable);
        EXPECT_EQ(variable->GetAlignmentType(),
                  wasRead ? before : chosen(operation.alignment, before))
            << operation.shows << " " << before << " " << wasRead;
        EXPECT_EQ(variable->GetAlignmentWasRead(), wasRead);
      }
    }
  }
}

TEST_F(Content, IsNotFormattedYet) {
  for (const Operation& operation : kOperations) {
    variable->sExtract(u"{R.F,9,NB,C0,PATRONSEPARADOR=B}");
    variable->SetTextToWrite(u"before");
    EXPECT_EQ(writtenBy([&] { operation.give(*variable); }), "before") << operation.shows;
    EXPECT_EQ(callsMade(), "") << operation.shows;
  }
}

TEST_F(Content, ThatWasGivenLastCounts) {
  const auto format = [this](const Operation& last) {
    last.give(*variable);
    variable->sFormatSpecialVar();
    return toUtf8(variable->GetTextToWrite());
  };
  for (const Operation& first : kOperations) {
    for (const Operation& last : kOperations) {
      SCOPED_TRACE(std::string(first.shows) + ", " + last.shows);
      variable->sExtract(u"{R.F,12,1,QC,IIF(\"C\",Contado,Otro)}");
      const std::string alone = format(last);
      variable->sExtract(u"{R.F,12,1,QC,IIF(\"C\",Contado,Otro)}");
      first.give(*variable);
      EXPECT_EQ(format(last), alone);
      EXPECT_EQ(variable->GetTypeField(), last.kind);

      variable->sClrObject();
      first.give(*variable);
      last.give(*variable);
      EXPECT_EQ(variable->GetAlignmentType(),
                chosen(last.alignment, chosen(first.alignment, eAT_Left)));
    }
  }
}

TEST_F(Content, OfTheOtherKindsStays) {
  for (const Operation& operation : kOperations) operation.give(*variable);
  EXPECT_EQ(contentsOf(*variable), R"("y", 12500/10000, day 35869.5, true, "C")");
}

TEST_F(Content, SaysEachTimeWhetherANegativeNumberHasParentheses) {
  variable->sExtract(u"{R.F,9}");
  const auto format = [this](bool parenthesis) {
    variable->SetContentNumeric(Currency{-15'000}, parenthesis);
    variable->sFormatSpecialVar();
    return toUtf8(variable->GetTextToWrite());
  };
  EXPECT_EQ(format(true), "   (1,50)");
  EXPECT_EQ(format(false), "    -1,50");
}

// --- Arrays.

struct ArrayArguments {
  TextView value;
  std::uint8_t maxWidth;
  std::int16_t indexPosition;
  bool fill;
  bool arrayPositionIsValid;
  std::int16_t position;
};

struct ArrayCase : ArrayArguments {
  // Of the template.
  std::uint8_t arrayPosition = 0;
  bool hasPositionInside = false;
  std::int16_t positionInside = -1;
};

std::ostream& operator<<(std::ostream& out, const ArrayCase& c) {
  return out << showArguments(c.value, c.maxWidth, c.indexPosition, c.fill, c.arrayPositionIsValid,
                              c.position)
             << " in {R.F[" << int{c.arrayPosition} << "]"
             << (c.hasPositionInside ? "[" + std::to_string(c.positionInside) + "]}" : "}");
}

// What SetContentArray has to choose, step by step.
Text elementOf(const ArrayCase& c) {
  int p = -1;
  int a = c.position;
  if (c.indexPosition == -1 && c.fill && !c.arrayPositionIsValid && c.position == -1) {
    a = c.arrayPosition;
  } else if (c.arrayPositionIsValid) {
    a = c.arrayPosition;
  }
  if (c.hasPositionInside) {
    if (c.indexPosition == -1) p = c.positionInside;
  } else if (c.indexPosition == -1 && a > 0) {
    p = a;
  }
  Text value(c.value);
  if (c.fill) value.resize(c.maxWidth, u' ');
  if (p < 1 || p > static_cast<int>(value.size())) return value;
  return Text(1, value[static_cast<std::size_t>(p) - 1]);
}

constexpr std::uint8_t kWidths[] = {0, 3, 6, 255};
constexpr std::uint8_t kArrayPositions[] = {0, 1, 2, 4, 5, 255};
constexpr std::int16_t kPositions[] = {-32768, -2, -1, 0, 1, 2, 4, 5, 32767};
constexpr std::int16_t kIndexPositions[] = {-32768, -2, -1, 0, 1, 2, 32767};

class ArrayContent : public TemplateTest {
 protected:
  void give(const ArrayArguments& c) {
    variable->SetContentArray(c.value, c.maxWidth, c.indexPosition, c.fill, c.arrayPositionIsValid,
                              c.position);
  }

  void expectElement(const ArrayCase& c) {
    serviceCalls.clear();
    variable->SetAlignmentType(eAT_Center);
    give(c);
    ASSERT_EQ(inQuotes(variable->GetContentString()), inQuotes(elementOf(c))) << c;
    ASSERT_EQ(variable->GetTypeField(), TFR_String) << c;
    ASSERT_EQ(variable->GetAlignmentType(), eAT_Left) << c;
    ASSERT_EQ(callsMade(),
              c.fill ? "fPadOrCut " + showArguments(c.value, c.maxWidth, TextView(u" ")) : "")
        << c;
  }

  // With every combination of the arguments; what the template says stands in the case.
  void expectEveryCallOf(ArrayCase c) {
    for (c.value = u""; c.value.size() <= 4; c.value = TextView(u"abcde", c.value.size() + 1)) {
      for (const std::uint8_t width : kWidths) {
        for (const std::int16_t index : kIndexPositions) {
          for (const std::int16_t position : kPositions) {
            for (const int flags : {0, 1, 2, 3}) {
              c.maxWidth = width;
              c.indexPosition = index;
              c.position = position;
              c.fill = (flags & 1) != 0;
              c.arrayPositionIsValid = (flags & 2) != 0;
              ASSERT_NO_FATAL_FAILURE(expectElement(c));
            }
          }
        }
      }
    }
  }
};

TEST_F(ArrayContent, TakesTheElementOfEveryCombination) {
  for (const std::uint8_t element : kArrayPositions) {
    variable->sExtract(u"{R.F[" + fromAscii(std::to_string(element)) + u"]}");
    ArrayCase c{};
    c.arrayPosition = element;
    ASSERT_NO_FATAL_FAILURE(expectEveryCallOf(c));
  }
}

TEST_F(ArrayContent, TakesThePositionInsideTheElementOfEveryCombination) {
  for (const std::uint8_t element : {std::uint8_t{0}, std::uint8_t{2}}) {
    for (const std::int16_t inside : kPositions) {
      variable->sExtract(u"{R.F[" + fromAscii(std::to_string(element)) + u"][" +
                         fromAscii(std::to_string(inside)) + u"]}");
      ArrayCase c{};
      c.arrayPosition = element;
      c.hasPositionInside = true;
      c.positionInside = inside;
      ASSERT_NO_FATAL_FAILURE(expectEveryCallOf(c));
    }
  }
}

// A client says that there is a position inside, and the template has none.
TEST_F(ArrayContent, TakesTheWholeTextWhenThePositionInsideIsMissing) {
  variable->sExtract(u"{R.F[2]}");
  variable->SetFieldOfArrayHasPositionInsideTheArray(true);
  ArrayCase c{};
  c.arrayPosition = 2;
  c.hasPositionInside = true;
  expectEveryCallOf(c);
}

TEST_F(ArrayContent, IsOneCharacterOfTheText) {
  struct Row {
    const char16_t* line;
    ArrayArguments given;
    const char16_t* content;
  };
  constexpr Row kRows[] = {
      {u"{R.F[2]}", {u"SNNS", 4, -1, true, false, -1}, u"N"},
      {u"{R.F[2]}", {u"SNNS", 4, -1, false, true, 0}, u"N"},
      {u"{R.F[2]}", {u"SNNS", 4, -1, false, false, 4}, u"S"},
      {u"{R.F[2]}", {u"SNNS", 4, -1, false, false, -1}, u"SNNS"},
      {u"{R.F[2]}", {u"SNNS", 4, 0, true, true, 2}, u"SNNS"},
      {u"{R.F[2][4]}", {u"SNNX", 4, -1, false, false, 1}, u"X"},
      {u"{R.F[6]}", {u"SNNS", 6, -1, true, true, 0}, u" "},
      {u"{R.F[7]}", {u"SNNS", 6, -1, true, true, 0}, u"SNNS  "},
      {u"{R.F[5]}", {u"SNNS", 4, -1, false, true, 0}, u"SNNS"},
      {u"{R.F[0]}", {u"SNNS", 4, -1, false, true, 3}, u"SNNS"},
      {u"{R.F[3]}", {u"SNNS", 2, -1, true, true, 0}, u"SN"},
      {u"{R.F}", {u"SNNS", 4, -1, false, false, 3}, u"N"},
  };
  for (const Row& row : kRows) {
    variable->sExtract(row.line);
    give(row.given);
    EXPECT_EQ(inQuotes(variable->GetContentString()), inQuotes(row.content))
        << toUtf8(row.line) << " " << showArguments(row.given.value);
  }
}

TEST_F(ArrayContent, KeepsAnAlignmentThatWasRead) {
  variable->sExtract(u"{R.F[2],QR}");
  give({u"SNNS", 4, -1, true, false, -1});
  EXPECT_EQ(variable->GetAlignmentType(), eAT_Right);
}

// --- Empty values.

// A date service for which every date is of one year.
class OneYear final : public ForwardingDate {
 public:
  explicit OneYear(std::int16_t year) : year_(year) {}
  std::int16_t fYear(Date) override { return year_; }

 private:
  std::int16_t year_;
};

class EmptyValue : public TemplateTest {};

TEST_F(EmptyValue, DependsOnTheKind) {
  struct Row {
    const char* shows;
    void (*give)(clsObSpecialVar& v);
    bool isEmpty;
    const char* calls = "";
  };
  constexpr Row kRows[] = {
      {"nothing given yet", [](clsObSpecialVar&) {}, true},
      {"an empty text", [](clsObSpecialVar& v) { v.SetContentString({}); }, true},
      {"a blank", [](clsObSpecialVar& v) { v.SetContentString(u" "); }, false},
      {"a text", [](clsObSpecialVar& v) { v.SetContentString(u"0"); }, false},
      {"number 0", [](clsObSpecialVar& v) { v.SetContentNumeric({}, false); }, true},
      {"a least number", [](clsObSpecialVar& v) { v.SetContentNumeric({1}, false); }, false},
      {"a negative one", [](clsObSpecialVar& v) { v.SetContentNumeric({-1}, true); }, false},
      {"false", [](clsObSpecialVar& v) { v.SetContentBoolean(false); }, true},
      {"true", [](clsObSpecialVar& v) { v.SetContentBoolean(true); }, false},
      {"an empty enumeration", [](clsObSpecialVar& v) { v.SetContentEnum({}); }, false},
      {"an enumeration", [](clsObSpecialVar& v) { v.SetContentEnum(u"C"); }, false},
      {"an empty array", [](clsObSpecialVar& v) { v.SetContentArray({}, 0, 0, false, false, 0); },
       true},
      {"an array", [](clsObSpecialVar& v) { v.SetContentArray(u"S", 0, 0, false, false, 0); },
       false},
      {"1 January 1900", [](clsObSpecialVar& v) { v.SetContentDate(Date{2}); }, true,
       "fYear day 2"},
      {"a day before the first", [](clsObSpecialVar& v) { v.SetContentDate(Date{-1.5}); }, true,
       "fYear day -1.5"},
      {"15 March 1997",
       [](clsObSpecialVar& v) { v.SetContentDate(dateOf({.year = 1997, .month = 3, .day = 15})); },
       true, "fYear day 35504"},
      {"the last second of 1997", [](clsObSpecialVar& v) { v.SetContentDate(Date{35795.99999}); },
       true, "fYear day 35795.99999"},
      {"the first day of 1998", [](clsObSpecialVar& v) { v.SetContentDate(Date{35796}); }, false,
       "fYear day 35796"},
      {"a date of 2026", [](clsObSpecialVar& v) { v.SetContentDate(Date{46'100.25}); }, false,
       "fYear day 46100.25"},
  };
  for (const Row& row : kRows) {
    variable->sClrObject();
    row.give(*variable);
    serviceCalls.clear();
    EXPECT_EQ(variable->fIsEmpty(), row.isEmpty) << row.shows;
    EXPECT_EQ(callsMade(), row.calls) << row.shows;
  }
}

TEST_F(EmptyValue, OfADateIsWhatTheDateServiceSaysOfItsYear) {
  constexpr std::int16_t kYears[] = {-1, 0, 100, 1997, 1998, 1999, 32767};
  for (const std::int16_t year : kYears) {
    modRDPGlobalValues::ofThisThread().refInsUtilDate = make<OneYear>(year);
    for (const Date date : {Date{2}, Date{46'100}}) {
      variable->SetContentDate(date);
      EXPECT_EQ(variable->fIsEmpty(), year < 1998) << year << " " << date.serial;
    }
  }
}

// Neither the attributes nor the contents of other kinds matter.
TEST_F(EmptyValue, IsOneOfTheKindThatCounts) {
  variable->sExtract(u"{R.F,9,NC,VACIO}");
  variable->SetContentString(u"Ana");
  variable->SetContentNumeric({}, false);
  EXPECT_TRUE(variable->fIsEmpty());
  variable->SetContentBoolean(true);
  EXPECT_FALSE(variable->fIsEmpty());
  variable->SetContentDate(Date{2});
  EXPECT_TRUE(variable->fIsEmpty());
  variable->SetContentEnum({});
  EXPECT_FALSE(variable->fIsEmpty());
}

}  // namespace
}  // namespace tarvo::test
