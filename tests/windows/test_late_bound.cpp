// Late binding as automation clients do it, shape of argument by shape of argument.
#include <gmock/gmock.h>

#include <vector>

#include "client.h"

namespace tarvo::client {
namespace {

// One call by name.  Arguments are given in their order and not owned.
struct Outcome {
  HRESULT status = S_OK;
  HRESULT code = S_OK;  // of the exception
  std::string description;
  UINT argument = 99;
};

DISPID idOf(IDispatch* object, const wchar_t* name) {
  auto* names = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

Outcome invoke(IDispatch* object, DISPID id, DISPPARAMS& parameters, VARIANT* result,
               WORD flags = DISPATCH_METHOD) {
  Outcome outcome;
  EXCEPINFO exception{};
  outcome.status = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                  &exception, &outcome.argument);
  outcome.code = exception.scode;
  outcome.description = utf8(exception.bstrDescription);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  return outcome;
}

Outcome call(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments,
             VARIANT* result = nullptr) {
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  return invoke(object, idOf(object, name), parameters, result);
}

VARIANT integer(SHORT value) {
  VARIANT variant{};
  V_VT(&variant) = VT_I2;
  V_I2(&variant) = value;
  return variant;
}
VARIANT wholeNumber(LONG value) {
  VARIANT variant{};
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = value;
  return variant;
}
VARIANT text(const Bstr& value) {
  VARIANT variant{};
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = value.get();
  return variant;
}
VARIANT ofKind(VARTYPE type) {
  VARIANT variant{};
  V_VT(&variant) = type;
  return variant;
}
VARIANT omitted() {
  VARIANT variant = ofKind(VT_ERROR);
  V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
  return variant;
}
VARIANT referenceTo(VARIANT& other) {
  VARIANT variant{};
  V_VT(&variant) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&variant) = &other;
  return variant;
}

class LateBound : public testing::Test {
 protected:
  void SetUp() override {
    printer_ = createPrinter();
    texto_ = create<_clsTexto>(companion(), CLSID_clsTexto);
    ASSERT_TRUE(printer_);
    ASSERT_TRUE(texto_);
  }
  unsigned char maxLinPage() {
    unsigned char lines = 0;
    printer_->GetMaxLinPage(&lines);
    return lines;
  }

