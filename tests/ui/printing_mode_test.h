// What the tests of the printing mode's form stand on: a window in which an operator does what a
// test laid out, and a platform-call service that writes down what it is asked.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "equipment/show_arguments.h"
#include "frame/late_object.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsApi.h"
#include "ui/clsLibTarvoRdp.h"

namespace tarvo::test {

constexpr std::int16_t kEscapeKey = 27;
constexpr std::int16_t kF6Key = 117;

inline const char* shownControl(PrintingModeControl control) {
  static constexpr const char* kNames[] = {"graphic", "text", "continue", "cancel"};
  return kNames[static_cast<std::size_t>(control)];
}

// The operator does one step after the other until the window is closed; after the last one he
// closes it himself.
class ScriptedWindow final : public PrintingModeWindow {
 public:
  struct Script {
    std::vector<std::function<void(PrintingModeEvents&)>> steps;
    std::string log;  // what the form asked of the window, and which steps were done
    Fault chooseFault;
    Fault showFault;
    Fault closeFault;
  };
  static inline Script* script = nullptr;

  static std::unique_ptr<PrintingModeWindow> makeOne() {
    return std::make_unique<ScriptedWindow>();
  }
  ~ScriptedWindow() override {
    if (script != nullptr) script->log += "gone";
  }

  void choose(PrintingModeControl option) override {
    script->log += std::string("choose ") + shownControl(option) + ", ";
    script->chooseFault.countCall();
  }
  void close() override {
    script->log += "close, ";
    isClosed_ = true;
    script->closeFault.countCall();
  }
  void showModal(PrintingModeEvents& events) override {
    script->log += "show, ";
    script->showFault.countCall();
    for (const auto& step : script->steps) {
      if (isClosed_) break;
      script->log += "step, ";
      step(events);
    }
    script->log += "hidden, ";
  }

 private:
  bool isClosed_ = false;
};

// What an operator does.
inline auto click(PrintingModeControl control) {
  return [control](PrintingModeEvents& events) { events.clicked(control); };
}
inline auto pressKey(std::int16_t keyCode, PrintingModeControl control, std::int16_t shift = 0) {
  return [=](PrintingModeEvents& events) { events.keyPressed(control, keyCode, shift); };
}

// The name of what the reference holds.
inline std::string typeNameIn(const Ref<Object>& reference) {
  auto* object = dynamic_cast<LateObject*>(reference.get());
  if (object == nullptr) return "(nameless)";
  return toUtf8(object->typeName()) + " " + toUtf8(*object->get(u"Name", {}).tryGet<Text>());
}

class RecordingApi final : public clsApi {
 public:
  std::string log;
  std::int16_t handledKey = 0;
  Fault fault;
  // In place of the click, when set.
  std::function<void(Ref<Object>& button)> press;

  bool fFormKey(Ref<Object>& refForm, std::int16_t valKeyCode, std::int16_t valShift) override {
    log += "key " + typeNameIn(refForm) + " " + std::to_string(valKeyCode) + " " +
           std::to_string(valShift) + ", ";
    if (keeps) kept.push_back(refForm);
    fault.countCall();
    return valKeyCode == handledKey || real_->fFormKey(refForm, valKeyCode, valShift);
  }
  void sPressButton(Ref<Object>& refButton) override {
    log += "press " + typeNameIn(refButton) + ", ";
    if (keeps) kept.push_back(refButton);
    fault.countCall();
    press ? press(refButton) : real_->sPressButton(refButton);
  }
  std::int32_t fWidthForItems(Ref<Object>&) override { throw RunTimeError(kNoSuchMember); }
  void sAdjustDropDown(Ref<Object>&) override { throw RunTimeError(kNoSuchMember); }

  bool keeps = false;
  std::vector<Ref<Object>> kept;  // what it was given

 private:
  Ref<clsApi> real_ = make<LibTarvoCI::clsApi>();
};

class PrintingModeTest : public ::testing::Test {
 protected:
  PrintingModeTest() {
    ScriptedWindow::script = &script;
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = error;
    services.refInsApi = api;
  }
  ~PrintingModeTest() override {
    modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
    ScriptedWindow::script = nullptr;
  }

  template <class... Steps>
  void operatorDoes(Steps... steps) {
    script.steps = {steps...};
  }

  // "graphic", "text", "cancelled"; "ERROR: PROCEDURE PROCEDURE ..." innermost first; with what the
  // output holds where that is not the very same.
  std::string outcome() {
    script.log.clear();
    api->log.clear();
    error->reports.clear();
    ePrintingMode mode = ePM_Text;
    bool isChosen = false;
    const std::int32_t number =
        errorNumberOf([&] { isChosen = helpers->fChoosePrintingMode(mode); });
    const std::string shown = mode == ePM_Text ? "text" : "graphic";
    if (number != 0) {
      EXPECT_EQ("graphic", shown) << "after an error";
      return std::to_string(number) + ": " + error->trail();
    }
    if (isChosen) return shown;
    EXPECT_EQ("graphic", shown) << "after a refusal";
    return "cancelled";
  }

  ScriptedWindow::Script script;
  CallLog calls;
  Ref<RecordingError> error = make<RecordingError>(calls);
  Ref<RecordingApi> api = make<RecordingApi>();
  Ref<clsLibTarvoRdp> helpers = make<clsLibTarvoRdp>(&ScriptedWindow::makeOne);
};

}  // namespace tarvo::test
