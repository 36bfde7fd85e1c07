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

  IDispatch* dispatch() const noexcept { return dispatch_.get(); }

 private:
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
    return Caller<Entry, typename detail::CallerParameters<typename Entry::Row>::Type>::call(
        *this, place, arguments...);
  }

 private:
  template <class Entry, class Parameters>
  struct Caller;
  template <class Entry, class... P>
  struct Caller<Entry, std::tuple<P...>> {
    using Result = typename Entry::ReturnedOrPut;

    // `rest`: nothing, or the text that the result goes into.
    template <class... Rest>
    static auto call(ContractProxy& proxy, std::size_t place, std::type_identity_t<P>... arguments,
                     Rest&... rest) {
      std::tuple<Outgoing<P>...> out{arguments...};
      return std::apply(
          [&](Outgoing<P>&... each) {
            if constexpr (std::is_void_v<Result>) {
              proxy.template run<Entry>(place, static_cast<VARIANT*>(nullptr), each...);
              (each.takeBack(), ...);
            } else {
              Variant result;
              proxy.template run<Entry>(place, &result, each...);
              (each.takeBack(), ...);
              if constexpr (sizeof...(Rest) == 1) {
                (storeVariant(result, rest), ...);
              } else {
                Result value{};
                storeVariant(result, value);
                return value;
              }
            }
          },
          out);
    }
  };

  template <class Entry, class... Out>
  void run(std::size_t place, VARIANT* result, Out&... out) {
    if (access_.contractInterface() != nullptr) {
      runThroughInterface<Entry>(place, result, out...);
    } else {
      std::array<VARIANT, sizeof...(Out)> arguments{out.variant()...};
      try {
        access_.callByName(place, arguments, result);
      } catch (const RunTimeError&) {
        takeBackIgnoringErrors(out...);
        throw;
      }
    }
  }

  template <class Entry, class... Out>
  void runThroughInterface(std::size_t place, VARIANT* result, Out&... out) {
    // The entries of every dual interface look alike, ours and a foreign one's.
    auto* self = reinterpret_cast<Face*>(access_.contractInterface());
    const void* entry =
        (*reinterpret_cast<const void* const* const*>(self))[kDispatchFunctionCount + place];
    const auto function = reinterpret_cast<typename Entry::Function>(const_cast<void*>(entry));
    using Result = typename Entry::ReturnedOrPut;
    SetErrorInfo(0, nullptr);
    HRESULT status = S_OK;
    if constexpr (std::is_void_v<Result>) {
      status = function(self, out.abi()...);
    } else {
      if constexpr (Automation<Result>::kVarType != VT_VARIANT) {
        V_VT(result) = Automation<Result>::kVarType;
      }
      status = function(self, out.abi()..., &Automation<Result>::in(*result));
    }
    if (FAILED(status)) {
      takeBackIgnoringErrors(out...);
      raiseForeignError(status, nullptr);
    }
  }

  // What a failing operation had changed until then stays changed.
  template <class... Out>
  static void takeBackIgnoringErrors(Out&... out) {
    try {
      (out.takeBack(), ...);
    } catch (const RunTimeError&) {  // the operation's own error says more
    }
  }

  ContractAccess access_;
};

// The proxy of one of the core services' contracts (service_proxies.cpp); empty for another class.
Ref<Object> makeServiceProxy(IUnknown* object, const ClassInfo& contract);

// A foreign object of which only the names of its members are known.
// Raises: 13 when it has no dispatch interface.
Ref<Object> makeLateObject(IUnknown* object);

}  // namespace tarvo::com