  ComPtr<_clsUtilImp> printer_;
  ComPtr<_clsTexto> texto_;
};

TEST_F(LateBound, NamesAreFoundInAnyCase) {
  EXPECT_EQ(idOf(printer_.get(), L"GetChrBold"), idOf(printer_.get(), L"gEtcHRbOLD"));
  EXPECT_NE(DISPID_UNKNOWN, idOf(printer_.get(), L"GetChrBold"));
}

TEST_F(LateBound, UnknownNamesAreNotFound) {
  for (const wchar_t* name : {L"ChrBold", L"Get", L"", L"GetChrBoldX", L"sWriteL"}) {
    EXPECT_EQ(DISPID_UNKNOWN, idOf(printer_.get(), name)) << utf8(com::fromWide(name));
  }
}

TEST_F(LateBound, NumbersOfParametersAreTheirPlaces) {
  wchar_t names[3][16] = {L"sWriteLn", L"valleftmargin", L"valText"};
  LPOLESTR pointers[3] = {names[0], names[1], names[2]};
  DISPID ids[3] = {};
  ASSERT_EQ(S_OK, printer_->GetIDsOfNames(IID_NULL, pointers, 3, LOCALE_USER_DEFAULT, ids));
  EXPECT_EQ(1, ids[1]);
  EXPECT_EQ(0, ids[2]);
}

TEST_F(LateBound, AnUnknownParameterNameFailsAndTheRestIsGiven) {
  wchar_t names[3][16] = {L"sWriteLn", L"nonsense", L"valText"};
  LPOLESTR pointers[3] = {names[0], names[1], names[2]};
  DISPID ids[3] = {};
  EXPECT_EQ(DISP_E_UNKNOWNNAME,
            printer_->GetIDsOfNames(IID_NULL, pointers, 3, LOCALE_USER_DEFAULT, ids));
  EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
  EXPECT_EQ(0, ids[2]);
}

TEST_F(LateBound, ArgumentsAreCoercedToTheParametersType) {
  const Bstr digits(u"61");
  Variant held;
  V_VT(&held) = VT_R8;
  V_R8(&held) = 62.4;
  EXPECT_EQ(S_OK, call(printer_.get(), L"SetMaxLinPage", {integer(60)}).status);
  EXPECT_EQ(60, maxLinPage());
  EXPECT_EQ(S_OK, call(printer_.get(), L"SetMaxLinPage", {text(digits)}).status);
  EXPECT_EQ(61, maxLinPage());
  EXPECT_EQ(S_OK, call(printer_.get(), L"SetMaxLinPage", {referenceTo(held)}).status);
  EXPECT_EQ(62, maxLinPage());
  EXPECT_EQ(S_OK, call(printer_.get(), L"SetMaxLinPage", {ofKind(VT_EMPTY)}).status);
  EXPECT_EQ(0, maxLinPage());
}

TEST_F(LateBound, ResultsComeInTheirOwnKind) {
  printer_->SetMaxLinPage(66);
  Variant lines;
  EXPECT_EQ(S_OK, call(printer_.get(), L"GetMaxLinPage", {}, &lines).status);
  ASSERT_EQ(VT_UI1, V_VT(&lines));
  EXPECT_EQ(66, V_UI1(&lines));
  Variant can;
  EXPECT_EQ(S_OK, call(printer_.get(), L"GetCanPrintInTextMode", {}, &can).status);
  ASSERT_EQ(VT_BOOL, V_VT(&can));
  EXPECT_EQ(VARIANT_FALSE, V_BOOL(&can));
}

TEST_F(LateBound, AResultThatNobodyWantsIsLetGo) {
  EXPECT_EQ(S_OK, call(printer_.get(), L"GetChrBold", {}).status);
}

TEST_F(LateBound, AnArgumentOfTheWrongKindIsError13AndNamesItsParameter) {
  const Bstr word(u"many");
  for (const VARIANT& wrong : {text(word), ofKind(VT_NULL), ofKind(VT_DISPATCH)}) {
    const Outcome outcome = call(printer_.get(), L"sWrite", {text(word), wrong});
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.status);
    EXPECT_EQ(static_cast<HRESULT>(0x800A000D), outcome.code);
    EXPECT_EQ("Type mismatch: valLeftMargin", outcome.description);
    EXPECT_EQ(0u, outcome.argument);  // counted as they stand in the call: the last one is 0
  }
}

TEST_F(LateBound, AnArgumentThatDoesNotFitIsError6AndNamesItsParameter) {
  const Outcome outcome = call(printer_.get(), L"SetMaxLinPage", {integer(256)});
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.status);
  EXPECT_EQ(static_cast<HRESULT>(0x800A0006), outcome.code);
  EXPECT_EQ("Overflow: valNewValue", outcome.description);
  EXPECT_EQ(0, maxLinPage());
}

TEST_F(LateBound, AMissingArgumentIsTheStandardError) {
  const Bstr some(u"text");
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, call(printer_.get(), L"sWriteLn", {text(some)}).status);
  const Outcome outcome = call(printer_.get(), L"sWriteLn", {omitted(), integer(0)});
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, outcome.status);
}

TEST_F(LateBound, TooManyArgumentsAreTheStandardError) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(printer_.get(), L"GetChrBold", {integer(1)}).status);
}

TEST_F(LateBound, NamedArgumentsGoToTheirParameters) {
  const Bstr whole(u"abcdef");
  // fPart(valCount:=2, valStart:=3, "abcdef")
  VARIANT arguments[3] = {wholeNumber(2), wholeNumber(3), text(whole)};
  DISPID names[2] = {2, 1};
  DISPPARAMS parameters{arguments, names, 3, 2};
  Variant part;
  EXPECT_EQ(S_OK, invoke(texto_.get(), idOf(texto_.get(), L"fPart"), parameters, &part).status);
  EXPECT_EQ("cd", utf8(V_BSTR(&part)));
}

