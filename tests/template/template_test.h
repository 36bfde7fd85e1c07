// What the tests of the template language stand on: services that write down every call, with the
// stand-ins behind them, and a printer profile.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "equipment/bytes_dump.h"
#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsConvert.h"
#include "services/clsTexto.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"
#include "template/clsObLineCharacts.h"
#include "template/clsObSpecialVar.h"

namespace tarvo::test {

class TemplateTest : public ::testing::Test {
 protected:
  TemplateTest() {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = error;
    services.refInsMessage = message;
    services.refInsTexto = texto;
    services.refInsConvert = convert;
    services.refInsUtilDate = dates;
    services.refInsUtilMathOperations = math;
    services.refInsImp = printer;
  }
  ~TemplateTest() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  // The text service that the library need not ask, in place of the recording one.
  static void useUnwatchedTexto() {
    modRDPGlobalValues::ofThisThread().refInsTexto = make<LibTarvoCI::clsTexto>();
  }

  // The service calls that were made, without the services' names:
  // "fTrim \" a\"; fAlignLeft \"a\", 3".
  std::string callsMade() const {
    std::string all;
    for (const std::string& line : serviceCalls.lines()) {
      all += (all.empty() ? "" : "; ") + line.substr(line.find('.') + 1);
    }
    return all;
  }

  // What the action leaves in TextToWrite, or "error 6".  Forgets the service calls made before.
  template <class Action>
  std::string writtenBy(Action&& action) {
    serviceCalls.clear();
    const std::int32_t number = errorNumberOf(std::forward<Action>(action));
    return number == 0 ? toUtf8(variable->GetTextToWrite()) : "error " + std::to_string(number);
  }

  CallLog calls;         // of the message service and the error service
  CallLog serviceCalls;  // of the text, the conversion, the date and the math service
  Ref<RecordingError> error = make<RecordingError>(calls);
  Ref<RecordingMessage> message = make<RecordingMessage>(calls);
  Ref<RecordingTexto> texto = make<RecordingTexto>(serviceCalls, make<LibTarvoCI::clsTexto>());
  Ref<RecordingConvert> convert =
      make<RecordingConvert>(serviceCalls, make<LibTarvoCI::clsConvert>());
  Ref<RecordingDate> dates = make<RecordingDate>(serviceCalls, make<LibTarvoCI::clsUtilDate>());
  Ref<RecordingMath> math =
      make<RecordingMath>(serviceCalls, make<LibTarvoCI::clsUtilMathOperations>());
  Ref<clsUtilImp> printer = make<clsUtilImp>();
  Ref<clsObSpecialVar> variable = make<clsObSpecialVar>();
};

}  // namespace tarvo::test
