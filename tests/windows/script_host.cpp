#include "script_host.h"

#include <objbase.h>

namespace tarvo::com {

ScriptHost::ScriptHost(const wchar_t* engine) {
  CoInitialize(nullptr);
  CLSID id;
  if (FAILED(CLSIDFromProgID(engine, &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                              engine_.outVoid()))) {
    return;
  }
  parser_ = query<IActiveScriptParse>(engine_.get(), __uuidof(IActiveScriptParse));
  if (FAILED(parser_->InitNew()) || FAILED(engine_->SetScriptSite(this)) ||
      FAILED(engine_->SetScriptState(SCRIPTSTATE_STARTED))) {
    parser_.reset();
  }
}

ScriptHost::~ScriptHost() {
  if (engine_) engine_->Close();
  parser_.reset();
  engine_.reset();
  items_.clear();
  CoUninitialize();
}

void ScriptHost::add(const std::wstring& name, IUnknown* object) {
  items_[name] = ComPtr<IUnknown>(object);
  engine_->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE);
}

std::string ScriptHost::run(TextView source) {
  error_.clear();
  const Text text(source);
  EXCEPINFO exception{};
  const HRESULT status = parser_->ParseScriptText(wide(text), nullptr, nullptr, nullptr, 0, 1,
                                                  SCRIPTTEXT_ISVISIBLE, nullptr, &exception);
  if (SUCCEEDED(status)) return {};  // what was reported on the way was caught
  return error_.empty() ? "status " + std::to_string(status) : error_;
}

HRESULT ScriptHost::get(const wchar_t* variable, VARIANT* value) {
  ComPtr<IDispatch> global;
  const HRESULT found = engine_->GetScriptDispatch(nullptr, global.out());
  if (FAILED(found)) return found;
  auto* names = const_cast<LPOLESTR>(variable);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT named = global->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(named)) return named;
  DISPPARAMS none{};
  return global->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value,
                        nullptr, nullptr);
}

ComPtr<IDispatch> ScriptHost::object(const wchar_t* variable) {
  Variant value;
  if (FAILED(get(variable, &value)) || V_VT(&value) != VT_DISPATCH) return {};
  return ComPtr<IDispatch>(V_DISPATCH(&value));
}

std::string ScriptHost::text(const wchar_t* variable) {
  Variant value;
  if (FAILED(get(variable, &value)) || V_VT(&value) != VT_BSTR) return "(none)";
  return toUtf8(viewOf(V_BSTR(&value)));
}

STDMETHODIMP ScriptHost::QueryInterface(REFIID id, void** result) {
  const bool isKnown = id == IID_IUnknown || id == __uuidof(IActiveScriptSite);
  *result = isKnown ? static_cast<IActiveScriptSite*>(this) : nullptr;
  return isKnown ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ScriptHost::GetLCID(LCID* locale) {
  *locale = LOCALE_USER_DEFAULT;
  return S_OK;
}

STDMETHODIMP ScriptHost::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                     ITypeInfo** info) {
  if (info != nullptr) *info = nullptr;
  if (item != nullptr) *item = nullptr;
  const auto found = items_.find(name);
  if (found == items_.end()) return TYPE_E_ELEMENTNOTFOUND;
  if ((mask & SCRIPTINFO_IUNKNOWN) != 0) *item = ComPtr<IUnknown>(found->second).detach();
  return S_OK;
}

STDMETHODIMP ScriptHost::OnScriptError(IActiveScriptError* error) {
  EXCEPINFO exception{};
  DWORD context = 0;
  ULONG line = 0;
  LONG column = 0;
  error->GetExceptionInfo(&exception);
  error->GetSourcePosition(&context, &line, &column);
  error_ = std::to_string(exception.scode) + " in line " + std::to_string(line) + ": " +
           toUtf8(viewOf(exception.bstrDescription));
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  // Not settled here: it goes on to whoever called, a script that catches it or our own library.
  return S_FALSE;
}

}  // namespace tarvo::com