TEST_F(LateBound, AnArgumentGivenTwiceOrUnderNoNameIsRefused) {
  const Bstr whole(u"abcdef");
  VARIANT arguments[3] = {wholeNumber(2), wholeNumber(3), text(whole)};
  DISPID twice[2] = {0, 1};
  DISPPARAMS doubled{arguments, twice, 3, 2};
  const DISPID id = idOf(texto_.get(), L"fPart");
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, invoke(texto_.get(), id, doubled, nullptr).status);
  DISPID unknown[1] = {17};
  DISPPARAMS strange{arguments, unknown, 3, 1};
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, invoke(texto_.get(), id, strange, nullptr).status);
}

TEST_F(LateBound, OnlyMethodsAreThere) {
  DISPPARAMS none{};
  const DISPID id = idOf(printer_.get(), L"GetChrBold");
  Variant result;
  EXPECT_EQ(S_OK, invoke(printer_.get(), id, none, &result, DISPATCH_METHOD).status);
  Variant again;
  EXPECT_EQ(
      S_OK,
      invoke(printer_.get(), id, none, &again, DISPATCH_METHOD | DISPATCH_PROPERTYGET).status);
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
            invoke(printer_.get(), id, none, nullptr, DISPATCH_PROPERTYPUT).status);
  for (const DISPID stranger : {0, -3, 5000}) {
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(printer_.get(), stranger, none, nullptr).status);
  }
}

TEST_F(LateBound, AForeignInterfaceIdentifierIsRefused) {
  DISPPARAMS none{};
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, printer_->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &none,
                                                      nullptr, nullptr, nullptr));
}

TEST_F(LateBound, ARunTimeErrorArrivesWithItsDescription) {
  const Bstr empty{TextView()};
  const Outcome outcome =
      call(texto_.get(), L"fPart", {text(empty), wholeNumber(0), wholeNumber(1)});
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.status);
  EXPECT_EQ(static_cast<HRESULT>(0x800A0005), outcome.code);
  EXPECT_THAT(outcome.description, testing::HasSubstr("Invalid procedure call"));
}

TEST_F(LateBound, ByReferenceTextsThatDoNotChangeKeepTheCallersKind) {
  // The companion's registry reads its by-reference text and leaves it.
  const auto registry = create<_clsVersionRegistry>(companion(), CLSID_clsVersionRegistry);
  Variant number;
  V_VT(&number) = VT_I2;
  V_I2(&number) = 7;
  EXPECT_EQ(S_OK, call(registry.get(), L"sRegisterVersion", {referenceTo(number)}).status);
  EXPECT_EQ(VT_I2, V_VT(&number));
  Variant kept;
  EXPECT_EQ(S_OK, call(registry.get(), L"GetRegisteredVersion", {}, &kept).status);
  EXPECT_EQ("7", utf8(V_BSTR(&kept)));
}

TEST_F(LateBound, TypedReferencesOfTheSameAndOfAnotherKindAreTaken) {
  const auto startUp = createStartUp();
  const auto services = Services::fromCompanion();
  ASSERT_EQ(S_OK, services.handOver(startUp.get()));
  unsigned char byte = 1;
  VARIANT same{};
  V_VT(&same) = VT_BYREF | VT_UI1;
  V_UI1REF(&same) = &byte;
  EXPECT_EQ(S_OK, call(printer_.get(), L"sSkipNPoints", {same}).status);
  SHORT small = 1;
  VARIANT other{};
  V_VT(&other) = VT_BYREF | VT_I2;
  V_I2REF(&other) = &small;
  EXPECT_EQ(S_OK, call(printer_.get(), L"sSkipNPoints", {other}).status);
  EXPECT_EQ(1, byte);
  EXPECT_EQ(1, small);
  handOverNothing();
}

TEST_F(LateBound, TypeInformationDescribesTheInterface) {
  UINT count = 0;
  EXPECT_EQ(S_OK, printer_->GetTypeInfoCount(&count));
  EXPECT_EQ(1u, count);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(S_OK, printer_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.out()));
  Bstr name;
  info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
  EXPECT_EQ("_clsUtilImp", utf8(name.view()));
  ComPtr<ITypeInfo> second;
  EXPECT_EQ(DISP_E_BADINDEX, printer_->GetTypeInfo(1, LOCALE_USER_DEFAULT, second.out()));
}

}  // namespace
}  // namespace tarvo::client
