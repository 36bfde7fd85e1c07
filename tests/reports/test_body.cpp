// The line buffer of a body.
#include <gmock/gmock.h>

#include <limits>

#include "equipment/errors.h"
#include "reports/clsBody.h"

namespace tarvo {
namespace {

using test::errorNumberOf;

ValueArray linesOf(const clsBody& body) {
  const Value lines = body.GetLinesArray();
  const auto* array = lines.tryGet<ValueArray>();
  return array != nullptr ? *array : ValueArray{Text(u"(no array)")};
}

TEST(Body, IsEmptyWhenItIsNew) {
  const auto body = make<clsBody>();
  EXPECT_EQ(0, body->GetNumberOfLinesWithInformation());
  EXPECT_EQ(0, body->GetMaxNumberOfLinesToPrint());
  EXPECT_EQ(0, body->GetNumberOfFirstLineOfBody());
  EXPECT_FALSE(body->GetUseNumberWithCharacterToTheLeftSide());
  EXPECT_EQ(u"", body->GetCharacterToTheLeftSide());
  EXPECT_EQ(0, body->GetRecordNumberToPrint());
  EXPECT_EQ(0, body->GetHasInsertBody());
  EXPECT_EQ(ValueArray(51), linesOf(*body)) << "51 entries without a value, not an empty array";
}

TEST(Body, KeepsLinesAtTheFirstAndTheLastIndex) {
  const auto body = make<clsBody>();
  body->SetLinesArray(0, u"primera");
  body->SetLinesArray(50, u"última");
  ValueArray expected(51);
  expected.front() = Text(u"primera");
  expected.back() = Text(u"última");
  EXPECT_EQ(expected, linesOf(*body));
}

TEST(Body, KeepsTheLineAsItIs) {
  const auto body = make<clsBody>();
  const Text line(u"  {det.cant,5}\t\0ñ  \r", 20);
  body->SetLinesArray(7, line);
  EXPECT_EQ(line, body->line(7));
  body->SetLinesArray(7, u"");
  EXPECT_EQ(Value(Text()), linesOf(*body)[7]) << "an empty line is a line";
}

TEST(Body, RefusesALineOutsideAndStoresNothing) {
  for (const int index : {-1, 51, 52, -32768, 32767}) {
    const auto body = make<clsBody>();
    EXPECT_EQ(kSubscriptOutOfRange, errorNumberOf([&] {
                body->SetLinesArray(static_cast<std::int16_t>(index), u"fuera");
              }))
        << index;
    EXPECT_EQ(ValueArray(51), linesOf(*body)) << index;
  }
}

TEST(Body, GivesACopyOfItsLines) {
  const auto body = make<clsBody>();
  body->SetLinesArray(3, u"antes");
  Value copy = body->GetLinesArray();
  std::get<ValueArray>(copy.content())[3] = Text(u"después");
  EXPECT_EQ(Value(Text(u"antes")), linesOf(*body)[3]);
  body->SetLinesArray(3, u"más tarde");
  EXPECT_EQ(Value(Text(u"después")), std::get<ValueArray>(copy.content())[3]);
}

TEST(Body, ShowsTheEngineEachLineWithoutACopy) {
  const auto body = make<clsBody>();
  body->SetLinesArray(0, u"línea");
  EXPECT_EQ(u"línea", body->line(0));
  EXPECT_EQ(&body->line(0), &body->line(0));
  EXPECT_EQ(u"", body->line(50)) << "never set";
  EXPECT_EQ(kSubscriptOutOfRange, errorNumberOf([&] { body->line(51); }));
}

struct NumberRow {
  const char* name;
  std::int16_t (clsBody::*get)() const noexcept;
  void (clsBody::*set)(std::int16_t) noexcept;
};

void PrintTo(const NumberRow& row, std::ostream* out) { *out << row.name; }

constexpr NumberRow kNumbers[] = {
    {"NumberOfLinesWithInformation", &clsBody::GetNumberOfLinesWithInformation,
     &clsBody::SetNumberOfLinesWithInformation},
    {"MaxNumberOfLinesToPrint", &clsBody::GetMaxNumberOfLinesToPrint,
     &clsBody::SetMaxNumberOfLinesToPrint},
    {"NumberOfFirstLineOfBody", &clsBody::GetNumberOfFirstLineOfBody,
     &clsBody::SetNumberOfFirstLineOfBody},
    {"RecordNumberToPrint", &clsBody::GetRecordNumberToPrint, &clsBody::SetRecordNumberToPrint},
    {"HasInsertBody", &clsBody::GetHasInsertBody, &clsBody::SetHasInsertBody},
};

class BodyNumber : public testing::TestWithParam<NumberRow> {};

TEST_P(BodyNumber, IsKeptUncheckedAndApartFromTheOthers) {
  const auto body = make<clsBody>();
  std::int16_t next = 100;
  for (const NumberRow& row : kNumbers) (*body.*row.set)(next++);
  for (const int value : {0, 1, -1, 51, int{std::numeric_limits<std::int16_t>::max()},
                          int{std::numeric_limits<std::int16_t>::min()}}) {
    (*body.*GetParam().set)(static_cast<std::int16_t>(value));
    EXPECT_EQ(value, (*body.*GetParam().get)());
  }
  next = 100;
  for (const NumberRow& row : kNumbers) {
    const bool isThis = std::string(row.name) == GetParam().name;
    if (!isThis) {
      EXPECT_EQ(next, (*body.*row.get)()) << row.name;
    }
    ++next;
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, BodyNumber, testing::ValuesIn(kNumbers),
                         [](const auto& suite) { return std::string(suite.param.name); });

TEST(Body, KeepsHowRecordsAreNumbered) {
  const auto body = make<clsBody>();
  body->SetUseNumberWithCharacterToTheLeftSide(true);
  body->SetCharacterToTheLeftSide(u" - ");
  EXPECT_TRUE(body->GetUseNumberWithCharacterToTheLeftSide());
  EXPECT_EQ(u" - ", body->GetCharacterToTheLeftSide());
  body->SetUseNumberWithCharacterToTheLeftSide(false);
  EXPECT_FALSE(body->GetUseNumberWithCharacterToTheLeftSide());
  EXPECT_EQ(u" - ", body->GetCharacterToTheLeftSide());
}

}  // namespace
}  // namespace tarvo
