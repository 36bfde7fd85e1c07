#include "tarvordp/view/escape_sequences.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace tarvordp {
namespace {

constexpr unsigned char kEscape = 0x1B;
constexpr unsigned char kFileSeparator = 0x1C;
constexpr unsigned char kGroupSeparator = 0x1D;
constexpr int kUnits = 720;  // an inch

// What follows the arguments.
enum class Tail : std::uint8_t {
  none,
  linesOrInches,  // one more argument when the first is 0
  upToNul,
  counted,     // the last two arguments are the number of bytes, the lower one first
  eightDots,   // ... of columns of 8 dots
  nineDots,    // ... of 9, in two bytes each; the first argument is the density
  dotsByMode,  // ... as the first argument says
};

// ESC, a byte, arguments.
struct Sequence {
  char second;
  std::size_t arguments;
  Tail tail;
  int dotsAnInch = 0;
};

// The bytes behind ESC, by the number of arguments, and the sequences that end by more than those.
struct Language {
  std::array<std::string_view, 4> byArguments;
  std::span<const Sequence> others;
};

constexpr Sequence kOthersOfEpson[] = {
    {'(', 3, Tail::counted},        {'*', 3, Tail::dotsByMode},     {'B', 0, Tail::upToNul},
    {'C', 1, Tail::linesOrInches},  {'D', 0, Tail::upToNul},        {'K', 2, Tail::eightDots, 60},
    {'L', 2, Tail::eightDots, 120}, {'Y', 2, Tail::eightDots, 120}, {'Z', 2, Tail::eightDots, 240},
    {'^', 3, Tail::nineDots},       {'b', 1, Tail::upToNul}};
constexpr Language kEpson{
    {"#012456789<=>@EFGHMOPTg", "\x19 !%+-/3AIJNQRSUWahijklmpqrstwx~", "$?\\cef", ":X"},
    kOthersOfEpson};

constexpr Sequence kOthersOfProprinter[] = {
    {'*', 3, Tail::dotsByMode},     {'=', 2, Tail::counted},        {'B', 0, Tail::upToNul},
    {'C', 1, Tail::linesOrInches},  {'D', 0, Tail::upToNul},        {'K', 2, Tail::eightDots, 60},
    {'L', 2, Tail::eightDots, 120}, {'Y', 2, Tail::eightDots, 120}, {'Z', 2, Tail::eightDots, 240},
    {'[', 3, Tail::counted}};
// Characters by their number (ESC ^ and ESC \ ) are printed, and shown as the others are.
constexpr Language kProprinter{{"012467:EFGHORT]^j", "-35AIJNPQSUW_", "X\\de", ""},
                               kOthersOfProprinter};

// The models differ in the others.
constexpr Language kMicroline{{"\x18\x36\x38"
                               "CDHIJKLMT",
                               "!", "%F", ""},
                              {}};

const Language* languageFor(PrinterLanguage language) noexcept {
  switch (language) {
    case PrinterLanguage::epson:
      return &kEpson;
    case PrinterLanguage::proprinter:
      return &kProprinter;
    case PrinterLanguage::microline:
      return &kMicroline;
    case PrinterLanguage::unknown:
      break;
  }
  return nullptr;
}

std::optional<Sequence> sequenceOf(PrinterLanguage name, char second) noexcept {
  const Language* language = languageFor(name);
  if (language == nullptr) return {};
  const auto other = std::ranges::find(language->others, second, &Sequence::second);
  if (other != language->others.end()) return *other;
  for (std::size_t count = 0; count < language->byArguments.size(); ++count) {
    if (language->byArguments[count].find(second) != std::string_view::npos) {
      return Sequence{second, count, Tail::none};
    }
  }
  return {};
}

struct Mode {
  unsigned char number;
  int dotsAnInch;
  std::size_t bytesAColumn;
};
constexpr Mode kModes[] = {{0, 60, 1},  {1, 120, 1},  {2, 120, 1},  {3, 240, 1}, {4, 80, 1},
                           {5, 72, 1},  {6, 90, 1},   {7, 144, 1},  {32, 60, 3}, {33, 120, 3},
                           {38, 90, 3}, {39, 180, 3}, {40, 360, 3}, {64, 60, 6}, {65, 120, 6},
                           {70, 90, 6}, {71, 180, 6}, {72, 360, 6}, {73, 360, 6}};

class Measuring {
 public:
  Measuring(const Sequence& sequence, std::string_view bytes) noexcept
      : sequence_(sequence), bytes_(bytes) {}

  CodeExtent measure() noexcept {
    extent_.size = std::min(bytes_.size(), kHead + sequence_.arguments);
    if (extent_.size == kHead + sequence_.arguments) addTail();
    return extent_;
  }

 private:
  static constexpr std::size_t kHead = 2;

  unsigned char byte(std::size_t index) const noexcept {
    return static_cast<unsigned char>(bytes_[index]);
  }
  std::size_t count() const noexcept {
    return byte(extent_.size - 2) + (std::size_t{byte(extent_.size - 1)} << 8U);
  }

  void addTail() noexcept {
    switch (sequence_.tail) {
      case Tail::none:
        return;
      case Tail::linesOrInches:
        if (byte(kHead) == 0 && extent_.size < bytes_.size()) ++extent_.size;
        return;
      case Tail::upToNul:
        return addUpToNul();
      case Tail::counted:
        return addData(count());
      case Tail::eightDots:
        return addColumns({0, sequence_.dotsAnInch, 1});
      case Tail::nineDots:
        return addColumns({0, byte(kHead) == 0 ? 60 : 120, 2});
      case Tail::dotsByMode:
        return addColumnsOfMode();
    }
  }

  // A list of tab stops is short: one that does not end soon is none.
  void addUpToNul() noexcept {
    constexpr std::size_t kMostStops = 32;
    const std::size_t stops = bytes_.substr(extent_.size, kMostStops + 1).find('\0');
    if (stops == std::string_view::npos) {
      extent_.endIsKnown = false;
    } else {
      extent_.size += stops + 1;
    }
  }

  void addColumnsOfMode() noexcept {
    const auto* mode = std::ranges::find(kModes, byte(kHead), &Mode::number);
    if (mode == std::end(kModes)) {
      extent_.endIsKnown = false;
    } else {
      addColumns(*mode);
    }
  }

  void addColumns(const Mode& mode) noexcept {
    const std::size_t columns = count();
    addData(columns * mode.bytesAColumn);
    extent_.isGraphics = true;
    extent_.width = static_cast<int>(columns) * kUnits / mode.dotsAnInch;
  }

  void addData(std::size_t announced) noexcept {
    extent_.announced = announced;
    extent_.data = std::min(announced, bytes_.size() - extent_.size);
  }

  const Sequence& sequence_;
  std::string_view bytes_;
  CodeExtent extent_;
};

CodeExtent ofUnknownEnd(std::size_t size) noexcept {
  CodeExtent extent;
  extent.size = size;
  extent.endIsKnown = false;
  return extent;
}

}  // namespace

CodeExtent extentOf(PrinterLanguage language, std::string_view bytes) noexcept {
  const auto first = static_cast<unsigned char>(bytes.front());
  const bool beginsMore = first == kFileSeparator || first == kGroupSeparator;
  if (beginsMore && language != PrinterLanguage::microline) return ofUnknownEnd(1);
  if (first != kEscape) return {};
  if (bytes.size() < 2) return ofUnknownEnd(1);
  const std::optional<Sequence> sequence = sequenceOf(language, bytes[1]);
  return sequence ? Measuring(*sequence, bytes).measure() : ofUnknownEnd(2);
}

}  // namespace tarvordp
