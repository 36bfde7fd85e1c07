// Values that take exactly their variable's length are put into the line at once, and numbers even
// later, when somebody looks at the line: neither is seen, however often nobody looks.
#include <functional>
#include <limits>
#include <random>

#include "template/two_worlds.h"

namespace tarvo::test {
namespace {

using Fields = BypassedTextService;
using Choice = std::minstd_rand::result_type;

// What happens in one translation, by chance, but the same for the same number.
class Turn {
 public:
  explicit Turn(std::uint32_t number) : number_(number) {}

  SourceAction action(std::string& seen) const {
    return [this, &seen](Ref<clsObLineCharacts>& line, int call, TranslationWorld&) {
      std::minstd_rand random(number_ / 2 * 31 + static_cast<std::uint32_t>(call));
      random.discard(4);
      clsObSpecialVar& variable = *line->GetSpecialVar();
      giveValue(variable, random());
      // The second of two turns differs from the first one now and then.
      std::minstd_rand own(number_ * 97 + static_cast<std::uint32_t>(call));
      own.discard(4);
      if (own() % 8 == 0) giveValue(variable, own());
      if (own() % 16 == 0) variable.SetDecimalPlaces(static_cast<std::uint8_t>(own() % 5));
      if (own() % 16 == 0) variable.SetLength(static_cast<std::uint8_t>(own() % 14));
      if (own() % 24 == 0) seen += toUtf8(line->GetTextToWrite()) + "\n";
      if (own() % 24 == 0) throw RunTimeError(kRaised, RunTimeError::Details{});
      return own() % 24 != 0;
    };
  }

  // Whether somebody looks at the line afterwards.
  bool isLookedAt() const { return number_ % 2 == 1 && number_ % 3 != 0; }

