#include "tarvordp/view/decoder.h"

#include <algorithm>

#include "tarvordp/view/character_set.h"

namespace tarvordp {
namespace {

using Kind = PrinterEvent::Kind;

constexpr char kEscape = 0x1B;

unsigned char firstOf(std::string_view bytes) { return static_cast<unsigned char>(bytes.front()); }

// What every printer does, whatever its profile says.
bool isMovement(char byte) { return byte == '\r' || byte == '\n' || byte == '\f' || byte == '\t'; }

Kind movementOf(char byte) {
  switch (byte) {
    case '\r':
      return Kind::carriageReturn;
    case '\n':
      return Kind::lineFeed;
    case '\f':
      return Kind::formFeed;
    default:
      return Kind::tab;
  }
}

}  // namespace

Decoder::Decoder(const Profile& profile) : language_(languageOf(profile)) {
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const auto code = static_cast<ControlCode>(i);
    std::string bytes = bytesSent(profile, code);
    if (bytes.empty()) continue;
    std::vector<Known>& alike = byFirst_[firstOf(bytes)];
    auto known = std::ranges::find(alike, bytes, &Known::bytes);
    if (known == alike.end()) known = alike.insert(known, {std::move(bytes), {}});
    known->codes.add(code);
  }
  for (std::vector<Known>& alike : byFirst_) {
    std::ranges::sort(alike, std::greater(), [](const Known& known) { return known.bytes.size(); });
  }
}

const Decoder::Known* Decoder::codeAt(std::string_view bytes) const {
  for (const Known& known : byFirst_[firstOf(bytes)]) {
    if (bytes.starts_with(known.bytes)) return &known;
  }
  return nullptr;
}

PrinterEvent Decoder::next(std::string_view bytes) const {
  if (const Known* known = codeAt(bytes)) {
    return {Kind::code, bytes.substr(0, known->bytes.size()), known->codes};
  }
  if (isMovement(bytes.front())) return {movementOf(bytes.front()), bytes.substr(0, 1), {}};
  return isPrintable(firstOf(bytes)) ? text(bytes) : unknown(bytes);
}

PrinterEvent Decoder::text(std::string_view bytes) const {
  std::size_t length = 1;
  while (length < bytes.size() && isPrintable(firstOf(bytes.substr(length))) &&
         codeAt(bytes.substr(length)) == nullptr) {
    ++length;
  }
  return {Kind::text, bytes.substr(0, length), {}};
}

bool Decoder::mayFollow(std::string_view bytes) const {
  return !bytes.empty() && bytes.front() != kEscape && !isMovement(bytes.front()) &&
         codeAt(bytes) == nullptr;
}

// A control byte behind one that nobody knows; one that begins a longer code is not.
bool Decoder::isPartOfUnknown(std::string_view bytes) const {
  return mayFollow(bytes) && !isPrintable(firstOf(bytes)) && extentOf(language_, bytes).endIsKnown;
}

PrinterEvent Decoder::unknown(std::string_view bytes) const {
  CodeExtent extent = extentOf(language_, bytes);
  const bool isEscape = bytes.front() == kEscape;
  if (isEscape && !extent.endIsKnown && !mayFollow(bytes.substr(1))) extent.size = 1;
  if (!isEscape || !extent.endIsKnown) {
    while (isPartOfUnknown(bytes.substr(extent.size))) ++extent.size;
  }
  return {Kind::unknown, bytes.substr(0, extent.size + extent.data), {}, extent};
}

}  // namespace tarvordp
