#include "tarvordp/view/character_set.h"

#include <array>
#include <cstddef>

namespace tarvordp {
namespace {

using namespace std::string_view_literals;

constexpr unsigned char kFirstOfUpperHalf = 0x80;

// Sixteen characters a row, from 80 on.
constexpr std::u16string_view kUpperHalfOf437 =
    u"ÇüéâäàåçêëèïîìÄÅ"
    u"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    u"áíóúñÑªº¿⌐¬½¼¡«»"
    u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
    u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    u"αßΓπΣσµτΦΘΩδ∞φε∩"
    u"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
constexpr std::u16string_view kUpperHalfOf850 =
    u"ÇüéâäàåçêëèïîìÄÅ"
    u"ÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»"
    u"░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤"
    u"ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´"
    u"\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";
static_assert(kUpperHalfOf437.size() == 0x80 && kUpperHalfOf850.size() == 0x80);

// PC850 with the euro sign in the place of the dotless i.
constexpr unsigned char kEuroOf858 = 0xD5;
constexpr char16_t kEuro = u'\u20AC';

struct NumberedSet {
  unsigned number;
  CharacterSet set;
};

// A selection: its beginning, and where behind it the set's number stands, in two bytes.
struct Selection {
  std::string_view beginning;
  std::size_t higher;
  std::size_t lower;
  std::size_t size;
  std::array<NumberedSet, 3> sets;  // a number of 0 is none
};

// ESC/P2 assigns a set of a number of its own to a table (ESC ( t) before it selects the table;
// Proprinters take the set's usual number.
constexpr Selection kSelections[] = {
    {"\x1B(t\x03\x00"sv, 6, 7, 8, {{{0x0100, CharacterSet::pc437}, {0x0300, CharacterSet::pc850}}}},
    {"\x1B[T\x05\x00\x00\x00"sv,
     7,
     8,
     10,
     {{{437, CharacterSet::pc437}, {850, CharacterSet::pc850}, {858, CharacterSet::pc858}}}},
};

SetSelection selectionOf(const Selection& selection, std::string_view code) {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(code[index]); };
  const unsigned number = byte(selection.higher) * 0x100U + byte(selection.lower);
  for (const NumberedSet& each : selection.sets) {
    if (each.number == number && number != 0) return {each.set, {}};
  }
  return {CharacterSet::pc437, std::string(code.substr(0, selection.size))};
}

}  // namespace

const char* nameOf(CharacterSet set) noexcept {
  switch (set) {
    case CharacterSet::pc437:
      return "PC437";
    case CharacterSet::pc850:
      return "PC850";
    case CharacterSet::pc858:
      return "PC858";
  }
  return "";
}

char16_t characterOf(CharacterSet set, unsigned char byte) noexcept {
  if (byte < kFirstOfUpperHalf) return byte;
  if (set == CharacterSet::pc858 && byte == kEuroOf858) return kEuro;
  const auto& upperHalf = set == CharacterSet::pc437 ? kUpperHalfOf437 : kUpperHalfOf850;
  return upperHalf[byte - kFirstOfUpperHalf];
}

bool hasCharacter(CharacterSet set, char16_t character) noexcept {
  for (unsigned byte = 0x20; byte <= 0xFF; ++byte) {
    const auto each = static_cast<unsigned char>(byte);
    if (isPrintable(each) && characterOf(set, each) == character) return true;
  }
  return false;
}

SetSelection selectedBy(std::string_view controlString) {
  SetSelection selected;
  std::size_t last = 0;
  for (const Selection& selection : kSelections) {
    const std::size_t found = controlString.rfind(selection.beginning);
    if (found == std::string_view::npos || found < last) continue;
    if (controlString.size() - found < selection.size) continue;
    last = found;
    selected = selectionOf(selection, controlString.substr(found));
  }
  return selected;
}

}  // namespace tarvordp