 private:
  static void giveValue(clsObSpecialVar& variable, Choice choice) {
    static constexpr TextView kTexts[] = {
        u"",    u"a",          u" a",         u"a ",  u"abcdefghij",
        u"   ", u"abcdefghi ", u" bcdefghij", u"{B}", u"abcdefghij{"};
    static constexpr std::int64_t kNumbers[] = {0,
                                                1,
                                                -1,
                                                49,
                                                50,
                                                -50,
                                                9'999'999,
                                                10'000'000,
                                                -123'456'789,
                                                999'999'999'999'999,
                                                std::numeric_limits<std::int64_t>::min(),
                                                std::numeric_limits<std::int64_t>::max()};
    const Choice index = choice / 8;
    if (choice % 8 < 3) {
      variable.SetContentString(kTexts[index % std::size(kTexts)]);
    } else if (choice % 8 == 3) {
      variable.SetContentDate(Date{45'000.0 + static_cast<double>(index % 3)});
    } else {
      variable.SetContentNumeric(Currency{kNumbers[index % std::size(kNumbers)]}, index % 5 == 0);
    }
  }

  std::uint32_t number_;
};

constexpr TextView kLines[] = {
    u"{A,10}|{B,12}|{C,8,0}",           u"{NEGRA}{A,10} {B,10,QR}{C,10,CP}{BLANCA}",
    u"{A,5,1}{B,6,3}{C,7,4}{D,30,200}", u"{A,10,NC}{B,10,SC}{C,10,C0}{D,10,NB}{E,10,QL}",
    u"{A}{B,10}{C}{D,10,FILL}",         u"{A,10,CONDICION}{B,10}{@fijo,6}{C,10}",
};

// Translates, and gives what is to be seen of it without a look at the line.
std::string translateUnseen(TranslationWorld& world, TextView line, const Turn& turn) {
  std::string seen;
  const SourceAction action = turn.action(seen);
  CallLog log;
  RecordingSource source(world, log, action);
  world.useServices();
  world.line->sClrRecord();
  const auto error = errorOf([&] { world.translator.translate(world.line, line, source); });
  const clsObSpecialVar& variable = *world.line->GetSpecialVar();
  return seen + log.text() + (error ? toUtf8(error->description()) : "translated") + " leaves " +
         wholeDumpOf(variable) + " and fills " +
         std::to_string(world.line->fNumberOfPrintedLinesThatWillFill());
}

TEST_F(Fields, AreNotSeenWhetherSomebodyLooksOrNot) {
  TranslationWorld asked(TranslationWorld::kAsked);
  TranslationWorld unwatched(TranslationWorld::kAllBypassed);
  for (std::uint32_t number = 0; number < 3000; ++number) {
    const TextView line = kLines[number / 2 % std::size(kLines)];
    SCOPED_TRACE(std::to_string(number) + " " + toUtf8(line));
    const Turn turn(number);
    const std::string expected = translateUnseen(asked, line, turn);
    ASSERT_EQ(translateUnseen(unwatched, line, turn), expected);
    if (turn.isLookedAt()) {
      asked.useServices();
      const Text text = asked.line->GetTextToPrint();
      unwatched.useServices();
      ASSERT_EQ(toUtf8(unwatched.line->GetTextToPrint()), toUtf8(text));
    }
  }
}

// A number of a line at which nobody has looked is written by the service that was there.
TEST_F(Fields, AreMadeByTheServiceOfTheirTime) {
  class SpoilingConvert final : public ForwardingConvert {
   public:
    int calls = 0;
    bool mayBeBypassed() const noexcept override { return true; }
    bool putsFields() const noexcept override { return true; }
    void putField(Currency, const FieldForm&, std::span<char16_t> field) noexcept override {
      ++calls;
      std::fill(field.begin(), field.end(), u'?');
    }
  };
  TranslationWorld world(TranslationWorld::kAllBypassed);
  std::int64_t number = 0;
  const SourceAction giveNumber = [&number](Ref<clsObLineCharacts>& line, int, auto&) {
    line->GetSpecialVar()->SetContentNumeric(Currency{number += 10'000}, false);
    return true;
  };
  CallLog log;
  RecordingSource source(world, log, giveNumber);
  const auto translate = [&] {
    world.useServices();
    world.line->sClrRecord();
    world.translator.translate(world.line, u"{A,6}{B,6}.", source);
  };
  for (int i = 0; i < 3; ++i) translate();
  const auto other = make<SpoilingConvert>();
  world.usePlain(other);
  world.useServices();
  EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), "  5,00  6,00.");
  EXPECT_EQ(other->calls, 0);
  for (int i = 0; i < 3; ++i) translate();
  EXPECT_EQ(toUtf8(world.line->GetTextToWrite()),
            "??????"
            "??????.");
  EXPECT_GT(other->calls, 0);
}

// What the client answers before it fails is in the line.
TEST_F(Fields, AreInALineThatIsLeftHalfDone) {
  TranslationWorld world(TranslationWorld::kAllBypassed);
  int failingCall = 0;
  const SourceAction giveNumber = [&failingCall](Ref<clsObLineCharacts>& line, int call, auto&) {
    if (call == failingCall) throw RunTimeError(kRaised, RunTimeError::Details{});
    line->GetSpecialVar()->SetContentNumeric(Currency::ofUnits(call + failingCall), false);
    return true;
  };
  for (int i = 0; i < 3; ++i) world.translate(u"<{A,6}|{B,6}|{C,6}>", giveNumber);
  failingCall = 3;
  world.translate(u"<{A,6}|{B,6}|{C,6}>", giveNumber);
  EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), "<  4,00|  5,00|{C,6}>");
  failingCall = 2;
  world.translate(u"<{A,6}|{B,6}|{C,6}>", giveNumber);
  EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), "<  3,00|{B,6}|{C,6}>");
}

// --- The last variable's text, which stays in the line until somebody asks for it.

// Gives the numbers from `first` on, often enough for values to be kept; nobody looks.
void translateUnseen(TranslationWorld& world, TextView line, int first = 1) {
  const SourceAction giveNumber = [first](Ref<clsObLineCharacts>& each, int call, auto&) {
    each->GetSpecialVar()->SetContentNumeric(Currency::ofUnits(first + call - 1), false);
    return true;
  };
  CallLog log;
  for (int i = 0; i < 3; ++i) {
    RecordingSource source(world, log, giveNumber);
    world.useServices();
    world.line->sClrRecord();
    world.translator.translate(world.line, line, source);
  }
}

