#include "platform/win32/preview_canvas.h"

#include <algorithm>
#include <cmath>

#include "platform/win32/gdi_pages.h"

namespace tarvo::platform {
namespace {

constexpr double kPercents[] = {10, 15, 25, 33, 50, 67, 75, 90, 100, 125, 150, 200, 300, 400};
constexpr double kSmallest = kPercents[0];
constexpr double kLargest = 400;
constexpr double kNearlyEqual = 0.5;

constexpr int kDesk = 14;   // around the paper
constexpr int kShadow = 3;  // likewise at 96 dots an inch

constexpr COLORREF kPaperColour = RGB(255, 255, 255);

// Between two colours.
COLORREF mixed(COLORREF a, COLORREF b, int percentOfB) noexcept {
  const auto part = [percentOfB](BYTE from, BYTE to) {
    return static_cast<BYTE>(from + (to - from) * percentOfB / 100);
  };
  return RGB(part(GetRValue(a), GetRValue(b)), part(GetGValue(a), GetGValue(b)),
             part(GetBValue(a), GetBValue(b)));
}

int whole(double pixels) noexcept { return static_cast<int>(std::lround(pixels)); }

}  // namespace

PreviewCanvas::PreviewCanvas(Ref<const PagedText> pages) : pages_(std::move(pages)) {}

bool PreviewCanvas::create(HWND parent) {
  return createWindow(L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_CLIPSIBLINGS, {},
                      parent) != nullptr;
}

void PreviewCanvas::showPage(std::size_t page, bool fromItsEnd) {
  page_ = page;
  scrollTo({position_.x, fromItsEnd ? contentSize().cy : 0});
  repaint();
}

void PreviewCanvas::setZoom(Zoom zoom, double percent) {
  const SIZE before = contentSize();
  const double middleX = (position_.x + view_.cx / 2.0) / std::max(1L, before.cx);
  const double middleY = (position_.y + view_.cy / 2.0) / std::max(1L, before.cy);
  zoom_ = zoom;
  percent_ = std::clamp(percent, kSmallest, kLargest);
  layOut();
  const SIZE after = contentSize();
  scrollTo(
      {whole(middleX * after.cx - view_.cx / 2.0), whole(middleY * after.cy - view_.cy / 2.0)});
  repaint();
}

void PreviewCanvas::zoomIn() {
  const auto* next = std::find_if(std::begin(kPercents), std::end(kPercents),
                                  [this](double size) { return size > percent_ + kNearlyEqual; });
  setZoom(Zoom::kFixed, next != std::end(kPercents) ? *next : kLargest);
}

void PreviewCanvas::zoomOut() {
  const auto next = std::find_if(std::rbegin(kPercents), std::rend(kPercents),
                                 [this](double size) { return size < percent_ - kNearlyEqual; });
  setZoom(Zoom::kFixed, next != std::rend(kPercents) ? *next : kSmallest);
}

bool PreviewCanvas::scroll(int right, int down) {
  return scrollTo({position_.x + right, position_.y + down});
}

int PreviewCanvas::rowHeight() const noexcept {
  return std::max(1, whole(pages_->format().rowHeight * pixelsPerTwip()));
}

int PreviewCanvas::viewHeight() const noexcept { return view_.cy; }

LRESULT PreviewCanvas::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      layOut();
      return 0;
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;  // all of it is painted
    case WM_VSCROLL:
      scrollTo({position_.x, scrollTarget(SB_VERT, LOWORD(wParam))});
      return 0;
    case WM_HSCROLL:
      scrollTo({scrollTarget(SB_HORZ, LOWORD(wParam)), position_.y});
      return 0;
    default:
      return defaultAnswer(message, wParam, lParam);
  }
}

// The size of the paper may depend on the room, the scroll bars on the size of the paper, and the
// room on the scroll bars.  A bar that was once needed stays, so this comes to an end.
void PreviewCanvas::layOut() {
  if (isLayingOut_ || window() == nullptr) return;  // showing a bar sends another WM_SIZE
  isLayingOut_ = true;
  RECT whole{};
  GetWindowRect(window(), &whole);
  bool hasVertical = false;
  bool hasHorizontal = false;
  for (int round = 0; round < 3; ++round) {
    view_.cx = whole.right - whole.left - (hasVertical ? GetSystemMetrics(SM_CXVSCROLL) : 0);
    view_.cy = whole.bottom - whole.top - (hasHorizontal ? GetSystemMetrics(SM_CYHSCROLL) : 0);
    percent_ = percentFor(view_);
    hasVertical = hasVertical || contentSize().cy > view_.cy;
    hasHorizontal = hasHorizontal || contentSize().cx > view_.cx;
  }
  setScrollBar(SB_VERT, contentSize().cy, view_.cy, position_.y, hasVertical);
  setScrollBar(SB_HORZ, contentSize().cx, view_.cx, position_.x, hasHorizontal);
  isLayingOut_ = false;
  scrollTo(position_);
  repaint();
}

