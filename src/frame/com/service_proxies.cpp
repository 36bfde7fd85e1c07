// The services that come from outside: one proxy for each contract.
#include "frame/com/outside_object.h"
#include "frame/services_members.h"

namespace tarvo::com {
namespace {

class clsErrorProxy final : public ContractProxy<clsError> {
 public:
  explicit clsErrorProxy(IUnknown* object) : ContractProxy(object) {}

  void fDescribeError(TextView valDescription, TextView valClassName, TextView valProcedureName,
                      TextView valModuleDescription, std::int16_t valKind,
                      std::int32_t valHelpContext, TextView valHelpFile,
                      std::int32_t valLastDllError, std::int32_t valReserved,
                      Text& result) override {
    call<&clsError::fDescribeError>(valDescription, valClassName, valProcedureName,
                                    valModuleDescription, valKind, valHelpContext, valHelpFile,
                                    valLastDllError, valReserved, result);
  }
};

class clsMessageProxy final : public ContractProxy<clsMessage> {
 public:
  explicit clsMessageProxy(IUnknown* object) : ContractProxy(object) {}

  void sShowMessage(Text& refText) override { call<&clsMessage::sShowMessage>(refText); }
  void sShowMessageWithTitle(TextView valText, TextView valTitle) override {
    call<&clsMessage::sShowMessageWithTitle>(valText, valTitle);
  }
  void sWarning(Text& refText) override { call<&clsMessage::sWarning>(refText); }
  void sWarningWithTitle(TextView valText, TextView valTitle) override {
    call<&clsMessage::sWarningWithTitle>(valText, valTitle);
  }
  bool fAskAcceptCancel(TextView valText, TextView valTitle) override {
    return call<&clsMessage::fAskAcceptCancel>(valText, valTitle);
  }
  bool fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) override {
    return call<&clsMessage::fWarnLocation>(valProjectTitle, valLocationCode);
  }
};

class clsTextoProxy final : public ContractProxy<clsTexto> {
 public:
  explicit clsTextoProxy(IUnknown* object) : ContractProxy(object) {}

  std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) override {
    return call<&clsTexto::fPosition>(valText, valSearched, valStart);
  }
  void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
             Text& result) override {
    call<&clsTexto::fPart>(valText, valStart, valCount, result);
  }
  std::int32_t fLength(TextView valText) override { return call<&clsTexto::fLength>(valText); }
  void fTrim(TextView valText, Text& result) override { call<&clsTexto::fTrim>(valText, result); }
  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    call<&clsTexto::fReplaceAll>(valText, valOld, valNew, result);
  }
  void fSplit(TextView valText, TextView valSeparator, TextList& result) override {
    call<&clsTexto::fSplit>(valText, valSeparator, result);
  }
  void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
               Text& result) override {
    call<&clsTexto::fDelete>(valText, valStart, valDistance, result);
  }
  void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
               Text& result) override {
    call<&clsTexto::fInsert>(valText, valInserted, valPosition, result);
  }
  void fStrip(TextView valText, TextView valCharacter, Text& result) override {
    call<&clsTexto::fStrip>(valText, valCharacter, result);
  }
  void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) override {
    call<&clsTexto::fRepeat>(valCharacter, valCount, result);
  }
  void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) override {
    call<&clsTexto::fAlignLeft>(valText, valWidth, result);
  }
  void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) override {
    call<&clsTexto::fAlignRight>(valText, valWidth, result);
  }
  void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) override {
    call<&clsTexto::fAlignCenter>(valText, valWidth, result);
  }
  void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill, Text& result) override {
    call<&clsTexto::fPadOrCut>(valText, valWidth, valFill, result);
  }
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override {
    call<&clsTexto::fLeftMargin>(valText, valMargin, result);
  }
  void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) override {
    call<&clsTexto::fFitToWidth>(valText, valWidth, result);
  }
  bool fHolds(TextView valText, TextView valMarker) override {
    return call<&clsTexto::fHolds>(valText, valMarker);
  }
};

class clsConvertProxy final : public ContractProxy<clsConvert> {
 public:
  explicit clsConvertProxy(IUnknown* object) : ContractProxy(object) {}

  void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override {
    call<&clsConvert::fFormatNumberDotComma>(valValue, valWidth, valDecimals, valParenthesis,
                                             result);
  }
  void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override {
    call<&clsConvert::fFormatNumberCommaDot>(valValue, valWidth, valDecimals, valParenthesis,
                                             result);
  }
  void fNumberToText(const Value& valNumber, Text& result) override {
    call<&clsConvert::fNumberToText>(valNumber, result);
  }
  double fTextToNumber(TextView valText) override {
    return call<&clsConvert::fTextToNumber>(valText);
  }
  bool fIsNumeric(TextView valText) override { return call<&clsConvert::fIsNumeric>(valText); }
  std::uint8_t fTextToByte(TextView valText) override {
    return call<&clsConvert::fTextToByte>(valText);
  }
  std::int16_t fTextToInteger(TextView valText) override {
    return call<&clsConvert::fTextToInteger>(valText);
  }
  void fBooleanToText(bool valValue, Text& result) override {
    call<&clsConvert::fBooleanToText>(valValue, result);
  }
  void fDateToText(Date valDate, Text& result) override {
    call<&clsConvert::fDateToText>(valDate, result);
  }
  std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) override {
    return call<&clsConvert::fReportWidth>(valLength, valCode);
  }
};

