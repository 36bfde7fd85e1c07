// A record set of the system's data objects (ADO) as its readers call it: by the places in its
// interfaces' tables, for Wine's takes no calls by name.
#pragma once

#include <string>
#include <vector>

#include "client.h"

namespace tarvo::client {

class RecordSet {
 public:
  // Empty when the object is none.
  explicit RecordSet(IUnknown* object) : rows_(query<IUnknown>(object, kInterface)) {}

  explicit operator bool() const { return rows_.get() != nullptr; }

  // The data store's number of the column's type; 0 when it cannot be told.
  LONG typeOfColumn(TextView column) const {
    LONG type = 0;
    call<12>(field(column).get(), &type);
    return type;
  }

  // From the first row to the last.
  std::vector<std::string> texts(TextView column) const {
    std::vector<std::string> all;
    call<38>(rows_.get());  // MoveFirst
    const auto cell = field(column);
    while (!isAtEnd()) {
      Variant value;
      call<13>(cell.get(), static_cast<VARIANT*>(&value));
      all.push_back(V_VT(&value) == VT_BSTR ? utf8(V_BSTR(&value)) : "no text");
      call<36>(rows_.get());  // MoveNext
    }
    return all;
  }

 private:
  static constexpr IID kInterface = {
      0x00000556, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};

  template <std::size_t kPlace, class... Arguments>
  static HRESULT call(IUnknown* object, Arguments... arguments) {
    using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
    const void* const entry = (*reinterpret_cast<const void* const* const*>(object))[kPlace];
    return reinterpret_cast<Function>(const_cast<void*>(entry))(object, arguments...);
  }

  bool isAtEnd() const {
    VARIANT_BOOL end = VARIANT_TRUE;
    return FAILED(call<20>(rows_.get(), &end)) || end != VARIANT_FALSE;
  }

  ComPtr<IUnknown> field(TextView column) const {
    ComPtr<IUnknown> fields;
    ComPtr<IUnknown> found;
    call<21>(rows_.get(), fields.out());
    const Bstr name(column);
    VARIANT index{};
    V_VT(&index) = VT_BSTR;
    V_BSTR(&index) = name.get();
    call<10>(fields.get(), index, found.out());
    return found;
  }

  ComPtr<IUnknown> rows_;
};

}  // namespace tarvo::client
