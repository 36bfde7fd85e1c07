// Values of any kind to VARIANTs and back.
#include "frame/com/convert.h"
#include "frame/com/outside_object.h"

namespace tarvo::com {
namespace {

// A SAFEARRAY of one dimension, destroyed at its end.
class OwnedArray {
 public:
  OwnedArray(VARTYPE type, std::size_t size)
      : array_(SafeArrayCreateVector(type, 0, static_cast<ULONG>(size))) {
    if (array_ == nullptr) throw std::bad_alloc();
  }
  OwnedArray(const OwnedArray&) = delete;
  OwnedArray& operator=(const OwnedArray&) = delete;
  ~OwnedArray() {
    if (array_ != nullptr) SafeArrayDestroy(array_);
  }
  SAFEARRAY* get() const noexcept { return array_; }
  SAFEARRAY* detach() noexcept { return std::exchange(array_, nullptr); }

 private:
  SAFEARRAY* array_;
};

void readElement(SAFEARRAY* array, VARTYPE type, LONG index, VARIANT& into) {
  if (type == VT_VARIANT) {
    check(SafeArrayGetElement(array, &index, &into));
    return;
  }
  // Nothing but these has its place inside a VARIANT's eight bytes.
  switch (type) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      check(SafeArrayGetElement(array, &index, &V_UI1(&into)));
      break;
    case VT_DECIMAL:  // fills the whole VARIANT, its kind included
      check(SafeArrayGetElement(array, &index, &V_DECIMAL(&into)));
      break;
    default:
      throw RunTimeError(kTypeMismatch);
  }
  V_VT(&into) = type;
}

ValueArray valuesOf(const VARIANT& variant) {
  SAFEARRAY* array = (V_VT(&variant) & VT_BYREF) != 0 ? *V_ARRAYREF(&variant) : V_ARRAY(&variant);
  if (array == nullptr) return {};
  VARTYPE type = VT_EMPTY;
  check(SafeArrayGetVartype(array, &type));
  if (SafeArrayGetDim(array) != 1) throw RunTimeError(kTypeMismatch);
  LONG first = 0;
  LONG last = -1;
  check(SafeArrayGetLBound(array, 1, &first));
  check(SafeArrayGetUBound(array, 1, &last));
  ValueArray values;
  for (LONG index = first; index <= last; ++index) {
    Variant element;
    readElement(array, type, index, element);
    valueFromVariant(element, values.emplace_back());
  }
  return values;
}

// Whether the number is an amount and back again the same number; `amount` then holds it.
bool isExactAmount(VARIANT* number, Variant& amount) {
  Variant back;
  return SUCCEEDED(VariantChangeType(&amount, number, 0, VT_CY)) &&
         SUCCEEDED(VariantChangeType(&back, &amount, 0, V_VT(number))) &&
         VarCmp(number, &back, LOCALE_INVARIANT, 0) == VARCMP_EQ;
}

Value plainValueOf(const VARIANT& variant) {
  switch (V_VT(&variant)) {
    case VT_EMPTY:
    case VT_ERROR:  // an omitted argument
      return Empty{};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return V_BOOL(&variant) != VARIANT_FALSE;
    case VT_UI1:
      return static_cast<std::uint8_t>(V_UI1(&variant));
    case VT_I2:
      return static_cast<std::int16_t>(V_I2(&variant));
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(V_I4(&variant));
    case VT_R8:
      return V_R8(&variant);
    case VT_CY:
      return Currency{V_CY(&variant).int64};
    case VT_DATE:
      return Date{V_DATE(&variant)};
    case VT_BSTR:
      return Text(viewOf(V_BSTR(&variant)));
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return objectFromUnknown(V_UNKNOWN(&variant), nullptr);
    default: {
      // The remaining kinds of numbers: exactly where an amount can hold them.
      Variant number;
      auto* source = const_cast<VARIANT*>(&variant);
      const bool isBinary = V_VT(&variant) == VT_R4;
      if (!isBinary && isExactAmount(source, number)) return Currency{V_CY(&number).int64};
      check(VariantChangeType(&number, source, 0, VT_R8));
      return V_R8(&number);
    }
  }
}

struct Writer {
  VARIANT& into;

  void operator()(Empty) const {}
  void operator()(Null) const { V_VT(&into) = VT_NULL; }
  void operator()(const ValueArray& values) const {
    OwnedArray array(VT_VARIANT, values.size());
    for (LONG index = 0; index < static_cast<LONG>(values.size()); ++index) {
      Variant element;
      variantFromValue(values[static_cast<std::size_t>(index)], element);
      check(SafeArrayPutElement(array.get(), &index, &element));
    }
    V_VT(&into) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&into) = array.detach();
  }
  template <class Plain>
  void operator()(const Plain& value) const {
    Automation<Plain>::toAbi(value, Automation<Plain>::in(into));
    V_VT(&into) = Automation<Plain>::kVarType;
  }
};

}  // namespace

void valueFromVariant(const VARIANT& variant, Value& value) {
  if (V_VT(&variant) == (VT_BYREF | VT_VARIANT)) {
    valueFromVariant(*V_VARIANTREF(&variant), value);
  } else if ((V_VT(&variant) & VT_ARRAY) != 0) {
    value = valuesOf(variant);
  } else if ((V_VT(&variant) & VT_BYREF) != 0) {
    Variant direct;
    check(VariantCopyInd(&direct, const_cast<VARIANT*>(&variant)));
    value = plainValueOf(direct);
  } else {
    value = plainValueOf(variant);
  }
}

void variantFromValue(const Value& value, VARIANT& variant) {
  std::visit(Writer{variant}, value.content());
}

void textListFromVariant(const VARIANT& variant, TextList& list) {
  Value value;
  valueFromVariant(variant, value);
  const auto* values = value.tryGet<ValueArray>();
  if (values == nullptr) throw RunTimeError(kTypeMismatch);
  list.clear();
  for (const Value& item : *values) {
    Variant text;
    variantFromValue(item, text);
    check(VariantChangeType(&text, &text, 0, VT_BSTR));
    list.emplace_back(viewOf(V_BSTR(&text)));
  }
}

}  // namespace tarvo::com
