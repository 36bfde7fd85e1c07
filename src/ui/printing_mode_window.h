// The dialog of the printing mode as the operating system shows it: a port.
//
// The form (frmChoosePrintingMode.h) owns what the dialog means; a window shows it, tells the form
// what the operator does in it, and knows nothing else.  One file per platform makes the window
// (platform/win32, platform/posix); which one is the build's choice.  Tests have windows of their
// own that follow a script.
//
// Threads: the form's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "frame/text.h"

namespace tarvo {

// What the operator can touch, in tab order.
enum class PrintingModeControl : std::uint8_t { kGraphic, kText, kContinue, kCancel };
inline constexpr std::size_t kPrintingModeControlCount = 4;

// The texts, each ending with character 0 as well; "&" stands before the key of a control.
inline constexpr TextView kPrintingModeCaption = u"Modos de Impresión Disponibles";
inline constexpr TextView kPrintingModeTitle = u"Seleccione el Modo de Impresión";
inline constexpr TextView kPrintingModeCancelTip =
    u"Se cancela por completo el proceso de impresión";
inline constexpr TextView kPrintingModeFont = u"MS Sans Serif";  // the title's; 8 points
TextView captionOf(PrintingModeControl control) noexcept;

// What the operator does.  A form that is closed ignores it; what fails in it closes the window.
class PrintingModeEvents {
 public:
  // A button was pressed, or an option chosen.
  virtual void clicked(PrintingModeControl control) noexcept = 0;

  // A key went down while the control had the input, whatever else the key does.
  //   keyCode  the platform-independent codes of forms: 27 Esc, 117 F6
  //   shift    1 shift, 2 control, 4 alt, added up
  virtual void keyPressed(PrintingModeControl control, std::int16_t keyCode,
                          std::int16_t shift) noexcept = 0;

 protected:
  ~PrintingModeEvents() = default;
};

class PrintingModeWindow {
 public:
  PrintingModeWindow() = default;
  PrintingModeWindow(const PrintingModeWindow&) = delete;
  PrintingModeWindow& operator=(const PrintingModeWindow&) = delete;
  virtual ~PrintingModeWindow() = default;

  // Shows the option as the chosen one, and no longer the other.  Before showModal() too.
  // Raises: what the system refuses.
  virtual void choose(PrintingModeControl option) = 0;

  // Shows the window until close() is called or the operator closes it, which is no click.
  // Meanwhile no other window of the thread takes input.
  // Raises: what the system refuses.
  virtual void showModal(PrintingModeEvents& events) = 0;

  // Makes showModal() return as soon as the event under way is over.  More than once does no harm.
  // Raises: what the system refuses.
  virtual void close() = 0;
};

using PrintingModeWindowMaker = std::unique_ptr<PrintingModeWindow> (*)();

namespace platform {
// Windows: a modal dialog before the thread's active window.
// Elsewhere: a question on the terminal, on the standard error and input streams; the end of the
// input closes it.  Where the standard input is no terminal nobody can be asked, nothing is shown,
// and what is chosen already is confirmed: a program without an operator must not hang.
std::unique_ptr<PrintingModeWindow> makePrintingModeWindow();
}  // namespace platform

}  // namespace tarvo
