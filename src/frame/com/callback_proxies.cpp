// The objects of clients that answer the reports' questions: one proxy for each contract.
#include "frame/clsImplementIDMD_members.h"
#include "frame/clsImplementIDTraduc_members.h"
#include "frame/com/outside_object.h"

namespace tarvo::com {
namespace {

class clsImplementIDTraducProxy final : public ContractProxy<clsImplementIDTraduc> {
 public:
  explicit clsImplementIDTraducProxy(IUnknown* object) : ContractProxy(object) {}

  bool fTranslateSpecialVar(Ref<clsObLineCharacts>& refLineToWrite) override {
    return call<&clsImplementIDTraduc::fTranslateSpecialVar>(refLineToWrite);
  }
  void sDisplayPauseDialog() override { call<&clsImplementIDTraduc::sDisplayPauseDialog>(); }
};

class clsImplementIDMDProxy final : public ContractProxy<clsImplementIDMD> {
 public:
  explicit clsImplementIDMDProxy(IUnknown* object) : ContractProxy(object) {}

  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& refLineToWrite,
                              Currency valMontoSubTotal) override {
    return call<&clsImplementIDMD::fTranslateSpecialVarMD>(refLineToWrite, valMontoSubTotal);
  }
  void sDisplayPauseDialog() override { call<&clsImplementIDMD::sDisplayPauseDialog>(); }
  bool fReadFirstRecord() override { return call<&clsImplementIDMD::fReadFirstRecord>(); }
  bool fReadNextRecord() override { return call<&clsImplementIDMD::fReadNextRecord>(); }
  void sAccumSubTotal(Currency& refMontoSubTotal) override {
    call<&clsImplementIDMD::sAccumSubTotal>(refMontoSubTotal);
  }
  bool fCanExecuteWriteReport(bool& refMustShowErrorMsg, Text& refErrorMsgToDisplay) override {
    return call<&clsImplementIDMD::fCanExecuteWriteReport>(refMustShowErrorMsg,
                                                           refErrorMsgToDisplay);
  }
  std::int32_t fDetailRecordCount() override {
    return call<&clsImplementIDMD::fDetailRecordCount>();
  }
};

constexpr ProxyRow kProxies[] = {
    proxyRow<clsImplementIDTraduc, clsImplementIDTraducProxy>(),
    proxyRow<clsImplementIDMD, clsImplementIDMDProxy>(),
};

}  // namespace

Ref<Object> makeCallbackProxy(IUnknown* object, const ClassInfo& contract) {
  return makeProxy(kProxies, object, contract);
}

}  // namespace tarvo::com
