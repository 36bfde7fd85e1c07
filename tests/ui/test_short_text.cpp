// A text of several lines, segment by segment.
#include "equipment/bytes_dump.h"

#include "helpers_test.h"

namespace tarvo::test {
namespace {

Value linesOf(std::initializer_list<Text> lines) { return ValueArray(lines.begin(), lines.end()); }

Text repeated(std::size_t count, TextView part) {
  Text text;
  for (std::size_t i = 0; i < count; ++i) text += part;
  return text;
}

class ShortText : public HelpersTest {
 protected:
  // The next call for the variable.
  Text extract(const Value& lines, bool setsPrintLine = false) {
    return helpers->fExtractShortText(variable, lines, setsPrintLine);
  }

  // As a template's repeated line is printed, until the variable says that it was the last pass:
  // "first|second|last".
  std::string walk(std::uint8_t width, const Value& lines) {
    variable->sClrObject();
    variable->SetArrayPosition(1);
    variable->SetLength(width);
    variable->SetEndOfRepeatPrintLine(false);
    std::string segments;
    for (int pass = 0; pass < 300; ++pass) {
      segments += (pass == 0 ? "" : "|") + toUtf8(extract(lines, true));
      if (variable->GetEndOfRepeatPrintLine()) return segments;
    }
    return segments + "|(and so on)";
  }

  // What one call gives, and what it leaves in the variable: "uno" at 2, end, no line.
  std::string once(const Value& lines, bool setsPrintLine) {
    const std::string segment = inQuotes(extract(lines, setsPrintLine));
    return segment + " at " + std::to_string(variable->GetArrayPosition()) +
           (variable->GetEndOfRepeatPrintLine() ? ", end" : "") +
           (variable->GetPrintLine() ? "" : ", no line");
  }

  void setUp(std::uint8_t position, std::uint8_t width, bool endOfRepeat) {
    variable->sClrObject();
    variable->SetArrayPosition(position);
    variable->SetLength(width);
    variable->SetEndOfRepeatPrintLine(endOfRepeat);
  }

  std::string failure(const Value& lines) {
    return failureOf([&] { extract(lines); });
  }

