// Pages as they leave a printer: what stands where, in which look.
//
// Made from printed bytes and the profile that printed them, page by page, so that a job of any
// length takes the memory of one page.  How a page is shown is not its matter: see text_form.h,
// terminal_form.h and page_drawing.h.
//
// Units: across, 1/720 inch from the first column; down, points (1/72 inch) from the top of the
// page.  All widths of the usual pitches are whole numbers of them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/text.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/view/unknown_code.h"

namespace tarvordp {

inline constexpr int kUnitsPerInch = 720;
inline constexpr int kPointsPerLine = 12;

// What a wide printer takes, 13.6 inches: a longer line goes on in the next one, as on the printer.
inline constexpr int kWidestLine = kUnitsPerInch * 136 / 10;

struct Look {
  std::int16_t width = 72;  // of a character
  bool expanded = false;    // double width, counted in `width`
  bool bold = false;
  bool underlined = false;
  bool italic = false;

  friend bool operator==(const Look&, const Look&) = default;
};

// Characters side by side in one look, or a code that the profile does not know.  Such a code takes
// no room, unless it prints graphics.
struct Run {
  int x = 0;
  Look look;
  int pass = 0;      // counts the carriage returns before it that had no line feed with them
  tarvo::Text text;  // empty for an unknown code; the blanks of a tab
  UnknownCode unknown;
  bool isTab = false;
};

struct Line {
  int top = 0;          // of the line; a usual line is 12 points high
  int advance = 0;      // the paper moved that much after it; 0 for a page's last line, when open
  bool goesOn = false;  // the next line is the rest of this one, which was too long
  std::vector<Run> runs;
};

struct Page {
  int height = 0;           // points
  bool ejected = false;     // it ended by a form feed
  std::vector<Line> lines;  // in printing order, empty ones too
};

// Where the last thing that is seen on the line ends: 0 for an empty one.
int widthOf(const Line& line);

// Makes pages of printed bytes.
//
// A page ends by a form feed, or where the paper does: the page length is the profile's number of
// lines of 12 points (66 where it says 0).  Paper is continuous: what moves beyond the end goes on
// at the same distance below the beginning of the next page.
//   handOver   gets every page that something was printed or moved on, in order
void makePages(std::string_view bytes, const Profile& profile,
               const std::function<void(const Page&)>& handOver);

}  // namespace tarvordp
