// The operations of the start-up class, in interface order.
#pragma once

#include "frame/clsInitLibTarvoRpd.h"
#include "frame/services_members.h"
#include "printer/clsUtilImp_members.h"

namespace tarvo {

template <>
struct Members<clsInitLibTarvoRpd> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 1;
  static constexpr const char* name = "clsInitLibTarvoRpd";
  static constexpr const char* help = "Start-up: receives the services and the printer channel";
  static constexpr auto table = memberTable(
      method<&clsInitLibTarvoRpd::sInitializeInternalGlobalClasses>(
          "sInitializeInternalGlobalClasses", "keeps the core library's services", "refInsError",
          "refInsMessage", "refInsTexto", "refInsDefGen", "refInsConvert", "refInsApi",
          "refInsUtilFile", "refInsUtilDate", "refInsErrorCodesIG", "refInsUtilMathOperations"),
      method<&clsInitLibTarvoRpd::sInitializePrintLibrary>(
          "sInitializePrintLibrary", "keeps the printer channel and the report utility",
          "refInsImp", "refInsUtReport"),
      method<&clsInitLibTarvoRpd::sSendDllVersionToLibTarvoCI>(
          "sSendDllVersionToLibTarvoCI", "announces this library's version to the core library"),
      method<&clsInitLibTarvoRpd::fCheckDllPathSendMsgAndReturnFalseIfCantExecute>(
          "fCheckDllPathSendMsgAndReturnFalseIfCantExecute",
          "warns of a backup or test folder; the answer is False"));
};

}  // namespace tarvo
