// The line table of the system beside the one in memory: whatever is done to them, they answer
// alike.
#include <gmock/gmock.h>

#include <functional>
#include <random>

#include "equipment/errors.h"
#include "graphic/memory_line_table.h"

namespace tarvo::test {
namespace {

// A step on a table, and what came of it, in words.
struct Step {
  std::string name;
  std::function<std::string(LineTable&)> run;
};

// "" or what it gave; an error's number when it failed.
std::string outcomeOf(const Step& step, LineTable& table) {
  std::string outcome;
  const auto error = errorOf([&] { outcome = step.run(table); });
  return error ? "error " + std::to_string(error->number()) : outcome;
}

Step add(const Text& text) {
  return {"addRow of " + std::to_string(text.size()), [text](LineTable& table) {
            table.addRow(text);
            return std::string();
          }};
}

const Step kFirst{"moveFirst", [](LineTable& table) {
                    table.moveFirst();
                    return std::string();
                  }};
const Step kNext{"moveNext", [](LineTable& table) {
                   table.moveNext();
                   return std::string();
                 }};
const Step kText{"text", [](LineTable& table) {
                   Text text = u"left from before";
                   table.text(text);
                   return toUtf8(text);
                 }};
const Step kEnd{"atEnd",
                [](LineTable& table) { return std::string(table.atEnd() ? "end" : "not yet"); }};
const Step kOpen{"isOpen",
                 [](LineTable& table) { return std::string(table.isOpen() ? "open" : "closed"); }};
const Step kClose{"close", [](LineTable& table) {
                    table.close();
                    return std::string();
                  }};

void expectSameAnswers(const std::vector<Step>& steps) {
  const Ref<LineTable> memory = makeMemoryLineTable();
  const Ref<LineTable> system = platform::makeLineTable();
  for (std::size_t i = 0; i < steps.size(); ++i) {
    ASSERT_EQ(outcomeOf(steps[i], *system), outcomeOf(steps[i], *memory))
        << "step " << i << ": " << steps[i].name;
  }
}

TEST(LineTableOfWindows, IsAnotherOneThanMemorys) {
  EXPECT_NE(typeid(*platform::makeLineTable()), typeid(*makeMemoryLineTable()));
}

TEST(LineTableOfWindows, BeginsOpenAndEmpty) {
  expectSameAnswers({kOpen, kEnd, kText, kNext, kFirst, kEnd, kText, kNext, kEnd, kOpen});
}

TEST(LineTableOfWindows, KeepsRowsInTheirOrder) {
  expectSameAnswers({add(u"uno"), kText, add(u""), kText, add(u"tres"), kFirst, kText, kNext, kText,
                     kNext, kText, kEnd, kNext, kEnd, kText, kNext, kFirst, kText});
}

TEST(LineTableOfWindows, AddsAtTheEndFromAnywhere) {
  expectSameAnswers({add(u"uno"), add(u"dos"), kFirst, add(u"tres"), kText, kNext, kEnd,
                     add(u"cuatro"), kText, kFirst, kText, kNext, kText, kNext, kText, kNext, kText,
                     kNext, kEnd});
}

TEST(LineTableOfWindows, TakesRowsUpTo7000Characters) {
  const Text longest(kLongestLine, u'x');
  expectSameAnswers({add(longest), kText, add(longest + u"x"), kText, kEnd, kFirst, kText, kNext,
                     kEnd, add(u"after"), kText, kFirst, kNext, kText, kNext, kEnd});
}

TEST(LineTableOfWindows, RefusesTheSameOnceItIsClosed) {
  expectSameAnswers(
      {add(u"uno"), kClose, kOpen, add(u"x"), kFirst, kEnd, kText, kNext, kClose, kOpen});
}

TEST(LineTableOfWindows, KeepsTheCharactersOfTheCodePageAndAllControls) {
  std::vector<Step> steps;
  for (char16_t character = 0; character < 0x100; ++character) {
    steps.push_back(add(Text{u'<', character, u'>'}));
    steps.push_back(kText);
  }
  steps.push_back(add(u"€ ‚ƒ„…†‡ˆ‰Š‹Œ Ž ‘’“”•–—˜™š›œ žŸ"));
  steps.push_back(kText);
  expectSameAnswers(steps);
}

TEST(LineTableOfWindows, KeepsOtherCharacters) {
  expectSameAnswers({add(u"Ж 漢 😀"), kText, kFirst, kText});
}

TEST(LineTableOfWindows, AnswersAlikeToStepsInAnyOrder) {
  std::mt19937 random(2402);
  for (int run = 0; run < 30; ++run) {
    std::vector<Step> steps;
    for (int i = 0; i < 100; ++i) {
      switch (random() % 8) {
        case 0:
        case 1:
          steps.push_back(add(Text(random() % 3 == 0 ? 0 : random() % 200, u'a')));
          break;
        case 2:
          steps.push_back(kFirst);
          break;
        case 3:
          steps.push_back(kEnd);
          break;
        case 4:
          steps.push_back(kText);
          break;
        case 5:
          steps.push_back(i > 90 && random() % 4 == 0 ? kClose : kOpen);
          break;
        default:
          steps.push_back(kNext);
      }
    }
    ASSERT_NO_FATAL_FAILURE(expectSameAnswers(steps)) << "run " << run;
  }
}

TEST(LineTableOfWindows, HasRoomForALongReport) {
  const Ref<LineTable> table = platform::makeLineTable();
  constexpr int kRows = 20000;
  for (int i = 0; i < kRows; ++i) table->addRow(fromAscii(std::to_string(i)));
  int count = 0;
  Text text;
  for (table->moveFirst(); !table->atEnd(); table->moveNext()) {
    table->text(text);
    ASSERT_EQ(text, fromAscii(std::to_string(count++)));
  }
  EXPECT_EQ(count, kRows);
}

}  // namespace
}  // namespace tarvo::test
