#include "tarvordp/check/printer_letters.h"

namespace tarvordp {
namespace {

using tarvo::TextView;

constexpr unsigned kFirst = 0x80;

constexpr TextView kPc437 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    u"áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    u"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";

constexpr TextView kPc850 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";

static_assert(kPc437.size() == 0x100 - kFirst);
static_assert(kPc850.size() == 0x100 - kFirst);

TextView upperHalf(PrinterSet set) { return set == PrinterSet::kPc437 ? kPc437 : kPc850; }

}  // namespace

char16_t printedCharacter(PrinterSet set, std::uint8_t byte) {
  return byte < kFirst ? byte : upperHalf(set)[byte - kFirst];
}

bool hasCharacter(PrinterSet set, char16_t character) {
  return character < kFirst || upperHalf(set).find(character) != TextView::npos;
}

const char* nameOf(PrinterSet set) { return set == PrinterSet::kPc437 ? "PC437" : "PC850"; }

PrinterSet setChosenBy(TextView internationalChars) {
  // Assign character table 1: PC850.
  constexpr TextView kAssignsPc850(u"\x1B(t\x03\0\x01\x03\0", 8);
  return internationalChars.find(kAssignsPc850) == TextView::npos ? PrinterSet::kPc437
                                                                  : PrinterSet::kPc850;
}

}  // namespace tarvordp
