// Printed bytes, read back as pages and shown in every form, on arbitrary input.
//
// An input's first byte is the profile: "0" to "4" a shipped one, "{" the beginning of a profile as
// a file has it, which ends with a line "%%".  What follows are the bytes.
//
// Whatever the bytes are: the decoder takes them all, nothing that is text or unknown is lost on
// the way to the pages, everything stands on its page, and what is shown holds no control byte.
#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "fuzzing.h"
#include "tarvordp/mistake.h"
#include "tarvordp/profile/profile_check.h"
#include "tarvordp/view/decoder.h"
#include "tarvordp/view/page_drawing.h"
#include "tarvordp/view/page_model.h"
#include "tarvordp/view/terminal_form.h"
#include "tarvordp/view/text_form.h"

namespace tarvo::fuzz {
namespace {

using namespace tarvordp;

constexpr std::size_t kLongestInput = 3'000;
constexpr std::size_t kMostBytesDrawn = 400;

struct Input {
  Profile profile;
  std::string_view bytes;
};

// False: what should be a profile is none.
bool read(std::string_view all, Input& input) {
  if (all.empty()) return false;
  if (all.front() != '{') {
    const auto& names = shippedProfileNames();
    const std::size_t which = static_cast<unsigned char>(all.front()) - std::size_t{'0'};
    input.profile = findProfile(names[which % names.size()], "");
    input.bytes = all.substr(1);
    return true;
  }
  const std::size_t end = all.find("\n%%\n");
  if (end == std::string_view::npos) return false;
  try {
    input.profile = readProfile(readJsonText(all.substr(0, end), "p.json"));
  } catch (const Mistake&) {
    return false;
  }
  input.bytes = all.substr(end + 4);
  return true;
}

// What the bytes hold, and what the pages do.
struct Content {
  std::size_t characters = 0;
  std::size_t tabs = 0;
  std::string unknown;

  friend bool operator==(const Content&, const Content&) = default;
};

Content contentOf(const Input& input) {
  const Decoder decoder(input.profile);
  Content content;
  for (std::string_view rest = input.bytes; !rest.empty();) {
    const PrinterEvent event = decoder.next(rest);
    require(!event.bytes.empty() && event.bytes.data() == rest.data(),
            "an event takes the bytes at the front");
    if (event.kind == PrinterEvent::Kind::text) content.characters += event.bytes.size();
    if (event.kind == PrinterEvent::Kind::tab) ++content.tabs;
    if (event.kind == PrinterEvent::Kind::unknown) content.unknown += event.bytes;
    rest.remove_prefix(event.bytes.size());
  }
  return content;
}

void addContent(const Page& page, Content& content) {
  for (const Line& line : page.lines) {
    for (const Run& run : line.runs) {
      content.unknown += run.unknown.bytes;
      // The blanks of a tab may go on in the next line of one that is too long.
      if (run.isTab) {
        ++content.tabs;
      } else {
        content.characters += run.text.size();
      }
    }
  }
}

void checkPlaces(const Page& page) {
  int top = 0;
  for (const Line& line : page.lines) {
    require(line.top >= top && line.top < page.height, "a line stands on its page, in order");
    require(line.advance >= 0 && line.advance <= kPointsPerLine, "paper moves by a line at most");
    require(widthOf(line) <= kWidestLine, "a line is no wider than the printer");
    top = line.top;
  }
}

void checkShown(const std::string& shown, std::string_view allowed) {
  for (const char c : shown) {
    require(static_cast<unsigned char>(c) >= 0x20 || allowed.find(c) != std::string_view::npos,
            "no control byte is shown as itself");
  }
}

void checkForms(const Page& page) {
  std::ostringstream text;
  writeText(text, page);
  checkShown(text.str(), "\n\f\t");
  std::ostringstream terminal;
  writeForTerminal(terminal, page, 1, 1, false);
  checkShown(terminal.str(), "\n");
  std::ostringstream coloured;
  writeForTerminal(coloured, page, 1, 1, true);
  checkShown(coloured.str(), "\n\033");
}

void checkDrawing(const Page& page) {
  const PageDrawing drawing(paperFor(kWidestLine, page.height));
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 100, 100);
  cairo_t* context = cairo_create(surface);
  cairo_scale(context, 0.1, 0.1);
  drawing.draw(context, page);
  require(cairo_status(context) == CAIRO_STATUS_SUCCESS, "every page can be drawn");
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

bool hasInitialStrings(const Profile& profile) {
  return std::any_of(profile.codes.begin() + static_cast<int>(ControlCode::initialString1),
                     profile.codes.end(), [](const Text& code) { return !code.empty(); });
}

}  // namespace
}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvo::fuzz;
  const std::string all(data, data + std::min(size, kLongestInput));
  Input input;
  if (!read(all, input)) return 0;
  tarvordp::checkProfile(input.profile);
  Content seen;
  std::size_t pages = 0;
  tarvordp::makePages(input.bytes, input.profile, [&](const tarvordp::Page& page) {
    addContent(page, seen);
    checkPlaces(page);
    checkForms(page);
    if (++pages == 1 && input.bytes.size() <= kMostBytesDrawn) checkDrawing(page);
  });
  if (hasInitialStrings(input.profile)) return 0;  // they print what is not in the bytes
  Content expected = contentOf(input);
  // One that is cut by the paper's edge is two.
  require(seen.tabs >= expected.tabs, "no tab is lost");
  expected.tabs = seen.tabs;
  require(seen == expected, "nothing is lost between the bytes and the pages");
  return 0;
}
