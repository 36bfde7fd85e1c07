// The one place that knows how each C++ type of a public operation looks in COM.
//
// Automation<Plain> tells, for a type without reference and const: its COM type `Abi`, its VARIANT
// kind `kVarType`, and how to go from one to the other.  What toAbi() makes is the receiver's, to
// be freed with freeAbi(); fromAbi() copies and takes nothing away.
#pragma once

#include <type_traits>

#include "frame/com/automation.h"
#include "frame/com/error_info.h"
#include "frame/member_table.h"

namespace tarvo::com {

// --- Values of any kind (value_variant.cpp).

// Raises: 13 for a kind that has no place in a Value.
void valueFromVariant(const VARIANT& variant, Value& value);
void variantFromValue(const Value& value, VARIANT& variant);  // into an empty one
void textListFromVariant(const VARIANT& variant, TextList& list);

// --- Objects (object_conversion.cpp).

// The library object behind a foreign reference: our own one, or a proxy of the class's contract.
// Raises: 13 when the object cannot be one of the class.
Ref<Object> objectFromUnknown(IUnknown* unknown, const ClassInfo* objectClass);

// The foreign interface of an object, counted: the class's own where the object offers it, else its
// dispatch interface.  Null for an empty reference.
IUnknown* unknownFromObject(Object* object, const ClassInfo* objectClass);

// Whether the foreign reference is the one that `object` goes out as.
bool isSameObject(IUnknown* unknown, const Object* object);

// --- The types.

template <class Plain>
struct Automation;

// Types that are in COM what they are in C++, but for their name.
template <class Plain, class AbiType, VARTYPE kType>
struct PlainAutomation {
  using Abi = AbiType;
  static constexpr VARTYPE kVarType = kType;
  static Abi& in(VARIANT& variant) { return *reinterpret_cast<Abi*>(&V_UI1(&variant)); }
  static void toAbi(const Plain& value, Abi& abi) { abi = static_cast<Abi>(value); }
  static void fromAbi(const Abi& abi, Plain& value) { value = static_cast<Plain>(abi); }
  static bool equals(const Abi& abi, const Plain& value) {
    return static_cast<Plain>(abi) == value;
  }
  static void freeAbi(Abi&) {}
};

template <>
struct Automation<std::uint8_t> : PlainAutomation<std::uint8_t, BYTE, VT_UI1> {};
template <>
struct Automation<std::int16_t> : PlainAutomation<std::int16_t, SHORT, VT_I2> {};
template <>
struct Automation<std::int32_t> : PlainAutomation<std::int32_t, LONG, VT_I4> {};
template <>
struct Automation<double> : PlainAutomation<double, DOUBLE, VT_R8> {};
template <class E>
requires std::is_enum_v<E>
struct Automation<E> : PlainAutomation<E, LONG, VT_I4> {
};

template <>
struct Automation<bool> : PlainAutomation<bool, VARIANT_BOOL, VT_BOOL> {
  static void toAbi(bool value, Abi& abi) { abi = value ? VARIANT_TRUE : VARIANT_FALSE; }
  static void fromAbi(Abi abi, bool& value) { value = abi != VARIANT_FALSE; }
  static bool equals(Abi abi, bool value) { return (abi != VARIANT_FALSE) == value; }
};

template <>
struct Automation<Currency> : PlainAutomation<Currency, CY, VT_CY> {
  static void toAbi(Currency value, CY& abi) { abi.int64 = value.tenThousandths; }
  static void fromAbi(const CY& abi, Currency& value) { value.tenThousandths = abi.int64; }
  static bool equals(const CY& abi, Currency value) { return abi.int64 == value.tenThousandths; }
};

template <>
struct Automation<Date> : PlainAutomation<Date, DATE, VT_DATE> {
  static void toAbi(Date value, DATE& abi) { abi = value.serial; }
  static void fromAbi(DATE abi, Date& value) { value.serial = abi; }
  static bool equals(DATE abi, Date value) { return abi == value.serial; }
};

template <>
struct Automation<Text> {
  using Abi = BSTR;
  static constexpr VARTYPE kVarType = VT_BSTR;
  static Abi& in(VARIANT& variant) { return V_BSTR(&variant); }
  static void toAbi(TextView value, BSTR& abi) { abi = allocateBstr(value); }
  static void fromAbi(BSTR abi, Text& value) { value = viewOf(abi); }
  static bool equals(BSTR abi, TextView value) { return viewOf(abi) == value; }
  static void freeAbi(BSTR& abi) { SysFreeString(std::exchange(abi, nullptr)); }
};

template <>
struct Automation<Value> {
  using Abi = VARIANT;
  static constexpr VARTYPE kVarType = VT_VARIANT;
  static Abi& in(VARIANT& variant) { return variant; }
  static void toAbi(const Value& value, VARIANT& abi) {
    VariantInit(&abi);
    variantFromValue(value, abi);
  }
  static void fromAbi(const VARIANT& abi, Value& value) { valueFromVariant(abi, value); }
  static bool equals(const VARIANT& abi, const Value& value) {
    Value other;
    valueFromVariant(abi, other);
    return other == value;
  }
  static void freeAbi(VARIANT& abi) { VariantClear(&abi); }
};

// Only ever a result.
template <>
struct Automation<TextList> {
  using Abi = VARIANT;
  static constexpr VARTYPE kVarType = VT_VARIANT;
  static Abi& in(VARIANT& variant) { return variant; }
  static void toAbi(const TextList& list, VARIANT& abi) {
    Automation<Value>::toAbi(Value(ValueArray(list.begin(), list.end())), abi);
  }
  static void fromAbi(const VARIANT& abi, TextList& list) { textListFromVariant(abi, list); }
  static void freeAbi(VARIANT& abi) { VariantClear(&abi); }
};

template <class T>
struct Automation<Ref<T>> {
  using Abi = IUnknown*;
  static constexpr VARTYPE kVarType = VT_DISPATCH;
  static Abi& in(VARIANT& variant) { return V_UNKNOWN(&variant); }
  static void toAbi(const Ref<T>& value, Abi& abi) { abi = unknownFromObject(value.get(), info()); }
  static void fromAbi(Abi abi, Ref<T>& value) {
    value = Ref<T>(static_cast<T*>(objectFromUnknown(abi, info()).get()));
  }
  static bool equals(Abi abi, const Ref<T>& value) { return isSameObject(abi, value.get()); }
  static void freeAbi(Abi& abi) {
    if (abi != nullptr) std::exchange(abi, nullptr)->Release();
  }

 private:
  static const ClassInfo* info() {
    if constexpr (std::is_same_v<T, Object>) {
      return nullptr;
    } else {
      return &Described<T>::info;
    }
  }
};

// A parameter's plain type; a view travels as the text it shows.
template <class Parameter>
using PlainOf = std::conditional_t<std::is_same_v<std::remove_cvref_t<Parameter>, TextView>, Text,
                                   std::remove_cvref_t<Parameter>>;

}  // namespace tarvo::com
