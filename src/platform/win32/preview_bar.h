// The preview window's row of buttons.  They are drawn, not windows: the keyboard stays with the
// preview window, which has every command in its menu and on a key as well.
#pragma once

#include <string>

#include "platform/win32/own_window.h"
#include "platform/win32/preview_canvas.h"
#include "platform/win32/preview_commands.h"

namespace tarvo::platform {

// What the bar shows.
struct PreviewState {
  std::size_t page = 0;
  std::size_t pageCount = 1;
  bool isEntering = false;  // the number of a page to go to
  std::wstring entry;       // its digits so far
  int percent = 100;
  PreviewCanvas::Zoom zoom = PreviewCanvas::Zoom::kPageWidth;
};

class PreviewBar final : public OwnWindow {
 public:
  // Inside `parent`, which gets WM_COMMAND with the command for every click.  The font is the
  // caller's, and stays until the window has gone.
  bool create(HWND parent, HFONT font);

  int height() const noexcept { return pixels(40); }

  void show(const PreviewState& state);

 private:
  struct Button;
  static const Button kButtons[];

  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void paint() const;
  void paintButton(HDC device, const Button& button, RECT place) const;
  void paintField(HDC device, const RECT& place) const;
  void paintArrow(const Button& button, HDC device, const RECT& place) const;
  std::wstring textOf(const Button& button) const;
  int widthOf(HDC device, const Button& button) const;
  bool isEnabled(PreviewCommand command) const noexcept;
  bool isOn(PreviewCommand command) const noexcept;
  PreviewCommand commandAt(LPARAM position) const;
  void setHot(PreviewCommand command);

  template <class Visit>
  void forEachButton(HDC device, Visit&& visit) const;

  PreviewState state_;
  HFONT font_ = nullptr;
  PreviewCommand hot_ = PreviewCommand::kNone;      // under the mouse
  PreviewCommand pressed_ = PreviewCommand::kNone;  // the mouse button went down on it
};

}  // namespace tarvo::platform
