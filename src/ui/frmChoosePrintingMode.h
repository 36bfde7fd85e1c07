// The form in which the operator chooses between graphic and text printing.
//
// It holds what was chosen and what each control does; how it looks is the window's affair
// (printing_mode_window.h).  clsLibTarvoRdp::fChoosePrintingMode is how clients get at it.
//
// F6 confirms and Esc cancels, on every control.  The platform-call service is asked first and may
// take any key; it is the service, too, that presses the button.
//
// The service knows the form and its buttons by the names of their members alone:
//   form     read: Name, Caption, cmdContinue, cmdCancel, optPrintingMode(0 or 1)
//   button   call: Click; read: Name, Caption, Value (False); write: Value, True is a click
//   option   the same, and read: Index; Click chooses it, Value is whether it is chosen
// Names without regard to ASCII case; 438 for any other member, and 91 for one of a button or an
// option whose form is gone.  Once the form is closed clicks do nothing.
//
// Errors: the event procedures follow the convention of trapped.h, as a form.
//
// Threads: the client's.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "frame/late_object.h"
#include "frame/services.h"
#include "frame/trapped.h"
#include "ui/printing_mode_window.h"

namespace tarvo {

class frmChoosePrintingMode final : public LateObject, private PrintingModeEvents {
 public:
  explicit frmChoosePrintingMode(std::unique_ptr<PrintingModeWindow> window);
  ~frmChoosePrintingMode() override;

  // Shows the form with graphic printing chosen, and returns when it is closed.  REQUIRES: once.
  // Raises: what an event procedure raised; the form is closed then.  What the window raises.
  void showModal();

  // At most one of them is true, none when the form was cancelled or closed.  Default: false.
  bool GetPrintInGraphMode() const noexcept { return printInGraphMode_; }
  bool GetPrintInTextMode() const noexcept { return printInTextMode_; }

  // "frmChoosePrintingMode"
  Text typeName() override;
  Value call(TextView name, std::span<const Value> arguments) override;
  bool hasMethod(TextView /*name*/) override { return false; }
  Value get(TextView name, std::span<const Value> indexes) override;
  void put(TextView name, std::span<const Value> indexes, const Value& value) override;

 private:
  class Control;

  void Form_Load();
  void cmdContinue_Click();
  void cmdCancel_Click();
  void cmdContinue_KeyDown(std::int16_t keyCode, std::int16_t shift);
  void cmdCancel_KeyDown(std::int16_t keyCode, std::int16_t shift);
  void optPrintingMode_KeyDown(std::int16_t keyCode, std::int16_t shift);
  void sCheckForSpecialKeys(std::int16_t keyCode, std::int16_t shift);

  void clicked(PrintingModeControl control) noexcept override;
  void keyPressed(PrintingModeControl control, std::int16_t keyCode,
                  std::int16_t shift) noexcept override;

  void click(PrintingModeControl control);
  void press(PrintingModeControl button);
  void unload();
  void failWithCurrentException() noexcept;
  Ref<Object> control(PrintingModeControl which) const;

  std::unique_ptr<PrintingModeWindow> window_;
  std::array<Ref<Control>, kPrintingModeControlCount> controls_;
  PrintingModeControl chosen_ = PrintingModeControl::kGraphic;
  bool isLoaded_ = false;
  bool printInGraphMode_ = false;
  bool printInTextMode_ = false;
  std::optional<RunTimeError> error_;
};

}  // namespace tarvo
