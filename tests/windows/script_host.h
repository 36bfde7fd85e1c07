// A script inside the test's own process, so that its objects and ours meet without a registry.
#pragma once

#include <map>
#include <string>

#include "frame/com/automation.h"

// activscp.h needs what automation.h includes.
#include <activscp.h>

namespace tarvo::com {

class ScriptHost final : public IActiveScriptSite {
 public:
  // `engine`: "VBScript" or "JScript".
  explicit ScriptHost(const wchar_t* engine);
  ScriptHost(const ScriptHost&) = delete;
  ScriptHost& operator=(const ScriptHost&) = delete;
  ~ScriptHost();

  // Whether the engine is there; without it nothing below may be used.
  bool isThere() const noexcept { return static_cast<bool>(parser_); }

  // An object that the script knows by that name.
  void add(const std::wstring& name, IUnknown* object);

  // Runs a piece of the script.  Empty, or the number, line and description of its error; the
  // script's variables stay from one piece to the next.
  std::string run(TextView source);

  // The object in a variable of the script; empty when it has none.
  ComPtr<IDispatch> object(const wchar_t* variable);

  // The variable as a text; "(none)" when there is no such variable or it is no text.
  std::string text(const wchar_t* variable);

  // The engine's calls.
  STDMETHODIMP QueryInterface(REFIID id, void** result) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the test's stack
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetLCID(LCID* locale) override;
  STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** info) override;
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError* error) override;
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }

 private:
  HRESULT get(const wchar_t* variable, VARIANT* value);

  ComPtr<IActiveScript> engine_;
  ComPtr<IActiveScriptParse> parser_;
  std::map<std::wstring, ComPtr<IUnknown>> items_;
  std::string error_;
};

}  // namespace tarvo::com
