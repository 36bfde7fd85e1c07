#include "frame/class_info.h"

#include <string_view>

namespace tarvo {
namespace {

void appendHex(std::string& out, std::uint32_t value, int digits) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) {
    out.push_back(kDigits[(value >> shift) & 0xF]);
  }
}

}  // namespace

std::string toString(const Guid& guid) {
  std::string out;
  appendHex(out, guid.data1, 8);
  out.push_back('-');
  appendHex(out, guid.data2, 4);
  out.push_back('-');
  appendHex(out, guid.data3, 4);
  out.push_back('-');
  for (std::size_t i = 0; i < guid.data4.size(); ++i) {
    if (i == 2) out.push_back('-');
    appendHex(out, guid.data4[i], 2);
  }
  return out;
}

}  // namespace tarvo
