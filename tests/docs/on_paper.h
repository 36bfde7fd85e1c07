// Printer bytes as the guides show them: what a person reads on the paper, and the words of the
// template language in angle brackets where a control code steers the printer.
//
//   <NEGRA> <BLANCA> <COMPRIMIDO> <NORMAL> ...   the code that the word sends
//   <1PT> <12PT>                                 line height of one point, and back to normal
//   <FF>                                         the page's end
//   <C9>                                         any other byte that the printer has no letter for
//   ·                                            a blank at the end of a line
//
// What every report begins and ends with is left out; a report without it is told as such.
#pragma once

#include <string>
#include <string_view>

namespace tarvo::test {

enum class ReportEnd {
  kOfForm,           // normal print, form feed
  kOfPages,          // normal print, form feed, reset
  kOfUnlimitedPage,  // normal print, five empty lines, reset
};

// The profile of the examples; its codes are those that are recognised.
inline constexpr const char* kGuideProfile = "epson-9pin";

// Every line with its line end; a last line without one ends in <OPEN>.
std::string onPaper(std::string_view bytes, ReportEnd end);

}  // namespace tarvo::test
