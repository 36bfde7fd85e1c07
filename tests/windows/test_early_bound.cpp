// An early-bound client: real tables of functions, in interface order.
#include <gmock/gmock.h>
#include <ocidl.h>

#include "client.h"

namespace tarvo::client {
namespace {

constexpr HRESULT kClassicOverflow = static_cast<HRESULT>(0x800A0006);
constexpr HRESULT kClassicObjectNotSet = static_cast<HRESULT>(0x800A005B);

class EarlyBound : public testing::Test {
 protected:
  void SetUp() override {
    services_ = Services::fromCompanion();
    startUp_ = createStartUp();
    printer_ = createPrinter();
    ASSERT_TRUE(startUp_);
    ASSERT_TRUE(printer_);
    ASSERT_EQ(S_OK, services_.handOver(startUp_.get()));
    _clsUtilImp* printer = printer_.get();
    _clsUtReport* report = services_.utReport.get();
    ASSERT_EQ(S_OK, startUp_->sInitializePrintLibrary(&printer, &report));
    EXPECT_EQ(printer_.get(), printer);
  }
  void TearDown() override { handOverNothing(); }

  // Opens a job in a file of that name; its bytes are read after the close.
  std::wstring openJob(const wchar_t* name) {
    const std::wstring path = temporaryPath(name);
    const Bstr printerName(u"file:" + Text(com::fromWide(path.c_str())));
    EXPECT_EQ(S_OK,
              printer_->sInitializePrinterFileHandle(printerName.get(), Bstr(u"document").get()));
    return path;
  }

