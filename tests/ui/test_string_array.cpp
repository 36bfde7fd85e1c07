// A text in rows of a fixed length.
#include "equipment/show_arguments.h"
#include "helpers_test.h"

namespace tarvo::test {
namespace {

std::string shown(const Value& rows) {
  const auto* array = rows.tryGet<ValueArray>();
  if (array == nullptr) return "(no array)";
  std::string all;
  for (const Value& row : *array) {
    const auto* text = row.tryGet<Text>();
    all += (all.empty() ? "" : " ") + (text != nullptr ? inQuotes(*text) : show(row));
  }
  return all;
}

struct RowsCase {
  const char* shows;
  const char16_t* text;
  std::int16_t rows;
  std::int16_t length;
  const char* expected;
};

constexpr RowsCase kCases[] = {
    {"a last row that is not full", u"ABCDEFGH", 3, 3, R"("ABC" "DEF" "GH" empty)"},
    {"rows that end with the text", u"ABCDEF", 2, 3, R"("ABC" "DEF" empty)"},
    {"rows past the text", u"ABCD", 4, 3, R"("ABC" "D" "" "" empty)"},
    {"text past the rows", u"ABCDEFGH", 2, 3, R"("ABC" "DEF" empty)"},
    {"an empty text", u"", 2, 3, R"("" "" empty)"},
    {"no rows", u"ABC", 0, 3, "empty"},
    {"no rows of no sensible length", u"ABC", 0, -1, "empty"},
    {"one row", u"ABC", 1, 32767, R"("ABC" empty)"},
    {"rows of length 0, which is not the rest of the text", u"ABC", 2, 0, R"("" "" empty)"},
    {"words and blanks, which count like letters", u"uno dos  tres", 3, 5,
     R"("uno d" "os  t" "res" empty)"},
    {"the last row that can begin", u"ABC", 2, 32766, R"("ABC" "" empty)"},
};

TEST_F(HelpersTest, StringArrayCutsAtFixedPlaces) {
  for (const RowsCase& row : kCases) {
    EXPECT_EQ(row.expected, shown(helpers->fToStringArray(row.text, row.rows, row.length)))
        << row.shows;
  }
}

TEST_F(HelpersTest, StringArrayHasAsManyRowsAsAreAskedFor) {
  const Text text(40'000, u'x');
  use(make<LibTarvoCI::clsTexto>());
  const Value rows = helpers->fToStringArray(text, 32767, 1);
  const auto& array = std::get<ValueArray>(rows.content());
  ASSERT_EQ(32768u, array.size());
  EXPECT_EQ(Value(Text(u"x")), array[32766]);
  EXPECT_EQ(Value(), array[32767]);
}

TEST_F(HelpersTest, StringArrayAsksTheTextServiceForEachRow) {
  helpers->fToStringArray(u"ABCDE", 3, 3);
  EXPECT_EQ(
      "clsTexto.fPart \"ABCDE\", 1, 3\n"
      "clsTexto.fPart \"ABCDE\", 4, 3\n"
      "clsTexto.fPart \"ABCDE\", 7, 3\n",
      serviceCalls.text());
}

TEST_F(HelpersTest, StringArrayFails) {
  const auto failure = [this](int rows, int length) {
    return failureOf([&] {
      helpers->fToStringArray(u"ABC", static_cast<std::int16_t>(rows),
                              static_cast<std::int16_t>(length));
    });
  };
  EXPECT_EQ("9: fToStringArray", failure(-1, 3)) << "a negative number of rows";
  EXPECT_EQ("9: fToStringArray", failure(-32768, 3));
  EXPECT_EQ("5: fToStringArray", failure(1, -1)) << "a negative length";
  EXPECT_EQ("6: fToStringArray", failure(3, 16384)) << "the product";
  EXPECT_EQ("6: fToStringArray", failure(2, 32767)) << "the sum";
  texto->fault.raiseAt(2, kOutOfMemory);
  EXPECT_EQ("7: fToStringArray", failure(3, 1)) << "the service";
  use({});
  EXPECT_EQ("91: fToStringArray", failure(1, 1)) << "no service";
}

TEST_F(HelpersTest, ReportsAreSignedByTheClass) {
  failureOf([this] { helpers->fToStringArray(u"ABC", -1, 3); });
  ASSERT_EQ(1u, error->reports.size());
  EXPECT_EQ(u"clsLibTarvoRdp", error->reports[0].className);
  EXPECT_EQ(u"clsLibTarvoRdp", error->reports[0].module);
  EXPECT_EQ(2, error->reports[0].kind);
}

}  // namespace
}  // namespace tarvo::test
