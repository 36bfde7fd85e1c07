// The enumerations' texts of the server, as a compiled client has them; and its combo box, whose
// type has a name.
#include "both_sides.h"
#include "ui/clsEnumPrint_members.h"

namespace tarvo::com {
namespace {

// A control by name, of a type with a name.
class Control final : public IDispatch {
 public:
  explicit Control(const wchar_t* typeName) {
    ComPtr<ICreateTypeLib2> library;
    CreateTypeLib2(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32,
                   client::temporaryPath(L"control.tlb").c_str(), library.out());
    ComPtr<ICreateTypeInfo> type;
    std::wstring name(typeName);
    library->CreateTypeInfo(name.data(), TKIND_DISPATCH, type.out());
    type_ = query<ITypeInfo>(type.get(), IID_ITypeInfo);
  }

  std::string log;

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *result = static_cast<IDispatch*>(this);
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // on the test's stack
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = ComPtr<ITypeInfo>(type_).detach();
    return S_OK;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    names_.emplace_back(names[0]);
    *ids = static_cast<DISPID>(names_.size());
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    const std::wstring& name = names_[static_cast<std::size_t>(id - 1)];
    if (name == L"ListCount" || name == L"List") {
      if ((flags & DISPATCH_PROPERTYGET) != 0) return giveList(name == L"List", result);
    }
    log += toUtf8(TextView(reinterpret_cast<const char16_t*>(name.data()), name.size()));
    for (UINT i = parameters->cArgs; i-- > 0;) {
      Value value;
      valueFromVariant(parameters->rgvarg[i], value);
      log += " " + show(value);
    }
    log += flags == DISPATCH_PROPERTYPUT ? " (put); " : "; ";
    return S_OK;
  }

 private:
  // What the companion's service measures: one item.
  static HRESULT giveList(bool isItem, VARIANT* result) {
    V_VT(result) = isItem ? VT_BSTR : VT_I4;
    isItem ? void(V_BSTR(result) = allocateBstr(u"1234567890")) : void(V_I4(result) = 1);
    return S_OK;
  }

  ComPtr<ITypeInfo> type_;
  std::vector<std::wstring> names_;
};

class EnumTextsOfServer : public BothSides {
 protected:
  ComPtr<_clsEnumPrint> texts_ =
      client::create<_clsEnumPrint>(client::library(), CLSID_clsEnumPrint);
  Ref<clsEnumPrint> own_ = make<clsEnumPrint>();
};

TEST_F(EnumTextsOfServer, AreThoseOfTheClass) {
  for (const std::int32_t value : {-1, 0, 1, 2, 5, 2147483647}) {
    Bstr draft;
    EXPECT_EQ(S_OK, texts_->fEnumPruebaODefinitivaToString(static_cast<::ePruebaODefinitiva>(value),
                                                           draft.out()));
    EXPECT_EQ(own_->fEnumPruebaODefinitivaToString(static_cast<ePruebaODefinitiva>(value)),
              draft.view());
    Bstr mode;
    EXPECT_EQ(S_OK,
              texts_->fEnumPrintingModeToString(static_cast<::ePrintingMode>(value), mode.out()));
    EXPECT_EQ(own_->fEnumPrintingModeToString(static_cast<ePrintingMode>(value)), mode.view());
  }
}

TEST_F(EnumTextsOfServer, GiveTheirNumbers) {
  for (const TextView text : {u"borrador", u"IMPRIMIR PLANILLA", u"impresión gráfica",
                              u"Impresión Texto (DOS)", u"Impresion Texto (DOS)", u""}) {
    SHORT number = -1;
    EXPECT_EQ(S_OK, texts_->fStrPruebaODefinitivaToNum(Bstr(text).get(), VARIANT_FALSE, &number));
    EXPECT_EQ(own_->fStrPruebaODefinitivaToNum(text, false), number);
    EXPECT_EQ(S_OK, texts_->fStrPrintingModeToNum(Bstr(text).get(), VARIANT_FALSE, &number));
    EXPECT_EQ(own_->fStrPrintingModeToNum(text, false), number);
  }
}

TEST_F(EnumTextsOfServer, FillAComboBoxThatSaysItIsOne) {
  for (const wchar_t* typeName : {L"ComboBox", L"_ComboBox"}) {
    Control control(typeName);
    IDispatch* reference = &control;
    EXPECT_EQ(S_OK, texts_->sFillComboBoxWithPruebaODefinitiva(&reference));
    EXPECT_EQ(&control, reference);
    EXPECT_EQ("Clear; AddItem \"Imprimir Planilla\"; AddItem \"Borrador\"; Width " +
                  show(Value(std::int32_t{0})) + " (put); ",
              control.log);
  }
  for (const wchar_t* typeName : {L"ListBox", L"combobox", L"__ComboBox"}) {
    Control control(typeName);
    IDispatch* reference = &control;
    EXPECT_EQ(S_OK, texts_->sFillComboBoxWithPruebaODefinitiva(&reference));
    EXPECT_EQ("", control.log);
  }
}

TEST_F(EnumTextsOfServer, FillAnyControlWithThePrintingModes) {
  Control control(L"ListBox");
  IDispatch* reference = &control;
  EXPECT_EQ(S_OK, texts_->sFillComboBoxWithPrintingMode(&reference));
  const std::string zero = show(Value(std::int16_t{0}));
  EXPECT_EQ("Clear; Text \"Impresión Gráfica\" (put); List " + zero +
                " \"Impresión Gráfica\" (put); List " + zero +
                " \"Impresión Texto (DOS)\" (put); ListIndex " + zero + " (put); Width " +
                show(Value(std::int32_t{0})) + " (put); ",
            control.log);
}

TEST_F(EnumTextsOfServer, PassErrorsOnAsTheyAre) {
  IDispatch* none = nullptr;
  EXPECT_EQ(S_OK, texts_->sFillComboBoxWithPruebaODefinitiva(&none));
  EXPECT_EQ(static_cast<HRESULT>(0x800A005B), texts_->sFillComboBoxWithPrintingMode(&none));
  EXPECT_EQ("LibTarvoRdpCI|Object variable not set", client::takeErrorText());
  client::FakeService nothing;
  IDispatch* reference = &nothing;
  EXPECT_EQ(S_OK, texts_->sFillComboBoxWithPruebaODefinitiva(&reference));
  EXPECT_EQ(static_cast<HRESULT>(0x800A01B6), texts_->sFillComboBoxWithPrintingMode(&reference));
}

}  // namespace
}  // namespace tarvo::com
