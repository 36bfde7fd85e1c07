#include "tarvordp/view/character_set.h"

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

struct Selection {
  std::string_view code;
  CharacterSet set;
};

// ESC/P2 assigns a set to table 1 (ESC ( t) before it selects the table; Proprinters name the
// number of the set.
constexpr Selection kSelections[] = {
    {"\x1B(t\x03\x00\x01\x01\x00"sv, CharacterSet::pc437},
    {"\x1B(t\x03\x00\x01\x03\x00"sv, CharacterSet::pc850},
    {"\x1B[T\x05\x00\x00\x00\x01\xB5\x00"sv, CharacterSet::pc437},
    {"\x1B[T\x05\x00\x00\x00\x03\x52\x00"sv, CharacterSet::pc850},
};

}  // namespace

char16_t characterOf(CharacterSet set, unsigned char byte) noexcept {
  if (byte < kFirstOfUpperHalf) return byte;
  const auto& upperHalf = set == CharacterSet::pc850 ? kUpperHalfOf850 : kUpperHalfOf437;
  return upperHalf[byte - kFirstOfUpperHalf];
}

CharacterSet selectedBy(std::string_view controlString) noexcept {
  CharacterSet set = CharacterSet::pc437;
  std::size_t last = 0;
  for (const Selection& selection : kSelections) {
    const std::size_t found = controlString.rfind(selection.code);
    if (found == std::string_view::npos || found < last) continue;
    last = found;
    set = selection.set;
  }
  return set;
}

}  // namespace tarvordp
