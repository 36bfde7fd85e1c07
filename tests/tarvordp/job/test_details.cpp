#include "tarvordp/job/details.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "equipment/temporary_folder.h"
#include "job_testing.h"
#include "tarvordp/job/csv_records.h"
#include "tarvordp/job/inline_records.h"

namespace tarvordp {
namespace {

using test::mistakeOf;

class DetailsTest : public testing::Test {
 protected:
  std::unique_ptr<RecordSource> csv(int count, const std::string& last = "") {
    std::string content = "N:number\n";
    for (int i = 1; i <= count; ++i) content += std::to_string(i) + "\n";
    folder_.write(u"d.csv", content + last);
    return makeCsvRecords((folder_.path() / "d.csv").string(), where_);
  }

  // Adds up a walk over all records.
  static std::string walk(Details& details) {
    tarvo::Currency sum;
    int count = 0;
    for (bool isThere = details.first(); isThere; isThere = details.next()) {
      sum += amountOf(*details.present()->find(u"N"));
      ++count;
    }
    return std::to_string(count) + " records of " + amountText(sum);
  }

  static constexpr const char* kChanged =
      "d.csv: somebody changed the file while it was read: print again";

  tarvo::test::TemporaryFolder folder_;
  JsonValue where_ = readJsonText("\"d.csv\"", "j");
};

TEST_F(DetailsTest, FewRecordsAndManyRecordsAreWalkedAlike) {
  for (const int count : {1, 2, 999, 1000, 1001, 2500}) {
    Details details(csv(count), {});
    EXPECT_EQ(details.count(), count);
    const std::string expected =
        std::to_string(count) + " records of " + std::to_string(count * (count + 1) / 2);
    EXPECT_EQ(walk(details), expected);
    EXPECT_EQ(walk(details), expected) << "again";
  }
}

TEST_F(DetailsTest, ThereIsNoPresentRecordBeforeTheFirstAndTheLastStays) {
  for (const int count : {3, 1500}) {
    Details details(csv(count), {});
    EXPECT_EQ(details.present(), nullptr);
    walk(details);
    ASSERT_NE(details.present(), nullptr);
    EXPECT_EQ(test::recordText(*details.present()), "number " + std::to_string(count));
    EXPECT_FALSE(details.next());
    EXPECT_EQ(test::recordText(*details.present()), "number " + std::to_string(count));
    EXPECT_TRUE(details.first());
    EXPECT_EQ(test::recordText(*details.present()), "number 1");
  }
}

TEST_F(DetailsTest, NoRecordsHaveNoFirstOne) {
  Details none;
  EXPECT_FALSE(none.first());
  EXPECT_EQ(none.present(), nullptr);
  EXPECT_EQ(none.count(), 0);
  Details empty(csv(0), {});
  EXPECT_FALSE(empty.first());
  EXPECT_EQ(empty.present(), nullptr);
}

TEST_F(DetailsTest, AWrongRecordIsToldAtOnceWhereverItStands) {
  EXPECT_THAT(mistakeOf([&] { Details(csv(2000, "x\n"), {}); }),
              testing::EndsWith("d.csv: line 2002: N: \"x\" is no number"));
}

TEST_F(DetailsTest, DataThatBecomeWrongAreToldWhenTheyAreRead) {
  Details details(csv(2000), {});
  csv(1500, "x\n");
  EXPECT_THAT(mistakeOf([&] { walk(details); }), testing::EndsWith(kChanged));
}

TEST_F(DetailsTest, AFileThatChangesDuringAWalkIsToldWhateverIsReadOfIt) {
  const auto changeTo = [&](int count, const std::string& last) {
    Details details(csv(2000), {});
    EXPECT_TRUE(details.first());
    csv(count, last);
    return mistakeOf([&] {
      while (details.next()) {
      }
    });
  };
  EXPECT_THAT(changeTo(100, ""), testing::EndsWith(kChanged)) << "shorter";
  EXPECT_THAT(changeTo(2100, ""), testing::EndsWith(kChanged)) << "longer";
  EXPECT_THAT(changeTo(1999, "7777\n"), testing::EndsWith(kChanged)) << "another amount";
}

TEST_F(DetailsTest, AFileThatIsRemovedDuringAWalkIsTold) {
  Details details(csv(2000), {});
  std::filesystem::remove(folder_.path() / "d.csv");
  EXPECT_THAT(mistakeOf([&] { walk(details); }), testing::EndsWith(kChanged));
}

TEST_F(DetailsTest, FewRecordsAreReadOnceAndMayChangeThen) {
  Details details(csv(10), {});
  csv(3);
  EXPECT_EQ(walk(details), "10 records of 55");
}

// Finds fewer records, or more, each time.
class Unsteady final : public RecordSource {
 public:
  Unsteady(int count, int change) : count_(count - change), change_(change) {}
  void restart() override {
    count_ += change_;
    given_ = 0;
  }
  bool next(Record&) override { return given_ < count_ && ++given_ > 0; }
  [[noreturn]] void mistake(const std::string& whatIsWrong) const override {
    throw Mistake(whatIsWrong);
  }

 private:
  int count_;
  int change_;
  int given_ = 0;
};

TEST(UnsteadyRecords, AreToldAndNeverTakenForTheWholeReport) {
  const auto walked = [](int change) {
    Details details(std::make_unique<Unsteady>(2000, change), {});
    return mistakeOf([&] {
      for (bool isThere = details.first(); isThere; isThere = details.next()) {
      }
    });
  };
  EXPECT_EQ(walked(-1),
            "there were 2000 records when they were read first, and there are fewer now");
  EXPECT_EQ(walked(-2000),
            "there were 2000 records when they were read first, and there are fewer now");
  EXPECT_EQ(walked(1), "there were 2000 records when they were read first, and there are more now");
  EXPECT_EQ(walked(0), "no mistake");
}

TEST_F(DetailsTest, TheSubtotalNeedsNumbers) {
  const JsonValue array = readJsonText(R"([{"M": 1}, {"X": 1}, {"M": null}, {"M": "2"}])", "j");
  EXPECT_EQ(mistakeOf([&] { Details(makeInlineRecords(array), u"M"); }),
            "j: /3: M: the subtotal needs a number here");
  EXPECT_NO_THROW(Details(makeInlineRecords(array), u"X"));
  EXPECT_NO_THROW(Details(makeInlineRecords(array), u"NADA"));
  folder_.write(u"t.csv", "M\n5\n");
  EXPECT_THAT(mistakeOf([&] {
                Details(makeCsvRecords((folder_.path() / "t.csv").string(), where_), u"M");
              }),
              testing::EndsWith("t.csv: line 2: M: the subtotal needs a number here"));
}

TEST_F(DetailsTest, AHundredThousandRecordsAreWalked) {
  Details details(csv(100'000), {});
  EXPECT_EQ(walk(details), "100000 records of 5000050000");
}

TEST_F(DetailsTest, TheListenerHearsOfEveryRecord) {
  std::int64_t heard = 0;
  const Details details(csv(1200), {}, [&](std::int64_t count) { heard = count; });
  EXPECT_EQ(heard, 1200);
}

}  // namespace
}  // namespace tarvordp
