// Arguments by reference: they come back changed, in every shape that a caller may give them.
#include <algorithm>
#include <array>

#include "probe_client.h"

namespace tarvo::com {
namespace {

constexpr HRESULT kInvalidCall = static_cast<HRESULT>(0x800A0005);
const VARIANT kGoOn = holding(VT_BOOL, VARIANT_FALSE);
const VARIANT kFail = holding(VT_BOOL, VARIANT_TRUE);

class ByReference : public ProbeClient {};

TEST_F(ByReference, ValuesOfAnyKindComeBackInTheParametersKind) {
  Variant byte, integer, wholeNumber, number;
  static_cast<VARIANT&>(byte) = holding(VT_I2, SHORT{7});
  static_cast<VARIANT&>(integer) = holding(VT_I4, LONG{8});
  static_cast<VARIANT&>(wholeNumber) = holding(VT_R8, 9.0);
  static_cast<VARIANT&>(number) = holding(VT_I2, SHORT{10});
  EXPECT_EQ(S_OK, call(L"sChangeNumbers", {referenceTo(byte), referenceTo(integer),
                                           referenceTo(wholeNumber), referenceTo(number), kGoOn}));
  ASSERT_EQ(VT_UI1, V_VT(&byte));
  EXPECT_EQ(8, V_UI1(&byte));
  ASSERT_EQ(VT_I2, V_VT(&integer));
  EXPECT_EQ(9, V_I2(&integer));
  ASSERT_EQ(VT_I4, V_VT(&wholeNumber));
  EXPECT_EQ(10, V_I4(&wholeNumber));
  ASSERT_EQ(VT_R8, V_VT(&number));
  EXPECT_EQ(11.0, V_R8(&number));
}

TEST_F(ByReference, TextsAmountsDatesTruthValuesAndValuesComeBack) {
  Variant truth, amount, date, text, value;
  static_cast<VARIANT&>(truth) = holding(VT_BOOL, VARIANT_FALSE);
  static_cast<VARIANT&>(amount) = holding(VT_CY, LONGLONG{15'000});
  static_cast<VARIANT&>(date) = holding(VT_DATE, 2.0);
  static_cast<VARIANT&>(text) = holding(VT_BSTR, allocateBstr(u"Año"));
  static_cast<VARIANT&>(value) = holding(VT_I2, SHORT{1});
  EXPECT_EQ(S_OK,
            call(L"sChangeOthers", {referenceTo(truth), referenceTo(amount), referenceTo(date),
                                    referenceTo(text), referenceTo(value), kGoOn}));
  EXPECT_EQ(VARIANT_TRUE, V_BOOL(&truth));
  EXPECT_EQ(25'000, V_CY(&amount).int64);
  EXPECT_EQ(3.0, V_DATE(&date));
  EXPECT_EQ(u"Año!", viewOf(V_BSTR(&text)));
  ASSERT_EQ(VT_BSTR, V_VT(&value));
  EXPECT_EQ(u"changed", viewOf(V_BSTR(&value)));
}

TEST_F(ByReference, AFailingCallLeavesWhatWasChangedUntilThen) {
  Variant byte, integer, wholeNumber, number;
  static_cast<VARIANT&>(byte) = holding(VT_UI1, BYTE{1});
  static_cast<VARIANT&>(integer) = holding(VT_I2, SHORT{1});
  static_cast<VARIANT&>(wholeNumber) = holding(VT_I4, LONG{1});
  static_cast<VARIANT&>(number) = holding(VT_R8, 1.0);
  EXPECT_EQ(kInvalidCall,
            call(L"sChangeNumbers", {referenceTo(byte), referenceTo(integer),
                                     referenceTo(wholeNumber), referenceTo(number), kFail}));
  EXPECT_EQ(2, V_UI1(&byte));
  EXPECT_EQ(2, V_I2(&integer));
  EXPECT_EQ(2, V_I4(&wholeNumber));
  EXPECT_EQ(2.0, V_R8(&number));
}

TEST_F(ByReference, TypedReferencesOfTheParametersKindAreWorkedOnDirectly) {
  BYTE byte = 1;
  SHORT integer = 2;
  LONG wholeNumber = 3;
  DOUBLE number = 4;
  EXPECT_EQ(S_OK, call(L"sChangeNumbers",
                       {holding(VT_BYREF | VT_UI1, &byte), holding(VT_BYREF | VT_I2, &integer),
                        holding(VT_BYREF | VT_I4, &wholeNumber), holding(VT_BYREF | VT_R8, &number),
                        kGoOn}));
  EXPECT_EQ(2, byte);
  EXPECT_EQ(3, integer);
  EXPECT_EQ(4, wholeNumber);
  EXPECT_EQ(5, number);
}

TEST_F(ByReference, TypedReferencesOfOtherKindsComeBackInTheirOwnKind) {
  LONG byte = 1;
  BSTR integer = allocateBstr(u"2");
  DOUBLE wholeNumber = 3;
  SHORT number = 4;
  EXPECT_EQ(S_OK, call(L"sChangeNumbers",
                       {holding(VT_BYREF | VT_I4, &byte), holding(VT_BYREF | VT_BSTR, &integer),
                        holding(VT_BYREF | VT_R8, &wholeNumber), holding(VT_BYREF | VT_I2, &number),
                        kGoOn}));
  EXPECT_EQ(2, byte);
  EXPECT_EQ(u"3", viewOf(integer));
  EXPECT_EQ(4, wholeNumber);
  EXPECT_EQ(5, number);
  SysFreeString(integer);
}

TEST_F(ByReference, TypedTextsAmountsDatesAndTruthValuesComeBack) {
  VARIANT_BOOL truth = VARIANT_TRUE;
  CY amount{};
  DATE date = 1;
  BSTR text = nullptr;  // the empty text
  VARIANT value = holding(VT_EMPTY, LONG{0});
  EXPECT_EQ(S_OK, call(L"sChangeOthers",
                       {holding(VT_BYREF | VT_BOOL, &truth), holding(VT_BYREF | VT_CY, &amount),
                        holding(VT_BYREF | VT_DATE, &date), holding(VT_BYREF | VT_BSTR, &text),
                        referenceTo(value), kGoOn}));
  EXPECT_EQ(VARIANT_FALSE, truth);
  EXPECT_EQ(10'000, amount.int64);
  EXPECT_EQ(2.0, date);
  EXPECT_EQ(u"!", viewOf(text));
  EXPECT_EQ(u"changed", viewOf(V_BSTR(&value)));
  SysFreeString(text);
  VariantClear(&value);
}

TEST_F(ByReference, ArgumentsByValueAreTakenAndForgotten) {
  EXPECT_EQ(S_OK,
            call(L"sChangeNumbers", {holding(VT_I2, SHORT{1}), holding(VT_I2, SHORT{1}),
                                     holding(VT_I2, SHORT{1}), holding(VT_I2, SHORT{1}), kGoOn}));
}

TEST_F(ByReference, AnObjectThatIsDroppedIsReleasedOnce) {
  const ULONG before = (probe_->AddRef(), probe_->Release());
  probe_->AddRef();
  VARIANT object = holding(VT_DISPATCH, probe_.get());
  EXPECT_EQ(S_OK, call(L"sDropObject", {referenceTo(object)}));
  EXPECT_EQ(VT_DISPATCH, V_VT(&object));
  EXPECT_EQ(nullptr, V_DISPATCH(&object));
  EXPECT_EQ(before, (probe_->AddRef(), probe_->Release()));
}

TEST_F(ByReference, EnumerationsTravelAsWholeNumbers) {
  Variant alignment;
  static_cast<VARIANT&>(alignment) = holding(VT_I2, SHORT{0});
  EXPECT_EQ(S_OK, call(L"sChangeEnum", {referenceTo(alignment)}));
  ASSERT_EQ(VT_I4, V_VT(&alignment));
  EXPECT_EQ(eAT_Justify, V_I4(&alignment));
}

TEST_F(ByReference, AnEarlyBoundCallerGetsThemBackToo) {
  using ChangeOthers =
      HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT_BOOL*, CY*, DATE*, BSTR*, VARIANT*, VARIANT_BOOL);
  auto* functions = *reinterpret_cast<void***>(probe_.get());
  const auto change = reinterpret_cast<ChangeOthers>(functions[8]);
  VARIANT_BOOL truth = VARIANT_FALSE;
  CY amount{};
  DATE date = 0;
  Bstr text(u"a");
  Variant value;
  for (const VARIANT_BOOL fail : {VARIANT_FALSE, VARIANT_TRUE}) {
    EXPECT_EQ(fail ? kInvalidCall : S_OK,
              change(probe_.get(), &truth, &amount, &date, text.out(), &value, fail));
  }
  EXPECT_EQ(VARIANT_FALSE, truth);  // turned twice
  EXPECT_EQ(20'000, amount.int64);
  EXPECT_EQ(2.0, date);
  EXPECT_EQ(u"a!!", text.view());
}

}  // namespace
}  // namespace tarvo::com