  Ref<clsObSpecialVar> variable = make<clsObSpecialVar>();
};

struct WalkCase {
  const char* shows;
  std::uint8_t width;
  std::initializer_list<Text> lines;
  const char* segments;
};

const WalkCase kWalks[] = {
    {"words stay whole", 10, {u"uno dos tres cuatro"}, "uno dos|tres|cuatro"},
    {"a text that fits is one segment", 19, {u"uno dos tres cuatro"}, "uno dos tres cuatro"},
    {"a word that is too long is cut at the width", 5, {u"abcdefghijkl"}, "abcde|fghij|kl"},
    {"and so is the one behind a whole word", 5, {u"ab cdefghijkl"}, "ab|cdefg|hijkl"},
    {"a hyphen starts the next segment", 6, {u"alfa-beta gamma"}, "alfa|-beta|gamma"},
    {"a blank at the width's last place", 5, {u"abcd efgh"}, "abcd|efgh"},
    {"a blank behind the width does not count, though a word ends at it",
     5,
     {u"ab de fgh"},
     "ab|de|fgh"},
    {"of several blanks only the last one goes", 6, {u"abc   def"}, "abc  |def"},
    {"blanks at the ends do not count", 7, {u"  abc def  "}, "abc def"},
    {"a width of 1", 1, {u"ab c"}, "a|b|c"},
    {"the greatest width", 255, {u"abc"}, "abc"},
    {"lines follow one another directly", 10, {u"abc", u"def", u"-"}, "abcdef"},
    {"a blank at a line's end separates", 10, {u"abc ", u"def", u"-"}, "abc def"},
    {"the last line of several is not used", 10, {u"abc", u"def"}, "abc"},
    {"the only one is", 10, {u"abc"}, "abc"},
    {"empty lines between", 10, {u"abc", u"", u"", u"def", u"-"}, "abcdef"},
    {"an empty first line", 10, {u"", u"abc", u"-"}, "abc"},
    {"eleven lines are used, the twelfth is not",
     20,
     {u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j", u"k", u"l", u"m"},
     "abcdefghijk"},
    {"no text", 10, {u""}, ""},
    {"nothing but blanks", 10, {u"     ", u"  ", u"-"}, ""},
};

TEST_F(ShortText, IsCutIntoSegments) {
  for (const WalkCase& row : kWalks) {
    EXPECT_EQ(row.segments, walk(row.width, linesOf(row.lines))) << row.shows;
  }
}

TEST_F(ShortText, TakesTheNextLineOnlyWhileFewerThan180CharactersWait) {
  EXPECT_EQ(toUtf8(repeated(179, u"x")) + "Y",
            walk(255, linesOf({repeated(179, u"x"), u"Y", u"-"})));
  EXPECT_EQ(toUtf8(repeated(180, u"x")) + "|Y",
            walk(255, linesOf({repeated(180, u"x"), u"Y", u"-"})));
}

TEST_F(ShortText, OfALineThatWaitsIsTheOneThatFollowsTheSegment) {
  // 190 characters wait; the segment leaves 140, and then the second line joins on.
  const Text longLine = repeated(38, u"abcd ");
  const Value lines = linesOf({longLine, u"fin", u"-"});
  EXPECT_EQ(toUtf8(longLine.substr(0, 49)), walk(50, lines).substr(0, 49));
  EXPECT_EQ("abcdfin", walk(50, lines).substr(walk(50, lines).rfind(' ') + 1))
      << "the blank at the line's end went with a trim";
}

TEST_F(ShortText, ALineWithoutAValueIsAnEmptyOne) {
  EXPECT_EQ("abc", walk(10, ValueArray{Empty{}, Text(u"abc"), Text()}));
  EXPECT_EQ("abcdef", walk(10, ValueArray{Text(u"abc"), Empty{}, Text(u"def"), Empty{}}));
}

TEST_F(ShortText, AnArraysUnusedLinesMayBeAnything) {
  EXPECT_EQ("abc", walk(10, ValueArray{Text(u"abc"), std::int16_t{7}}));
}

TEST_F(ShortText, AnswersForThePositionThatIsAskedFor) {
  const Value lines = linesOf({u"uno dos tres cuatro"});
  struct Row {
    std::uint8_t position;
    const char* expected;
  };
  for (const Row& row :
       {Row{0, R"("uno dos" at 0)"}, Row{1, R"("uno dos" at 1)"}, Row{2, R"("tres" at 2)"},
        Row{3, R"("cuatro" at 3, end)"}, Row{4, R"("" at 4, end, no line)"},
        Row{255, R"("" at 255, end, no line)"}}) {
    setUp(row.position, 10, false);
    EXPECT_EQ(row.expected, once(lines, false));
    setUp(row.position, 10, false);
    variable->SetLineOfRepeatToPrint(true);
    EXPECT_EQ(row.expected, once(lines, false)) << "on a later pass of the line as well";
  }
}

TEST_F(ShortText, GoesOnByItselfWhenItIsToSuppressLines) {
  const Value lines = linesOf({u"uno dos tres"});
  setUp(1, 8, false);
  EXPECT_EQ(R"("uno dos" at 2)", once(lines, true));
  EXPECT_EQ(R"("tres" at 3, end)", once(lines, true));
  EXPECT_EQ(R"("" at 3, end, no line)", once(lines, true));
}

TEST_F(ShortText, SuppressesAnEmptyLineOnlyWhileTheRepetitionGoesOnOrWhenAsked) {
  struct Row {
    bool endOfRepeat;
    bool setsPrintLine;
    const char* expected;
  };
  for (const Row& row :
       {Row{false, false, R"("" at 1, end, no line)"}, Row{true, false, R"("" at 1, end)"},
        Row{false, true, R"("" at 1, end, no line)"},
        Row{true, true, R"("" at 1, end, no line)"}}) {
    setUp(1, 10, row.endOfRepeat);
    EXPECT_EQ(row.expected, once(linesOf({u""}), row.setsPrintLine));
  }
}

TEST_F(ShortText, NeverTakesBackWhatTheVariableSays) {
  setUp(1, 5, true);
  variable->SetPrintLine(false);
  EXPECT_EQ(R"("uno" at 2, end, no line)", once(linesOf({u"uno dos"}), true))
      << "something follows, but the end was said before";
}

// A text behind which the cut does not get stays where it is.
TEST_F(ShortText, EndsWithAnEmptySegmentWhenOnlyTheFirstCharacterSeparates) {
  setUp(1, 5, false);
  EXPECT_EQ(R"("" at 1, end, no line)", once(linesOf({u"-abcdefgh"}), true));
  EXPECT_EQ("ab ", walk(4, linesOf({u"ab -cdefgh"}))) << "and the one before is the last";
}

TEST_F(ShortText, OfWidthZeroIsEmpty) {
  setUp(1, 0, false);
  EXPECT_EQ(R"("" at 1, end, no line)", once(linesOf({u"uno dos"}), false));
}

TEST_F(ShortText, IsTheSameWheneverItIsAskedFor) {
  const Value lines = linesOf({u"uno dos tres cuatro"});
  setUp(2, 10, false);
  EXPECT_EQ(u"tres", extract(lines));
  EXPECT_EQ(u"tres", extract(lines));
  EXPECT_EQ(lines, linesOf({u"uno dos tres cuatro"})) << "the client's array is its own";
}

TEST_F(ShortText, AsksTheTextServiceForEveryStep) {
  setUp(2, 4, false);
  serviceCalls.clear();
  extract(linesOf({u"uno", u" dos tres", u"-"}));
  EXPECT_EQ(
      "clsTexto.fLength \"uno\"\n"
      "clsTexto.fTrim \"uno dos tres\"\n"
      "clsTexto.fLength \"uno dos tres\"\n"
      "clsTexto.fPart \"uno dos tres\", 1, 3\n"
      "clsTexto.fDelete \"uno dos tres\", 1, 2\n"
      "clsTexto.fTrim \" dos tres\"\n"
      "clsTexto.fLength \"dos tres\"\n"
      "clsTexto.fPart \"dos tres\", 1, 3\n"
      "clsTexto.fDelete \"dos tres\", 1, 2\n"
      "clsTexto.fTrim \" tres\"\n"
      "clsTexto.fLength \"tres\"\n"
      "clsTexto.fPart \"tres\", 1, 4\n"
      "clsTexto.fDelete \"tres\", 1, 3\n",
      serviceCalls.text());
}

TEST_F(ShortText, AsksForNoPartOfAnEmptyText) {
  setUp(1, 10, false);
  serviceCalls.clear();
  extract(linesOf({u""}));
  EXPECT_EQ(
      "clsTexto.fTrim \"\"\n"
      "clsTexto.fLength \"\"\n"
      "clsTexto.fTrim \"\"\n"
      "clsTexto.fLength \"\"\n",
      serviceCalls.text());
}

TEST_F(ShortText, WalksPast254SegmentsInFourCallsEach) {
  const Value lines = linesOf({repeated(300, u"a ")});
  setUp(255, 1, false);
  serviceCalls.clear();
  EXPECT_EQ(u"a", extract(lines));
  EXPECT_EQ(256u * 4, serviceCalls.lines().size());
  EXPECT_FALSE(variable->GetEndOfRepeatPrintLine());
}

// --- Errors.

TEST_F(ShortText, FailsForWhatIsNoShortText) {
  setUp(1, 10, false);
  for (const Value& wrong : {Value(), Value(Null{}), Value(Text(u"uno")), Value(std::int16_t{1}),
                             Value(true), Value(Ref<Object>(variable))}) {
    EXPECT_EQ("13: fExtractShortText", failure(wrong));
    const Value first = ValueArray{wrong, Text(u"uno")};
    const bool isLine = wrong == Value() || wrong == Value(Text(u"uno"));
    EXPECT_EQ(isLine ? "none" : "13: fExtractShortText", failure(first));
    const Value second = ValueArray{Text(u"uno"), wrong, Text(u"dos")};
    EXPECT_EQ(isLine ? "none" : "13: sAddTextIfPossible fExtractShortText", failure(second));
  }
  EXPECT_EQ("9: fExtractShortText", failure(ValueArray{}));
  variable = nullptr;
  EXPECT_EQ("91: fExtractShortText", failure(Empty{})) << "the variable comes first";
}

TEST_F(ShortText, NamesTheArgumentThatIsNone) {
  const auto raised = errorOf([this] { extract(Empty{}); });
  ASSERT_TRUE(raised);
  EXPECT_EQ(u"Type mismatch: valShortText < fExtractShortText", raised->description());
}

TEST_F(ShortText, FailsWhenItsPositionLeavesAByte) {
  const Value lines = linesOf({repeated(300, u"a ")});
  setUp(255, 1, false);
  EXPECT_EQ("6: fExtractShortText", failureOf([&] { extract(lines, true); }));
  EXPECT_EQ(255, variable->GetArrayPosition());
  setUp(254, 1, false);
  EXPECT_EQ(R"("a" at 255)", once(lines, true));
}

TEST_F(ShortText, FailsWhenTheTextIsLongerThanItsCount) {
  setUp(1, 10, false);
  EXPECT_EQ("none", failure(linesOf({repeated(32767, u"x")})));
  EXPECT_EQ("6: fSearchWhereToCutOnlyText fExtractSegment fExtractShortText",
            failure(linesOf({repeated(32768, u"x")})));
  EXPECT_EQ("none", failure(linesOf({repeated(32768, u" ") + u"x"})))
      << "blanks are taken off first";
}

TEST_F(ShortText, ReportsTheErrorsOfTheServiceFromEachWorker) {
  const Value lines = linesOf({u"uno", u" dos tres", u"-"});
  setUp(2, 4, false);
  serviceCalls.clear();
  extract(lines);
  const std::vector<std::string> steps = serviceCalls.lines();
  ASSERT_EQ(13u, steps.size());
  for (std::size_t i = 0; i < steps.size(); ++i) {
    setUp(2, 4, false);
    texto->fault.raiseAt(static_cast<int>(i + 1), kOutOfMemory);
    const bool isLength = steps[i].starts_with("clsTexto.fLength");
    const std::string expected = i == 0 ? "7: sAddTextIfPossible fExtractShortText"
                                        : std::string("7: ") +
                                              (isLength ? "fSearchWhereToCutOnlyText " : "") +
                                              "fExtractSegment fExtractShortText";
    EXPECT_EQ(expected, failure(lines)) << "call " << i + 1 << ": " << steps[i];
    EXPECT_FALSE(variable->GetEndOfRepeatPrintLine());
    EXPECT_TRUE(variable->GetPrintLine());
  }
  texto->fault.never();
  setUp(2, 4, false);
  EXPECT_EQ("none", failure(lines));
}

TEST_F(ShortText, FailsWithoutATextService) {
  setUp(1, 4, false);
  use({});
  EXPECT_EQ("91: fExtractSegment fExtractShortText", failure(linesOf({u"uno"})));
  EXPECT_EQ("91: sAddTextIfPossible fExtractShortText",
            failure(linesOf({u"uno", u"dos", u"tres"})));
}

// Another service may answer what it likes.
class LyingTexto final : public OtherTexto {
 public:
  explicit LyingTexto(std::int32_t length) : length_(length) {}
  std::int32_t fLength(TextView) override { return length_; }

 private:
  std::int32_t length_;
};

TEST_F(ShortText, DoesNotLookBehindItsTextWhateverTheServiceSays) {
  setUp(1, 200, false);
  use(make<LyingTexto>(500));
  EXPECT_EQ(u"ab", extract(linesOf({u"ab cd"})));
  use(make<LyingTexto>(-5));
  EXPECT_EQ("5: fExtractSegment fExtractShortText", failure(linesOf({u"ab cd"})));
  use(make<LyingTexto>(40'000));
  EXPECT_EQ("6: fSearchWhereToCutOnlyText fExtractSegment fExtractShortText",
            failure(linesOf({u"ab cd"})));
}

// The variable may lose its last other owner while a service works.
class ReleasingTexto final : public OtherTexto {
 public:
  explicit ReleasingTexto(Ref<clsObSpecialVar>& owner) : owner_(owner) {}
  void fTrim(TextView valText, Text& result) override {
    owner_ = nullptr;
    OtherTexto::fTrim(valText, result);
  }

 private:
  Ref<clsObSpecialVar>& owner_;
};

TEST_F(ShortText, KeepsTheVariableWhileItWorks) {
  setUp(1, 4, false);
  use(make<ReleasingTexto>(variable));
  EXPECT_EQ(u"uno", extract(linesOf({u"uno dos"}), true));
  EXPECT_FALSE(variable);
}

}  // namespace
}  // namespace tarvo::test
