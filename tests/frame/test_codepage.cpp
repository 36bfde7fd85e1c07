// The single-byte code page: 1252 against a list of its own, and the codec on any other table.
#include "frame/codepage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "frame/platform.h"

namespace tarvo {
namespace {

using namespace std::string_literals;

struct SpecialCharacter {
  std::uint8_t byte;
  char16_t character;
};

// The characters of 1252 that do not have the number of their byte.
constexpr SpecialCharacter kSpecial1252[] = {
    {0x80, u'€'}, {0x82, u'‚'}, {0x83, u'ƒ'}, {0x84, u'„'}, {0x85, u'…'}, {0x86, u'†'},
    {0x87, u'‡'}, {0x88, u'ˆ'}, {0x89, u'‰'}, {0x8A, u'Š'}, {0x8B, u'‹'}, {0x8C, u'Œ'},
    {0x8E, u'Ž'}, {0x91, u'‘'}, {0x92, u'’'}, {0x93, u'“'}, {0x94, u'”'}, {0x95, u'•'},
    {0x96, u'–'}, {0x97, u'—'}, {0x98, u'˜'}, {0x99, u'™'}, {0x9A, u'š'}, {0x9B, u'›'},
    {0x9C, u'œ'}, {0x9E, u'ž'}, {0x9F, u'Ÿ'},
};
static_assert(std::size(kSpecial1252) == 27);

constexpr std::uint8_t kUndefined1252[] = {0x81, 0x8D, 0x8F, 0x90, 0x9D};

// All of 1252 by character: the byte of each, and nothing else.
std::map<char16_t, std::uint8_t> bytesOf1252() {
  std::map<char16_t, std::uint8_t> bytes;
  for (unsigned plain = 0; plain < 0x80; ++plain) {
    bytes[static_cast<char16_t>(plain)] = static_cast<std::uint8_t>(plain);
  }
  for (unsigned latin = 0xA0; latin < 0x100; ++latin) {
    bytes[static_cast<char16_t>(latin)] = static_cast<std::uint8_t>(latin);
  }
  for (const std::uint8_t byte : kUndefined1252) bytes[byte] = byte;
  for (const auto& [byte, character] : kSpecial1252) bytes[character] = byte;
  return bytes;
}

std::string allBytes() {
  std::string bytes(256, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i);
  return bytes;
}

std::string encoded(const CodePage& page, TextView text) {
  std::string bytes;
  page.encode(text, bytes);
  return bytes;
}

Text decoded(const CodePage& page, std::string_view bytes) {
  Text text;
  page.decode(bytes, text);
  return text;
}

TEST(CodePage1252, HasTheTwentySevenSpecialCharacters) {
  const CodePage& page = CodePage::windows1252();
  for (const auto& [byte, character] : kSpecial1252) {
    EXPECT_EQ(page.decode(byte), character) << unsigned{byte};
    EXPECT_EQ(page.encode(character), byte) << unsigned{byte};
  }
}

TEST(CodePage1252, UndefinedBytesStandForTheControlCharacterOfTheSameNumber) {
  const CodePage& page = CodePage::windows1252();
  for (const std::uint8_t byte : kUndefined1252) {
    EXPECT_EQ(page.decode(byte), char16_t{byte}) << unsigned{byte};
    EXPECT_EQ(page.encode(char16_t{byte}), byte) << unsigned{byte};
  }
}

TEST(CodePage1252, EveryByteSurvivesTheRoundTrip) {
  const CodePage& page = CodePage::windows1252();
  EXPECT_EQ(encoded(page, decoded(page, allBytes())), allBytes());
}

TEST(CodePage1252, EveryCharacterIsItsByteAndAllOthersAreQuestionMarks) {
  const std::map<char16_t, std::uint8_t> bytes = bytesOf1252();
  ASSERT_EQ(bytes.size(), 256u);
  const CodePage& page = CodePage::windows1252();
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const auto character = static_cast<char16_t>(unit);
    const auto known = bytes.find(character);
    const unsigned expected = known != bytes.end() ? known->second : unsigned{'?'};
    ASSERT_EQ(unsigned{page.encode(character)}, expected) << std::hex << unit;
  }
}

TEST(CodePage1252, AWholeTextHasTheBytesOfItsCharacters) {
  Text text;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) text.push_back(static_cast<char16_t>(unit));
  const CodePage& page = CodePage::windows1252();
  const std::string bytes = encoded(page, text);
  ASSERT_EQ(bytes.size(), text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    ASSERT_EQ(static_cast<std::uint8_t>(bytes[i]), page.encode(text[i])) << i;
  }
}

