// A client's callback object as a compiled client makes it: it has the contract's interface, and by
// name it offers nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "client.h"

namespace tarvo::client {

class EarlyBoundAnswers final : public _clsImplementIDMD {
 public:
  std::function<HRESULT(_clsObLineCharacts** line, VARIANT_BOOL* known)> translate;
  // The operation of that name fails with the status, once everything else is done.
  std::string failing;
  HRESULT failure = S_OK;

  VARIANT_BOOL hasFirst = VARIANT_TRUE;
  VARIANT_BOOL hasNext = VARIANT_FALSE;
  LONGLONG amount = 125'000;
  VARIANT_BOOL mayPrint = VARIANT_FALSE;
  VARIANT_BOOL mustShow = VARIANT_TRUE;
  Text message = u"No hay papel de 11\"";
  LONG count = 123'456;

  const std::vector<std::string>& calls() const { return calls_; }
  void forget() { std::vector<std::string>().swap(calls_); }
  int references() const { return references_; }

  STDMETHODIMP fTranslateSpecialVarMD(_clsObLineCharacts** line, CURRENCY subtotal,
                                      VARIANT_BOOL* result) override {
    const HRESULT done = called("fTranslateSpecialVarMD", std::to_string(subtotal.int64));
    *result = VARIANT_TRUE;
    const HRESULT translated = translate ? translate(line, result) : S_OK;
    return FAILED(translated) ? translated : done;
  }
  STDMETHODIMP sDisplayPauseDialog() override { return called("sDisplayPauseDialog"); }
  STDMETHODIMP fReadFirstRecord(VARIANT_BOOL* result) override {
    *result = hasFirst;
    return called("fReadFirstRecord");
  }
  STDMETHODIMP fReadNextRecord(VARIANT_BOOL* result) override {
    *result = hasNext;
    return called("fReadNextRecord");
  }
  STDMETHODIMP sAccumSubTotal(CURRENCY* subtotal) override {
    const std::string before = std::to_string(subtotal->int64);
    subtotal->int64 += amount;
    return called("sAccumSubTotal", before);
  }
  STDMETHODIMP fCanExecuteWriteReport(VARIANT_BOOL* show, BSTR* text,
                                      VARIANT_BOOL* result) override {
    const std::string before = std::to_string(*show) + " \"" + utf8(*text) + "\"";
    *show = mustShow;
    SysFreeString(*text);
    *text = com::allocateBstr(message);
    *result = mayPrint;
    return called("fCanExecuteWriteReport", before);
  }
  STDMETHODIMP fDetailRecordCount(LONG* result) override {
    *result = count;
    return called("fDetailRecordCount");
  }

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    const bool isKnown =
        id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(_clsImplementIDMD);
    *result = isKnown ? static_cast<_clsImplementIDMD*>(this) : nullptr;
    if (isKnown) AddRef();
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  // On the test's stack: it only counts.
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }

 private:
  HRESULT called(const std::string& operation, const std::string& arguments = {}) {
    calls_.push_back(operation + (arguments.empty() ? "" : " " + arguments));
    return operation == failing ? failure : S_OK;
  }

  std::vector<std::string> calls_;
  int references_ = 0;
};

// Leaves an error object as a client's run-time library does.
inline void leaveErrorObject(TextView source, TextView description) {
  ComPtr<ICreateErrorInfo> create;
  CreateErrorInfo(create.out());
  create->SetSource(Bstr(source).get());
  create->SetDescription(Bstr(description).get());
  const auto info = query<IErrorInfo>(create.get(), IID_IErrorInfo);
  SetErrorInfo(0, info.get());
}

}  // namespace tarvo::client
