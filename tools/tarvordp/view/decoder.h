// Takes printed bytes apart: text, the control codes of a printer profile, the movements that every
// printer knows, and what is left.
//
// Where several codes begin alike the longest one counts.  A code that is several properties at
// once (on many printers "back to normal" and "10 characters an inch" are the same) is all of them.
// It knows nothing of pages: see page_model.h.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tarvordp/profile/profile.h"

namespace tarvordp {

// A set of control codes.
class CodeSet {
 public:
  void add(ControlCode code) noexcept { bits_ |= bitOf(code); }
  bool has(ControlCode code) const noexcept { return (bits_ & bitOf(code)) != 0; }
  friend bool operator==(CodeSet, CodeSet) noexcept = default;

 private:
  static std::uint32_t bitOf(ControlCode code) noexcept {
    return std::uint32_t{1} << static_cast<unsigned>(code);
  }

  std::uint32_t bits_ = 0;
};

struct PrinterEvent {
  enum class Kind : std::uint8_t {
    text,            // printable bytes
    code,            // the profile's; `codes` says which
    carriageReturn,  // 0D
    lineFeed,        // 0A
    formFeed,        // 0C
    tab,             // 09
    unknown,         // control bytes that neither the profile nor every printer knows
  };

  Kind kind;
  std::string_view bytes;  // of the event, a part of what was given
  CodeSet codes;
};

class Decoder {
 public:
  explicit Decoder(const Profile& profile);

  // The event at the front of the bytes.  Text reaches as far as it can, unknown codes too: an
  // escape byte takes the byte behind it and the control bytes behind that.
  // REQUIRES: `bytes` is not empty; it outlives the event.
  PrinterEvent next(std::string_view bytes) const;

 private:
  struct Known {
    std::string bytes;
    CodeSet codes;
  };

  const Known* codeAt(std::string_view bytes) const;
  bool beginsNothingKnown(std::string_view bytes) const;
  PrinterEvent text(std::string_view bytes) const;
  PrinterEvent unknown(std::string_view bytes) const;

  std::array<std::vector<Known>, 256> byFirst_;  // by their first byte, the longest first
};

}  // namespace tarvordp