TEST(CodePage1252, EveryUnitOfTheTextIsExactlyOneByte) {
  const struct {
    const char* shows;
    Text text;
    std::string bytes;
  } rows[] = {
      {"nothing", u"", ""},
      {"Spanish", u"Año: ¿1º?", "A\xF1o: \xBF\x31\xBA?"},
      {"character 0", u"a\0b"s, "a\0b"s},
      {"the euro", u"5 €", "5 \x80"},
      {"a letter that has only a similar one", u"ăŁı", "???"},
      {"a fullwidth letter", u"Ａ", "?"},
      {"a pair outside the basic plane", u"x\xD83D\xDE00y", "x??y"},
      {"a lone surrogate", u"\xD83D", "?"},
      {"the replacement character", u"\xFFFD", "?"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(encoded(CodePage::windows1252(), row.text), row.bytes);
  }
}

TEST(CodePage, ReplacesWhatTheResultHeldBefore) {
  const CodePage& page = CodePage::windows1252();
  std::string bytes = "something longer";
  page.encode(u"ñ", bytes);
  EXPECT_EQ(bytes, "\xF1");
  Text text = u"something longer";
  page.decode("\xF1\x80", text);
  EXPECT_EQ(text, u"ñ€");
  page.encode(u"", bytes);
  EXPECT_EQ(bytes, "");
  page.decode("", text);
  EXPECT_EQ(text, u"");
}

// A table whose characters lie in 256 different places, so that nothing rests on 1252's shape.
CodePage::Characters scatteredCharacters() {
  CodePage::Characters characters{};
  for (unsigned i = 0; i < 256; ++i) {
    characters[i] = static_cast<char16_t>((i << 8) | (255 - i));
  }
  return characters;
}

TEST(CodePage, AnyTableOfDistinctCharactersSurvivesTheRoundTrip) {
  const CodePage page(scatteredCharacters());
  EXPECT_EQ(encoded(page, decoded(page, allBytes())), allBytes());
}

TEST(CodePage, KnowsNothingButItsTable) {
  const CodePage::Characters characters = scatteredCharacters();
  const CodePage page(characters);
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const auto character = static_cast<char16_t>(unit);
    if (std::find(characters.begin(), characters.end(), character) != characters.end()) continue;
    ASSERT_EQ(page.encode(character), '?') << std::hex << unit;
  }
}

TEST(CodePage, TheFirstOfTwoBytesOfOneCharacterIsWritten) {
  CodePage::Characters characters{};
  for (unsigned i = 0; i < 256; ++i) characters[i] = static_cast<char16_t>(i);
  characters[0x41] = u'ñ';
  characters[0xF2] = u'ñ';
  const CodePage page(characters);
  EXPECT_EQ(page.encode(u'ñ'), 0x41);
  EXPECT_EQ(page.decode(0x41), u'ñ');
  EXPECT_EQ(page.decode(0xF1), u'ñ');
  EXPECT_EQ(page.decode(0xF2), u'ñ');
  EXPECT_EQ(page.encode(u'A'), '?');
}

TEST(CodePage, OfTheSystemIsWhatThePlatformSaysElse1252) {
  CodePage::Characters characters{};
  const bool hasItsOwn = platform::systemCodePage(characters);
  const CodePage& page = CodePage::ofSystem();
  const CodePage& expected = CodePage::windows1252();
  for (unsigned i = 0; i < 256; ++i) {
    const auto byte = static_cast<std::uint8_t>(i);
    EXPECT_EQ(page.decode(byte), hasItsOwn ? characters[i] : expected.decode(byte)) << i;
  }
  EXPECT_EQ(encoded(page, decoded(page, allBytes())), allBytes());
}

}  // namespace
}  // namespace tarvo
