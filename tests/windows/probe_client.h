// Calls of the probe class as a late-bound client makes them.
#pragma once

#include <gmock/gmock.h>

#include <vector>

#include "frame/com/automation.h"
#include "frame/com/server.h"
#include "probe.h"

namespace tarvo::com {

// A VARIANT of a kind, filled by the caller; not owned.
template <class Content>
VARIANT holding(VARTYPE type, Content content) {
  VARIANT variant{};
  V_VT(&variant) = type;
  *reinterpret_cast<Content*>(&V_UI1(&variant)) = content;
  return variant;
}
inline VARIANT referenceTo(VARIANT& other) { return holding(VT_BYREF | VT_VARIANT, &other); }

class ProbeClient : public testing::Test {
 protected:
  ComPtr<IDispatch> probe_ = [] {
    const Ref<Object> object = make<clsProbe>();
    ComPtr<IDispatch> result;
    Face* face = faceOf(*findClass(Described<clsProbe>::info), *object);
    faceQueryInterface(face, IID_IDispatch, result.outVoid());
    faceRelease(face);
    return result;
  }();

  // `arguments` in their order; the caller's own, so that what comes back is seen.
  HRESULT call(const wchar_t* name, std::vector<VARIANT> arguments, VARIANT* result = nullptr) {
    auto* names = const_cast<LPOLESTR>(name);
    DISPID id = DISPID_UNKNOWN;
    probe_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_INVARIANT, &id);
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXCEPINFO exception{};
    const HRESULT status = probe_->Invoke(id, IID_NULL, LOCALE_INVARIANT, DISPATCH_METHOD,
                                          &parameters, result, &exception, nullptr);
    description_ = Text(viewOf(exception.bstrDescription));
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    return status == DISP_E_EXCEPTION ? exception.scode : status;
  }

  Text description_;
};

}  // namespace tarvo::com
