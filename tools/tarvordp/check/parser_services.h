// The services with which check reads a template through the library's own classes: the stand-ins,
// an operator who counts messages instead of reading them, and a printer of which nothing is
// printed.
//
// They are the thread's as long as this lives; afterwards those are that were there before.
#pragma once

#include <array>
#include <cstdint>

#include "frame/modRDPGlobalValues.h"

namespace tarvordp {

// The error that an endless reading ends in.
inline constexpr std::int32_t kEndless = -1;

class ParserServices {
 public:
  ParserServices();
  ~ParserServices();
  ParserServices(const ParserServices&) = delete;
  ParserServices& operator=(const ParserServices&) = delete;

  // Messages so far.
  std::size_t messages() const;

  // More messages than that from now on end in kEndless.
  void bearMessages(std::size_t count);

  // The byte that a character leaves as, once the printer channel has put it at its place.
  // REQUIRES: a character of the code page.
  std::uint8_t printedByte(char16_t character);

 private:
  class Operator;
  class Paper;

  tarvo::modRDPGlobalValues before_;
  tarvo::Ref<Operator> operator_;
  tarvo::Ref<Paper> paper_;
};

}  // namespace tarvordp
