// The line table as a record set of the system's data objects (ADO): one text column, no source, no
// connection.
//
// The record set is called by the places in its interfaces' tables, for those are what every
// implementation has: Wine's takes no calls by name.  Both kinds of record set are allowed for, but
// only Wine's was seen at work:
//   - a new row is written by the next step at the latest, or by Update, which Wine's does not
//   have;
//   - moving in an empty record set, and behind the end, is an error, or does nothing;
//   - a new row comes behind all others, or behind the present one and in the place of the next, so
//     the last one has to be the present one;
//   - the column's size is a limit, or not looked at, so it is the table that refuses longer lines.
// For the outside the table is that record set: a report component of any kind reads it itself.
#include <string>

#include "frame/com/error_info.h"
#include "frame/com/outside_object.h"
#include "graphic/line_table.h"

namespace tarvo::platform {
namespace {

using com::ComPtr;

constexpr CLSID kRecordset = {
    0x00000535, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
constexpr IID kRecordsetInterface = {
    0x00000556, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};

constexpr LONG kClientSide = 3;
constexpr LONG kVariableWideText = 202;
constexpr LONG kUnspecified = -1;
constexpr LONG kOpen = 1;  // a bit of the state

// A method of an interface: its place in the table, counted from the interface's beginning, and its
// parameters.
template <std::size_t kPlace, class... Parameters>
struct Method {
  static HRESULT status(IUnknown* object, Parameters... parameters) {
    using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Parameters...);
    const void* const entry = (*reinterpret_cast<const void* const* const*>(object))[kPlace];
    SetErrorInfo(0, nullptr);
    return reinterpret_cast<Function>(const_cast<void*>(entry))(object, parameters...);
  }

  static void call(IUnknown* object, Parameters... parameters) {
    const HRESULT result = status(object, parameters...);
    if (FAILED(result)) com::raiseForeignError(result, nullptr);
  }
};

namespace recordset {
using IsAtBeginning = Method<13, VARIANT_BOOL*>;
using IsAtEnd = Method<20, VARIANT_BOOL*>;
using Fields = Method<21, IUnknown**>;
using AddNew = Method<30, VARIANT, VARIANT>;
using CancelUpdate = Method<31>;
using Close = Method<32>;
using MoveNext = Method<36>;
using MoveFirst = Method<38>;
using MoveLast = Method<39>;
using Open = Method<40, VARIANT, VARIANT, LONG, LONG, LONG>;
using Update = Method<43, VARIANT, VARIANT>;
using State = Method<55, LONG*>;
using PutCursorLocation = Method<60, LONG>;
}  // namespace recordset

namespace fields {
using Item = Method<10, VARIANT, IUnknown**>;
using Append = Method<13, BSTR, LONG, LONG_PTR, LONG, VARIANT>;
}  // namespace fields

namespace field {
using Value = Method<13, VARIANT*>;
using PutValue = Method<14, VARIANT>;
}  // namespace field

VARIANT omitted() noexcept {
  VARIANT variant{};
  V_VT(&variant) = VT_ERROR;
  V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
  return variant;
}

VARIANT variantOf(const com::Bstr& text) noexcept {
  VARIANT variant{};
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = text.get();
  return variant;
}

// For what one implementation has and another does not.
void checkUnlessMissing(HRESULT status) {
  if (FAILED(status) && status != E_NOTIMPL) com::raiseForeignError(status, nullptr);
}

ComPtr<IUnknown> makeRecordset() {
  ComPtr<IUnknown> rows;
  if (FAILED(CoCreateInstance(kRecordset, nullptr, CLSCTX_INPROC_SERVER, kRecordsetInterface,
                              rows.outVoid()))) {
    throw RunTimeError(kCannotCreateObject, u"ADODB.Recordset");
  }
  return rows;
}

class AdoLineTable final : public LineTable, public com::OutsideObject {
 public:
  AdoLineTable() : AdoLineTable(makeRecordset()) {}

  explicit AdoLineTable(ComPtr<IUnknown> rows) : OutsideObject(rows.get()), rows_(std::move(rows)) {
    checkUnlessMissing(recordset::PutCursorLocation::status(rows_.get(), kClientSide));
    ComPtr<IUnknown> columns;
    recordset::Fields::call(rows_.get(), columns.out());
    const com::Bstr name(kLineColumn);
    fields::Append::call(columns.get(), name.get(), kVariableWideText, kLongestLine, kUnspecified,
                         omitted());
    recordset::Open::call(rows_.get(), omitted(), omitted(), kUnspecified, kUnspecified,
                          kUnspecified);
    // It shows the value of whichever row is the present one.
    fields::Item::call(columns.get(), variantOf(name), column_.out());
  }

  ~AdoLineTable() override {
    if (isOpen()) recordset::Close::status(rows_.get());
  }

  void addRow(TextView text) override {
    requireOpen();
    if (text.size() > kLongestLine) refuseLongLine();
    const com::Bstr value(text);
    if (!isAtLastRow_) recordset::MoveLast::call(rows_.get());
    isAtLastRow_ = true;
    recordset::AddNew::call(rows_.get(), omitted(), omitted());
    try {
      field::PutValue::call(column_.get(), variantOf(value));
      checkUnlessMissing(recordset::Update::status(rows_.get(), omitted(), omitted()));
    } catch (...) {
      recordset::CancelUpdate::status(rows_.get());
      throw;
    }
  }

  void moveFirst() override {
    requireOpen();
    const bool isEmpty = answer<recordset::IsAtBeginning>() && answer<recordset::IsAtEnd>();
    if (isEmpty) return;
    isAtLastRow_ = false;
    recordset::MoveFirst::call(rows_.get());
  }

  bool atEnd() override {
    requireOpen();
    return answer<recordset::IsAtEnd>();
  }

  void text(Text& result) override {
    requireRow();
    com::Variant value;
    field::Value::call(column_.get(), &value);
    if (V_VT(&value) == VT_BSTR) {
      result = com::viewOf(V_BSTR(&value));
    } else {
      result.clear();  // an empty text may be kept as none
    }
  }

  void moveNext() override {
    requireRow();
    isAtLastRow_ = false;
    recordset::MoveNext::call(rows_.get());
  }

  bool isOpen() noexcept override {
    LONG state = 0;
    return SUCCEEDED(recordset::State::status(rows_.get(), &state)) && (state & kOpen) != 0;
  }

  void close() override {
    requireOpen();
    recordset::Close::call(rows_.get());
  }

 private:
  template <class Question>
  bool answer() {
    VARIANT_BOOL result = VARIANT_FALSE;
    Question::call(rows_.get(), &result);
    return result != VARIANT_FALSE;
  }

  void requireOpen() {
    if (!isOpen()) refuseClosedTable();
  }
  void requireRow() {
    if (atEnd()) refuseWithoutRow();
  }

  ComPtr<IUnknown> rows_;
  ComPtr<IUnknown> column_;
  bool isAtLastRow_ = true;  // or there is none; false when it is not known
};

}  // namespace

Ref<LineTable> makeLineTable() { return make<AdoLineTable>(); }

}  // namespace tarvo::platform
