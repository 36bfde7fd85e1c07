// The separator pattern: which blanks stand between which characters of a value.
#include <optional>

#include "equipment/forwarding_services.h"
#include "template/template_test.h"

namespace tarvo::test {
namespace {

class Pattern : public TemplateTest {
 protected:
  Pattern() {
    printer->SetChrCondensed(u"<");
    printer->SetChrNormal(u">");
  }

  std::string spread(TextView pattern, TextView value) {
    variable->sExtract(u"{R.F,PATRONSEPARADOR=" + Text(pattern) + u"}");
    variable->SetContentString(value);
    return writtenBy([this] { variable->sFormatSpecialVar(); });
  }
};

struct Row {
  const char* shows;
  const char16_t* pattern;
  const char16_t* value;
  const char* text;
};

constexpr Row kRows[] = {
    {"one element between all", u"B", u"1234", "1 2 3 4"},
    {"a count", u"3B", u"123", "1   2   3"},
    {"a count of two digits", u"12B", u"12", "1            2"},
    {"condensed blanks", u"C", u"123", "1< >2< >3"},
    {"condensed blanks with a count", u"4C", u"123", "1<    >2<    >3"},
    {"elements in turn", u"B-2B-3B", u"1234567", "1 2  3   4 5  6   7"},
    {"two elements", u"B-C", u"12345", "1 2< >3 4< >5"},
    {"more elements than gaps", u"B-2B-3B-4B", u"123", "1 2  3"},
    {"several codes in one element", u"2C3B", u"12", "1<  >   2"},
    {"several codes and elements", u"BC-2B2C", u"1234", "1 < >2  <  >3 < >4"},
    {"the same letter twice", u"BB", u"12", "1  2"},
    {"the same condensed letter twice", u"C2C", u"12", "1< ><  >2"},
    {"three codes", u"B2CB", u"12", "1 <  > 2"},
    {"small letters", u"2c3b", u"12", "1<  >   2"},
    {"letters of both cases", u"2c3B-b-C", u"1234", "1<  >   2 3< >4"},

    {"a count of zero", u"0B", u"12", "12"},
    {"a condensed count of zero", u"0C", u"12", "1<>2"},
    {"a count with a fraction", u"1.5B", u"12", "1      2"},  // two codes: "1" and "5B"
    {"a full stop at the end", u"2B.", u"12", "1  2"},
    {"a letter in front of a count", u"B2", u"12", "1  2"},  // "B" and "2"
    {"an unknown letter", u"X", u"12", "1 2"},
    {"an unknown letter with a count", u"3X", u"12", "1   2"},
    {"a digit alone", u"3", u"12", "1 2"},
    {"digits alone", u"35", u"12", "1   2"},  // "3" times the code "5"

    {"an empty pattern", u"", u"123", "123"},
    {"an empty element", u"B--2B", u"12345", "1 23  4 5"},
    {"an empty element in front", u"-B", u"1234", "12 34"},
    {"an empty element at the end", u"B-", u"1234", "1 23 4"},
    {"a dash alone", u"-", u"123", "123"},

    {"an empty value", u"B", u"", ""},
    {"a value of one character", u"3B", u"1", "1"},
    {"two characters", u"3B", u"12", "1   2"},
    {"blanks in the value", u"B", u" 1 ", "  1  "},
    {"a pattern's characters in the value", u"B", u"B-C.", "B - C ."},

    {"a bad count", u"XB", u"12", "error 13"},
    {"a bad count in a later element", u"B-XB", u"123", "error 13"},
    {"a bad count that is not reached", u"B-XB", u"12", "1 2"},
    {"a bad count of a value without gaps", u"XB", u"1", "1"},
    {"two full stops", u"1..B", u"12", "1  2"},  // "1", "" and "B"
    {"a count that is too great", u"32768B", u"12", "error 6"},
    {"a count with a sign", u"+2B", u"12", "1  2"},
    {"a count with blanks", u" 2 B", u"12", "1  2"},
    {"a blank between the codes", u"B 2B", u"12", "1   2"},
};

TEST_F(Pattern, PutsBlanksBetweenTheCharacters) {
  for (const Row& row : kRows) EXPECT_EQ(spread(row.pattern, row.value), row.text) << row.shows;
}

TEST_F(Pattern, AsksForEachGap) {
  EXPECT_EQ(spread(u"B-2C3B", u"123"), "1 2<  >   3");
  EXPECT_EQ(callsMade(),
            R"(fSplit "B-2C3B", "-"; fRepeat " ", 1; fSplit "B-2C3B", "-"; )"
            R"(fReplaceAll "2C3B", "C", "C."; fReplaceAll "2C.3B", "B", "B."; )"
            R"(fSplit "2C.3B", "."; fTextToInteger "2"; fRepeat " ", 2; fTextToInteger "3"; )"
            R"(fRepeat " ", 3)");
  EXPECT_EQ(spread(u"", u"12"), "12");
  EXPECT_EQ(callsMade(), R"(fSplit "", "-")");
}

// Every number of elements over every length of value.
TEST_F(Pattern, TakesItsElementsInTurn) {
  for (std::size_t elements = 1; elements <= 12; ++elements) {
    Text pattern;
    for (std::size_t i = 1; i <= elements; ++i) {
      pattern += (i == 1 ? u"" : u"-") + fromAscii(std::to_string(i)) + u"B";
    }
    for (std::size_t size = 0; size <= 30; ++size) {
      const Text value(size, u'x');
      std::string expected;
      for (std::size_t i = 0; i < size; ++i) {
        if (i > 0) expected.append((i - 1) % elements + 1, ' ');
        expected += 'x';
      }
      ASSERT_EQ(spread(pattern, value), expected) << elements << " elements";
    }
  }
}

TEST_F(Pattern, KeepsThePrintersCodesAsTheyAreNow) {
  printer->SetChrCondensed(Text(u"\x1B\0", 2));
  printer->SetChrNormal({});
  EXPECT_EQ(spread(u"2C", u"12"), std::string("1\x1B\0  2", 6));
  printer->SetChrCondensed({});
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "1  2");
}

TEST_F(Pattern, ComesAfterEverythingElse) {
  struct KindRow {
    const char16_t* line;
    void (*give)(clsObSpecialVar& v);
    const char* text;
  };
  constexpr KindRow kKinds[] = {
      {u"{F,5,PATRONSEPARADOR=B}", [](clsObSpecialVar& v) { v.SetContentString(u"ab"); },
       "a b      "},
      {u"{F,5,NB,PATRONSEPARADOR=B}", [](clsObSpecialVar& v) { v.SetContentString(u"ab"); }, "a b"},
      {u"{F,6,1,C0,PATRONSEPARADOR=B}",
       [](clsObSpecialVar& v) { v.SetContentNumeric(Currency{15'000}, false); }, "0 0 0 1 , 5"},
      {u"{F,6,NC,PATRONSEPARADOR=C}", [](clsObSpecialVar& v) { v.SetContentNumeric({}, false); },
       " < > < > < > < > < > "},
      {u"{F,DF(ddmmyy),PATRONSEPARADOR=B-2B}",
       [](clsObSpecialVar& v) { v.SetContentDate(Date{35869}); }, "1 5  0 3  9 8"},
      {u"{F,2,PATRONSEPARADOR=B}", [](clsObSpecialVar& v) { v.SetContentBoolean(true); }, "S  "},
      {u"{F,IIF(\"C\",Si,No),PATRONSEPARADOR=B}",
       [](clsObSpecialVar& v) { v.SetContentEnum(u"C"); }, "S i"},
      {u"{F,3,FILL,PATRONSEPARADOR=B}", [](clsObSpecialVar& v) { v.SetContentString(u"-"); },
       "- - -"},
      {u"{F,6,QJ,PATRONSEPARADOR=B}", [](clsObSpecialVar& v) { v.SetContentString(u"a bc"); },
       "a       b c"},
      {u"{@f,patronseparador=2b}", [](clsObSpecialVar& v) { v.SetContentString(u"ab"); }, "a  b"},
      {u"{F}", [](clsObSpecialVar& v) { v.SetContentString(u"ab"); }, "ab"},
  };
  for (const KindRow& row : kKinds) {
    variable->sExtract(row.line);
    row.give(*variable);
    EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), row.text) << toUtf8(row.line);
  }
}

// Gaps are counted in 16 bits, and the count steps once past the last.
TEST_F(Pattern, OfATextWithTooManyGapsIsError6) {
  useUnwatchedTexto();
  variable->sExtract(u"{F,PATRONSEPARADOR=B}");
  const auto format = [this] { variable->sFormatSpecialVar(); };
  struct SizeRow {
    std::size_t size;
    std::int32_t error;
  };
  for (const SizeRow& row : {SizeRow{32'767, 0}, {32'768, 6}, {32'769, 6}, {65'537, 6}}) {
    variable->SetContentString(Text(row.size, u'x'));
    EXPECT_EQ(errorNumberOf(format), row.error) << row.size;
    EXPECT_EQ(variable->GetTextToWrite().size(), row.error == 0 ? 2 * row.size - 1 : row.size);
  }
}

// What cannot be spread stays what it was.
TEST_F(Pattern, ThatFailsLeavesTheText) {
  variable->sExtract(u"{F,5,NB,PATRONSEPARADOR=B-XB}");
  variable->SetContentString(u"abc");
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "error 13");
  EXPECT_EQ(variable->GetTextToWrite(), u"abc");
}

TEST_F(Pattern, WithABadCountTellsTheErrorServiceWhoMetIt) {
  EXPECT_EQ(spread(u"XB", u"12"), "error 13");
  EXPECT_EQ(error->trail(),
            "fConvierteBCEnImprimible fGetCharsFromSpecialSeparationString "
            "fDoSpecialSeparationString sFormatSpecialVar");
}

TEST_F(Pattern, OfCondensedBlanksNeedsThePrinter) {
  modRDPGlobalValues::ofThisThread().refInsImp = nullptr;
  EXPECT_EQ(spread(u"B", u"12"), "1 2");
  EXPECT_EQ(spread(u"C", u"12"), "error 91");
  EXPECT_EQ(error->trail(),
            "fConvierteBCEnImprimible fGetCharsFromSpecialSeparationString "
            "fDoSpecialSeparationString sFormatSpecialVar");
}

// A text service that splits every text into nothing.
class NoItems final : public ForwardingTexto {
 public:
  void fSplit(TextView, TextView, TextList& result) override { result.clear(); }
};

TEST_F(Pattern, WithoutElementsIsError9) {
  variable->sExtract(u"{F,PATRONSEPARADOR=B}");
  variable->SetContentString(u"12");
  modRDPGlobalValues::ofThisThread().refInsTexto = make<NoItems>();
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "error 9");
  EXPECT_EQ(error->trail(),
            "fGetCharsFromSpecialSeparationString fDoSpecialSeparationString sFormatSpecialVar");
}

}  // namespace
}  // namespace tarvo::test
