// Callback objects of the form report's clients.
#include "callback_test.h"
#include "early_bound_form.h"
#include "fake_service.h"

namespace tarvo::com {
namespace {

using client::FakeService;

constexpr HRESULT kOwnError = static_cast<HRESULT>(0x80040201);

class FormCallbacks : public CallbackTestOf<clsFormCallbackProbe> {};

using client::EarlyBoundForm;

TEST_F(FormCallbacks, AreCalledThroughTheirInterface) {
  EarlyBoundForm client;
  ASSERT_EQ(S_OK, init(&client));
  EXPECT_EQ("valor No se encontró", translate(u"{R.A} {R.NADIE}"));
  EXPECT_EQ(S_OK, call(L"sPause", {}));
  EXPECT_EQ(1, client.pauses);
  client.failure = kOwnError;
  EXPECT_EQ(kOwnError, call(L"sPause", {}));
  EXPECT_THAT(translate(u"{R.A}"), testing::StartsWith("80040201 "));
  init(nullptr);
}

TEST_F(FormCallbacks, AreCalledByName) {
  FakeService client;
  int pauses = 0;
  client.offer(L"fTranslateSpecialVar", [](auto& arguments, VARIANT* result, EXCEPINFO*) {
    const auto line =
        query<_clsObLineCharacts>(V_DISPATCH(&behind(arguments[0])), __uuidof(_clsObLineCharacts));
    *result = holding(VT_BOOL, fieldOf(line.get()) == "A" ? VARIANT_TRUE : VARIANT_FALSE);
    return S_OK;
  });
  client.offer(L"sDisplayPauseDialog", [&pauses](auto&, VARIANT*, EXCEPINFO*) {
    ++pauses;
    return S_OK;
  });
  ASSERT_EQ(S_OK, init(reinterpret_cast<IUnknown*>(static_cast<IDispatch*>(&client))));
  EXPECT_EQ("[] [No se encontró]", translate(u"[{R.A}] [{R.B}]"));
  EXPECT_EQ(S_OK, call(L"sPause", {}));
  EXPECT_EQ(1, pauses);
  init(nullptr);
  EXPECT_EQ(0, client.references());
}

TEST_F(FormCallbacks, OfTheLibrarysOwnClassAnswerNothing) {
  const auto defaults = faceOfObject<IUnknown>(make<clsImplementIDTraduc>(), IID_IUnknown);
  ASSERT_EQ(S_OK, init(defaults.get()));
  EXPECT_EQ(S_OK, call(L"sPause", {}));
  EXPECT_EQ("[No se encontró]", translate(u"[{R.A}]"));
}

// One contract's object is not the other's.
TEST_F(FormCallbacks, OfTheOtherContractAreCalledByNameAndRefuse) {
  const auto other = faceOfObject<IUnknown>(make<clsImplementIDMD>(), IID_IUnknown);
  ASSERT_EQ(S_OK, init(other.get()));
  EXPECT_EQ(S_OK, call(L"sPause", {})) << "they share this one";
  EXPECT_EQ(
      "800a01b6 LibTarvoRdpCI|Object doesn't support this property or method: fTranslateSpecialVar",
      translate(u"{R.A}"));
}

}  // namespace
}  // namespace tarvo::com
