// Capital letters: every one of the characters of 16 bits, by rules of its own and by the system's.
#include "frame/upper_case.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <wctype.h>

#include <algorithm>

#include "frame/codepage.h"

namespace tarvo {
namespace {

using namespace std::string_view_literals;

constexpr unsigned kCharacters = 0x10000;

unsigned upper(unsigned c) { return upperCase(static_cast<char16_t>(c)); }

TEST(UpperCase, RaisesTheLettersOfTemplates) {
  EXPECT_EQ(upperCase(u"izquierda"), u"IZQUIERDA");
  EXPECT_EQ(upperCase(u"Año, señal y pingüino: áéíóú"), u"AÑO, SEÑAL Y PINGÜINO: ÁÉÍÓÚ");
  EXPECT_EQ(upperCase(u"çàèìòù âêîôû äëïö ãõ åæø ðþ ý"), u"ÇÀÈÌÒÙ ÂÊÎÔÛ ÄËÏÖ ÃÕ ÅÆØ ÐÞ Ý");
  EXPECT_EQ(upperCase(u"ÿ µ ƒ š œ ž"), u"Ÿ Μ Ƒ Š Œ Ž");
  EXPECT_EQ(upperCase(u"αβγδ ελληνικός ώ"), u"ΑΒΓΔ ΕΛΛΗΝΙΚΌΣ Ώ");
  EXPECT_EQ(upperCase(u"привет ёжик ўђ"), u"ПРИВЕТ ЁЖИК ЎЂ");
  EXPECT_EQ(upperCase(u"łódź ő ı i"), u"ŁÓDŹ Ő I I");
}

TEST(UpperCase, LeavesEverythingElse) {
  for (const TextView text : {u""sv, u"ÁÑÜ 123 {C.F}"sv, u"ß × ÷ ¿ ª º ° €"sv, u"ŉ ǰ ΐ ΰ ﬁ ʰ"sv,
                              u"\xD800 \xDFFF \xD83D\xDE00"sv, u"\0\x7F\xA0"sv}) {
    EXPECT_EQ(upperCase(text), text);
  }
}

TEST(UpperCase, TakesCharactersOneByOne) {
  EXPECT_EQ(upperCase(u"a\0b"sv), u"A\0B"sv);
  EXPECT_EQ(upperCase(u"straße"), u"STRAßE");
  EXPECT_EQ(upperCase(u"n\u0303"), u"N\u0303");        // a mark of its own
  EXPECT_EQ(upperCase(u"\U00010428"), u"\U00010428");  // a letter of two
  EXPECT_EQ(upperCase(Text(100000, u'ñ')), Text(100000, u'Ñ'));
}

TEST(UpperCase, IsTheSameTwice) {
  for (unsigned c = 0; c < kCharacters; ++c) EXPECT_EQ(upper(upper(c)), upper(c)) << c;
}

TEST(UpperCase, OfACapitalsSmallLetterIsThatCapital) {
  // The letters of one byte: each capital has one small letter, but for Y with its two and Μ.
  const CodePage& page = CodePage::windows1252();
  int pairs = 0;
  for (unsigned byte = 0; byte < 256; ++byte) {
    const unsigned c = page.decode(static_cast<std::uint8_t>(byte));
    if (upper(c) != c) ++pairs;
  }
  // 26 plain ones, 30 of à to þ, and ÿ µ ƒ š œ ž.
  EXPECT_EQ(pairs, 26 + 30 + 6);
}

// --- Blocks that follow a rule.

// Small letters, each at the same distance from its capital.
struct ShiftedBlock {
  const char* name;
  unsigned first;
  unsigned last;
  int distance;
};
constexpr ShiftedBlock kShifted[] = {
    {"plain Latin", u'a', u'z', -32},
    {"Latin of one byte, before the division sign", u'à', u'ö', -32},
    {"Latin of one byte, after it", u'ø', u'þ', -32},
    {"Greek, before the final sigma", u'α', u'ρ', -32},
    {"Greek, after it", u'σ', u'ϋ', -32},
    {"Cyrillic", u'а', u'я', -32},
    {"Cyrillic with marks", u'ѐ', u'џ', -80},
    {"Armenian", 0x0561, 0x0586, -48},
    {"Georgian", 0x10D0, 0x10FA, 3008},
    {"Cherokee", 0xAB70, 0xABBF, 0x13A0 - 0xAB70},
    {"Glagolitic", 0x2C30, 0x2C5F, -48},
    {"Roman numbers", u'ⅰ', u'ⅿ', -16},
    {"letters in circles", u'ⓐ', u'ⓩ', -26},
    {"wide Latin", 0xFF41, 0xFF5A, -32},
};

TEST(UpperCase, ShiftsBlocksOfLetters) {
  for (const ShiftedBlock& block : kShifted) {
    for (unsigned c = block.first; c <= block.last; ++c) {
      const auto capital = static_cast<unsigned>(static_cast<int>(c) + block.distance);
      EXPECT_EQ(upper(c), capital) << block.name << " " << c;
      EXPECT_EQ(upper(capital), capital) << block.name << " " << c;
    }
  }
}

// Capital and small letter in turn, the capital first.
struct PairedBlock {
  const char* name;
  unsigned firstCapital;
  unsigned lastSmall;
};
constexpr PairedBlock kPaired[] = {
    {"Latin A to I", 0x0100, 0x012F},
    {"Latin IJ to K", 0x0132, 0x0137},
    {"Latin L to N", 0x0139, 0x0148},
    {"Latin N to Y", 0x014A, 0x0177},
    {"Latin Z", 0x0179, 0x017E},
    {"Latin with hooks", 0x01CD, 0x01DC},
    {"Latin for Scots", 0x01F8, 0x021F},
    {"Latin with dots", 0x0222, 0x0233},
    {"Coptic in Greek", 0x03D8, 0x03EF},
    {"old Cyrillic", 0x0460, 0x0481},
    {"Cyrillic of others", 0x048A, 0x04BF},
    {"Cyrillic with hooks", 0x04C1, 0x04CE},
    {"more Cyrillic", 0x04D0, 0x052F},
    {"Latin additional", 0x1E00, 0x1E95},
    {"Latin of Viet Nam", 0x1EA0, 0x1EFF},
    {"Coptic", 0x2C80, 0x2CE3},
};

TEST(UpperCase, PairsBlocksOfLetters) {
  for (const PairedBlock& block : kPaired) {
    for (unsigned capital = block.firstCapital; capital < block.lastSmall; capital += 2) {
      EXPECT_EQ(upper(capital), capital) << block.name;
      EXPECT_EQ(upper(capital + 1), capital) << block.name << " " << capital;
    }
  }
}

// Whole stretches in which nothing is a small letter with a capital.
TEST(UpperCase, LeavesScriptsWithoutCapitals) {
  const std::pair<unsigned, unsigned> stretches[] = {
      {0x0000, 0x0060}, {0x007B, 0x00B4}, {0x00B6, 0x00DF}, {0x02A0, 0x0344}, {0x0590, 0x10CF},
      {0x1100, 0x13F7}, {0x1400, 0x1C7F}, {0x2000, 0x214D}, {0x2500, 0x2C2F}, {0x2E00, 0xA63F},
      {0xA800, 0xAB52}, {0xABC0, 0xFF40}, {0xFF5B, 0xFFFF},
  };
  for (const auto& [first, last] : stretches) {
    for (unsigned c = first; c <= last; ++c) {
      EXPECT_EQ(upper(c), c);
    }
  }
}

// --- Every character, as the system's own tables have it.

class SystemLetters : public ::testing::Test {
 protected:
  void SetUp() override {
    if (locale_ == locale_t{}) GTEST_SKIP() << "the system has no locale C.UTF-8";
  }
  void TearDown() override {
    if (locale_ != locale_t{}) freelocale(locale_);
  }

