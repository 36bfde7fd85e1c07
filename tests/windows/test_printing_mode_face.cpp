// Objects of the library that are known by the names of their members, as the outside has them; and
// the printing mode's form, whose keys a platform-call service from outside is asked for.
#include <ocidl.h>

#include "callback_test.h"
#include "frame/com/late_object_face.h"
#include "frame/com/outside_object.h"
#include "frame/com/server.h"
#include "frame/late_object.h"
#include "frame/services_members.h"
#include "script_host.h"
#include "ui/frmChoosePrintingMode.h"

namespace tarvo::com {
namespace {

int things = 0;  // alive

// A native object: it writes down what is done to it.
class Thing final : public LateObject {
 public:
  Thing() { ++things; }
  ~Thing() override { --things; }

  std::string log;
  Value text = Text(u"Año");
  Ref<Object> other;

  Text typeName() override { return u"Thing"; }

  Value call(TextView name, std::span<const Value> arguments) override {
    record("call", name, arguments);
    if (equalIgnoringAsciiCase(name, "Echo")) return ValueArray(arguments.begin(), arguments.end());
    if (equalIgnoringAsciiCase(name, "Fail")) {
      throw RunTimeError(kOverflow, {u"cosa", u"no cabe", u"ayuda.hlp", 7});
    }
    if (equalIgnoringAsciiCase(name, "Sink")) throw RunTimeError(kNoSuchMember, u"debajo");
    throw RunTimeError(kNoSuchMember, name);
  }
  bool hasMethod(TextView name) override {
    return equalIgnoringAsciiCase(name, "Echo") || equalIgnoringAsciiCase(name, "Fail") ||
           equalIgnoringAsciiCase(name, "Sink");
  }
  Value get(TextView name, std::span<const Value> indexes) override {
    record("get", name, indexes);
    if (equalIgnoringAsciiCase(name, "Text")) return text;
    if (equalIgnoringAsciiCase(name, "Self")) return Ref<Object>(this);
    if (equalIgnoringAsciiCase(name, "Other")) return other;
    throw RunTimeError(kNoSuchMember, name);
  }
  void put(TextView name, std::span<const Value> indexes, const Value& value) override {
    record("put", name, indexes);
    log += "is " + std::to_string(value.content().index()) + "; ";
    if (equalIgnoringAsciiCase(name, "Text")) text = value;
    if (const auto* object = value.tryGet<Ref<Object>>()) other = *object;
  }

 private:
  void record(const char* way, TextView name, std::span<const Value> values) {
    log += std::string(way) + " " + toUtf8(name);
    for (const Value& value : values) log += " " + std::to_string(value.content().index());
    log += "; ";
  }
};

class LateFace : public testing::Test {
 protected:
  LateFace() : face_(give(thing_)) {}
  ~LateFace() override {
    VariantClear(&result_);
    face_.reset();
    thing_ = nullptr;
    EXPECT_EQ(0, things);
    EXPECT_FALSE(serverIsLocked());
  }

  // As an argument goes out.
  static ComPtr<IDispatch> give(const Ref<Object>& object) {
    IUnknown* unknown = nullptr;
    Automation<Ref<Object>>::toAbi(object, unknown);
    ComPtr<IDispatch> face(static_cast<IDispatch*>(unknown));
    if (unknown != nullptr) unknown->Release();
    return face;
  }

  DISPID idOf(const wchar_t* name) {
    auto* text = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(S_OK, face_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id));
    return id;
  }

  // Arguments in their order; for a write the new value comes last.
  HRESULT invoke(const wchar_t* name, WORD flags, std::vector<VARIANT> arguments = {}) {
    std::reverse(arguments.begin(), arguments.end());
    DISPID put = DISPID_PROPERTYPUT;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr,
                          static_cast<UINT>(arguments.size()), isPut ? 1u : 0u};
    VariantClear(&result_);
    exception_ = {};
    const HRESULT status = face_->Invoke(idOf(name), IID_NULL, LOCALE_USER_DEFAULT, flags,
                                         &parameters, &result_, &exception_, nullptr);
    error_ = status == DISP_E_EXCEPTION ? std::to_string(numberOfStatus(exception_.scode)) + " " +
                                              toUtf8(viewOf(exception_.bstrSource)) + "|" +
                                              toUtf8(viewOf(exception_.bstrDescription))
                                        : "";
    SysFreeString(exception_.bstrSource);
    SysFreeString(exception_.bstrDescription);
    SysFreeString(exception_.bstrHelpFile);
    return status;
  }

