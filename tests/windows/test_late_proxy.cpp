// A foreign object that is known by the names of its members alone: how its properties are written.
#include "callback_test.h"
#include "frame/com/outside_object.h"
#include "frame/late_object.h"
#include "graphic/line_table.h"
#include "record_set.h"

namespace tarvo::com {
namespace {

using client::RecordSet;

// One property, written in the ways that it is told to take.
class Holder final : public IDispatch {
 public:
  WORD ways = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  std::int32_t failure = 0;  // a number of an error that the property itself raises
  std::vector<WORD> asked;
  Variant held;

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    const bool isKnown = id == IID_IUnknown || id == IID_IDispatch;
    *result = isKnown ? static_cast<IDispatch*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  // On the test's stack.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    *ids = 7;
    return std::wstring(names[0]) == L"Recordset" ? S_OK : DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO* exception, UINT*) override {
    asked.push_back(flags);
    if ((flags & ways) == 0) return DISP_E_MEMBERNOTFOUND;
    if (failure != 0) {
      exception->scode = statusOfNumber(failure);
      return DISP_E_EXCEPTION;
    }
    EXPECT_EQ(1u, parameters->cNamedArgs);
    EXPECT_EQ(DISPID_PROPERTYPUT, parameters->rgdispidNamedArgs[0]);
    return VariantCopy(&held, &parameters->rgvarg[0]);
  }
};

class LateProxy : public testing::Test {
 protected:
  // 0, or the error's number.
  std::int32_t put(TextView name, const Value& value) {
    const Ref<Object> proxy = makeLateObject(&holder_);
    try {
      dynamic_cast<LateObject&>(*proxy).put(name, {}, value);
    } catch (const RunTimeError& error) {
      return error.number();
    }
    return 0;
  }

  Holder holder_;
  Ref<LineTable> table_ = platform::makeLineTable();
};

TEST_F(LateProxy, SetsAnObject) {
  EXPECT_EQ(0, put(u"Recordset", Ref<Object>(table_)));
  EXPECT_THAT(holder_.asked, testing::ElementsAre(DISPATCH_PROPERTYPUTREF));
  EXPECT_EQ(VT_DISPATCH, V_VT(&holder_.held));
}

TEST_F(LateProxy, LetsAPropertyOfValuesHaveTheObjectAsOne) {
  holder_.ways = DISPATCH_PROPERTYPUT;
  EXPECT_EQ(0, put(u"Recordset", Ref<Object>(table_)));
  EXPECT_THAT(holder_.asked, testing::ElementsAre(DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT));
  EXPECT_EQ(VT_DISPATCH, V_VT(&holder_.held));
}

TEST_F(LateProxy, WritesOtherValues) {
  EXPECT_EQ(0, put(u"Recordset", std::int16_t{7}));
  EXPECT_THAT(holder_.asked, testing::ElementsAre(DISPATCH_PROPERTYPUT));
  holder_.ways = 0;
  EXPECT_EQ(kNoSuchMember, put(u"Recordset", std::int16_t{7}));
  EXPECT_EQ(kNoSuchMember, put(u"Otra", std::int16_t{7}));
}

TEST_F(LateProxy, PassesAPropertysOwnErrorOnAtOnce) {
  holder_.failure = kNoSuchMember;
  EXPECT_EQ(kNoSuchMember, put(u"Recordset", Ref<Object>(table_)));
  EXPECT_THAT(holder_.asked, testing::ElementsAre(DISPATCH_PROPERTYPUTREF));
}

TEST_F(LateProxy, GivesTheLineTableAsTheRecordSetItself) {
  table_->addRow(u"Año");
  table_->addRow(u"Ж 漢");
  ASSERT_EQ(0, put(u"Recordset", Ref<Object>(table_)));
  const RecordSet rows(V_UNKNOWN(&holder_.held));
  ASSERT_TRUE(rows);
  EXPECT_THAT(rows.texts(kLineColumn), testing::ElementsAre("Año", "Ж 漢"));
  EXPECT_TRUE(isSameObject(V_UNKNOWN(&holder_.held), table_.get()));
  constexpr LONG kVariableWideText = 202;
  EXPECT_EQ(kVariableWideText, rows.typeOfColumn(kLineColumn));
}

}  // namespace
}  // namespace tarvo::com