TEST_F(Fields, LeaveTheirTextInTheVariableWhateverHappensToTheLine) {
  constexpr TextView kLine = u"<{A,6}|{B,7}>";
  const struct {
    const char* what;
    std::function<void(TranslationWorld&)> happens;
  } cases[] = {
      {"nothing", [](TranslationWorld&) {}},
      {"a text", [](TranslationWorld& w) { w.line->SetTextToWrite(u"other"); }},
      {"a look", [](TranslationWorld& w) { w.line->GetTextToPrint(); }},
      {"another variable",
       [](TranslationWorld& w) { w.line->SetSpecialVar(make<clsObSpecialVar>()); }},
      {"another variable and record",
       [](TranslationWorld& w) {
         w.line->SetSpecialVar(make<clsObSpecialVar>());
         w.line->sClrRecord();
       }},
      {"the same line elsewhere",
       [=](TranslationWorld& w) {
         std::swap(w.line, w.other);
         translateUnseen(w, kLine, 8);
       }},
      {"its end", [](TranslationWorld& w) { w.line = nullptr; }},
      {"alignment", [](TranslationWorld& w) { w.line->GetSpecialVar()->sAlignTextToWrite(); }},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    TranslationWorld world(TranslationWorld::kAllBypassed);
    translateUnseen(world, kLine);
    const Ref<clsObSpecialVar> variable = world.line->GetSpecialVar();
    each.happens(world);
    EXPECT_EQ(toUtf8(variable->GetTextToWrite()), "   2,00");
  }
}

TEST_F(Fields, LeaveNoTextInAClearedVariable) {
  TranslationWorld world(TranslationWorld::kAllBypassed);
  translateUnseen(world, u"{A,6}{B,7}");
  world.line->GetSpecialVar()->sClrObject();
  EXPECT_EQ(toUtf8(world.line->GetSpecialVar()->GetTextToWrite()), "");
  translateUnseen(world, u"{A,6}{B,7}");
  world.line->sClrRecord();
  EXPECT_EQ(toUtf8(world.line->GetSpecialVar()->GetTextToWrite()), "");
  translateUnseen(world, u"{A,6}{B,7}");
  world.line->GetSpecialVar()->SetTextToWrite(u"text");
  EXPECT_EQ(toUtf8(world.line->GetSpecialVar()->GetTextToWrite()), "text");
  EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), "  1,00   2,00");
}

TEST_F(Fields, ArePrintedWithoutALook) {
  for (const TextView line : {u"{A,6}|{B,7}.", u"{A}{B}", u"{NEGRA}{A,9}{BLANCA}", u"none", u""}) {
    SCOPED_TRACE(toUtf8(line));
    TranslationWorld world(TranslationWorld::kAllBypassed);
    translateUnseen(world, line);
    const Text printed(world.line->textToPrint());
    EXPECT_EQ(toUtf8(printed), toUtf8(world.line->GetTextToPrint()));
    EXPECT_EQ(toUtf8(world.line->textToPrint()), toUtf8(printed));
    translateUnseen(world, line);
    world.line->SetLineToWriteEmpty(true);
    EXPECT_EQ(toUtf8(world.line->textToPrint()), "");
    EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), toUtf8(printed));
  }
}