  Ref<Thing> thing_ = make<Thing>();
  ComPtr<IDispatch> face_;
  Variant result_;
  EXCEPINFO exception_{};
  std::string error_;
};

constexpr WORD kEither = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

TEST_F(LateFace, IsTheSameAsLongAsAnybodyHoldsIt) {
  const ComPtr<IDispatch> again = give(thing_);
  EXPECT_EQ(face_.get(), again.get());
  EXPECT_EQ(again.get(), query<IDispatch>(again.get(), IID_IDispatch).get());
  const auto support = query<ISupportErrorInfo>(again.get(), IID_ISupportErrorInfo);
  ASSERT_TRUE(support);
  EXPECT_EQ(query<IUnknown>(again.get(), IID_IUnknown).get(),
            query<IUnknown>(support.get(), IID_IUnknown).get());
  EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(IID_IDispatch));
  EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IUnknown));
  EXPECT_FALSE(query<IUnknown>(face_.get(), __uuidof(IDispatchEx)));
  EXPECT_TRUE(serverIsLocked());
}

TEST_F(LateFace, HoldsItsObject) {
  thing_ = nullptr;
  EXPECT_EQ(1, things);
  EXPECT_EQ(S_OK, invoke(L"Text", DISPATCH_PROPERTYGET));
  EXPECT_EQ(u"Año", viewOf(V_BSTR(&result_)));
}

TEST_F(LateFace, LeadsBackToItsObject) {
  EXPECT_EQ(thing_.get(), objectFromUnknown(face_.get(), nullptr).get());
  EXPECT_TRUE(isSameObject(face_.get(), thing_.get()));
  const Ref<Object> another = make<Thing>();
  EXPECT_FALSE(isSameObject(face_.get(), another.get()));
  const auto foreign = client::create<_clsApi>(client::companion(), CLSID_clsApi);
  const Ref<Object> proxy = objectFromUnknown(foreign.get(), nullptr);
  EXPECT_NE(nullptr, dynamic_cast<OutsideObject*>(proxy.get()));
}

TEST_F(LateFace, NumbersNamesAsTheyCome) {
  const DISPID first = idOf(L"Uno");
  EXPECT_NE(first, idOf(L"Dos"));
  EXPECT_EQ(first, idOf(L"uno"));
  EXPECT_EQ(first, idOf(L"UNO"));
  EXPECT_NE(idOf(L"Año"), idOf(L"AÑO"));
  wchar_t member[] = L"Echo";
  wchar_t argument[] = L"valor";
  wchar_t* names[] = {member, argument};
  DISPID ids[2] = {};
  EXPECT_EQ(DISP_E_UNKNOWNNAME, face_->GetIDsOfNames(IID_NULL, names, 2, 0, ids));
  EXPECT_EQ(idOf(L"Echo"), ids[0]);
  EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
  EXPECT_EQ("", thing_->log) << "the object is asked when it is called";
}

TEST_F(LateFace, CallsWithValuesInTheirOrder) {
  const Bstr text(u"Ñandú");
  SHORT number = 7;
  VARIANT byReference{};
  V_VT(&byReference) = VT_BYREF | VT_I2;
  V_I2REF(&byReference) = &number;
  VARIANT omitted{};
  V_VT(&omitted) = VT_ERROR;
  V_ERROR(&omitted) = DISP_E_PARAMNOTFOUND;
  ASSERT_EQ(S_OK, invoke(L"echo", DISPATCH_METHOD,
                         {holding(VT_BSTR, text.get()), byReference, omitted,
                          holding(VT_BOOL, VARIANT_TRUE)}));
  Value answer;
  valueFromVariant(result_, answer);
  EXPECT_EQ(Value(ValueArray{Text(u"Ñandú"), std::int16_t{7}, Empty{}, true}), answer);
  EXPECT_EQ("call echo 9 4 0 2; ", thing_->log);
}

TEST_F(LateFace, ReadsAndWritesProperties) {
  const Bstr text(u"otro");
  ASSERT_EQ(S_OK, invoke(L"Text", DISPATCH_PROPERTYPUT, {holding(VT_BSTR, text.get())}));
  ASSERT_EQ(S_OK, invoke(L"Text", DISPATCH_PROPERTYGET));
  EXPECT_EQ(u"otro", viewOf(V_BSTR(&result_)));
  ASSERT_EQ(S_OK, invoke(L"Text", DISPATCH_PROPERTYPUT,
                         {holding(VT_I4, LONG{2}), holding(VT_I2, SHORT{3})}));
  ASSERT_EQ(S_OK, invoke(L"Other", DISPATCH_PROPERTYPUTREF,
                         {holding(VT_DISPATCH, static_cast<IDispatch*>(face_.get()))}));
  EXPECT_EQ(thing_.get(), thing_->other.get());
  ASSERT_EQ(S_OK, invoke(L"Other", DISPATCH_PROPERTYGET));
  EXPECT_EQ(face_.get(), V_DISPATCH(&result_));
  thing_->other = nullptr;
  EXPECT_EQ("put Text; is 9; get Text; put Text 5; is 4; put Other; is 10; get Other; ",
            thing_->log);
}

