// Callback objects of clients: through the contract's interface, by operation name, and when they
// fail.
#include "callback_test.h"
#include "early_bound_answers.h"
#include "fake_service.h"
#include "frame/com/convert.h"
#include "heap.h"

namespace tarvo::com {
namespace {

using client::EarlyBoundAnswers;
using client::FakeService;

constexpr HRESULT kOwnError = static_cast<HRESULT>(0x80040201);
constexpr const char* kTrail = "\r\n   en clsCallbackProbe.";

class Callbacks : public CallbackTest {
 protected:
  // The object goes before the probe's reference to it.
  void letGo() {
    init(nullptr);
    EXPECT_EQ(0, answers_.references());
    EXPECT_EQ(0, named_.references());
  }
  ~Callbacks() override { letGo(); }

  Ref<clsImplementIDMD> proxyOf(IUnknown* object) {
    return Ref<clsImplementIDMD>(static_cast<clsImplementIDMD*>(
        objectFromUnknown(object, &Described<clsImplementIDMD>::info).get()));
  }

  // Has the line's variable take a value, or the line be another.
  void answerWith(std::function<HRESULT(_clsObLineCharacts**, VARIANT_BOOL*)> action) {
    answers_.translate = std::move(action);
    ASSERT_EQ(S_OK, init(&answers_));
  }

