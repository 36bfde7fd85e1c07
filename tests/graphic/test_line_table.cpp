// What a line table is, shown by the one in memory.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "equipment/errors.h"
#include "graphic/memory_line_table.h"

namespace tarvo::test {
namespace {

class LineTables : public ::testing::Test {
 protected:
  std::vector<std::string> rows() {
    std::vector<std::string> all;
    Text row = u"left from before";
    for (table->moveFirst(); !table->atEnd(); table->moveNext()) {
      table->text(row);
      all.push_back(toUtf8(row));
    }
    return all;
  }

  Ref<LineTable> table = makeMemoryLineTable();
};

TEST_F(LineTables, BeginOpenAndEmpty) {
  EXPECT_TRUE(table->isOpen());
  EXPECT_TRUE(table->atEnd());
  table->moveFirst();
  EXPECT_TRUE(table->atEnd());
  EXPECT_TRUE(rows().empty());
}

TEST_F(LineTables, KeepRowsInTheOrderInWhichTheyWereAdded) {
  for (const TextView row : {u"uno", u"", u"tres", u"", u""}) table->addRow(row);
  const std::vector<std::string> expected{"uno", "", "tres", "", ""};
  EXPECT_EQ(rows(), expected);
  EXPECT_EQ(rows(), expected) << "a second time";
}

TEST_F(LineTables, ARowThatIsAddedIsThePresentOne) {
  Text row;
  table->addRow(u"uno");
  table->addRow(u"dos");
  table->text(row);
  EXPECT_EQ(row, u"dos");
  table->moveFirst();
  table->addRow(u"tres");
  table->text(row);
  EXPECT_EQ(row, u"tres");
  table->moveNext();
  EXPECT_TRUE(table->atEnd());
}

TEST_F(LineTables, KeepEveryCharacter) {
  Text all;
  for (unsigned character = 0; character < 0x10000; ++character) {
    all.push_back(static_cast<char16_t>(character));
    if (all.size() < kLongestLine) continue;
    table->addRow(all);
    Text row;
    table->text(row);
    ASSERT_EQ(row, all);
    all.clear();
  }
}

TEST_F(LineTables, AreReadOnlyUpToTheirEnd) {
  Text row = u"as it was";
  EXPECT_EQ(errorNumberOf([&] { table->text(row); }), kNoPresentRow);
  EXPECT_EQ(errorNumberOf([&] { table->moveNext(); }), kNoPresentRow);
  table->addRow(u"uno");
  table->moveNext();
  EXPECT_EQ(errorNumberOf([&] { table->text(row); }), kNoPresentRow);
  EXPECT_EQ(errorNumberOf([&] { table->moveNext(); }), kNoPresentRow);
  EXPECT_EQ(row, u"as it was");
}

TEST_F(LineTables, TakeRowsUpTo7000Characters) {
  const Text longest(7000, u'x');
  table->addRow(longest);
  EXPECT_EQ(errorNumberOf([&] { table->addRow(longest + u"x"); }), kLineIsTooLong);
  table->addRow(u"after");
  EXPECT_EQ(rows(), (std::vector<std::string>{std::string(7000, 'x'), "after"}));
}

TEST_F(LineTables, DoNothingOnceTheyAreClosed) {
  table->addRow(u"uno");
  table->close();
  EXPECT_FALSE(table->isOpen());
  Text row;
  EXPECT_EQ(errorNumberOf([&] { table->addRow(u"x"); }), kTableIsClosed);
  EXPECT_EQ(errorNumberOf([&] { table->moveFirst(); }), kTableIsClosed);
  EXPECT_EQ(errorNumberOf([&] { table->atEnd(); }), kTableIsClosed);
  EXPECT_EQ(errorNumberOf([&] { table->text(row); }), kTableIsClosed);
  EXPECT_EQ(errorNumberOf([&] { table->moveNext(); }), kTableIsClosed);
  EXPECT_EQ(errorNumberOf([&] { table->close(); }), kTableIsClosed);
}

TEST_F(LineTables, RefuseWithAReadableText) {
  const auto descriptionOf = [](void (*refuse)()) {
    return toUtf8(errorOf([&] { refuse(); })->description());
  };
  EXPECT_EQ(descriptionOf(refuseClosedTable), "The line table is closed");
  EXPECT_EQ(descriptionOf(refuseWithoutRow), "The line table has no present row");
  EXPECT_EQ(descriptionOf(refuseLongLine), "The line has more than 7000 characters");
  EXPECT_EQ(toUtf8(errorOf(refuseClosedTable)->source()), "LibTarvoRdpCI");
}

TEST_F(LineTables, OfThePlatformAreOpenAndEachItsOwn) {
  const Ref<LineTable> first = platform::makeLineTable();
  const Ref<LineTable> second = platform::makeLineTable();
  first->addRow(u"uno");
  second->moveFirst();
  EXPECT_TRUE(second->atEnd());
  EXPECT_TRUE(second->isOpen());
}

}  // namespace
}  // namespace tarvo::test