TEST_F(LateFace, TakesAnUnclearCallForAMethodFirst) {
  ASSERT_EQ(S_OK, invoke(L"Echo", kEither));
  ASSERT_EQ(S_OK, invoke(L"Text", kEither));
  EXPECT_EQ("call Echo; get Text; ", thing_->log);
  thing_->log.clear();
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(L"Echo", DISPATCH_PROPERTYGET));
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(L"Text", DISPATCH_METHOD));
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(L"Fail", kEither));
  EXPECT_EQ("get Echo; call Text; call Fail; ", thing_->log);
}

// What a method finds missing in another object is not the method itself.
TEST_F(LateFace, HandsOutAMissingMemberFromInsideAMethod) {
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(L"Sink", kEither));
  EXPECT_THAT(error_, testing::StartsWith("438 "));
  EXPECT_THAT(error_, testing::HasSubstr("debajo"));
  EXPECT_EQ("call Sink; ", thing_->log);
}

TEST_F(LateFace, HandsOutErrorsWhole) {
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(L"Fail", DISPATCH_METHOD));
  EXPECT_EQ("6 cosa|no cabe", error_);
  EXPECT_EQ(7u, exception_.dwHelpContext);
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(L"Nada", kEither));
  EXPECT_THAT(error_, testing::StartsWith("438 "));
  EXPECT_THAT(error_, testing::HasSubstr("Nada"));
  const Ref<Object> back = make<Thing>();
  const NamedAccess named(face_.get());
  try {
    named.invoke(named.idOf(u"Fail"), DISPATCH_METHOD, {}, nullptr);
    ADD_FAILURE() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(kOverflow, error.number());
    EXPECT_EQ(u"no cabe", error.description());
    EXPECT_EQ(u"cosa", error.source());
  }
}

TEST_F(LateFace, RefusesWhatIsNoCall) {
  DISPPARAMS none{};
  const auto call = [&](DISPID member, const IID& id, DISPPARAMS* parameters) {
    return face_->Invoke(member, id, 0, DISPATCH_METHOD, parameters, nullptr, nullptr, nullptr);
  };
  const DISPID echo = idOf(L"Echo");
  EXPECT_EQ(S_OK, call(echo, IID_NULL, &none));
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, call(echo, IID_IUnknown, &none));
  EXPECT_EQ(E_INVALIDARG, call(echo, IID_NULL, nullptr));
  for (const DISPID member : {DISPID{0}, DISPID{-1}, echo + 1}) {
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, call(member, IID_NULL, &none)) << member;
  }
  VARIANT argument = holding(VT_I2, SHORT{1});
  DISPID name = 0;
  DISPPARAMS named{&argument, &name, 1, 1};
  EXPECT_EQ(DISP_E_NONAMEDARGS, call(echo, IID_NULL, &named));
  EXPECT_EQ(DISP_E_NONAMEDARGS, face_->Invoke(echo, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none,
                                              nullptr, nullptr, nullptr));
  EXPECT_EQ(
      static_cast<HRESULT>(0x800A0006),
      face_->Invoke(idOf(L"Fail"), IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr))
      << "without a place for the error";
  EXPECT_EQ("cosa|no cabe", client::takeErrorText());
  UINT count = 7;
  EXPECT_EQ(S_OK, face_->GetTypeInfoCount(&count));
  EXPECT_EQ(0u, count);
  ITypeInfo* info = nullptr;
  EXPECT_EQ(DISP_E_BADINDEX, face_->GetTypeInfo(0, 0, &info));
}