  Services services_;
  ComPtr<_clsInitLibTarvoRpd> startUp_;
  ComPtr<_clsUtilImp> printer_;
};

TEST_F(EarlyBound, PropertiesKeepTextsWithCharacterZeroWhole) {
  const Bstr code(TextView(u"\x1b\0x", 3));
  ASSERT_EQ(S_OK, printer_->SetChrBold(code.get()));
  Bstr read;
  ASSERT_EQ(S_OK, printer_->GetChrBold(read.out()));
  EXPECT_EQ(code.view(), read.view());
}

TEST_F(EarlyBound, ANullTextIsTheEmptyText) {
  ASSERT_EQ(S_OK, printer_->SetChrBold(nullptr));
  Bstr read;
  ASSERT_EQ(S_OK, printer_->GetChrBold(read.out()));
  EXPECT_EQ(0u, read.view().size());
}

TEST_F(EarlyBound, NumbersAndTruthValuesTravelInTheirOwnTypes) {
  ASSERT_EQ(S_OK, printer_->SetMaxLinPage(255));
  ASSERT_EQ(S_OK, printer_->SetCanPrintInTextMode(VARIANT_TRUE));
  unsigned char lines = 1;
  VARIANT_BOOL can = 1;
  ASSERT_EQ(S_OK, printer_->GetMaxLinPage(&lines));
  ASSERT_EQ(S_OK, printer_->GetCanPrintInTextMode(&can));
  EXPECT_EQ(255, lines);
  EXPECT_EQ(VARIANT_TRUE, can);
}

TEST_F(EarlyBound, AMissingPlaceForTheResultIsABadPointer) {
  EXPECT_EQ(E_POINTER, printer_->GetChrBold(nullptr));
  EXPECT_EQ(E_POINTER, startUp_->fCheckDllPathSendMsgAndReturnFalseIfCantExecute(nullptr));
}

TEST_F(EarlyBound, AMissingByReferenceArgumentIsAnErrorNotACrash) {
  EXPECT_EQ(static_cast<HRESULT>(0x800A0005), printer_->sSkipNPoints(nullptr));
}

TEST_F(EarlyBound, WritesTheBytesOfALineWithMarginAndPrinterLetters) {
  const std::wstring path = openJob(L"tarvo-line.prn");
  EXPECT_EQ(S_OK, printer_->sWriteLn(Bstr(u"Año").get(), 2));
  EXPECT_EQ(S_OK, printer_->sClosePrinterFileHandle());
  EXPECT_EQ("  A\xA4o\r\n", readFile(path));
}

TEST_F(EarlyBound, ByReferenceBytesAreReadAndNotChanged) {
  printer_->SetChrHighLine1Point(Bstr(u"<1>").get());
  printer_->SetChrHighLine12Points(Bstr(u"<12>").get());
  const std::wstring path = openJob(L"tarvo-points.prn");
  unsigned char points = 2;
  EXPECT_EQ(S_OK, printer_->sSkipNPoints(&points));
  printer_->sClosePrinterFileHandle();
  EXPECT_EQ(2, points);
  EXPECT_EQ("<1>\r\n\r\n<12>", readFile(path));
}

TEST_F(EarlyBound, AnOverflowArrivesAsItsClassicStatusWithTheTrail) {
  const std::wstring path = openJob(L"tarvo-overflow.prn");
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(kClassicOverflow, printer_->sPrintVerticalRule(5462, VARIANT_FALSE));
  EXPECT_EQ("LibTarvoRdpCI|Overflow\r\n   en clsUtilImp.sPrintVerticalRule (Lib. Impresión Texto)",
            takeErrorText());
  printer_->sClosePrinterFileHandle();
}

TEST_F(EarlyBound, EveryLevelOfAFailingCallStandsInTheTrail) {
  Services without = Services::fromCompanion();
  without.texto = ComPtr<_clsTexto>();
  ASSERT_EQ(S_OK, without.handOver(startUp_.get()));
  EXPECT_EQ(kClassicObjectNotSet, printer_->sResetPrinter());
  EXPECT_EQ(
      "LibTarvoRdpCI|Object variable not set"
      "\r\n   en clsUtilImp.fReplaceInvalidChars (Lib. Impresión Texto)"
      "\r\n   en clsUtilImp.sWriteToFileHandle (Lib. Impresión Texto)"
      "\r\n   en clsUtilImp.sWrite (Lib. Impresión Texto)"
      "\r\n   en clsUtilImp.sResetPrinter (Lib. Impresión Texto)",
      takeErrorText());
}

TEST_F(EarlyBound, WithoutAnErrorServiceTheClientStillGetsTheRunTimeError) {
  ASSERT_EQ(S_OK, Services{}.handOver(startUp_.get()));
  EXPECT_EQ(kClassicObjectNotSet, printer_->sResetPrinter());
  EXPECT_EQ("LibTarvoRdpCI|Object variable not set", takeErrorText());
}

TEST_F(EarlyBound, AResultIsDefinedWhenTheCallFails) {
  // The companion's text service refuses a start below 1.
  BSTR result = reinterpret_cast<BSTR>(~std::uintptr_t{0});
  EXPECT_EQ(static_cast<HRESULT>(0x800A0005),
            services_.texto->fPart(Bstr(u"text").get(), 0, 1, &result));
  EXPECT_EQ(nullptr, result);
  LONG position = 77;
  EXPECT_EQ(static_cast<HRESULT>(0x800A0005),
            services_.texto->fPosition(Bstr(u"a").get(), Bstr(u"a").get(), 0, &position));
  EXPECT_EQ(0, position);
}

TEST_F(EarlyBound, TheCompanionsErrorsNameTheCompanion) {
  Bstr result;
  services_.texto->fPart(Bstr(u"text").get(), 0, 1, result.out());
  EXPECT_THAT(takeErrorText(), testing::StartsWith("LibTarvoCI|"));
}

TEST_F(EarlyBound, CurrencyDateVariantAndArrayTravelWhole) {
  CY amount;
  amount.int64 = -12345678;
  Bstr field;
  ASSERT_EQ(S_OK,
            services_.convert->fFormatNumberDotComma(amount, 12, 2, VARIANT_TRUE, field.out()));
  EXPECT_EQ("  (1.234,57)", utf8(field.view()));
  Bstr day;
  ASSERT_EQ(S_OK, services_.utilDate->fDefaultDateText(2.0, day.out()));
  EXPECT_EQ("01/01/1900", utf8(day.view()));
  Variant number;
  V_VT(&number) = VT_R8;
  V_R8(&number) = 1.0;
  Bstr text;
  ASSERT_EQ(S_OK, services_.convert->fNumberToText(number, text.out()));
  EXPECT_EQ("1", utf8(text.view()));
  Variant parts;
  ASSERT_EQ(S_OK, services_.texto->fSplit(Bstr(u"a,,b").get(), Bstr(u",").get(), &parts));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&parts));
  LONG last = -1;
  SafeArrayGetUBound(V_ARRAY(&parts), 1, &last);
  EXPECT_EQ(2, last);
}