  unsigned systemUpper(unsigned c) const { return towupper_l(static_cast<wint_t>(c), locale_); }

 private:
  locale_t locale_ = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
};

// Greek letters with an iota below them: as capitals they have it beside them, which makes two.
bool hasIotaBelow(unsigned c) {
  constexpr unsigned kAlone[] = {0x1FB3, 0x1FC3, 0x1FF3};
  if (std::find(std::begin(kAlone), std::end(kAlone), c) != std::end(kAlone)) return true;
  return c >= 0x1F80 && c <= 0x1FAF && c % 16 < 8;
}

// Letters whose capitals are younger than the library's table.
bool isYoung(unsigned c) {
  constexpr unsigned kYoung[] = {0x019B, 0x0264, 0xA7CD, 0xA7CF, 0xA7D3, 0xA7D5, 0xA7DB};
  return std::find(std::begin(kYoung), std::end(kYoung), c) != std::end(kYoung);
}

TEST_F(SystemLetters, HaveTheSameCapitals) {
  int raised = 0;
  for (unsigned c = 0; c < kCharacters; ++c) {
    if (hasIotaBelow(c) || isYoung(c)) {
      EXPECT_EQ(upper(c), c);
      continue;
    }
    EXPECT_EQ(upper(c), systemUpper(c)) << std::hex << c;
    if (upper(c) != c) ++raised;
  }
  EXPECT_GT(raised, 1000);
}

}  // namespace
}  // namespace tarvo
