// A form report's client as a compiled program makes it: it has the contract's interface, and by
// name it offers nothing.
#pragma once

#include "client.h"

namespace tarvo::client {

// The variables' value is "valor", but NADIE has none.
class EarlyBoundForm final : public _clsImplementIDTraduc {
 public:
  int pauses = 0;
  HRESULT failure = S_OK;

  STDMETHODIMP fTranslateSpecialVar(_clsObLineCharacts** line, VARIANT_BOOL* result) override {
    ComPtr<_clsObSpecialVar> variable;
    (*line)->GetSpecialVar(variable.out());
    Bstr field;
    (*line)->GetField(field.out());
    *result = field.view() == u"NADIE" ? VARIANT_FALSE : VARIANT_TRUE;
    const Bstr value(u"valor");
    const HRESULT status = variable->SetContentString(value.get());
    return FAILED(failure) ? failure : status;
  }
  STDMETHODIMP sDisplayPauseDialog() override {
    ++pauses;
    return failure;
  }

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    const bool isKnown = id == IID_IUnknown || id == __uuidof(_clsImplementIDTraduc);
    *result = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }
};

}  // namespace tarvo::client
