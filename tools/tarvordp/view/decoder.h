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

#include "tarvordp/profile/printer_language.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/view/escape_sequences.h"

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
    unknown,         // a code that neither the profile nor every printer knows
  };

  Kind kind;
  std::string_view bytes;  // of the event, a part of what was given
  CodeSet codes;
  CodeExtent extent = {};  // of an unknown code
};

class Decoder {
 public:
  explicit Decoder(const Profile& profile);

  // The event at the front of the bytes.  Text reaches as far as it can.  An unknown code has the
  // arguments and data that it has in the language of the profile's printer.  Where that does not
  // say, an escape takes the byte behind it, and a code the control bytes behind it: then the event
  // says that its end is not known, or, where there is no escape, has several codes.
  // REQUIRES: `bytes` is not empty; it outlives the event.
  PrinterEvent next(std::string_view bytes) const;

 private:
  struct Known {
    std::string bytes;
    CodeSet codes;
  };

  const Known* codeAt(std::string_view bytes) const;
  // Whether the byte at the front may belong to the unknown code before it.
  bool mayFollow(std::string_view bytes) const;
  bool isPartOfUnknown(std::string_view bytes) const;
  PrinterEvent text(std::string_view bytes) const;
  PrinterEvent unknown(std::string_view bytes) const;

  const PrinterLanguage language_;
  std::array<std::vector<Known>, 256> byFirst_;  // by their first byte, the longest first
};

}  // namespace tarvordp
