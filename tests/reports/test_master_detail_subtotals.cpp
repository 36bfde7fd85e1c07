// Subtotals of generated reports.  A reader of the printed bytes adds the amounts that it finds on
// each page, and compares them with what the page says that it carries forward and brings along.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

// The same amounts every time, on every system.
class Amounts {
 public:
  // From -5,000.00 to 94,999.99.
  std::int64_t nextCents() {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::int64_t>(state_ >> 33) % 10'000'000 - 500'000;
  }

 private:
  std::uint64_t state_ = 1107;
};

struct Shape {
  int records;
  int pageLength;
  int bodyLines;
  bool hasInsertBody;
  int copies;
};

std::string nameOf(const Shape& shape) {
  return std::to_string(shape.records) + "Records" + std::to_string(shape.bodyLines) + "Of" +
         std::to_string(shape.pageLength) + "Lines" + (shape.hasInsertBody ? "Insert" : "") +
         std::to_string(shape.copies) + "Copies";
}

void PrintTo(const Shape& shape, std::ostream* out) { *out << nameOf(shape); }

// "-1.234,56" in cents.
std::int64_t centsIn(const std::string& typed) {
  std::int64_t cents = 0;
  for (const char c : typed) {
    if (c >= '0' && c <= '9') cents = cents * 10 + (c - '0');
  }
  return typed.find('-') == std::string::npos ? cents : -cents;
}

// What stands on one page: lines "V <amount>", "m <amount>" and "C <amount>".
struct ReadPage {
  int lines = 0;
  std::vector<std::int64_t> amounts;
  std::vector<std::int64_t> brought;  // VIENEN
  std::vector<std::int64_t> carried;  // VAN
  int inserts = 0;
};

std::vector<ReadPage> pagesOf(const std::string& bytes) {
  std::vector<ReadPage> pages(1);
  std::string line;
  for (const char c : bytes) {
    if (c == '\f') {
      pages.emplace_back();
    } else if (c == '\n') {
      ++pages.back().lines;
      if (line.starts_with("m ")) pages.back().amounts.push_back(centsIn(line));
      if (line.starts_with("V ")) pages.back().brought.push_back(centsIn(line));
      if (line.starts_with("C ")) pages.back().carried.push_back(centsIn(line));
      if (line.starts_with("ins")) ++pages.back().inserts;
      line.clear();
    } else if (c != '\r') {
      line += c;
    }
  }
  return pages;
}

class MasterDetailSubtotals : public MasterDetailReport,
                              public ::testing::WithParamInterface<Shape> {
 protected:
  void generate() {
    const Shape& shape = GetParam();
    Amounts amounts;
    for (int i = 0; i < shape.records; ++i) {
      const std::int64_t cents = amounts.nextCents();
      given.push_back(cents);
      client->records.emplace_back();
      client->amounts.push_back(Currency{cents * 100});
    }
    write("...NMAXLINPAGINA=" + std::to_string(shape.pageLength) +
          "\nV {VIENEN,20}\n{CUERPO=" + std::to_string(shape.bodyLines) + "}\nm {MONTO,20}\n" +
          (shape.hasInsertBody ? "{UNINSERTOCUERPO}\nins 1\nins 2\n" : "") +
          "{FINCUERPO}\nC {VAN,20}\n");
    client->beforeCall = [this](const std::string& call) {
      if (call == "fReadFirstRecord") present_ = 0;
      if (call == "fReadNextRecord") ++present_;
    };
    client->translates = [this](Ref<clsObLineCharacts>& line) {
      line->GetSpecialVar()->SetContentNumeric(client->amounts[present_], false);
      return true;
    };
  }

  // Reads one copy's pages, from the first one, and gives the number of its pages.
  std::size_t expectCopy(const std::vector<ReadPage>& pages, std::size_t first) {
    const Shape& shape = GetParam();
    std::vector<std::int64_t> printed;
    std::int64_t subtotal = 0;
    std::size_t at = first;
    for (; at < pages.size(); ++at) {
      const ReadPage& page = pages[at];
      const std::string where = "page " + std::to_string(at + 1);
      if (at == first) {
        EXPECT_TRUE(page.brought.empty()) << where << " brings nothing along";
      } else {
        EXPECT_EQ(page.brought, std::vector<std::int64_t>{subtotal}) << where;
      }
      EXPECT_EQ(page.lines, shape.bodyLines + 2) << where << " is as long as every other";
      for (const std::int64_t amount : page.amounts) subtotal += amount;
      printed.insert(printed.end(), page.amounts.begin(), page.amounts.end());
      const bool isLast = shape.hasInsertBody ? page.inserts > 0 : printed.size() == given.size();
      if (isLast) {
        const std::vector<std::int64_t> nothing =
            shape.hasInsertBody ? std::vector<std::int64_t>{} : std::vector<std::int64_t>{0};
        EXPECT_EQ(page.carried, nothing) << where << " carries nothing";
        break;
      }
      // That the insert body was printed is not forgotten between copies: a later copy whose insert
      // body moves to another page carries nothing there.
      const bool carriesNothing =
          shape.hasInsertBody && insertedBefore_ && printed.size() == given.size();
      EXPECT_EQ(page.carried,
                carriesNothing ? std::vector<std::int64_t>{} : std::vector<std::int64_t>{subtotal})
          << where;
      if (carriesNothing) subtotal = 0;
    }
    EXPECT_EQ(printed, given);
    insertedBefore_ = true;
    return at + 1 - first;
  }

  std::vector<std::int64_t> given;

 private:
  std::size_t present_ = 0;
  bool insertedBefore_ = false;
};

constexpr Shape kShapes[] = {
    {1, 66, 1, false, 1},       {1, 66, 2, true, 1},     {7, 66, 7, false, 1},
    {8, 66, 7, false, 1},       {100, 66, 60, false, 1}, {100, 10, 5, false, 2},
    {100, 66, 1, false, 1},     {99, 12, 9, true, 1},    {97, 12, 9, true, 2},
    {98, 12, 9, true, 1},       {98, 12, 9, true, 2},    {500, 66, 60, true, 2},
    {1000, 255, 250, false, 1}, {1000, 3, 1, false, 3},  {1000, 30, 27, true, 1},
    {54, 30, 27, true, 1},
};

TEST_P(MasterDetailSubtotals, AreWhatThePagesSay) {
  generate();
  init(GetParam().copies);
  const std::vector<ReadPage> pages = pagesOf(printed());
  std::size_t first = 0;
  for (int copy = 0; copy < GetParam().copies; ++copy) first += expectCopy(pages, first);
  EXPECT_EQ(first, pages.size());
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailSubtotals, ::testing::ValuesIn(kShapes),
                         [](const auto& row) { return nameOf(row.param); });

}  // namespace
}  // namespace tarvo::test
