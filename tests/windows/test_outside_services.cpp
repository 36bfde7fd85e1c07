// Objects from outside as services: by operation name, through the interface, and when they fail.
#include <gmock/gmock.h>

#include "fake_service.h"

namespace tarvo::client {
namespace {

constexpr HRESULT kOwnError = static_cast<HRESULT>(0x80040201);

std::string shape(const VARIANT& argument) {
  const bool isReference = V_VT(&argument) == (VT_BYREF | VT_VARIANT);
  const VARIANT& value = isReference ? *V_VARIANTREF(&argument) : argument;
  std::string out = isReference ? "&" : "";
  switch (V_VT(&value)) {
    case VT_BSTR:
      return out + "\"" + utf8(V_BSTR(&value)) + "\"";
    case VT_I2:
      return out + "i2:" + std::to_string(V_I2(&value));
    case VT_I4:
      return out + "i4:" + std::to_string(V_I4(&value));
    case VT_UI1:
      return out + "ui1:" + std::to_string(V_UI1(&value));
    case VT_R8:
      return out + "r8:" + std::to_string(V_R8(&value));
    default:
      return out + "vt" + std::to_string(V_VT(&value));
  }
}

std::string shapes(const std::vector<VARIANT*>& arguments) {
  std::string out;
  for (const VARIANT* argument : arguments) out += (out.empty() ? "" : ", ") + shape(*argument);
  return out;
}

void giveText(VARIANT* result, TextView text) {
  V_VT(result) = VT_BSTR;
  V_BSTR(result) = com::allocateBstr(text);
}

HRESULT STDMETHODCALLTYPE fillInLater(EXCEPINFO* exception) {
  exception->wCode = 53;
  exception->bstrDescription = com::allocateBstr(u"late");
  return S_OK;
}

class OutsideServices : public testing::Test {
 protected:
  void SetUp() override {
    services_ = Services::fromCompanion();
    startUp_ = createStartUp();
    printer_ = createPrinter();
  }
  void TearDown() override {
    handOverNothing();
    services_ = Services();
    EXPECT_EQ(0, fake_.references());
  }

  template <class I>
  ComPtr<I> asService() {
    return ComPtr<I>(reinterpret_cast<I*>(static_cast<IDispatch*>(&fake_)));
  }

  void handOver() { ASSERT_EQ(S_OK, services_.handOver(startUp_.get())); }

  HRESULT openUnknownPrinter() {
    return printer_->sInitializePrinterFileHandle(Bstr(u"file:").get(), Bstr(u"Año").get());
  }

  FakeService fake_;
  Services services_;
  ComPtr<_clsInitLibTarvoRpd> startUp_;
  ComPtr<_clsUtilImp> printer_;
};

TEST_F(OutsideServices, AMessageServiceByNameSeesTheByReferenceText) {
  std::string seen;
  fake_.offer(L"sShowMessage", [&](auto& arguments, VARIANT*, EXCEPINFO*) {
    seen += shapes(arguments);
    return S_OK;
  });
  services_.message = asService<_clsMessage>();
  handOver();
  EXPECT_EQ(S_OK, openUnknownPrinter());
  EXPECT_EQ("&\"No se reconoce el nombre de la impresora: file:\"", seen);
}

TEST_F(OutsideServices, AnErrorServiceByNameSeesAllNineArgumentsAtEveryLevel) {
  std::vector<std::string> seen;
  fake_.offer(L"fDescribeError", [&](auto& arguments, VARIANT* result, EXCEPINFO*) {
    seen.push_back(shapes(arguments));
    giveText(result, u"level " + fromAscii(std::to_string(seen.size())));
    return S_OK;
  });
  services_.error = asService<_clsError>();
  services_.convert = ComPtr<_clsConvert>();
  handOver();
  EXPECT_EQ(static_cast<HRESULT>(0x800A005B), printer_->sPrintHorizontalRule(VARIANT_FALSE, 1, 1));
  EXPECT_EQ("LibTarvoRdpCI|level 1", takeErrorText());
  EXPECT_THAT(seen, testing::ElementsAre(
                        "\"Object variable not set\", \"clsUtilImp\", \"sPrintHorizontalRule\", "
                        "\"Lib. Impresión Texto\", i2:2, i4:0, \"\", i4:0, i4:0"));
}

TEST_F(OutsideServices, ATextServiceByNameIsAskedForTheEightReplacementsInOrder) {
  std::string seen;
  fake_.offer(L"fReplaceAll", [&](auto& arguments, VARIANT* result, EXCEPINFO*) {
    seen += utf8(V_BSTR(arguments[1]));
    giveText(result, viewOf(V_BSTR(arguments[0])));
    return S_OK;
  });
  services_.texto = asService<_clsTexto>();
  handOver();
  EXPECT_EQ(S_OK, printer_->sWrite(Bstr(u"x").get(), 0));
  EXPECT_EQ("áéíóúñÑº", seen);
  EXPECT_EQ(1, fake_.nameLookups()) << "a name is asked for once";
}

TEST_F(OutsideServices, AConversionServiceByNameGetsNumbersOfBothKinds) {
  std::string seen;
  fake_.offer(L"fNumberToText", [&](auto& arguments, VARIANT* result, EXCEPINFO*) {
    seen += shapes(arguments) + " ";
    giveText(result, u"#");
    return S_OK;
  });
  services_.convert = asService<_clsConvert>();
  handOver();
  EXPECT_EQ(S_OK, printer_->sPrintVerticalRule(1, VARIANT_FALSE));
  EXPECT_EQ("r8:1.000000 ", seen);
  seen.clear();
  EXPECT_EQ(S_OK, printer_->sPrintHorizontalRule(VARIANT_FALSE, 1, 0));
  EXPECT_EQ("i2:0 i2:1 i2:2 i2:3 i2:4 i2:5 i2:6 i2:7 i2:8 i2:9 ", seen);
}

TEST_F(OutsideServices, AnOperationThatIsNotOfferedIsError438WhenItIsCalled) {
  services_.texto = asService<_clsTexto>();
  handOver();  // not before
  EXPECT_EQ(static_cast<HRESULT>(0x800A01B6), printer_->sWrite(Bstr(u"x").get(), 0));
  EXPECT_THAT(takeErrorText(),
              testing::HasSubstr("Object doesn't support this property or method: fReplaceAll"));
}

TEST_F(OutsideServices, ATextOfAnotherKindIsCoercedAndAnObjectIsNot) {
  VARTYPE kind = VT_I2;
  fake_.offer(L"fReplaceAll", [&](auto&, VARIANT* result, EXCEPINFO*) {
    V_VT(result) = kind;
    V_I8(result) = 0;
    return S_OK;
  });
  services_.texto = asService<_clsTexto>();
  handOver();
  EXPECT_EQ(S_OK, printer_->sWrite(Bstr(u"x").get(), 0));
  kind = VT_NULL;
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D), printer_->sWrite(Bstr(u"x").get(), 0));
}

