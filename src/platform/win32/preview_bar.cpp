#include "platform/win32/preview_bar.h"

#include <algorithm>

namespace tarvo::platform {
namespace {

enum class Kind { kText, kArrow, kLabel, kField, kGap };

COLORREF mixed(int colour, int other, int percentOfOther) noexcept {
  const COLORREF a = GetSysColor(colour);
  const COLORREF b = GetSysColor(other);
  const auto part = [percentOfOther](BYTE from, BYTE to) {
    return static_cast<BYTE>(from + (to - from) * percentOfOther / 100);
  };
  return RGB(part(GetRValue(a), GetRValue(b)), part(GetGValue(a), GetGValue(b)),
             part(GetBValue(a), GetBValue(b)));
}

void fill(HDC device, const RECT& area, COLORREF colour) noexcept {
  SetDCBrushColor(device, colour);
  FillRect(device, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void frame(HDC device, const RECT& area, COLORREF colour) noexcept {
  SetDCBrushColor(device, colour);
  FrameRect(device, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void write(HDC device, const std::wstring& text, RECT place, COLORREF colour) noexcept {
  SetTextColor(device, colour);
  DrawTextW(device, text.c_str(), static_cast<int>(text.size()), &place,
            DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
}

}  // namespace

struct PreviewBar::Button {
  PreviewCommand command;
  Kind kind;
  const wchar_t* text = L"";
};

const PreviewBar::Button PreviewBar::kButtons[] = {
    {PreviewCommand::kPrint, Kind::kText, L"Imprimir"},
    {PreviewCommand::kSave, Kind::kText, L"Guardar PDF"},
    {PreviewCommand::kNone, Kind::kGap},
    {PreviewCommand::kFirstPage, Kind::kArrow},
    {PreviewCommand::kPreviousPage, Kind::kArrow},
    {PreviewCommand::kGoToPage, Kind::kField},
    {PreviewCommand::kNone, Kind::kLabel, L"de "},
    {PreviewCommand::kNextPage, Kind::kArrow},
    {PreviewCommand::kLastPage, Kind::kArrow},
    {PreviewCommand::kNone, Kind::kGap},
    {PreviewCommand::kZoomOut, Kind::kText, L"\u2212"},
    {PreviewCommand::kActualSize, Kind::kText, L"%"},
    {PreviewCommand::kZoomIn, Kind::kText, L"+"},
    {PreviewCommand::kPageWidth, Kind::kText, L"Ancho"},
    {PreviewCommand::kWholePage, Kind::kText, L"P\u00E1gina"},
    {PreviewCommand::kNone, Kind::kGap},
    {PreviewCommand::kClose, Kind::kText, L"Cerrar"},
};

bool PreviewBar::create(HWND parent, HFONT font) {
  font_ = font;
  return createWindow(L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, {}, parent) != nullptr;
}

void PreviewBar::show(const PreviewState& state) {
  state_ = state;
  repaint();
}

LRESULT PreviewBar::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;  // all of it is painted
    case WM_SIZE:
      repaint();
      return 0;
    case WM_MOUSEMOVE: {
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, window(), 0};
      TrackMouseEvent(&leaving);
      setHot(commandAt(lParam));
      return 0;
    }
    case WM_MOUSELEAVE:
      setHot(PreviewCommand::kNone);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed_ = commandAt(lParam);
      SetCapture(window());
      repaint();
      return 0;
    case WM_LBUTTONUP: {
      const PreviewCommand pressed = std::exchange(pressed_, PreviewCommand::kNone);
      ReleaseCapture();
      repaint();
      if (pressed != PreviewCommand::kNone && pressed == commandAt(lParam)) {
        // The command may close the window, so not from in here.
        PostMessageW(GetParent(window()), WM_COMMAND, static_cast<WPARAM>(pressed), 0);
      }
      return 0;
    }
    case WM_CAPTURECHANGED:
      pressed_ = PreviewCommand::kNone;
      return 0;
    default:
      return defaultAnswer(message, wParam, lParam);
  }
}

void PreviewBar::setHot(PreviewCommand command) {
  if (command == hot_) return;
  hot_ = command;
  repaint();
}

// visit(button, place) for each, from left to right.
template <class Visit>
void PreviewBar::forEachButton(HDC device, Visit&& visit) const {
  RECT place{pixels(6), pixels(6), 0, height() - pixels(6)};
  for (const Button& button : kButtons) {
    place.right = place.left + widthOf(device, button);
    visit(button, place);
    place.left = place.right + pixels(2);
  }
}

int PreviewBar::widthOf(HDC device, const Button& button) const {
  switch (button.kind) {
    case Kind::kGap:
      return pixels(13);
    case Kind::kArrow:
      return pixels(28);
    case Kind::kField:
      return pixels(58);
    default:
      break;
  }
  // A number that changes must not move what stands behind it.
  const std::wstring text =
      button.command == PreviewCommand::kActualSize ? L"400 %" : textOf(button);
  SIZE size{};
  GetTextExtentPoint32W(device, text.c_str(), static_cast<int>(text.size()), &size);
  const int padding = button.kind == Kind::kLabel ? pixels(4) : pixels(10);
  return std::max(size.cx + 2 * padding, static_cast<LONG>(pixels(28)));
}

std::wstring PreviewBar::textOf(const Button& button) const {
  if (button.kind == Kind::kLabel) return button.text + std::to_wstring(state_.pageCount);
  if (button.command != PreviewCommand::kActualSize) return button.text;
  return std::to_wstring(state_.percent) + L" %";
}

bool PreviewBar::isEnabled(PreviewCommand command) const noexcept {
  switch (command) {
    case PreviewCommand::kFirstPage:
    case PreviewCommand::kPreviousPage:
      return state_.page > 0;
    case PreviewCommand::kNextPage:
    case PreviewCommand::kLastPage:
      return state_.page + 1 < state_.pageCount;
    default:
      return true;
  }
}

bool PreviewBar::isOn(PreviewCommand command) const noexcept {
  return (command == PreviewCommand::kPageWidth &&
          state_.zoom == PreviewCanvas::Zoom::kPageWidth) ||
         (command == PreviewCommand::kWholePage && state_.zoom == PreviewCanvas::Zoom::kWholePage);
}

PreviewCommand PreviewBar::commandAt(LPARAM position) const {
  const POINT point{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  PreviewCommand found = PreviewCommand::kNone;
  const HDC device = GetDC(window());
  const HGDIOBJ oldFont = SelectObject(device, font_);
  forEachButton(device, [&](const Button& button, const RECT& place) {
    if (PtInRect(&place, point) && isEnabled(button.command)) found = button.command;
  });
  SelectObject(device, oldFont);
  ReleaseDC(window(), device);
  return found;
}

void PreviewBar::paint() const {
  const BufferedPaint paint(window());
  paint.fill(paint.area(), GetSysColor(COLOR_BTNFACE));
  RECT line = paint.area();
  line.top = line.bottom - 1;
  paint.fill(line, GetSysColor(COLOR_BTNSHADOW));
  const HGDIOBJ oldFont = SelectObject(paint.device(), font_);
  SetBkMode(paint.device(), TRANSPARENT);
  forEachButton(paint.device(), [&](const Button& button, const RECT& place) {
    paintButton(paint.device(), button, place);
  });
  SelectObject(paint.device(), oldFont);
}

void PreviewBar::paintButton(HDC device, const Button& button, RECT place) const {
  if (button.kind == Kind::kGap) {
    const LONG middle = (place.left + place.right) / 2;
    fill(device, {middle, place.top + pixels(3), middle + 1, place.bottom - pixels(3)},
         GetSysColor(COLOR_BTNSHADOW));
    return;
  }
  if (button.kind == Kind::kField) return paintField(device, place);
  const bool isButton = button.command != PreviewCommand::kNone;
  const bool isHot = isButton && button.command == hot_;
  const bool isPressed = isButton && button.command == pressed_;
  if (isHot || isPressed || isOn(button.command)) {
    const int strength = isPressed ? 45 : isHot ? 25 : 12;
    fill(device, place, mixed(COLOR_BTNFACE, COLOR_HIGHLIGHT, strength));
    frame(device, place, mixed(COLOR_BTNFACE, COLOR_HIGHLIGHT, 60));
  }
  if (button.kind == Kind::kArrow) return paintArrow(button, device, place);
  write(device, textOf(button), place, GetSysColor(COLOR_BTNTEXT));
}

// The page's number, or the one that is being entered.
void PreviewBar::paintField(HDC device, const RECT& place) const {
  RECT box = place;
  InflateRect(&box, 0, -pixels(2));
  fill(device, box, GetSysColor(COLOR_WINDOW));
  const bool isLit = state_.isEntering || hot_ == PreviewCommand::kGoToPage;
  frame(device, box, GetSysColor(isLit ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW));
  const std::wstring number =
      state_.isEntering ? state_.entry + L"|" : std::to_wstring(state_.page + 1);
  write(device, number, box, GetSysColor(COLOR_WINDOWTEXT));
}

// A triangle, with a bar where it can go no farther.
void PreviewBar::paintArrow(const Button& button, HDC device, const RECT& place) const {
  const bool isForward =
      button.command == PreviewCommand::kNextPage || button.command == PreviewCommand::kLastPage;
  const bool hasBar =
      button.command == PreviewCommand::kFirstPage || button.command == PreviewCommand::kLastPage;
  const LONG half = pixels(5);
  const LONG side = isForward ? half : -half;
  const LONG x = (place.left + place.right) / 2;
  const LONG y = (place.top + place.bottom) / 2;
  const POINT corners[] = {
      {x - side / 2, y - half}, {x + side / 2 + side % 2, y}, {x - side / 2, y + half}};
  const COLORREF colour = GetSysColor(isEnabled(button.command) ? COLOR_BTNTEXT : COLOR_BTNSHADOW);
  const HGDIOBJ oldBrush = SelectObject(device, GetStockObject(DC_BRUSH));
  const HGDIOBJ oldPen = SelectObject(device, GetStockObject(DC_PEN));
  SetDCBrushColor(device, colour);
  SetDCPenColor(device, colour);
  Polygon(device, corners, 3);
  SelectObject(device, oldPen);
  SelectObject(device, oldBrush);
  if (!hasBar) return;
  const LONG bar = isForward ? x + half : x - half;
  fill(device, {bar - pixels(1), y - half, bar + pixels(1), y + half + 1}, colour);
}

}  // namespace tarvo::platform
