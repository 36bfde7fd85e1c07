// Values of any kind through a property: every kind of VARIANT, arrays of every kind of element.
#include <algorithm>

#include "probe_client.h"

namespace tarvo::com {
namespace {

constexpr HRESULT kTypeMismatchStatus = static_cast<HRESULT>(0x800A000D);

class Values : public ProbeClient {
 protected:
  // The value that comes out for one that went in.
  void roundTrip(const VARIANT& in, VARIANT* out) {
    ASSERT_EQ(S_OK, call(L"SetValue", {in}));
    ASSERT_EQ(S_OK, call(L"GetValue", {}, out));
  }
};

TEST_F(Values, OfTheLibrarysKindsComeOutAsTheyWentIn) {
  const Bstr text(TextView(u"a\0b", 3));
  for (const VARIANT& in :
       {holding(VT_EMPTY, LONG{0}), holding(VT_NULL, LONG{0}), holding(VT_BOOL, VARIANT_TRUE),
        holding(VT_UI1, BYTE{200}), holding(VT_I2, SHORT{-5}), holding(VT_I4, LONG{70'000}),
        holding(VT_R8, 0.5), holding(VT_CY, LONGLONG{-1}), holding(VT_DATE, -1.25),
        holding(VT_BSTR, text.get())}) {
    Variant out;
    roundTrip(in, &out);
    EXPECT_EQ(V_VT(&in), V_VT(&out));
    if (V_VT(&in) == VT_BSTR) {
      EXPECT_EQ(text.view(), viewOf(V_BSTR(&out)));
    } else if (V_VT(&in) != VT_EMPTY && V_VT(&in) != VT_NULL) {
      EXPECT_EQ(VARCMP_EQ, VarCmp(const_cast<VARIANT*>(&in), &out, LOCALE_INVARIANT, 0));
    }
  }
}

TEST_F(Values, OfOtherNumberKindsStayExactWhereAnAmountCanHoldThem) {
  Variant out;
  roundTrip(holding(VT_I8, LONGLONG{900'719'925'474'993}),
            &out);  // past what a double's cents hold
  ASSERT_EQ(VT_CY, V_VT(&out));
  EXPECT_EQ(9'007'199'254'749'930'000, V_CY(&out).int64);
  Variant single;
  roundTrip(holding(VT_R4, 0.5f), &single);
  ASSERT_EQ(VT_R8, V_VT(&single));
  EXPECT_EQ(0.5, V_R8(&single));
}

template <class Element>
VARIANT arrayOf(VARTYPE type, std::initializer_list<Element> elements) {
  SAFEARRAY* array = SafeArrayCreateVector(type, 1, static_cast<ULONG>(elements.size()));
  LONG index = 1;
  for (Element element : elements) {
    void* source = &element;
    if constexpr (std::is_pointer_v<Element>) source = element;
    SafeArrayPutElement(array, &index, source);
    ++index;
  }
  return holding(static_cast<VARTYPE>(VT_ARRAY | type), array);
}

TEST_F(Values, ArraysOfEveryKindOfElementAreRead) {
  DECIMAL two{};
  VarDecFromI4(2, &two);
  const Bstr text(u"2");
  for (VARIANT in :
       {arrayOf<BYTE>(VT_UI1, {1, 2}), arrayOf<SHORT>(VT_I2, {1, 2}), arrayOf<LONG>(VT_I4, {1, 2}),
        arrayOf<DOUBLE>(VT_R8, {1, 2}), arrayOf<FLOAT>(VT_R4, {1, 2}),
        arrayOf<LONGLONG>(VT_I8, {1, 2}), arrayOf<LONGLONG>(VT_CY, {10'000, 20'000}),
        arrayOf<DECIMAL*>(VT_DECIMAL, {&two, &two}),
        arrayOf<OLECHAR*>(VT_BSTR, {text.get(), text.get()})}) {
    SCOPED_TRACE(V_VT(&in));
    Variant out;
    roundTrip(in, &out);
    ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&out));
    LONG last = 0;
    SafeArrayGetUBound(V_ARRAY(&out), 1, &last);
    ASSERT_EQ(1, last);
    Variant second;
    SafeArrayGetElement(V_ARRAY(&out), &last, &second);
    Variant number;
    ASSERT_EQ(S_OK, VariantChangeType(&number, &second, 0, VT_I4));
    EXPECT_EQ(2, V_I4(&number));
    VariantClear(&in);
  }
}

TEST_F(Values, ArraysWithinArraysAreRead) {
  VARIANT inner = arrayOf<SHORT>(VT_I2, {5});
  VARIANT outer = arrayOf<VARIANT*>(VT_VARIANT, {&inner});
  Variant out;
  roundTrip(outer, &out);
  LONG first = 0;
  Variant element;
  SafeArrayGetElement(V_ARRAY(&out), &first, &element);
  EXPECT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&element));
  VariantClear(&outer);
  VariantClear(&inner);
}

TEST_F(Values, ArraysOfTwoDimensionsAreAWrongKind) {
  SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
  VARIANT square =
      holding(static_cast<VARTYPE>(VT_ARRAY | VT_I2), SafeArrayCreate(VT_I2, 2, bounds));
  EXPECT_EQ(kTypeMismatchStatus, call(L"SetValue", {square}));
  EXPECT_EQ(u"Type mismatch: valNewValue", description_);
  VariantClear(&square);
}

}  // namespace
}  // namespace tarvo::com