TEST_F(LateFace, ServesScripts) {
  for (const wchar_t* engine : {L"VBScript", L"JScript"}) {
    ScriptHost host(engine);
    ASSERT_TRUE(host.isThere());
    host.add(L"cosa", face_.get());
    const bool isVb = std::wstring(engine) == L"VBScript";
    EXPECT_EQ("", host.run(isVb ? u"dim t : t = cosa.TEXT : cosa.Text = t & \"!\" : "
                                  u"cosa.Self.Text = cosa.text & \"?\" : t = cosa.Text"
                                : u"var t = cosa.TEXT; cosa.Text = t + \"!\"; "
                                  u"cosa.Self.Text = cosa.text + \"?\"; t = cosa.Text"));
    EXPECT_EQ(isVb ? "Año!?" : "Año!?!?", host.text(L"t"));
    EXPECT_THAT(host.run(isVb ? u"cosa.Nada" : u"cosa.Nada()"), testing::Not(""));
  }
}

// --- The form and a service from outside.

// An operator who presses keys until the window is closed.
class KeyWindow final : public PrintingModeWindow {
 public:
  static inline std::vector<std::int16_t> keys;

  void choose(PrintingModeControl) override {}
  void close() override { isClosed_ = true; }
  void showModal(PrintingModeEvents& events) override {
    for (const std::int16_t key : keys) {
      if (!isClosed_) events.keyPressed(PrintingModeControl::kText, key, 2);
    }
  }

 private:
  bool isClosed_ = false;
};

class PrintingModeService : public testing::Test {
 protected:
  PrintingModeService() { useStandIns(); }
  ~PrintingModeService() override {
    useNothing();
    EXPECT_FALSE(serverIsLocked()) << "no face is left";
  }

  void serve(IUnknown* service) {
    const Ref<Object> proxy = makeServiceProxy(service, Described<clsApi>::info);
    ASSERT_TRUE(proxy);
    modRDPGlobalValues::ofThisThread().refInsApi = Ref<clsApi>(static_cast<clsApi*>(proxy.get()));
  }

  // "graphic", "text", "cancelled", or the error.
  static std::string press(std::vector<std::int16_t> keys) {
    KeyWindow::keys = std::move(keys);
    const auto form = make<frmChoosePrintingMode>(std::make_unique<KeyWindow>());
    try {
      form->showModal();
    } catch (const RunTimeError& error) {
      return std::to_string(error.number()) + " " + toUtf8(error.description());
    }
    if (form->GetPrintInTextMode()) return "text";
    return form->GetPrintInGraphMode() ? "graphic" : "cancelled";
  }
};

TEST_F(PrintingModeService, OfTheCompanionPressesTheButtons) {
  serve(client::create<_clsApi>(client::companion(), CLSID_clsApi).get());
  EXPECT_EQ("graphic", press({65, 117}));
  EXPECT_EQ("cancelled", press({65, 27, 117}));
  EXPECT_EQ("cancelled", press({65}));
}

constexpr TextView kVbService =
    uR"(
Class KeyService
  Public seen
  Public kept
  Public Function fFormKey(refForm, valKeyCode, valShift)
    seen = seen & refForm.Name & " " & valKeyCode & " " & valShift & "; "
    fFormKey = (valKeyCode = 27)
    If valKeyCode = 65 Then refForm.optPrintingMode(1).Value = True
    If valKeyCode = 66 Then refForm.Nada
    If valKeyCode = 67 Then Set refForm = Nothing
    If valKeyCode = 68 Then Set kept = refForm.cmdContinue
  End Function
  Public Sub sPressButton(refButton)
    seen = seen & refButton.Caption & " " & refButton.Value & "; "
    refButton.Click
  End Sub
End Class
Dim service, seen
Set service = New KeyService
)";

TEST_F(PrintingModeService, OfAScriptSeesTheFormAndItsButtonsByName) {
  ScriptHost host(L"VBScript");
  ASSERT_TRUE(host.isThere());
  ASSERT_EQ("", host.run(kVbService));
  serve(host.object(L"service").get());
  const auto seen = [&] {
    host.run(u"seen = service.seen : service.seen = \"\"");
    return host.text(L"seen");
  };
  EXPECT_EQ("graphic", press({27, 117}));
  EXPECT_EQ("frmChoosePrintingMode 27 2; frmChoosePrintingMode 117 2; &Continuar False; ", seen());
  EXPECT_EQ("text", press({65, 117}));
  EXPECT_EQ("text", press({67, 65, 117})) << "the reference is the service's own";
  EXPECT_THAT(press({66, 117}), testing::StartsWith("438 "));
  // What the service keeps outlives the form.
  EXPECT_EQ("graphic", press({68, 117}));
  EXPECT_NE("", host.run(u"service.kept.Click"));
  EXPECT_EQ("", host.run(u"service.kept = Empty"));
}

}  // namespace
}  // namespace tarvo::com
