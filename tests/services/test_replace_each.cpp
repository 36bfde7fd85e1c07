// Many replacements at once give what the same replacements give one after the other.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "services/character_map.h"
#include "services/clsTexto.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;

using Replacements = std::vector<std::pair<Text, Text>>;

std::vector<clsTexto::Replacement> viewsOf(const Replacements& replacements) {
  std::vector<clsTexto::Replacement> views;
  for (const auto& [oldText, newText] : replacements) views.push_back({oldText, newText});
  return views;
}

class ReplaceEachTest : public ::testing::Test {
 protected:
  Text allAtOnce(TextView text, const Replacements& replacements) {
    Text result = u"left from an earlier call";
    texto_->replaceEach(text, viewsOf(replacements), result);
    return result;
  }

  // Not the contract's own default: written out here, so that neither side can be wrong alone.
  Text oneByOne(TextView text, const Replacements& replacements) {
    Text result(text);
    for (const auto& [oldText, newText] : replacements) {
      const Text before = result;
      texto_->fReplaceAll(before, oldText, newText, result);
    }
    return result;
  }

  Text byTheContractsDefault(TextView text, const Replacements& replacements) {
    Text result;
    texto_->tarvo::clsTexto::replaceEach(text, viewsOf(replacements), result);
    return result;
  }

  Ref<clsTexto> texto_ = tarvo::make<clsTexto>();
};

const Replacements kPrinterLetters{{u"á", u"\xA0"}, {u"é", u"\x201A"}, {u"í", u"¡"}, {u"ó", u"¢"},
                                   {u"ú", u"£"},    {u"ñ", u"¤"},      {u"Ñ", u"¥"}, {u"º", u"§"}};

struct ReplaceEachCase {
  const char* shows;
  Text text;
  Replacements replacements;
  Text replaced;
};

const ReplaceEachCase kCases[] = {
    {"every printer letter", u"áéíóúñÑº", kPrinterLetters, u"\xA0\x201A¡¢£¤¥§"},
    {"letters among others", u"Año: 25 º, señal", kPrinterLetters, u"A¤o: 25 §, se¤al"},
    {"nothing to replace", u"Total 12,50", kPrinterLetters, u"Total 12,50"},
    {"letters above that are not replaced", u"üÜ\x20AC", kPrinterLetters, u"üÜ\x20AC"},
    {"in a block of four, each place", u"ñbcdbñcdbcñdbcdñ", kPrinterLetters, u"¤bcdb¤cdbc¤dbcd¤"},
    {"after the last block of four", u"abcdñ", kPrinterLetters, u"abcd¤"},
    {"an empty text", u"", kPrinterLetters, u""},
    {"no replacements", u"Año", {}, u"Año"},
    {"a character 0 does not end it", u"\0ñ\0ñ"s, kPrinterLetters, u"\0¤\0¤"s},
    {"character 0 replaced", u"a\0b"s, {{u"\0"s, u" "}}, u"a b"},
    {"the greatest character replaced", u"a\xFFFF", {{u"\xFFFF", u"b"}}, u"ab"},
    {"a new text that is a later old one goes on", u"ab", {{u"a", u"b"}, {u"b", u"c"}}, u"cc"},
    {"a new text that is an earlier old one stays", u"ab", {{u"b", u"a"}, {u"a", u"c"}}, u"cc"},
    {"there and back", u"ab", {{u"a", u"b"}, {u"b", u"a"}}, u"aa"},
    {"the first of two for one character", u"a", {{u"a", u"b"}, {u"a", u"c"}}, u"b"},
    {"by itself, then by another", u"a", {{u"a", u"a"}, {u"a", u"c"}}, u"c"},
    {"one by nothing", u"a-b", {{u"-", u""}, {u"a", u"x"}}, u"xb"},
    {"an empty old text changes nothing", u"ab", {{u"", u"x"}, {u"a", u"c"}}, u"cb"},
    {"several by several", u"abab", {{u"ab", u"ba"}, {u"aba", u"-"}}, u"b-"},
    {"what a removal brings together", u"a-b", {{u"-", u""}, {u"ab", u"x"}}, u"x"},
};

