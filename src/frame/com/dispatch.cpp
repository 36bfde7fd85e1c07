#include "frame/com/dispatch.h"

#include <array>
#include <string_view>

#include "frame/com/error_info.h"

namespace tarvo::com {
namespace {

// --- Names.

bool isNamed(const MemberInfo& member, TextView name) {
  const std::string_view prefix = member.prefix;
  return name.size() > prefix.size() &&
         equalIgnoringAsciiCase(name.substr(0, prefix.size()), prefix) &&
         equalIgnoringAsciiCase(name.substr(prefix.size()), member.name);
}

// The member's place in the table, or the table's size.
std::size_t findMember(const ClassInfo& info, TextView name) {
  std::size_t place = 0;
  while (place < info.members.size() && !isNamed(info.members[place], name)) ++place;
  return place;
}

DISPID findParameter(const MemberInfo& member, TextView name) {
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    if (equalIgnoringAsciiCase(name, member.parameters[i].name)) return static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

// --- Arguments.

bool isOmitted(const VARIANT& argument) {
  return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

// The value that an argument of any shape holds.
const VARIANT& valueBehind(const VARIANT& argument) {
  return V_VT(&argument) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&argument) : argument;
}

bool isObjectKind(VARTYPE type) { return type == VT_DISPATCH || type == VT_UNKNOWN; }

// `from` as the kind `to`, into an empty VARIANT.
HRESULT coerce(const VARIANT& from, VARTYPE to, LCID locale, VARIANT& into) {
  if (to == VT_VARIANT) return VariantCopyInd(&into, const_cast<VARIANT*>(&from));
  const auto fromType = static_cast<VARTYPE>(V_VT(&from) & ~VT_BYREF);
  if (isObjectKind(to)) {
    // Any object will do here; whether it is the right one shows when it is used.
    if (!isObjectKind(fromType)) return DISP_E_TYPEMISMATCH;
    return VariantCopyInd(&into, const_cast<VARIANT*>(&from));
  }
  return VariantChangeTypeEx(&into, const_cast<VARIANT*>(&from), locale, 0, to);
}

bool haveSameContent(const VARIANT& a, const VARIANT& b) {
  if (V_VT(&a) != V_VT(&b)) return false;
  switch (V_VT(&a)) {
    case VT_BSTR:
      return viewOf(V_BSTR(&a)) == viewOf(V_BSTR(&b));
    case VT_UI1:
      return V_UI1(&a) == V_UI1(&b);
    case VT_BOOL:
    case VT_I2:
      return V_I2(&a) == V_I2(&b);
    case VT_I4:
      return V_I4(&a) == V_I4(&b);
    case VT_CY:
    case VT_R8:
    case VT_DATE:
      return V_CY(&a).int64 == V_CY(&b).int64;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return V_UNKNOWN(&a) == V_UNKNOWN(&b);
    default:
      return false;
  }
}

// One argument of a call under way.
class Argument {
 public:
  // Takes the caller's argument for the parameter.  A failed status is the coercion's.
  HRESULT take(const VARIANT& given, const ParameterInfo& parameter, LCID locale) {
    type_ = varTypeOf(parameter.type);
    source_ = &given;
    const VARIANT& value = valueBehind(given);
    if (parameter.byReference && V_VT(&value) == (VT_BYREF | type_)) {
      slot_ = value;  // a typed reference of the very type: the operation works on it directly
      return S_OK;
    }
    const HRESULT coerced = coerce(value, type_, locale, local_);
    if (FAILED(coerced)) return coerced;
    if (parameter.byReference) {
      VariantCopy(&before_, &local_);
      pointAtLocal();
    }
    return S_OK;
  }

  VARIANTARG* slot() { return isByReference() ? &slot_ : &local_; }
  VARTYPE slotType() const {
    return static_cast<VARTYPE>(isByReference() ? VT_BYREF | type_ : type_);
  }

  // Brings a changed by-reference argument back to the caller.
  HRESULT giveBack(LCID locale) {
    const bool usedLocal = isByReference() && V_BYREF(&slot_) == localContent();
    if (!usedLocal || haveSameContent(before_, local_)) return S_OK;
    if (V_VT(source_) == (VT_BYREF | VT_VARIANT)) {
      return VariantCopy(V_VARIANTREF(source_), &local_);
    }
    return (V_VT(source_) & VT_BYREF) != 0 ? giveBackTyped(locale) : S_OK;
  }

 private:
  bool isByReference() const { return (V_VT(&slot_) & VT_BYREF) != 0; }
  void* localContent() {
    return type_ == VT_VARIANT ? static_cast<void*>(&local_) : &V_UI1(&local_);
  }
  void pointAtLocal() {
    V_VT(&slot_) = static_cast<VARTYPE>(VT_BYREF | type_);
    V_BYREF(&slot_) = localContent();
  }

  // The caller has a variable of another type than the parameter's: back through that type.
  HRESULT giveBackTyped(LCID locale) {
    Variant changed;
    const auto callersType = static_cast<VARTYPE>(V_VT(source_) & ~VT_BYREF);
    const HRESULT coerced = coerce(local_, callersType, locale, changed);
    if (FAILED(coerced)) return coerced;
    switch (callersType) {
      case VT_BSTR:
        std::swap(*V_BSTRREF(source_), V_BSTR(&changed));
        return S_OK;
      case VT_DISPATCH:
      case VT_UNKNOWN:
        std::swap(*V_UNKNOWNREF(source_), V_UNKNOWN(&changed));
        return S_OK;
      case VT_UI1:
        *V_UI1REF(source_) = V_UI1(&changed);
        return S_OK;
      case VT_I2:
      case VT_BOOL:
        *V_I2REF(source_) = V_I2(&changed);
        return S_OK;
      case VT_I4:
      case VT_R4:
        *V_I4REF(source_) = V_I4(&changed);
        return S_OK;
      case VT_R8:
      case VT_CY:
      case VT_DATE:
        *V_CYREF(source_) = V_CY(&changed);
        return S_OK;
      default:
        return DISP_E_TYPEMISMATCH;
    }
  }

  VARTYPE type_ = VT_EMPTY;
  const VARIANT* source_ = nullptr;
  Variant local_;   // what the operation gets, in its own type
  Variant before_;  // the same before the call
  VARIANTARG slot_{};
};

// --- A call.

class Call {
 public:
  Call(Face* face, const MemberInfo& member, std::size_t place, LCID locale)
      : face_(face), member_(member), place_(place), locale_(locale) {}

  // Lays the caller's arguments out in the parameters' order.  A failed status other than a
  // coercion's means that they do not go with the parameters.
  HRESULT take(const DISPPARAMS& given, UINT* argumentInError) {
    const std::size_t count = member_.parameters.size();
    if (given.cArgs > count) return DISP_E_BADPARAMCOUNT;
    std::array<const VARIANT*, kMaxParameters> ordered{};
    const HRESULT placed = place(given, ordered);
    if (FAILED(placed)) return placed;
    for (std::size_t i = 0; i < count; ++i) {
      if (ordered[i] == nullptr || isOmitted(valueBehind(*ordered[i]))) {
        if (argumentInError != nullptr) *argumentInError = static_cast<UINT>(i);
        return DISP_E_PARAMNOTOPTIONAL;
      }
      const HRESULT taken = arguments_[i].take(*ordered[i], member_.parameters[i], locale_);
      if (FAILED(taken)) {
        if (argumentInError != nullptr) *argumentInError = indexOf(given, *ordered[i]);
        wrongParameter_ = member_.parameters[i].name;
        return taken;
      }
    }
    return S_OK;
  }

  // The parameter whose argument could not be coerced, on its way in or back; or null.
  const char* wrongParameter() const { return wrongParameter_; }

  HRESULT run(VARIANT* result) {
    const HRESULT status = invoke();
    const HRESULT back = giveBack();
    if (FAILED(status)) {
      wrongParameter_ = nullptr;  // the operation's own error says more
      return status;
    }
    if (FAILED(back)) return back;
    if (result != nullptr) {
      *result = result_;  // handed over whole
      V_VT(&result_) = VT_EMPTY;
    }
    return S_OK;
  }

 private:
  static UINT indexOf(const DISPPARAMS& given, const VARIANT& argument) {
    return static_cast<UINT>(&argument - given.rgvarg);
  }

  // Positional arguments stand last to first, behind the named ones.
  HRESULT place(const DISPPARAMS& given, std::array<const VARIANT*, kMaxParameters>& ordered) {
    const UINT named = given.cNamedArgs;
    if (named > given.cArgs) return DISP_E_BADPARAMCOUNT;
    for (UINT i = named; i < given.cArgs; ++i) ordered[given.cArgs - 1 - i] = &given.rgvarg[i];
    for (UINT i = 0; i < named; ++i) {
      const auto position = static_cast<std::size_t>(given.rgdispidNamedArgs[i]);
      if (position >= member_.parameters.size()) return DISP_E_PARAMNOTFOUND;
      if (ordered[position] != nullptr) return DISP_E_BADPARAMCOUNT;
      ordered[position] = &given.rgvarg[i];
    }
    return S_OK;
  }

  HRESULT invoke() {
    std::array<VARTYPE, kMaxParameters + 1> types{};
    std::array<VARIANTARG*, kMaxParameters + 1> slots{};
    UINT count = 0;
    for (; count < member_.parameters.size(); ++count) {
      types[count] = arguments_[count].slotType();
      slots[count] = arguments_[count].slot();
    }
    VARIANTARG resultSlot{};
    if (const VARTYPE type = varTypeOf(member_.result); type != VT_EMPTY) {
      if (type != VT_VARIANT) V_VT(&result_) = type;
      types[count] = V_VT(&resultSlot) = static_cast<VARTYPE>(VT_BYREF | type);
      V_BYREF(&resultSlot) = type == VT_VARIANT ? static_cast<void*>(&result_) : &V_UI1(&result_);
      slots[count++] = &resultSlot;
    }
    Variant status;
    SetErrorInfo(0, nullptr);  // an error object of an earlier call is none of this one
    const HRESULT called =
        DispCallFunc(face_, (kDispatchFunctions + place_) * sizeof(void*), CC_STDCALL, VT_ERROR,
                     count, types.data(), slots.data(), &status);
    return FAILED(called) ? called : V_ERROR(&status);
  }

  HRESULT giveBack() {
    HRESULT worst = S_OK;
    for (std::size_t i = 0; i < member_.parameters.size(); ++i) {
      const HRESULT status = arguments_[i].giveBack(locale_);
      if (FAILED(status)) {
        worst = status;
        wrongParameter_ = member_.parameters[i].name;
      }
    }
    return worst;
  }

  static constexpr std::size_t kDispatchFunctions = 7;

  Face* face_;
  const MemberInfo& member_;
  std::size_t place_;
  LCID locale_;
  std::array<Argument, kMaxParameters> arguments_;
  const char* wrongParameter_ = nullptr;
  Variant result_;
};

// Error 13, or 6 for a value that does not fit, with the parameter's name.
HRESULT reportWrongArgument(HRESULT coercion, const char* parameter, EXCEPINFO* exception) {
  if (coercion == E_OUTOFMEMORY) return coercion;
  const std::int32_t number = numberOfStatus(coercion);
  if (exception == nullptr) return statusOfNumber(number);
  try {
    const RunTimeError error(number == kOverflow ? kOverflow : kTypeMismatch, fromAscii(parameter));
    *exception = {};
    exception->scode = statusOfNumber(error.number());
    exception->bstrDescription = allocateBstr(error.description());
    exception->bstrSource = allocateBstr(error.source());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
  return DISP_E_EXCEPTION;
}

}  // namespace

VARTYPE varTypeOf(const TypeInfo& type) noexcept {
  switch (type.kind) {
    case TypeKind::kNone:
      return VT_EMPTY;
    case TypeKind::kByte:
      return VT_UI1;
    case TypeKind::kInt16:
      return VT_I2;
    case TypeKind::kInt32:
    case TypeKind::kEnum:
      return VT_I4;
    case TypeKind::kBoolean:
      return VT_BOOL;
    case TypeKind::kDouble:
      return VT_R8;
    case TypeKind::kCurrency:
      return VT_CY;
    case TypeKind::kDate:
      return VT_DATE;
    case TypeKind::kText:
      return VT_BSTR;
    case TypeKind::kValue:
      return VT_VARIANT;
    case TypeKind::kObject:
      return VT_DISPATCH;
  }
  return VT_EMPTY;
}

HRESULT STDMETHODCALLTYPE faceGetIDsOfNames(Face* face, REFIID id, LPOLESTR* names, UINT count,
                                            LCID, DISPID* ids) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  const ClassInfo& info = *face->comClass.info;
  const std::size_t place = findMember(info, fromWide(names[0]));
  if (place == info.members.size()) return DISP_E_UNKNOWNNAME;
  ids[0] = static_cast<DISPID>(place + 1);
  HRESULT status = S_OK;
  for (UINT i = 1; i < count; ++i) {
    ids[i] = findParameter(info.members[place], fromWide(names[i]));
    if (ids[i] == DISPID_UNKNOWN) status = DISP_E_UNKNOWNNAME;
  }
  return status;
}

HRESULT STDMETHODCALLTYPE faceInvoke(Face* face, DISPID member, REFIID id, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError) {
  if (result != nullptr) VariantInit(result);
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (arguments == nullptr) return E_INVALIDARG;
  const auto members = face->comClass.info->members;
  const bool isMember = member >= 1 && static_cast<std::size_t>(member) <= members.size();
  if (!isMember || (flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;

  const auto place = static_cast<std::size_t>(member) - 1;
  // The object may lose its last reference while it works.
  const ComPtr<IUnknown> kept(face->unknown());
  Call call(face, members[place], place, locale);
  const HRESULT taken = call.take(*arguments, argumentInError);
  if (call.wrongParameter() != nullptr) {
    return reportWrongArgument(taken, call.wrongParameter(), exception);
  }
  if (FAILED(taken)) return taken;
  const HRESULT status = call.run(result);
  if (call.wrongParameter() != nullptr) {
    return reportWrongArgument(status, call.wrongParameter(), exception);
  }
  return FAILED(status) ? reportException(status, exception) : S_OK;
}

}  // namespace tarvo::com