double PreviewCanvas::percentFor(SIZE area) const noexcept {
  if (zoom_ == Zoom::kFixed) return percent_;
  const PageFormat& format = pages_->format();
  const auto fitting = [this](LONG room, std::int32_t twips) {
    return (room - 2 * pixels(kDesk)) * 100 * 1440.0 / (std::max(1, twips) * dotsPerInch());
  };
  double percent = fitting(area.cx, format.width);
  if (zoom_ == Zoom::kWholePage) percent = std::min(percent, fitting(area.cy, format.height));
  return std::clamp(percent, kSmallest, kLargest);
}

// The paper and the desk around it.
SIZE PreviewCanvas::contentSize() const noexcept {
  const PageFormat& format = pages_->format();
  return {static_cast<LONG>(format.width * pixelsPerTwip()) + 2 * pixels(kDesk),
          static_cast<LONG>(format.height * pixelsPerTwip()) + 2 * pixels(kDesk)};
}

void PreviewCanvas::setScrollBar(int bar, int content, int view, int position,
                                 bool isShown) const noexcept {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | (isShown ? SIF_DISABLENOSCROLL : 0u);
  info.nMax = std::max(0, content - 1);
  info.nPage = static_cast<UINT>(std::max(0, view));
  info.nPos = position;
  SetScrollInfo(window(), bar, &info, TRUE);
  ShowScrollBar(window(), bar, isShown);
}

bool PreviewCanvas::scrollTo(POINT position) {
  const SIZE content = contentSize();
  position.x = std::clamp(position.x, 0L, std::max(0L, content.cx - view_.cx));
  position.y = std::clamp(position.y, 0L, std::max(0L, content.cy - view_.cy));
  if (position.x == position_.x && position.y == position_.y) return false;
  position_ = position;
  SetScrollPos(window(), SB_HORZ, position.x, TRUE);
  SetScrollPos(window(), SB_VERT, position.y, TRUE);
  repaint();
  return true;
}

int PreviewCanvas::scrollTarget(int bar, int command) const noexcept {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window(), bar, &info);
  const int line = 3 * rowHeight();
  const int screen = std::max(line, static_cast<int>(info.nPage) - line);
  switch (command) {
    case SB_LINEUP:
      return info.nPos - line;
    case SB_LINEDOWN:
      return info.nPos + line;
    case SB_PAGEUP:
      return info.nPos - screen;
    case SB_PAGEDOWN:
      return info.nPos + screen;
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return info.nMax;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return info.nTrackPos;
    default:
      return info.nPos;
  }
}

RECT PreviewCanvas::paper() const noexcept {
  const SIZE content = contentSize();
  const int desk = pixels(kDesk);
  const LONG left = desk - position_.x + std::max(0L, (view_.cx - content.cx) / 2);
  const LONG top = desk - position_.y + std::max(0L, (view_.cy - content.cy) / 2);
  return {left, top, left + content.cx - 2 * desk, top + content.cy - 2 * desk};
}

void PreviewCanvas::paint() {
  const BufferedPaint paint(window());
  const COLORREF desk = GetSysColor(COLOR_APPWORKSPACE);
  paint.fill(paint.area(), desk);
  const RECT sheet = paper();
  RECT shadow = sheet;
  // Softer the farther away.
  for (int i = pixels(kShadow); i > 0; --i) {
    shadow = {sheet.left + i, sheet.top + i, sheet.right + i, sheet.bottom + i};
    paint.fill(shadow, mixed(desk, RGB(0, 0, 0), 60 - 40 * i / pixels(kShadow)));
  }
  const RECT edge{sheet.left - 1, sheet.top - 1, sheet.right + 1, sheet.bottom + 1};
  paint.fill(edge, mixed(desk, RGB(0, 0, 0), 60));
  paint.fill(sheet, kPaperColour);
  IntersectClipRect(paint.device(), sheet.left, sheet.top, sheet.right, sheet.bottom);
  drawPage(paint.device(), *pages_, page_,
           {static_cast<double>(sheet.left), static_cast<double>(sheet.top), pixelsPerTwip(),
            pixelsPerTwip()});
}

}  // namespace tarvo::platform
