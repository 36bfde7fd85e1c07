#include "tarvordp/view/unknown_code.h"

#include <string_view>

#include "tarvordp/profile/code_text.h"

namespace tarvordp {
namespace {

constexpr std::size_t kFewBytes = 8;  // of data, which are shown as they are

std::string shownData(const UnknownCode& code) {
  std::string text = ": " + std::to_string(code.data);
  if (code.data < code.announced) text += " of " + std::to_string(code.announced);
  text += code.announced == 1 ? " byte" : " bytes";
  return text + (code.isGraphics ? " of graphics" : "");
}

}  // namespace

std::string shown(const UnknownCode& code) {
  const std::string_view all = code.bytes;
  const bool isWhole = code.data == code.announced;
  if (!code.isGraphics && isWhole && code.data <= kFewBytes) {
    return hexOf(all) + (code.endIsKnown ? "" : " ?");
  }
  return hexOf(all.substr(0, all.size() - code.data)) + shownData(code);
}

std::string shownBetweenBrackets(const UnknownCode& code) { return "<" + shown(code) + ">"; }

}  // namespace tarvordp