// A client that translates the very line for which it is asked, and looks at nothing.
TEST_F(Fields, AreNotMixedUpByALineWithinItself) {
  for (const TextView within : {u"<{A,6}|{B,7}|{C,5}>", u"{A,4}", u"{D,10}{E,10,QR}{F,8}", u""}) {
    SCOPED_TRACE(toUtf8(within));
    Worlds worlds;
    for (int turn = 0; turn < 6; ++turn) {
      const SourceAction outer = [=](Ref<clsObLineCharacts>& line, int call,
                                     TranslationWorld& world) {
        line->GetSpecialVar()->SetContentNumeric(Currency::ofUnits(call), false);
        if (turn < 3 || call != 2) return true;
        const SourceAction inner = [](Ref<clsObLineCharacts>& same, int innerCall, auto&) {
          if (innerCall == 3) {
            same->GetSpecialVar()->SetContentDate(Date{45'000});
          } else {
            same->GetSpecialVar()->SetContentString(u"in");
          }
          return true;
        };
        RecordingSource source(world, world.seen, inner);
        world.translator.translate(line, within, source);
        return true;
      };
      worlds.expectSame(u"<{A,6}|{B,7}|{C,5}>", outer);
    }
  }
}

// --- A text that was given, of any length, and of the variable's own.

TEST_F(Fields, AreMadeOfTextsOfAnyLength) {
  const TranslationWorld world(TranslationWorld::kAllBypassed);
  const auto variable = make<clsObSpecialVar>();
  const auto expectContent = [&](const Text& expected) {
    EXPECT_FALSE(expected.empty() ? !variable->fIsEmpty() : variable->fIsEmpty());
    variable->sFormatSpecialVar();
    EXPECT_EQ(toUtf8(variable->GetTextToWrite()), toUtf8(expected));
    EXPECT_EQ(toUtf8(variable->GetContentString()), toUtf8(expected));
  };
  Text letters;
  for (int i = 0; i < 300; ++i) letters.push_back(static_cast<char16_t>(u'a' + i % 26));
  for (const std::size_t before : {0U, 3U, 64U, 65U, 300U}) {
    for (const std::size_t size : {0U, 1U, 63U, 64U, 65U, 255U, 256U, 300U}) {
      SCOPED_TRACE(std::to_string(before) + " then " + std::to_string(size));
      variable->SetContentString(TextView(letters).substr(0, before));
      variable->SetContentString(TextView(letters).substr(0, size));
      expectContent(letters.substr(0, size));
      variable->SetContentString(variable->GetContentString());
      expectContent(letters.substr(0, size));
      const std::size_t half = size / 2;
      variable->SetContentString(TextView(variable->GetContentString()).substr(half));
      expectContent(letters.substr(half, size - half));
      variable->SetContentString(letters);
      variable->sClrObject();
      expectContent({});
    }
  }
}

// --- The service's side: the field is the text that the operations of the core library give.

TEST(NumberFields, AreTheTextsOfTheOtherOperations) {
  const auto convert = make<LibTarvoCI::clsConvert>();
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
  for (const std::int64_t number : {std::int64_t{0}, std::int64_t{1}, std::int64_t{-49},
                                    std::int64_t{-50}, std::int64_t{99'999}, std::int64_t{-10'000},
                                    std::int64_t{123'456'789'012}, kMost, kLeast}) {
    for (const int width : {1, 2, 5, 9, 14, 27, 40, 41, 255}) {
      for (const int decimals : {0, 1, 2, 3, 4, 5, 12, 255}) {
        for (const int form : {0, 1, 2, 3}) {
          const bool parenthesis = form % 2 == 1;
          const bool hasCommaDot = form / 2 == 1;
          const auto operation =
              hasCommaDot ? &clsConvert::fFormatNumberCommaDot : &clsConvert::fFormatNumberDotComma;
          Text expected;
          ((*convert).*operation)(Currency{number}, static_cast<std::int16_t>(width),
                                  static_cast<std::int16_t>(decimals), parenthesis, expected);
          Text field(static_cast<std::size_t>(width) + 2, u'#');
          convert->putField(Currency{number},
                            {static_cast<std::int16_t>(decimals), parenthesis, hasCommaDot},
                            std::span<char16_t>(field).subspan(1, static_cast<std::size_t>(width)));
          ASSERT_EQ(toUtf8(field), "#" + toUtf8(expected) + "#")
              << number << " width " << width << " decimals " << decimals << " form " << form;
        }
      }
    }
  }
}

}  // namespace
}  // namespace tarvo::test