TEST_F(OutsideServices, ARaisedErrorKeepsNumberSourceAndDescription) {
  fake_.offer(L"fReplaceAll", [&](auto&, VARIANT*, EXCEPINFO* exception) {
    exception->scode = kOwnError;
    exception->bstrSource = com::allocateBstr(u"MyServices");
    exception->bstrDescription = com::allocateBstr(u"no more letters");
    return DISP_E_EXCEPTION;
  });
  services_.texto = asService<_clsTexto>();
  handOver();
  EXPECT_EQ(kOwnError, printer_->sWrite(Bstr(u"x").get(), 0));
  EXPECT_THAT(takeErrorText(), testing::StartsWith("MyServices|no more letters\r\n   en "));
}

TEST_F(OutsideServices, AnErrorThatIsFilledInLaterIsAskedFor) {
  fake_.offer(L"fReplaceAll", [&](auto&, VARIANT*, EXCEPINFO* exception) {
    exception->pfnDeferredFillIn = &fillInLater;
    return DISP_E_EXCEPTION;
  });
  services_.texto = asService<_clsTexto>();
  handOver();
  EXPECT_EQ(static_cast<HRESULT>(0x800A0035), printer_->sWrite(Bstr(u"x").get(), 0));
  EXPECT_THAT(takeErrorText(), testing::StartsWith("|late\r\n"));
}

TEST_F(OutsideServices, ABareStatusIsTheErrorsNumber) {
  HRESULT bare = kOwnError;
  fake_.offer(L"fReplaceAll", [&](auto&, VARIANT*, EXCEPINFO*) { return bare; });
  services_.texto = asService<_clsTexto>();
  handOver();
  EXPECT_EQ(kOwnError, printer_->sWrite(Bstr(u"x").get(), 0));
  for (const auto& [status, expected] : std::map<HRESULT, HRESULT>{
           {static_cast<HRESULT>(0x800A0007), static_cast<HRESULT>(0x800A0007)},
           {DISP_E_DIVBYZERO, static_cast<HRESULT>(0x800A000B)},
           {DISP_E_TYPEMISMATCH, static_cast<HRESULT>(0x800A000D)},
           {E_FAIL, E_FAIL}}) {
    bare = status;
    EXPECT_EQ(expected, printer_->sWrite(Bstr(u"x").get(), 0));
  }
}

TEST_F(OutsideServices, AnErrorThroughAnInterfaceKeepsItsErrorObject) {
  // The companion's own service refuses the value; its error object must come through.
  services_.convert = create<_clsConvert>(companion(), CLSID_clsConvert);
  handOver();
  Variant word;
  V_VT(&word) = VT_BSTR;
  V_BSTR(&word) = com::allocateBstr(u"seven");
  Bstr text;
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D), services_.convert->fNumberToText(word, text.out()));
  EXPECT_THAT(takeErrorText(), testing::StartsWith("LibTarvoCI|Type mismatch"));
}

TEST_F(OutsideServices, AnErrorServiceThatFailsItselfReplacesTheError) {
  fake_.offer(L"fDescribeError", [&](auto&, VARIANT*, EXCEPINFO*) { return kOwnError; });
  services_.error = asService<_clsError>();
  services_.texto = ComPtr<_clsTexto>();
  handOver();
  EXPECT_EQ(kOwnError, printer_->sWrite(Bstr(u"x").get(), 0));
}

TEST_F(OutsideServices, ReplacedServicesAreReleased) {
  services_.texto = asService<_clsTexto>();
  handOver();
  EXPECT_GT(fake_.references(), 1);
  services_.texto = create<_clsTexto>(companion(), CLSID_clsTexto);
  handOver();
  EXPECT_EQ(0, fake_.references());
}

TEST_F(OutsideServices, AnObjectWithoutADispatchInterfaceIsNoService) {
  struct Bare final : IUnknown {
    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
      *result = id == IID_IUnknown ? this : nullptr;
      return *result != nullptr ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
  } bare;
  services_.texto = ComPtr<_clsTexto>(reinterpret_cast<_clsTexto*>(static_cast<IUnknown*>(&bare)));
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D), services_.handOver(startUp_.get()));
  services_.texto.reset();
}

}  // namespace
}  // namespace tarvo::client
