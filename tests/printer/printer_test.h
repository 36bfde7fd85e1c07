// What the tests of the printer channel stand on: a channel whose spooler and services write down
// every call.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "equipment/bytes_dump.h"
#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "equipment/recording_spooler.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsConvert.h"
#include "services/clsTexto.h"

namespace tarvo::test {

class PrinterTest : public ::testing::Test {
 protected:
  PrinterTest() {
    forgetServices();
    modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
    values.refInsError = error;
    values.refInsMessage = message;
    values.refInsTexto = texto;
    values.refInsConvert = convert;
  }
  ~PrinterTest() override { forgetServices(); }

  static void forgetServices() {
    modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
    setLastSystemError(0);
  }

  // The text service without its log, where a test makes too many calls to keep.
  static void useUnwatchedServices() {
    modRDPGlobalValues::ofThisThread().refInsTexto = make<LibTarvoCI::clsTexto>();
    modRDPGlobalValues::ofThisThread().refInsConvert = make<LibTarvoCI::clsConvert>();
  }

  void openJob() { channel->sInitializePrinterFileHandle(u"LX-300", u"Ventas"); }

  // What one action writes, as a dump.  A job must be open.
  template <class Action>
  std::string printed(Action&& action) {
    const std::size_t before = spooler->bytes().size();
    action();
    return bytesDump(spooler->bytes().substr(before));
  }

  // The calls that one action makes.
  template <class Action>
  std::string callsOf(Action&& action) {
    calls.clear();
    action();
    return calls.text();
  }

  CallLog calls;         // of the spooler, the message service and the error service
  CallLog serviceCalls;  // of the text and the conversion service
  Ref<RecordingError> error = make<RecordingError>(calls);
  Ref<RecordingMessage> message = make<RecordingMessage>(calls);
  Ref<RecordingTexto> texto = make<RecordingTexto>(serviceCalls, make<LibTarvoCI::clsTexto>());
  Ref<RecordingConvert> convert =
      make<RecordingConvert>(serviceCalls, make<LibTarvoCI::clsConvert>());
  Ref<RecordingSpooler> spooler = make<RecordingSpooler>(calls);
  Ref<clsUtilImp> channel = make<clsUtilImp>(spooler);
};

// Every code that the rules and the test page use, each another one.
inline void fillProfile(clsUtilImp& channel) {
  channel.SetChrFormFeed(u"\f");
  channel.SetChrCondensed(u"\x0F");
  channel.SetChrNormal(u"\x12");
  channel.SetChrInitExpanded(u"\x1BW1");
  channel.SetChrEndExpanded(u"\x1BW0");
  channel.SetChrBold(
      u"\x1B"
      u"E");
  channel.SetChrLight(
      u"\x1B"
      u"F");
  channel.SetChrReset(u"\x1B@");
  channel.SetChrInitUnderlying(u"\x1B-1");
  channel.SetChrEndUnderlying(u"\x1B-0");
  channel.SetChrHighLine1Point(
      u"\x1B"
      u"A\x01");
  channel.SetChrHighLine12Points(
      u"\x1B"
      u"2");
}

}  // namespace tarvo::test
