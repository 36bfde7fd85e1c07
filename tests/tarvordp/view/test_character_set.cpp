#include "tarvordp/view/character_set.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <string>
#include <string_view>

#include "tarvordp/profile/code_text.h"

namespace tarvordp {
namespace {

using namespace std::string_view_literals;

// What the system's converter says that the byte is; 0 when it does not know the set.
char16_t systemCharacterOf(const char* set, unsigned char byte) {
  const iconv_t converter = iconv_open("UTF-16LE", set);
  if (converter == reinterpret_cast<iconv_t>(-1)) return 0;
  char in = static_cast<char>(byte);
  char out[4] = {};
  char* from = &in;
  char* to = out;
  std::size_t fromLeft = 1;
  std::size_t toLeft = sizeof out;
  iconv(converter, &from, &fromLeft, &to, &toLeft);
  iconv_close(converter);
  return static_cast<char16_t>(static_cast<unsigned char>(out[0]) |
                               static_cast<unsigned char>(out[1]) << 8U);
}

void compareWithSystem(CharacterSet set, const char* name) {
  if (systemCharacterOf(name, 'A') != u'A') GTEST_SKIP() << "iconv does not know " << name;
  for (int byte = 0x20; byte <= 0xFF; ++byte) {
    const auto each = static_cast<unsigned char>(byte);
    if (!isPrintable(each)) continue;
    EXPECT_EQ(characterOf(set, each), systemCharacterOf(name, each)) << "byte " << byte;
  }
}

TEST(CharacterSet, Pc437IsTheSystems) { compareWithSystem(CharacterSet::pc437, "IBM437"); }
TEST(CharacterSet, Pc850IsTheSystems) { compareWithSystem(CharacterSet::pc850, "IBM850"); }
// The system's converter has none with the euro sign.
TEST(CharacterSet, Pc858HasTheEuroSignInTheDotlessI) {
  for (int byte = 0x20; byte <= 0xFF; ++byte) {
    const auto each = static_cast<unsigned char>(byte);
    if (!isPrintable(each)) continue;
    const char16_t expected = byte == 0xD5 ? u'€' : characterOf(CharacterSet::pc850, each);
    EXPECT_EQ(characterOf(CharacterSet::pc858, each), expected) << "byte " << byte;
  }
}

TEST(CharacterSet, ControlBytesPrintNothing) {
  EXPECT_FALSE(isPrintable(0x00));
  EXPECT_FALSE(isPrintable(0x1F));
  EXPECT_TRUE(isPrintable(0x20));
  EXPECT_TRUE(isPrintable(0x7E));
  EXPECT_FALSE(isPrintable(0x7F));
  EXPECT_TRUE(isPrintable(0x80));
  EXPECT_TRUE(isPrintable(0xFF));
}

TEST(CharacterSet, IsTheOneThatTheLastSelectionNames) {
  struct SelectCase {
    std::string_view code;
    CharacterSet set;
  };
  constexpr SelectCase kCases[] = {
      {""sv, CharacterSet::pc437},
      {"\x1Bt\x01\x1B\x36"sv, CharacterSet::pc437},
      {"\x1B(t\x03\x00\x01\x01\x00\x1Bt\x01\x1B\x36"sv, CharacterSet::pc437},
      {"\x1B(t\x03\x00\x01\x03\x00\x1Bt\x01\x1B\x36"sv, CharacterSet::pc850},
      {"\x1B[T\x05\x00\x00\x00\x01\xB5\x00"sv, CharacterSet::pc437},
      {"\x1B[T\x05\x00\x00\x00\x03\x52\x00"sv, CharacterSet::pc850},
      {"\x1B[T\x05\x00\x00\x00\x03\x5A\x00"sv, CharacterSet::pc858},
      {"\x1B(t\x03\x00\x01\x03\x00\x1B(t\x03\x00\x01\x01\x00"sv, CharacterSet::pc437},
      {"\x1B(t\x03\x00\x01\x01\x00\x1B(t\x03\x00\x01\x03\x00"sv, CharacterSet::pc850},
      {"\x1B(t\x03\x00\x01\x03"sv, CharacterSet::pc437}};  // cut off
  for (const SelectCase& each : kCases) {
    const SetSelection selected = selectedBy(each.code);
    EXPECT_EQ(selected.set, each.set) << hexOf(each.code);
    EXPECT_EQ(selected.unknown, "") << hexOf(each.code);
  }
}

TEST(CharacterSet, OfAnotherNumberIsUnknown) {
  EXPECT_EQ(selectedBy("\x1B(t\x03\x00\x01\x07\x00\x1Bt\x01"sv).unknown,
            "\x1B(t\x03\x00\x01\x07\x00"sv);
  EXPECT_EQ(selectedBy("\x1B[T\x05\x00\x00\x00\x03\x5C\x00"sv).unknown,
            "\x1B[T\x05\x00\x00\x00\x03\x5C\x00"sv);
  EXPECT_EQ(selectedBy("\x1B(t\x03\x00\x01\x00\x00"sv).unknown, "\x1B(t\x03\x00\x01\x00\x00"sv);
  EXPECT_EQ(selectedBy("\x1B(t\x03\x00\x01\x07\x00\x1B(t\x03\x00\x01\x03\x00"sv).unknown, "");
}

}  // namespace
}  // namespace tarvordp
