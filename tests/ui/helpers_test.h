// What the tests of the clients' helpers stand on: a text service and an error service that write
// down every call.
#pragma once

#include <gmock/gmock.h>

#include <string>

#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsTexto.h"
#include "ui/clsLibTarvoRdp.h"

namespace tarvo::test {

// Offers what the helpers ask for, in its own way where a test says so, and nothing else.
class OtherTexto : public clsTexto {
 public:
  std::int32_t fLength(TextView valText) override { return real_->fLength(valText); }
  void fTrim(TextView valText, Text& result) override { real_->fTrim(valText, result); }
  void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
             Text& result) override {
    real_->fPart(valText, valStart, valCount, result);
  }
  void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
               Text& result) override {
    real_->fDelete(valText, valStart, valDistance, result);
  }

  std::int32_t fPosition(TextView, TextView, std::int32_t) override { refuse(); }
  void fReplaceAll(TextView, TextView, TextView, Text&) override { refuse(); }
  void fSplit(TextView, TextView, TextList&) override { refuse(); }
  void fInsert(TextView, TextView, std::int32_t, Text&) override { refuse(); }
  void fStrip(TextView, TextView, Text&) override { refuse(); }
  void fRepeat(TextView, std::int32_t, Text&) override { refuse(); }
  void fAlignLeft(TextView, std::int32_t, Text&) override { refuse(); }
  void fAlignRight(TextView, std::int32_t, Text&) override { refuse(); }
  void fAlignCenter(TextView, std::int32_t, Text&) override { refuse(); }
  void fPadOrCut(TextView, std::int32_t, TextView, Text&) override { refuse(); }
  void fLeftMargin(TextView, std::uint8_t, Text&) override { refuse(); }
  void fFitToWidth(TextView, std::uint8_t, Text&) override { refuse(); }
  bool fHolds(TextView, TextView) override { refuse(); }

 private:
  [[noreturn]] static void refuse() { throw RunTimeError(kNoSuchMember); }

  Ref<clsTexto> real_ = make<LibTarvoCI::clsTexto>();
};

class HelpersTest : public ::testing::Test {
 protected:
  HelpersTest() {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = error;
    services.refInsTexto = texto;
  }
  ~HelpersTest() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  static void use(Ref<clsTexto> service) {
    modRDPGlobalValues::ofThisThread().refInsTexto = std::move(service);
  }

  // "NUMBER: PROCEDURE PROCEDURE ...", innermost first; "none".
  template <class Action>
  std::string failureOf(Action&& action) {
    error->reports.clear();
    const std::int32_t number = errorNumberOf(std::forward<Action>(action));
    return number == 0 ? "none" : std::to_string(number) + ": " + error->trail();
  }

  CallLog calls;
  CallLog serviceCalls;
  Ref<RecordingError> error = make<RecordingError>(calls);
  Ref<RecordingTexto> texto = make<RecordingTexto>(serviceCalls, make<LibTarvoCI::clsTexto>());
  Ref<clsLibTarvoRdp> helpers = make<clsLibTarvoRdp>();
};

}  // namespace tarvo::test
