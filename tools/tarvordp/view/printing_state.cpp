#include "tarvordp/view/printing_state.h"

namespace tarvordp {
namespace {

constexpr int kTenAnInch = kUnitsPerInch / 10;
constexpr int kTwelveAnInch = kUnitsPerInch / 12;
// Condensed print has 12 of the printer's steps for each 7 of the pitch: 17.1 and 20 an inch.
constexpr int kCondensedTen = 42;
constexpr int kCondensedTwelve = 36;
constexpr std::string_view kShiftOut = "\x0E";

std::string codeOf(const Profile& profile, ControlCode code) { return bytesSent(profile, code); }

bool contains(const std::string& whole, const std::string& part) {
  return part.empty() || whole.find(part) != std::string::npos;
}

// A code that switches on and off in turn is both of a pair.
void applyPair(CodeSet codes, ControlCode on, ControlCode off, bool& mode) {
  const bool begins = codes.has(on);
  const bool ends = codes.has(off);
  if (begins && ends) {
    mode = !mode;
  } else if (begins || ends) {
    mode = begins;
  }
}

}  // namespace

PrintingState::PrintingState(const Profile& profile)
    : onePitchAtATime_(codeOf(profile, ControlCode::normal) ==
                       codeOf(profile, ControlCode::font10Points)),
      normalSetsTenAnInch_(contains(codeOf(profile, ControlCode::normal),
                                    codeOf(profile, ControlCode::font10Points))),
      expandedEndsWithLine_(codeOf(profile, ControlCode::initExpanded).ends_with(kShiftOut)),
      international_(selectedBy(codeOf(profile, ControlCode::internationalChars)).set) {}

void PrintingState::apply(CodeSet codes) {
  if (codes.has(ControlCode::reset)) modes_ = Modes{};
  applyPitch(codes);
  applyPair(codes, ControlCode::initExpanded, ControlCode::endExpanded, modes_.expanded);
  applyPair(codes, ControlCode::bold, ControlCode::light, modes_.bold);
  applyPair(codes, ControlCode::initUnderlying, ControlCode::endUnderlying, modes_.underlined);
  applyPair(codes, ControlCode::initItalic, ControlCode::endItalic, modes_.italic);
  if (codes.has(ControlCode::highLine1Point)) modes_.lineHeight = 1;
  if (codes.has(ControlCode::highLine12Points)) modes_.lineHeight = kPointsPerLine;
  if (codes.has(ControlCode::internationalChars)) modes_.characterSet = international_;
}

void PrintingState::applyPitch(CodeSet codes) {
  applyPair(codes, ControlCode::condensed, ControlCode::normal, modes_.condensed);
  const bool toTen = codes.has(ControlCode::font10Points) ||
                     (codes.has(ControlCode::normal) && normalSetsTenAnInch_);
  const bool toTwelve = codes.has(ControlCode::font12Points);
  if (toTen) modes_.twelveAnInch = false;
  if (toTwelve) modes_.twelveAnInch = true;
  if (onePitchAtATime_ && toTwelve) modes_.condensed = false;
  if (onePitchAtATime_ && codes.has(ControlCode::condensed)) modes_.twelveAnInch = false;
}

void PrintingState::lineEnds() noexcept {
  if (expandedEndsWithLine_) modes_.expanded = false;
}

Look PrintingState::look() const noexcept {
  int width = modes_.twelveAnInch ? kTwelveAnInch : kTenAnInch;
  if (modes_.condensed) width = modes_.twelveAnInch ? kCondensedTwelve : kCondensedTen;
  if (modes_.expanded) width *= 2;
  return {static_cast<std::int16_t>(width), modes_.expanded, modes_.bold, modes_.underlined,
          modes_.italic};
}

}  // namespace tarvordp
