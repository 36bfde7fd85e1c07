// Calls of the tests' own classes as a late-bound client makes them.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
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

// The interface under which a library object is known outside.
template <class I, class T>
ComPtr<I> faceOfObject(const Ref<T>& object, const IID& id) {
  ComPtr<I> result;
  Face* face = faceOf(*findClass(Described<T>::info), *object);
  faceQueryInterface(face, id, result.outVoid());
  faceRelease(face);
  return result;
}

template <class Probe>
class ClientOf : public testing::Test {
 protected:
  Ref<Probe> object_ = make<Probe>();
  ComPtr<IDispatch> probe_ = faceOfObject<IDispatch>(object_, IID_IDispatch);

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
    source_ = Text(viewOf(exception.bstrSource));
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    return status == DISP_E_EXCEPTION ? exception.scode : status;
  }

  // Of the last call's error.
  Text description_;
  Text source_;
};

using ProbeClient = ClientOf<clsProbe>;

}  // namespace tarvo::com
