#include "platform/win32/gdi_pages.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvo::platform {
namespace {

int whole(double units) noexcept { return static_cast<int>(std::lround(units)); }

class PageFont {
 public:
  PageFont(const PageFormat& format, double unitsPerTwip) {
    LOGFONTW description{};
    description.lfHeight = -std::max(1, whole(format.fontSize * kTwipsPerPoint * unitsPerTwip));
    description.lfWeight = format.bold ? FW_BOLD : FW_NORMAL;
    description.lfItalic = format.italic ? TRUE : FALSE;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfOutPrecision = OUT_TT_PRECIS;
    description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    format.fontName.copy(reinterpret_cast<char16_t*>(description.lfFaceName), LF_FACESIZE - 1);
    font_ = CreateFontIndirectW(&description);
  }
  PageFont(const PageFont&) = delete;
  PageFont& operator=(const PageFont&) = delete;
  ~PageFont() { DeleteObject(font_); }

  HFONT get() const noexcept { return font_; }

 private:
  HFONT font_;
};

// What is set on a device goes back with this.
class SavedDevice {
 public:
  explicit SavedDevice(HDC device) noexcept : device_(device), state_(SaveDC(device)) {}
  SavedDevice(const SavedDevice&) = delete;
  SavedDevice& operator=(const SavedDevice&) = delete;
  ~SavedDevice() { RestoreDC(device_, state_); }

 private:
  HDC device_;
  int state_;
};

class PageDrawing {
 public:
  PageDrawing(HDC device, const PagedText& pages, const PagePlacement& placement)
      : device_(device), pages_(pages), placement_(placement) {
    for (std::size_t column = 0; column < pages.columns(); ++column) {
      advances_.push_back(edgeOf(column + 1) - edgeOf(column));
    }
  }

  bool draw(std::size_t page) {
    for (std::size_t row = 0; row < pages_.rowsOnPage(page); ++row) {
      if (!drawRow(pages_.row(page, row), row)) return false;
    }
    return true;
  }

 private:
  bool drawRow(TextView text, std::size_t row) {
    if (text.empty()) return true;
    const PageFormat& format = pages_.format();
    const std::int32_t y =
        format.topMargin + static_cast<std::int32_t>(row) * format.rowHeight + format.baseline();
    shown_.assign(text.size(), L' ');
    std::transform(text.begin(), text.end(), shown_.begin(), [](char16_t character) {
      return static_cast<wchar_t>(visibleCharacter(character));
    });
    return ExtTextOutW(device_, edgeOf(0), whole(placement_.top + y * placement_.unitsPerTwipY), 0,
                       nullptr, shown_.data(), static_cast<UINT>(shown_.size()),
                       advances_.data()) != 0;
  }

  // The left edge of a column: rounded from its exact place, so that no error adds up.
  int edgeOf(std::size_t column) const noexcept {
    const PageFormat& format = pages_.format();
    const double twips = format.leftMargin + static_cast<double>(column) * format.columnWidth();
    return whole(placement_.left + twips * placement_.unitsPerTwipX);
  }

  HDC device_;
  const PagedText& pages_;
  const PagePlacement& placement_;
  std::vector<int> advances_;
  std::vector<wchar_t> shown_;
};

}  // namespace

bool drawPage(HDC device, const PagedText& pages, std::size_t page,
              const PagePlacement& placement) {
  const PageFont font(pages.format(), placement.unitsPerTwipY);
  if (font.get() == nullptr) return false;
  const SavedDevice saved(device);
  SelectObject(device, font.get());
  SetTextAlign(device, TA_LEFT | TA_BASELINE);
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, RGB(0, 0, 0));
  return PageDrawing(device, pages, placement).draw(page);
}

}  // namespace tarvo::platform
