// Objects from outside that serve the library: a client's service or callback object.
//
// A proxy is one of the library's contracts on our side and a foreign object on the other.  It
// calls through the contract's own interface when the object has it, and by the operations' names
// otherwise, so a script object can serve.  A script class may be reached by its extended dispatch
// interface only; that one is tried first.
//
// Errors: what the object raises goes on as a run-time error with its number; source and
// description where the object hands them out.  An operation that the object does not offer is
// error 438 when it is called, not before.
#pragma once

#include <dispex.h>

#include <array>
#include <optional>
#include <vector>

#include "frame/com/convert.h"
#include "frame/com/dispatch.h"
#include "frame/com/vtable.h"

namespace tarvo::com {

// By-name access to a foreign object.
class NamedAccess {
 public:
  explicit NamedAccess(IUnknown* object);

  // Raises: 438 when there is no such member.
  DISPID idOf(TextView name) const;

  // `arguments` in their order; `result` may be null.  Raises: what the member raises.
  void invoke(DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result) const;

  // The same, but false when the object itself has no member of that number for such a use.
  bool invokeIfThere(DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result) const;

  IDispatch* dispatch() const noexcept { return dispatch_.get(); }

 private:
  HRESULT status(DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result,
                 EXCEPINFO& exception) const;

  ComPtr<IDispatchEx> extended_;
  ComPtr<IDispatch> dispatch_;
};

// What every object from outside has: the reference under which it goes out again.
class OutsideObject {
 public:
  IUnknown* unknown() const noexcept { return unknown_.get(); }

 protected:
  explicit OutsideObject(IUnknown* object) : unknown_(object) {}
  virtual ~OutsideObject() = default;

 private:
  ComPtr<IUnknown> unknown_;
};

// How a contract's operations are called on a foreign object.
class ContractAccess {
 public:
  // Raises: 13 when the object has neither the contract's interface nor a dispatch interface.
  ContractAccess(IUnknown* object, const ClassInfo& contract);

  // The interface of the contract, or null.
  IUnknown* contractInterface() const noexcept { return interface_.get(); }

  // Calls the operation of that place by its name.  Changed by-reference arguments stand in their
  // VARIANTs afterwards.  REQUIRES: no interface of the contract.
  void callByName(std::size_t place, std::span<VARIANT> arguments, VARIANT* result);

 private:
  ComPtr<IUnknown> interface_;
  std::optional<NamedAccess> named_;
  const ClassInfo& contract_;
  std::vector<DISPID> ids_;  // by place; DISPID_UNKNOWN until asked for
};

// `variant` as the kind that `Plain` has; a member may have put anything there.
template <class Plain>
void storeVariant(VARIANT& variant, Plain& into) {
  if constexpr (Automation<Plain>::kVarType == VT_VARIANT) {
    Automation<Plain>::fromAbi(variant, into);
  } else if constexpr (Automation<Plain>::kVarType == VT_DISPATCH) {
    if (V_VT(&variant) != VT_DISPATCH && V_VT(&variant) != VT_UNKNOWN) {
      throw RunTimeError(kTypeMismatch);
    }
    Automation<Plain>::fromAbi(Automation<Plain>::in(variant), into);
  } else {
    check(VariantChangeType(&variant, &variant, 0, Automation<Plain>::kVarType));
    Automation<Plain>::fromAbi(Automation<Plain>::in(variant), into);
  }
}

// One argument on its way out, in a VARIANT of its own kind.
template <class Parameter>
class Outgoing {
 public:
  using Plain = PlainOf<Parameter>;
  static constexpr bool kByReference = tarvo::detail::kIsByReference<Parameter>;
  using Abi = typename Incoming<Parameter>::Abi;

  explicit Outgoing(Parameter value) : value_(value) {
    if constexpr (Automation<Plain>::kVarType != VT_VARIANT) {
      V_VT(&storage_) = Automation<Plain>::kVarType;
    }
    Automation<Plain>::toAbi(value, Automation<Plain>::in(storage_));
  }

  Abi abi() {
    if constexpr (kByReference) {
      return &Automation<Plain>::in(storage_);
    } else {
      return Automation<Plain>::in(storage_);
    }
  }

  // For a call by name.  Not owned; scripts change what a reference to any kind of value names.
  VARIANT variant() {
    if constexpr (kByReference) {
      VARIANT reference{};
      V_VT(&reference) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&reference) = &storage_;
      return reference;
    } else {
      return storage_;
    }
  }

  // Takes what the object put there.  Raises: 13 when that is of the wrong kind.
  void takeBack() {
    if constexpr (kByReference && !std::is_const_v<std::remove_reference_t<Parameter>>) {
      storeVariant(storage_, value_);
    }
  }

 private:
  Variant storage_;
  Parameter value_;  // a reference for by-reference parameters
};

