#include "tarvordp/view/page_model.h"

#include <algorithm>
#include <utility>

#include "tarvordp/view/decoder.h"
#include "tarvordp/view/printing_state.h"

namespace tarvordp {
namespace {

using Kind = PrinterEvent::Kind;

constexpr int kUsualPageLines = 66;
constexpr int kTabColumns = 8;

constexpr ControlCode kInitialStrings[] = {ControlCode::initialString1, ControlCode::initialString2,
                                           ControlCode::initialString3,
                                           ControlCode::initialString4};

bool hasInitialString(CodeSet codes) {
  return std::ranges::any_of(kInitialStrings, [&](ControlCode code) { return codes.has(code); });
}

Profile withoutInitialStrings(Profile profile) {
  for (const ControlCode code : kInitialStrings) {
    profile.codes[static_cast<std::size_t>(code)].clear();
  }
  return profile;
}

class PageMaker {
 public:
  PageMaker(const Profile& profile, const std::function<void(const Page&)>& handOver)
      : insideInitialStrings_(withoutInitialStrings(profile)),
        state_(profile),
        pageHeight_(kPointsPerLine *
                    (profile.maxLinPage == 0 ? kUsualPageLines : profile.maxLinPage)),
        handOver_(handOver) {
    beginPage(0);
  }

  void take(const PrinterEvent& event) {
    switch (event.kind) {
      case Kind::text:
        return print(event.bytes, false);
      case Kind::code:
        return obey(event);
      case Kind::carriageReturn:
        return returnCarriage();
      case Kind::lineFeed:
        return feedLine();
      case Kind::formFeed:
        return eject();
      case Kind::tab:
        return tabulate();
      case Kind::unknown:
        return showUnknown(event);
    }
  }

  void finish() {
    if (line_.runs.empty() && page_.lines.empty()) return;
    endLine(0);
    endPage(false);
  }

 private:
  void beginPage(int top) {
    page_ = Page{pageHeight_, false, {}};
    line_ = Line{};
    line_.top = top;
  }

  void endPage(bool ejected) {
    page_.ejected = ejected;
    handOver_(page_);
  }

  // The line goes to the page; the next one begins below it, on the next page where this one ends.
  void endLine(int advance) {
    line_.advance = advance;
    const int nextTop = line_.top + advance;
    if (advance > 0 || !line_.runs.empty()) page_.lines.push_back(std::move(line_));
    line_ = Line{};
    line_.top = nextTop;
    if (nextTop < pageHeight_) return;
    endPage(false);
    beginPage(nextTop - pageHeight_);
  }

  void print(std::string_view bytes, bool isTab) {
    const Look look = state_.look();
    while (!bytes.empty()) {
      if (x_ + look.width > kWidestLine) wrap();
      const auto room = static_cast<std::size_t>((kWidestLine - x_) / look.width);
      const std::string_view part = bytes.substr(0, room);
      Run& run = runFor(look, isTab);
      for (const char byte : part) {
        run.text += characterOf(state_.characterSet(), static_cast<unsigned char>(byte));
      }
      x_ += static_cast<int>(part.size()) * look.width;
      bytes.remove_prefix(part.size());
    }
  }

  void wrap() {
    line_.goesOn = true;
    endLine(state_.lineHeight());
    x_ = 0;
    pass_ = 0;
  }

  Run& runFor(const Look& look, bool isTab) {
    if (isTab || line_.runs.empty() || !goesOn(line_.runs.back(), look)) {
      line_.runs.push_back({x_, look, pass_, {}, {}, isTab});
    }
    return line_.runs.back();
  }

  bool goesOn(const Run& run, const Look& look) const {
    return run.unknown.empty() && !run.isTab && run.look == look && run.pass == pass_;
  }

  void obey(const PrinterEvent& event) {
    if (hasInitialString(event.codes)) return obeyInitialString(event.bytes);
    state_.apply(event.codes);
    if (event.codes.has(ControlCode::formFeed)) eject();
  }

  // Initial strings are made of the printer's other codes.  What else they hold is no surprise.
  void obeyInitialString(std::string_view bytes) {
    while (!bytes.empty()) {
      const PrinterEvent event = insideInitialStrings_.next(bytes);
      if (event.kind != Kind::unknown) take(event);
      bytes.remove_prefix(event.bytes.size());
    }
  }

  void returnCarriage() {
    state_.lineEnds();
    x_ = 0;
    if (!line_.runs.empty()) ++pass_;
  }

  // The carriage returns with it, as on most of these printers.
  void feedLine() {
    state_.lineEnds();
    x_ = 0;
    pass_ = 0;
    endLine(state_.lineHeight());
  }

  void eject() {
    state_.lineEnds();
    x_ = 0;
    pass_ = 0;
    if (!line_.runs.empty()) page_.lines.push_back(std::move(line_));
    endPage(true);
    beginPage(0);
  }

  void tabulate() {
    const int columns = x_ / state_.look().width;
    print(std::string(static_cast<std::size_t>(kTabColumns - columns % kTabColumns), ' '), true);
  }

  // What of graphics does not find room on the line is lost, as on the printer.
  void showUnknown(const PrinterEvent& event) {
    const CodeExtent& extent = event.extent;
    const int width = std::min(extent.width, kWidestLine - x_);
    line_.runs.push_back({x_,
                          state_.look(),
                          pass_,
                          {},
                          {std::string(event.bytes), extent.data, extent.announced,
                           extent.endIsKnown, extent.isGraphics, width},
                          false});
    x_ += width;
  }

  const Decoder insideInitialStrings_;
  PrintingState state_;
  const int pageHeight_;
  const std::function<void(const Page&)>& handOver_;
  Page page_;
  Line line_;
  int x_ = 0;
  int pass_ = 0;
};

}  // namespace

int widthOf(const Line& line) {
  int width = 0;
  for (const Run& run : line.runs) {
    if (run.unknown.width > 0) width = std::max(width, run.x + run.unknown.width);
    const std::size_t seen =
        run.look.underlined ? run.text.size() : run.text.find_last_not_of(u' ') + 1;
    if (seen > 0) width = std::max(width, run.x + static_cast<int>(seen) * run.look.width);
  }
  return width;
}

void makePages(std::string_view bytes, const Profile& profile,
               const std::function<void(const Page&)>& handOver) {
  const Decoder decoder(profile);
  PageMaker maker(profile, handOver);
  while (!bytes.empty()) {
    const PrinterEvent event = decoder.next(bytes);
    maker.take(event);
    bytes.remove_prefix(event.bytes.size());
  }
  maker.finish();
}

}  // namespace tarvordp