// --- The object's identity and its other interfaces.

TEST_F(EarlyBound, QueryInterfaceFollowsTheRules) {
  const auto unknown = query<IUnknown>(printer_.get(), IID_IUnknown);
  const IID ids[] = {IID_IDispatch, __uuidof(_clsUtilImp), IID_ISupportErrorInfo,
                     IID_IProvideClassInfo, IID_IProvideClassInfo2};
  for (const IID& from : ids) {
    const auto first = query<IUnknown>(printer_.get(), from);
    ASSERT_TRUE(first);
    EXPECT_EQ(unknown.get(), query<IUnknown>(first.get(), IID_IUnknown).get());
    for (const IID& to : ids) EXPECT_TRUE(query<IUnknown>(first.get(), to));
  }
  ComPtr<IUnknown> none;
  EXPECT_EQ(E_NOINTERFACE, printer_->QueryInterface(__uuidof(_clsTexto), none.outVoid()));
  EXPECT_FALSE(none);
  EXPECT_EQ(E_POINTER, printer_->QueryInterface(IID_IUnknown, nullptr));
}

TEST_F(EarlyBound, SaysThatItsInterfacesLeaveErrorObjects) {
  ComPtr<ISupportErrorInfo> support;
  printer_->QueryInterface(IID_ISupportErrorInfo, support.outVoid());
  ASSERT_TRUE(support);
  EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(__uuidof(_clsUtilImp)));
  EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(__uuidof(_clsTexto)));
}

TEST_F(EarlyBound, TellsItsClass) {
  ComPtr<IProvideClassInfo2> provider;
  printer_->QueryInterface(IID_IProvideClassInfo2, provider.outVoid());
  ASSERT_TRUE(provider);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(S_OK, provider->GetClassInfo(info.out()));
  Bstr name;
  info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
  EXPECT_EQ("clsUtilImp", utf8(name.view()));
  GUID events = CLSID_clsUtilImp;
  EXPECT_EQ(E_FAIL, provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
  EXPECT_TRUE(events == GUID_NULL);
}

TEST_F(EarlyBound, CannotBeAggregatedNorFoundUnderAnotherIdentifier) {
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(S_OK, library().getClassObject(CLSID_clsUtilImp, IID_IClassFactory, factory.outVoid()));
  void* object = &factory;
  EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(printer_.get(), IID_IUnknown, &object));
  EXPECT_EQ(nullptr, object);
  void* other = &factory;
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE,
            library().getClassObject(CLSID_clsTexto, IID_IClassFactory, &other));
  EXPECT_EQ(nullptr, other);
}

TEST_F(EarlyBound, ReferencesAreCountedAndEndTheObject) {
  auto object = createPrinter();
  object->AddRef();
  EXPECT_EQ(1u, object->Release());
  _clsUtilImp* raw = object.detach();
  EXPECT_EQ(0u, raw->Release());
}

TEST_F(EarlyBound, AnotherServersObjectIsNoPrinterChannel) {
  auto* impostor = reinterpret_cast<_clsUtilImp*>(services_.texto.get());
  _clsUtReport* report = nullptr;
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D),
            startUp_->sInitializePrintLibrary(&impostor, &report));
  EXPECT_THAT(takeErrorText(), testing::HasSubstr("Type mismatch: refInsImp"));
}

TEST_F(EarlyBound, TheLibraryKeepsTheChannelAfterTheClientLetsItGo) {
  // Held by the library alone from now on; the fixture's printer is what it was.
  auto second = createPrinter();
  _clsUtilImp* channel = second.get();
  _clsUtReport* report = nullptr;
  ASSERT_EQ(S_OK, startUp_->sInitializePrintLibrary(&channel, &report));
  second.reset();
  EXPECT_EQ(S_FALSE, library().canUnloadNow());
}

}  // namespace
}  // namespace tarvo::client
