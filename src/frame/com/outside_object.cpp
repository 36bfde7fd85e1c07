#include "frame/com/outside_object.h"

#include <algorithm>

namespace tarvo::com {

NamedAccess::NamedAccess(IUnknown* object)
    : extended_(query<IDispatchEx>(object, __uuidof(IDispatchEx))),
      dispatch_(query<IDispatch>(object, IID_IDispatch)) {
  if (!extended_ && !dispatch_) throw RunTimeError(kTypeMismatch);
}

DISPID NamedAccess::idOf(TextView name) const {
  const Bstr text(name);
  DISPID id = DISPID_UNKNOWN;
  if (extended_ && SUCCEEDED(extended_->GetDispID(text.get(), fdexNameCaseInsensitive, &id))) {
    return id;
  }
  OLECHAR* names = text.get();
  if (!dispatch_ ||
      FAILED(dispatch_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) {
    throw RunTimeError(kNoSuchMember, name);
  }
  return id;
}

HRESULT NamedAccess::status(DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result,
                            EXCEPINFO& exception) const {
  std::reverse(arguments.begin(), arguments.end());
  DISPID putName = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments.data(), isPut ? &putName : nullptr,
                        static_cast<UINT>(arguments.size()), isPut ? 1u : 0u};
  UINT argumentInError = 0;
  SetErrorInfo(0, nullptr);
  const HRESULT status = extended_
                             ? extended_->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &parameters,
                                                   result, &exception, nullptr)
                             : dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags,
                                                 &parameters, result, &exception, &argumentInError);
  std::reverse(arguments.begin(), arguments.end());
  return status;
}

void NamedAccess::invoke(DISPID id, WORD flags, std::span<VARIANT> arguments,
                         VARIANT* result) const {
  EXCEPINFO exception{};
  const HRESULT outcome = status(id, flags, arguments, result, exception);
  // A script's error may come as a bare status, with nothing filled in.
  if (FAILED(outcome)) raiseForeignError(outcome, &exception);
}

bool NamedAccess::invokeIfThere(DISPID id, WORD flags, std::span<VARIANT> arguments,
                                VARIANT* result) const {
  EXCEPINFO exception{};
  const HRESULT outcome = status(id, flags, arguments, result, exception);
  if (outcome == DISP_E_MEMBERNOTFOUND) return false;
  if (FAILED(outcome)) raiseForeignError(outcome, &exception);
  return true;
}

ContractAccess::ContractAccess(IUnknown* object, const ClassInfo& contract)
    : interface_(query<IUnknown>(object, platformGuid(interfaceId(contract)))),
      contract_(contract) {
  if (interface_) return;
  named_.emplace(object);
  ids_.assign(contract.members.size(), DISPID_UNKNOWN);
}

void ContractAccess::callByName(std::size_t place, std::span<VARIANT> arguments, VARIANT* result) {
  DISPID& id = ids_[place];
  if (id == DISPID_UNKNOWN) id = named_->idOf(fromAscii(contract_.members[place].fullName()));
  const WORD flags = result == nullptr ? DISPATCH_METHOD : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  named_->invoke(id, flags, arguments, result);
}

Ref<Object> makeProxy(std::span<const ProxyRow> rows, IUnknown* object, const ClassInfo& contract) {
  const auto row = std::find_if(rows.begin(), rows.end(), [&contract](const ProxyRow& candidate) {
    return candidate.contract == &contract;
  });
  return row != rows.end() ? row->make(object) : Ref<Object>();
}

}  // namespace tarvo::com
