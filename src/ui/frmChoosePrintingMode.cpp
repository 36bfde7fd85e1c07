#include "ui/frmChoosePrintingMode.h"

#include "frame/modRDPGlobalValues.h"
#include "graphic/late_arguments.h"

namespace tarvo {
namespace {

constexpr std::int16_t kEscape = 27;
constexpr std::int16_t kF6 = 117;

constexpr const char* kFormName = "frmChoosePrintingMode";
constexpr const char* kOptionsName = "optPrintingMode";

[[noreturn]] void trap(const char* procedure) {
  static constexpr ErrorIdentity kIdentity{u"frmChoosePrintingMode",
                                           u"Selección de Modo de Impresión", 1};
  trapAs(kIdentity, procedure);
}

bool isOption(PrintingModeControl control) {
  return control == PrintingModeControl::kGraphic || control == PrintingModeControl::kText;
}

const char* nameOf(PrintingModeControl control) {
  if (isOption(control)) return kOptionsName;
  return control == PrintingModeControl::kContinue ? "cmdContinue" : "cmdCancel";
}

bool is(TextView name, const char* member) { return equalIgnoringAsciiCase(name, member); }

}  // namespace

TextView captionOf(PrintingModeControl control) noexcept {
  static constexpr std::array<TextView, kPrintingModeControlCount> kCaptions{
      u"Impresión Gráfica", u"Impresión Texto", u"&Continuar", u"C&ancelar"};
  return kCaptions[static_cast<std::size_t>(control)];
}

// --- A button or an option, as the platform-call service has it.

class frmChoosePrintingMode::Control final : public LateObject {
 public:
  Control(frmChoosePrintingMode& form, PrintingModeControl which) : form_(&form), which_(which) {}

  void forgetForm() noexcept { form_ = nullptr; }

  Text typeName() override { return isOption(which_) ? u"OptionButton" : u"CommandButton"; }

  Value call(TextView name, std::span<const Value>) override {
    if (!is(name, "Click")) throw RunTimeError(kNoSuchMember, name);
    click();
    return {};
  }

  bool hasMethod(TextView name) override { return is(name, "Click"); }

  Value get(TextView name, std::span<const Value>) override {
    const frmChoosePrintingMode& its = form();
    if (is(name, "Name")) return fromAscii(nameOf(which_));
    if (is(name, "Caption")) return captionOf(which_);
    if (is(name, "Value")) return isOption(which_) && its.chosen_ == which_;
    if (is(name, "Index") && isOption(which_)) return static_cast<std::int16_t>(which_);
    throw RunTimeError(kNoSuchMember, name);
  }

  void put(TextView name, std::span<const Value>, const Value& value) override {
    if (!is(name, "Value")) throw RunTimeError(kNoSuchMember, name);
    if (booleanArgument(value, name)) click();
  }

 private:
  frmChoosePrintingMode& form() const {
    if (form_ == nullptr) throw RunTimeError(kObjectNotSet, fromAscii(kFormName));
    return *form_;
  }
  void click() const {
    const Ref<frmChoosePrintingMode> held(&form());
    held->click(which_);
  }

  frmChoosePrintingMode* form_;
  PrintingModeControl which_;
};

// --- The form.

frmChoosePrintingMode::frmChoosePrintingMode(std::unique_ptr<PrintingModeWindow> window)
    : window_(std::move(window)) {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    controls_[i] = make<Control>(*this, static_cast<PrintingModeControl>(i));
  }
}

frmChoosePrintingMode::~frmChoosePrintingMode() {
  for (const Ref<Control>& each : controls_) each->forgetForm();
}

void frmChoosePrintingMode::showModal() {
  struct Loaded {
    bool& flag;
    explicit Loaded(bool& itsFlag) : flag(itsFlag) { flag = true; }
    ~Loaded() { flag = false; }
  } loaded(isLoaded_);
  Form_Load();
  window_->showModal(*this);
  if (error_) throw RunTimeError(*error_);
}

void frmChoosePrintingMode::Form_Load() try { click(PrintingModeControl::kGraphic); } catch (...) {
  trap("Form_Load");
}

void frmChoosePrintingMode::cmdContinue_Click() try {
  (chosen_ == PrintingModeControl::kGraphic ? printInGraphMode_ : printInTextMode_) = true;
  unload();
} catch (...) {
  trap("cmdContinue_Click");
}

void frmChoosePrintingMode::cmdCancel_Click() try { unload(); } catch (...) {
  trap("cmdCancel_Click");
}