// A call of a foreign object's operation; all operations of one shape share it.
template <class Result, class Parameters>
struct OutgoingCall;
template <class Result, class... P>
struct OutgoingCall<Result, std::tuple<P...>> {
  // `rest`: nothing, or the text or list that the result goes into.
  template <class... Rest>
  static auto make(ContractAccess& access, std::size_t place, std::type_identity_t<P>... arguments,
                   Rest&... rest) {
    std::tuple<Outgoing<P>...> out{arguments...};
    if constexpr (std::is_void_v<Result>) {
      run(access, place, nullptr, out);
    } else {
      Variant result;
      run(access, place, &result, out);
      if constexpr (sizeof...(Rest) == 1) {
        (storeVariant(result, rest), ...);
      } else {
        Result value{};
        storeVariant(result, value);
        return value;
      }
    }
  }

 private:
  static void run(ContractAccess& access, std::size_t place, VARIANT* result,
                  std::tuple<Outgoing<P>...>& out) {
    try {
      std::apply(
          [&](Outgoing<P>&... each) {
            if (access.contractInterface() != nullptr) {
              throughInterface(access.contractInterface(), place, result, each...);
            } else {
              std::array<VARIANT, sizeof...(P)> arguments{each.variant()...};
              access.callByName(place, arguments, result);
            }
          },
          out);
    } catch (const RunTimeError&) {
      takeBackIgnoringErrors(out);
      throw;
    }
    takeBack(out);
  }

  // The entries of every dual interface look alike, ours and a foreign one's.
  static void throughInterface(IUnknown* object, std::size_t place, VARIANT* result,
                               Outgoing<P>&... out) {
    const void* entry =
        (*reinterpret_cast<const void* const* const*>(object))[kDispatchFunctionCount + place];
    SetErrorInfo(0, nullptr);
    HRESULT status = S_OK;
    if constexpr (std::is_void_v<Result>) {
      using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, typename Outgoing<P>::Abi...);
      status = reinterpret_cast<Function>(const_cast<void*>(entry))(object, out.abi()...);
    } else {
      using ResultAutomation = Automation<PlainOf<Result>>;
      using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, typename Outgoing<P>::Abi...,
                                                   typename ResultAutomation::Abi*);
      if constexpr (ResultAutomation::kVarType != VT_VARIANT) {
        V_VT(result) = ResultAutomation::kVarType;
      }
      status = reinterpret_cast<Function>(const_cast<void*>(entry))(object, out.abi()...,
                                                                    &ResultAutomation::in(*result));
    }
    if (FAILED(status)) raiseForeignError(status, nullptr);
  }

  static void takeBack(std::tuple<Outgoing<P>...>& out) {
    std::apply([](Outgoing<P>&... each) { (each.takeBack(), ...); }, out);
  }

  // What a failing operation had changed until then stays changed.
  static void takeBackIgnoringErrors(std::tuple<Outgoing<P>...>& out) {
    try {
      takeBack(out);
    } catch (const RunTimeError&) {  // the operation's own error says more
    }
  }
};

// A proxy calls its own contract's operation: `return call<&clsTexto::fPosition>(a, b, c);`
template <class Contract>
class ContractProxy : public Contract, public OutsideObject {
 protected:
  explicit ContractProxy(IUnknown* object)
      : OutsideObject(object), access_(object, Described<Contract>::info) {}

  template <auto Function, class... Arguments>
  auto call(Arguments&&... arguments) {
    constexpr std::size_t place = kRowIndex<Contract, Function>;
    static_assert(place < kMemberCount<Contract>, "the contract's table lacks this operation");
    using Entry = detail::EntryAt<Contract, place>;
    using Parameters = typename detail::CallerParameters<typename Entry::Row>::Type;
    return OutgoingCall<typename Entry::ReturnedOrPut, Parameters>::make(access_, place,
                                                                         arguments...);
  }

 private:
  ContractAccess access_;
};

// How the proxy of a contract is made.
struct ProxyRow {
  const ClassInfo* contract;
  Ref<Object> (*make)(IUnknown* object);
};

template <class Contract, class Proxy>
constexpr ProxyRow proxyRow() {
  return {&Described<Contract>::info,
          [](IUnknown* object) -> Ref<Object> { return make<Proxy>(object); }};
}

// Empty for a contract that is not among the rows.
Ref<Object> makeProxy(std::span<const ProxyRow> rows, IUnknown* object, const ClassInfo& contract);

// The proxy of one of the core services' contracts (service_proxies.cpp), and of one of the
// contracts that clients of the reports implement (callback_proxies.cpp); empty for another class.
Ref<Object> makeServiceProxy(IUnknown* object, const ClassInfo& contract);
Ref<Object> makeCallbackProxy(IUnknown* object, const ClassInfo& contract);

// A foreign object of which only the names of its members are known.
// Raises: 13 when it has no dispatch interface.
Ref<Object> makeLateObject(IUnknown* object);

}  // namespace tarvo::com