  EarlyBoundAnswers answers_;
  FakeService named_;
};

// --- Through the interface.

TEST_F(Callbacks, AreCalledThroughTheirInterfaceAndTheirAnswersComeBack) {
  ASSERT_EQ(S_OK, init(&answers_));
  EXPECT_EQ(
      "fTranslateSpecialVarMD true\n"
      "fReadFirstRecord true\n"
      "fReadNextRecord false\n"
      "sAccumSubTotal 1125000\n"
      "fCanExecuteWriteReport false, true, \"No hay papel de 11\"\"\n"
      "fDetailRecordCount 123456\n",
      callAll());
  EXPECT_THAT(answers_.calls(),
              testing::ElementsAre("fTranslateSpecialVarMD 1000000", "sDisplayPauseDialog",
                                   "fReadFirstRecord", "fReadNextRecord", "sAccumSubTotal 1000000",
                                   "fCanExecuteWriteReport 0 \"\"", "fDetailRecordCount"));
}

TEST_F(Callbacks, OtherAnswersComeBackToo) {
  ASSERT_EQ(S_OK, init(&answers_));
  answers_.hasFirst = VARIANT_FALSE;
  answers_.hasNext = 1;  // not quite COM's kind of true
  answers_.amount = -2'000'001;
  answers_.mayPrint = VARIANT_TRUE;
  answers_.mustShow = VARIANT_FALSE;
  answers_.message = Text();
  answers_.count = -1;
  answers_.translate = [](auto**, VARIANT_BOOL* known) {
    *known = VARIANT_FALSE;
    return S_OK;
  };
  EXPECT_EQ(
      "fTranslateSpecialVarMD false\n"
      "fReadFirstRecord false\n"
      "fReadNextRecord true\n"
      "sAccumSubTotal -1000001\n"
      "fCanExecuteWriteReport true, false, \"\"\n"
      "fDetailRecordCount -1\n",
      callAll());
}

TEST_F(Callbacks, TheLibrarysOwnClassAnswersNothing) {
  const auto defaults = faceOfObject<IUnknown>(make<clsImplementIDMD>(), IID_IUnknown);
  ASSERT_EQ(S_OK, init(defaults.get()));
  EXPECT_EQ(
      "fTranslateSpecialVarMD false\n"
      "fReadFirstRecord false\n"
      "fReadNextRecord false\n"
      "sAccumSubTotal 1000000\n"
      "fCanExecuteWriteReport false, false, \"\"\n"
      "fDetailRecordCount 0\n",
      callAll());
  EXPECT_EQ("[No se encontró]", translate(u"[{C.NOMBRE}]"));
}

TEST_F(Callbacks, TheLibrarysOwnObjectNeedsNoProxy) {
  const auto own = make<clsImplementIDMD>();
  const auto face = faceOfObject<IUnknown>(own, IID_IUnknown);
  EXPECT_EQ(own.get(), proxyOf(face.get()).get());
}

TEST_F(Callbacks, AreKeptUntilAnotherReplacesThem) {
  ASSERT_EQ(S_OK, init(&answers_));
  EXPECT_GT(answers_.references(), 0);
  EarlyBoundAnswers other;
  ASSERT_EQ(S_OK, init(&other));
  EXPECT_EQ(0, answers_.references());
  EXPECT_GT(other.references(), 0);
  ASSERT_EQ(S_OK, init(nullptr));
  EXPECT_EQ(0, other.references());
}

// --- The line that the client gets.

TEST_F(Callbacks, GetTheLineAndItsVariable) {
  answerWith([](_clsObLineCharacts** line, VARIANT_BOOL*) {
    ComPtr<_clsObSpecialVar> variable;
    (*line)->GetSpecialVar(variable.out());
    const Bstr value(fromUtf8("<" + fieldOf(*line) + ">"));
    return variable->SetContentString(value.get());
  });
  EXPECT_EQ("Señor <NOMBRE>, <DEUDA> en <CIUDAD>",
            translate(u"Señor {c.nombre}, {c.deuda} en {c.ciudad}"));
}

TEST_F(Callbacks, SeeTheLineAsItIsSoFar) {
  std::string seen;
  answerWith([&seen](_clsObLineCharacts** line, VARIANT_BOOL*) {
    Bstr text;
    (*line)->GetTextToWrite(text.out());
    seen += toUtf8(text.view()) + "\n";
    ComPtr<_clsObSpecialVar> variable;
    (*line)->GetSpecialVar(variable.out());
    return variable->SetContentString(Bstr(u"x").get());
  });
  EXPECT_EQ("a x b x", translate(u"a {R.A} b {R.B}"));
  EXPECT_EQ("a {R.A} b {R.B}\na x b {R.B}\n", seen);
}

TEST_F(Callbacks, GetTheSameObjectEveryTime) {
  const Ref<clsObLineCharacts> own = object_->GetLine();
  ComPtr<IUnknown> first;
  answerWith([&first](_clsObLineCharacts** line, VARIANT_BOOL*) {
    const auto identity = query<IUnknown>(*line, IID_IUnknown);
    if (!first) first = identity;
    EXPECT_EQ(first.get(), identity.get());
    return S_OK;
  });
  EXPECT_EQ("--", translate(u"-{R.A}{R.B}-"));
  EXPECT_EQ("-", translate(u"-{R.C}"));
  EXPECT_EQ(own.get(), object_->GetLine().get());
  EXPECT_EQ(own->face(), first.get());
  EXPECT_EQ(3u, answers_.calls().size());
}

TEST_F(Callbacks, LeaveNoFaceBehindWhenTheyKeepNothing) {
  answerWith([](auto**, VARIANT_BOOL*) { return S_OK; });
  translate(u"{R.A}");
  EXPECT_EQ(nullptr, object_->GetLine()->face());
  EXPECT_EQ(nullptr, object_->GetLine()->GetSpecialVar()->face());
}

TEST_F(Callbacks, MayPutAnotherLineInItsPlace) {
  const auto other = make<clsObLineCharacts>();
  other->sClrRecord();
  other->SetTextToWrite(u"otra {R.A}");
  other->sExtractSpecialVar(other->GetTextToWrite());
  answerWith([&other](_clsObLineCharacts** line, VARIANT_BOOL*) {
    (*line)->Release();
    *line = faceOfObject<_clsObLineCharacts>(other, __uuidof(_clsObLineCharacts)).detach();
    ComPtr<_clsObSpecialVar> variable;
    (*line)->GetSpecialVar(variable.out());
    return variable->SetContentString(Bstr(u"línea").get());
  });
  EXPECT_EQ("otra línea", translate(u"esta {R.A}"));
  EXPECT_EQ(other.get(), object_->GetLine().get());
}

TEST_F(Callbacks, MayTakeTheLineAway) {
  answerWith([](_clsObLineCharacts** line, VARIANT_BOOL*) {
    (*line)->Release();
    *line = nullptr;
    return S_OK;
  });
  EXPECT_EQ(std::string("800a005b LibTarvoRdpCI|Object variable not set") + kTrail +
                "fTranslateLine (Probe)",
            translate(u"{R.A}"));
  EXPECT_FALSE(object_->GetLine());
}

TEST_F(Callbacks, MayNotPutSomethingElseInItsPlace) {
  const Ref<clsObLineCharacts> own = object_->GetLine();
  answerWith([this](_clsObLineCharacts** line, VARIANT_BOOL*) {
    (*line)->Release();
    named_.AddRef();
    *line = reinterpret_cast<_clsObLineCharacts*>(static_cast<IDispatch*>(&named_));
    return S_OK;
  });
  EXPECT_EQ(std::string("800a000d LibTarvoRdpCI|Type mismatch: clsObLineCharacts") + kTrail +
                "fTranslateLine (Probe)",
            translate(u"{R.A}"));
  EXPECT_EQ(own.get(), object_->GetLine().get());
}

TEST_F(Callbacks, TenThousandLinesTakeNoMemoryThatStays) {
  constexpr int kRounds = 10'000;
  answerWith([](_clsObLineCharacts** line, VARIANT_BOOL*) {
    ComPtr<_clsObSpecialVar> variable;
    (*line)->GetSpecialVar(variable.out());
    return variable->SetContentString(Bstr(u"un texto más largo que los cortos").get());
  });
  const auto rounds = [this](int count) {
    for (int i = 0; i < count; ++i) {
      translate(u"{R.A} {R.B}");
      answers_.failing = i % 10 == 0 ? "fDetailRecordCount" : "";
      answers_.failure = kOwnError;
      callAll();
    }
    answers_.forget();
    SetErrorInfo(0, nullptr);
  };
  rounds(500);
  const std::size_t before = client::allocatedBytes();
  rounds(kRounds);
  EXPECT_LE(client::allocatedBytes(), before + kRounds / 2);
}

// --- Errors.

TEST_F(Callbacks, AnErrorKeepsNumberSourceAndDescription) {
  answerWith([](auto**, VARIANT_BOOL*) {
    client::leaveErrorObject(u"MiPrograma", u"No hay conexión");
    return kOwnError;
  });
  EXPECT_EQ(std::string("80040201 MiPrograma|No hay conexión") + kTrail + "fCallAll (Probe)",
            callAll());
  EXPECT_EQ(std::string("80040201 MiPrograma|No hay conexión") + kTrail + "fTranslateLine (Probe)",
            translate(u"{R.A}"));
}

TEST_F(Callbacks, AnErrorOfEveryOperationArrives) {
  ASSERT_EQ(S_OK, init(&answers_));
  std::size_t called = 0;
  for (const MemberInfo& member : Described<clsImplementIDMD>::info.members) {
    SCOPED_TRACE(member.fullName());
    answers_.failing = member.fullName();
    answers_.failure = static_cast<HRESULT>(0x800A0046);
    EXPECT_THAT(callAll(), testing::StartsWith("800a0046 "));
    called +=
        static_cast<std::size_t>(&member - Described<clsImplementIDMD>::info.members.data()) + 1;
    EXPECT_EQ(called, answers_.calls().size()) << "and ends the calls";
  }
}

TEST_F(Callbacks, AnOldErrorObjectIsNotTakenForTheirs) {
  ASSERT_EQ(S_OK, init(&answers_));
  answers_.failing = "sDisplayPauseDialog";
  answers_.failure = kOwnError;
  client::leaveErrorObject(u"Otro", u"de antes");
  EXPECT_THAT(callAll(), testing::Not(testing::HasSubstr("de antes")));
}

TEST_F(Callbacks, WhatTheyChangedBeforeAnErrorStaysChanged) {
  const auto proxy = proxyOf(&answers_);
  answers_.failure = kOwnError;
  answers_.failing = "sAccumSubTotal";
  Currency total = Currency::ofUnits(1);
  EXPECT_THROW(proxy->sAccumSubTotal(total), RunTimeError);
  EXPECT_EQ(135'000, total.tenThousandths);
  answers_.failing = "fCanExecuteWriteReport";
  bool mustShow = false;
  Text message = u"antes";
  EXPECT_THROW(proxy->fCanExecuteWriteReport(mustShow, message), RunTimeError);
  EXPECT_TRUE(mustShow);
  EXPECT_EQ(answers_.message, message);
}

TEST_F(Callbacks, WithoutAnObjectEveryCallIsError91) {
  ASSERT_EQ(S_OK, init(nullptr));
  EXPECT_EQ(
      std::string("800a005b LibTarvoRdpCI|Object variable not set") + kTrail + "fCallAll (Probe)",
      callAll());
}

TEST_F(Callbacks, AnObjectWithNeitherInterfaceNorNamesIsAWrongKind) {
  struct Bare final : IUnknown {
    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
      *result = id == IID_IUnknown ? this : nullptr;
      return *result != nullptr ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
  } bare;
  VARIANT object = holding(VT_UNKNOWN, static_cast<IUnknown*>(&bare));
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D), call(L"sInit", {referenceTo(object)}));
  EXPECT_EQ(u"Type mismatch: initTraducSpecialVar", description_);
}

// --- By name.

TEST_F(Callbacks, ByNameGetReferencesToVariantsOfTheRightKinds) {
  std::string seen;
  const auto record = [&seen](std::vector<VARIANT*>& arguments, VARIANT*, EXCEPINFO*) {
    for (VARIANT* argument : arguments) {
      const bool isReference = V_VT(argument) == (VT_BYREF | VT_VARIANT);
      seen += (isReference ? "&" : "") +
              std::to_string(V_VT(isReference ? &behind(argument) : argument)) + " ";
    }
    return S_OK;
  };
  for (const MemberInfo& member : Described<clsImplementIDMD>::info.members) {
    const std::string name = member.fullName();
    named_.offer(std::wstring(name.begin(), name.end()), record);
  }
  ASSERT_EQ(S_OK, init(reinterpret_cast<IUnknown*>(static_cast<IDispatch*>(&named_))));
  EXPECT_EQ(
      "fTranslateSpecialVarMD false\n"
      "fReadFirstRecord false\n"
      "fReadNextRecord false\n"
      "sAccumSubTotal 1000000\n"
      "fCanExecuteWriteReport false, false, \"\"\n"
      "fDetailRecordCount 0\n",
      callAll())
      << "no answer at all is a false one";
  static_assert(VT_CY == 6 && VT_BSTR == 8 && VT_DISPATCH == 9 && VT_BOOL == 11);
  EXPECT_EQ("&9 6 &6 &11 &8 ", seen);
  EXPECT_EQ(7, named_.nameLookups());
  callAll();
  EXPECT_EQ(7, named_.nameLookups()) << "a name is asked for once";
}

TEST_F(Callbacks, ByNameMayAnswerInOtherKinds) {
  named_.offer(L"fCanExecuteWriteReport", [](auto& arguments, VARIANT* result, EXCEPINFO*) {
    behind(arguments[0]) = holding(VT_I2, SHORT{7});
    SysFreeString(V_BSTR(&behind(arguments[1])));
    behind(arguments[1]) = holding(VT_I4, LONG{12});
    *result = holding(VT_I2, SHORT{1});
    return S_OK;
  });
  named_.offer(L"sAccumSubTotal", [](auto& arguments, VARIANT*, EXCEPINFO*) {
    behind(arguments[0]) = holding(VT_R8, 7.25);
    return S_OK;
  });
  named_.offer(L"fDetailRecordCount", [](auto&, VARIANT* result, EXCEPINFO*) {
    *result = holding(VT_R8, 70'000.5);
    return S_OK;
  });
  const auto proxy = proxyOf(&named_);
  bool mustShow = false;
  Text message;
  EXPECT_TRUE(proxy->fCanExecuteWriteReport(mustShow, message));
  EXPECT_TRUE(mustShow);
  EXPECT_EQ(u"12", message);
  Currency total;
  proxy->sAccumSubTotal(total);
  EXPECT_EQ(72'500, total.tenThousandths);
  EXPECT_EQ(70'000, proxy->fDetailRecordCount()) << "a half goes to the even number";
}

template <class Action>
std::int32_t numberOf(Action&& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

TEST_F(Callbacks, ByNameMayNotAnswerInAnyKind) {
  VARIANT wrong{};
  named_.offer(L"sAccumSubTotal", [&wrong](auto& arguments, VARIANT*, EXCEPINFO*) {
    behind(arguments[0]) = wrong;
    return S_OK;
  });
  named_.offer(L"fTranslateSpecialVarMD", [&wrong](auto& arguments, VARIANT*, EXCEPINFO*) {
    V_DISPATCH(&behind(arguments[0]))->Release();
    behind(arguments[0]) = wrong;
    return S_OK;
  });
  named_.offer(L"fDetailRecordCount", [&wrong](auto&, VARIANT* result, EXCEPINFO*) {
    *result = wrong;
    return S_OK;
  });
  const auto proxy = proxyOf(&named_);
  Currency total;
  auto line = make<clsObLineCharacts>();
  const Ref<clsObLineCharacts> before = line;
  wrong = holding(VT_NULL, LONG{0});
  EXPECT_EQ(kTypeMismatch, numberOf([&] { proxy->sAccumSubTotal(total); }));
  EXPECT_EQ(kTypeMismatch, numberOf([&] { proxy->fTranslateSpecialVarMD(line, total); }));
  wrong = holding(VT_EMPTY, LONG{0});
  EXPECT_EQ(kTypeMismatch, numberOf([&] { proxy->fTranslateSpecialVarMD(line, total); }));
  EXPECT_EQ(before, line);
  wrong = holding(VT_R8, 3e9);
  EXPECT_EQ(kOverflow, numberOf([&] { proxy->fDetailRecordCount(); }));
  wrong = holding(VT_DISPATCH, static_cast<IDispatch*>(nullptr));
  EXPECT_FALSE(proxy->fTranslateSpecialVarMD(line, total)) << "Nothing is a value";
  EXPECT_FALSE(line);
}

TEST_F(Callbacks, ByNameAnOperationThatIsNotOfferedIsError438WhenItIsCalled) {
  named_.offer(L"fTranslateSpecialVarMD", [](auto&, VARIANT*, EXCEPINFO*) { return S_OK; });
  ASSERT_EQ(S_OK, init(reinterpret_cast<IUnknown*>(static_cast<IDispatch*>(&named_))));
  EXPECT_EQ(std::string("800a01b6 LibTarvoRdpCI|Object doesn't support this property or method: "
                        "sDisplayPauseDialog") +
                kTrail + "fCallAll (Probe)",
            callAll());
}

TEST_F(Callbacks, ByNameAnErrorKeepsNumberSourceAndDescription) {
  named_.offer(L"fTranslateSpecialVarMD", [](auto&, VARIANT*, EXCEPINFO* exception) {
    exception->scode = kOwnError;
    exception->bstrSource = allocateBstr(u"MiPrograma");
    exception->bstrDescription = allocateBstr(u"No hay conexión");
    return DISP_E_EXCEPTION;
  });
  ASSERT_EQ(S_OK, init(reinterpret_cast<IUnknown*>(static_cast<IDispatch*>(&named_))));
  EXPECT_EQ(std::string("80040201 MiPrograma|No hay conexión") + kTrail + "fTranslateLine (Probe)",
            translate(u"{R.A}"));
}

}  // namespace
}  // namespace tarvo::com