void frmChoosePrintingMode::cmdContinue_KeyDown(std::int16_t keyCode, std::int16_t shift) try {
  sCheckForSpecialKeys(keyCode, shift);
} catch (...) {
  trap("cmdContinue_KeyDown");
}

void frmChoosePrintingMode::cmdCancel_KeyDown(std::int16_t keyCode, std::int16_t shift) try {
  sCheckForSpecialKeys(keyCode, shift);
} catch (...) {
  trap("cmdCancel_KeyDown");
}

void frmChoosePrintingMode::optPrintingMode_KeyDown(std::int16_t keyCode, std::int16_t shift) try {
  sCheckForSpecialKeys(keyCode, shift);
} catch (...) {
  trap("optPrintingMode_KeyDown");
}

void frmChoosePrintingMode::sCheckForSpecialKeys(std::int16_t keyCode, std::int16_t shift) try {
  // A reference of the call's own: a service may replace the services while it works.
  const Ref<clsApi> service = modRDPGlobalValues::ofThisThread().refInsApi;
  Ref<Object> form(this);
  if (service->fFormKey(form, keyCode, shift)) return;
  if (keyCode == kF6) press(PrintingModeControl::kContinue);
  if (keyCode == kEscape) press(PrintingModeControl::kCancel);
} catch (...) {
  trap("sCheckForSpecialKeys");
}

void frmChoosePrintingMode::press(PrintingModeControl button) {
  const Ref<clsApi> service = modRDPGlobalValues::ofThisThread().refInsApi;
  Ref<Object> pressed = control(button);
  service->sPressButton(pressed);
}

// What a click does while the form is shown.
void frmChoosePrintingMode::click(PrintingModeControl control) {
  if (!isLoaded_) return;
  switch (control) {
    case PrintingModeControl::kGraphic:
    case PrintingModeControl::kText:
      chosen_ = control;
      window_->choose(control);
      break;
    case PrintingModeControl::kContinue:
      cmdContinue_Click();
      break;
    case PrintingModeControl::kCancel:
      cmdCancel_Click();
      break;
  }
}

void frmChoosePrintingMode::unload() {
  isLoaded_ = false;
  window_->close();
}

// --- The window's side: nothing may be raised into it.

void frmChoosePrintingMode::clicked(PrintingModeControl control) noexcept try {
  click(control);
} catch (...) {
  failWithCurrentException();
}

void frmChoosePrintingMode::keyPressed(PrintingModeControl control, std::int16_t keyCode,
                                       std::int16_t shift) noexcept try {
  if (!isLoaded_) return;
  if (isOption(control)) {
    optPrintingMode_KeyDown(keyCode, shift);
  } else if (control == PrintingModeControl::kContinue) {
    cmdContinue_KeyDown(keyCode, shift);
  } else {
    cmdCancel_KeyDown(keyCode, shift);
  }
} catch (...) {
  failWithCurrentException();
}

void frmChoosePrintingMode::failWithCurrentException() noexcept {
  if (!error_) error_ = currentRunTimeError();
  try {
    unload();
  } catch (...) {  // the first error says more
  }
}

// --- The service's side.

Ref<Object> frmChoosePrintingMode::control(PrintingModeControl which) const {
  return controls_[static_cast<std::size_t>(which)];
}

Text frmChoosePrintingMode::typeName() { return fromAscii(kFormName); }

Value frmChoosePrintingMode::call(TextView name, std::span<const Value>) {
  throw RunTimeError(kNoSuchMember, name);
}

Value frmChoosePrintingMode::get(TextView name, std::span<const Value> indexes) {
  if (is(name, "Name")) return fromAscii(kFormName);
  if (is(name, "Caption")) return kPrintingModeCaption;
  if (is(name, kOptionsName)) {
    requireCount(indexes, 1);
    const std::int32_t index = integerArgument(indexes.front(), name);
    if (index == 0) return control(PrintingModeControl::kGraphic);
    if (index == 1) return control(PrintingModeControl::kText);
    throw RunTimeError(kSubscriptOutOfRange, name);
  }
  for (const auto button : {PrintingModeControl::kContinue, PrintingModeControl::kCancel}) {
    if (is(name, nameOf(button))) return control(button);
  }
  throw RunTimeError(kNoSuchMember, name);
}

void frmChoosePrintingMode::put(TextView name, std::span<const Value>, const Value&) {
  throw RunTimeError(kNoSuchMember, name);
}

}  // namespace tarvo