TEST_F(ReplaceEachTest, GivesWhatTheReplacementsGiveInTheirOrder) {
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(allAtOnce(row.text, row.replacements), row.replaced);
    EXPECT_EQ(oneByOne(row.text, row.replacements), row.replaced);
    EXPECT_EQ(byTheContractsDefault(row.text, row.replacements), row.replaced);
  }
}

TEST_F(ReplaceEachTest, MoreReplacementsThanOnePassTakesAreDoneAsWell) {
  Replacements chain;
  for (char16_t c = u'a'; chain.size() <= CharacterMap::kCapacity; ++c) {
    chain.push_back({Text(1, c), Text(1, static_cast<char16_t>(c + 1))});
  }
  EXPECT_EQ(allAtOnce(u"a-", chain), Text({static_cast<char16_t>(u'a' + chain.size()), u'-'}));
  chain.pop_back();
  EXPECT_EQ(allAtOnce(u"a-", chain), Text({static_cast<char16_t>(u'a' + chain.size()), u'-'}));
}

TEST(CharacterMapTest, TakesOneCharacterByOneOnly) {
  const auto takes = [](const Replacements& replacements) {
    CharacterMap map;
    return map.take(viewsOf(replacements));
  };
  EXPECT_TRUE(takes({}));
  EXPECT_TRUE(takes({{u"a", u"b"}}));
  EXPECT_TRUE(takes(Replacements(CharacterMap::kCapacity, {u"a", u"b"})));
  EXPECT_FALSE(takes(Replacements(CharacterMap::kCapacity + 1, {u"a", u"b"})));
  EXPECT_FALSE(takes({{u"a", u"b"}, {u"", u"b"}}));
  EXPECT_FALSE(takes({{u"a", u"b"}, {u"aa", u"b"}}));
  EXPECT_FALSE(takes({{u"a", u"b"}, {u"a", u""}}));
  EXPECT_FALSE(takes({{u"a", u"b"}, {u"a", u"bb"}}));
}

// Few different characters, so that replacements meet each other's results.
class RandomTexts {
 public:
  explicit RandomTexts(unsigned seed) : random_(seed) {}

  std::size_t upTo(std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random_);
  }

  Text text(std::size_t shortest, std::size_t longest) {
    static const Text kAlphabet = u"ab\0áñÑº\xA0¤\x201A\xFFFF"s;
    Text made(shortest + upTo(longest - shortest), u'\0');
    for (char16_t& c : made) c = kAlphabet[upTo(kAlphabet.size() - 1)];
    return made;
  }

 private:
  std::mt19937 random_;
};

TEST_F(ReplaceEachTest, RandomTextsWithOneCharacterByOne) {
  RandomTexts random(20240229);
  for (int round = 0; round < 20000; ++round) {
    Replacements replacements(random.upTo(CharacterMap::kCapacity));
    for (auto& [oldText, newText] : replacements) {
      oldText = random.text(1, 1);
      newText = random.text(1, 1);
    }
    const Text text = random.text(0, 30);
    ASSERT_EQ(allAtOnce(text, replacements), byTheContractsDefault(text, replacements));
  }
}

TEST_F(ReplaceEachTest, RandomTextsWithAnyReplacements) {
  RandomTexts random(19991231);
  for (int round = 0; round < 20000; ++round) {
    Replacements replacements(random.upTo(8));
    for (auto& [oldText, newText] : replacements) {
      oldText = random.text(0, 2);
      newText = random.text(0, 2);
    }
    const Text text = random.text(0, 30);
    ASSERT_EQ(allAtOnce(text, replacements), byTheContractsDefault(text, replacements));
    ASSERT_EQ(allAtOnce(text, replacements), oneByOne(text, replacements));
  }
}

}  // namespace
}  // namespace LibTarvoCI
