// The part of the preview window that shows a page: paper on a desk, which can be zoomed and
// scrolled.
#pragma once

#include "graphic/paged_text.h"
#include "platform/win32/own_window.h"

namespace tarvo::platform {

class PreviewCanvas final : public OwnWindow {
 public:
  explicit PreviewCanvas(Ref<const PagedText> pages);

  // Inside `parent`, of no size yet.
  bool create(HWND parent);

  std::size_t page() const noexcept { return page_; }

  // Shows a page from its top, or its end.  REQUIRES: page < pageCount().
  void showPage(std::size_t page, bool fromItsEnd = false);

  enum class Zoom { kPageWidth, kWholePage, kFixed };

  Zoom zoom() const noexcept { return zoom_; }
  double percent() const noexcept { return percent_; }  // the present size, however it came

  // What is in the middle stays there.
  void setZoom(Zoom zoom, double percent = 100);

  // To the next size of a usual row of sizes.
  void zoomIn();
  void zoomOut();

  // Moves the paper, as far as it goes; pixels to the right and down.  Whether it went.
  bool scroll(int right, int down);

  int rowHeight() const noexcept;   // in pixels, at the present size
  int viewHeight() const noexcept;  // likewise

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

  void layOut();
  double percentFor(SIZE area) const noexcept;
  SIZE contentSize() const noexcept;
  void setScrollBar(int bar, int content, int view, int position, bool isShown) const noexcept;
  bool scrollTo(POINT position);
  int scrollTarget(int bar, int command) const noexcept;
  RECT paper() const noexcept;
  void paint();

  double pixelsPerTwip() const noexcept { return percent_ * dotsPerInch() / (100 * 1440.0); }

  Ref<const PagedText> pages_;
  std::size_t page_ = 0;
  Zoom zoom_ = Zoom::kPageWidth;
  double percent_ = 100;
  SIZE view_{};       // without the scroll bars
  POINT position_{};  // how far the content is scrolled
  bool isLayingOut_ = false;
};

}  // namespace tarvo::platform