class clsUtilDateProxy final : public ContractProxy<clsUtilDate> {
 public:
  explicit clsUtilDateProxy(IUnknown* object) : ContractProxy(object) {}

  Date fToday() override { return call<&clsUtilDate::fToday>(); }
  void fTimeText(Text& result) override { call<&clsUtilDate::fTimeText>(result); }
  void fFormatDate(Date valDate, TextView valFormat, Text& result) override {
    call<&clsUtilDate::fFormatDate>(valDate, valFormat, result);
  }
  void fDefaultDateText(Date valDate, Text& result) override {
    call<&clsUtilDate::fDefaultDateText>(valDate, result);
  }
  std::int16_t fYear(Date valDate) override { return call<&clsUtilDate::fYear>(valDate); }
};

class clsUtilMathOperationsProxy final : public ContractProxy<clsUtilMathOperations> {
 public:
  explicit clsUtilMathOperationsProxy(IUnknown* object) : ContractProxy(object) {}

  Currency fRound(Currency valValue, std::int16_t valDecimals) override {
    return call<&clsUtilMathOperations::fRound>(valValue, valDecimals);
  }
};

class clsUtilFileProxy final : public ContractProxy<clsUtilFile> {
 public:
  explicit clsUtilFileProxy(IUnknown* object) : ContractProxy(object) {}

  bool fFileExists(TextView valPath) override { return call<&clsUtilFile::fFileExists>(valPath); }
};

class clsApiProxy final : public ContractProxy<clsApi> {
 public:
  explicit clsApiProxy(IUnknown* object) : ContractProxy(object) {}

  bool fFormKey(Ref<Object>& refForm, std::int16_t valKeyCode, std::int16_t valShift) override {
    return call<&clsApi::fFormKey>(refForm, valKeyCode, valShift);
  }
  void sPressButton(Ref<Object>& refButton) override { call<&clsApi::sPressButton>(refButton); }
  std::int32_t fWidthForItems(Ref<Object>& refControl) override {
    return call<&clsApi::fWidthForItems>(refControl);
  }
  void sAdjustDropDown(Ref<Object>& refControl) override {
    call<&clsApi::sAdjustDropDown>(refControl);
  }
};

class clsUtReportProxy final : public ContractProxy<clsUtReport> {
 public:
  explicit clsUtReportProxy(IUnknown* object) : ContractProxy(object) {}

  void fLoadLayout(TextView valLayoutName, TextView valReportTitle, Text& result) override {
    call<&clsUtReport::fLoadLayout>(valLayoutName, valReportTitle, result);
  }
  bool fApplyLayout(Ref<Object>& refReport, TextView valLayout) override {
    return call<&clsUtReport::fApplyLayout>(refReport, valLayout);
  }
  void sBindText(Ref<Object>& refReport, TextView valControlName, TextView valColumnName,
                 std::int32_t valWidth) override {
    call<&clsUtReport::sBindText>(refReport, valControlName, valColumnName, valWidth);
  }
  void sSetFont(Ref<Object>& refReport, TextView valControlName, TextView valFontName,
                std::int16_t valSize, bool valBold, bool valItalic) override {
    call<&clsUtReport::sSetFont>(refReport, valControlName, valFontName, valSize, valBold,
                                 valItalic);
  }
  void sRunReport(Ref<Object>& refReport, bool valToPrinter, TextView valReportTitle, bool valModal,
                  TextView valPrinterName, ePrintingDevice valDevice, TextView valOption1,
                  TextView valOption2) override {
    call<&clsUtReport::sRunReport>(refReport, valToPrinter, valReportTitle, valModal,
                                   valPrinterName, valDevice, valOption1, valOption2);
  }
};

class clsVersionRegistryProxy final : public ContractProxy<clsVersionRegistry> {
 public:
  explicit clsVersionRegistryProxy(IUnknown* object) : ContractProxy(object) {}

  void sRegisterVersion(Text& refVersion) override {
    call<&clsVersionRegistry::sRegisterVersion>(refVersion);
  }
};

class clsDefGenProxy final : public ContractProxy<clsDefGen> {
 public:
  explicit clsDefGenProxy(IUnknown* object) : ContractProxy(object) {}
};

class clsErrorCodesIGProxy final : public ContractProxy<clsErrorCodesIG> {
 public:
  explicit clsErrorCodesIGProxy(IUnknown* object) : ContractProxy(object) {}
};

constexpr ProxyRow kProxies[] = {
    proxyRow<clsError, clsErrorProxy>(),
    proxyRow<clsMessage, clsMessageProxy>(),
    proxyRow<clsTexto, clsTextoProxy>(),
    proxyRow<clsConvert, clsConvertProxy>(),
    proxyRow<clsUtilDate, clsUtilDateProxy>(),
    proxyRow<clsUtilMathOperations, clsUtilMathOperationsProxy>(),
    proxyRow<clsUtilFile, clsUtilFileProxy>(),
    proxyRow<clsApi, clsApiProxy>(),
    proxyRow<clsUtReport, clsUtReportProxy>(),
    proxyRow<clsVersionRegistry, clsVersionRegistryProxy>(),
    proxyRow<clsDefGen, clsDefGenProxy>(),
    proxyRow<clsErrorCodesIG, clsErrorCodesIGProxy>(),
};

}  // namespace

Ref<Object> makeServiceProxy(IUnknown* object, const ClassInfo& contract) {
  return makeProxy(kProxies, object, contract);
}

}  // namespace tarvo::com
