// Small owners for the platform's automation types.
#pragma once

#include <windows.h>
// windows.h must come first.
#include <oaidl.h>
#include <oleauto.h>

#include <new>
#include <utility>

#include "frame/text.h"

namespace tarvo::com {

// A counted interface pointer; may be empty.
template <class I>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  explicit ComPtr(I* pointer) noexcept : pointer_(pointer) {
    if (pointer_ != nullptr) pointer_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ~ComPtr() { reset(); }
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }

  I* get() const noexcept { return pointer_; }
  I* operator->() const noexcept { return pointer_; }
  explicit operator bool() const noexcept { return pointer_ != nullptr; }
  I* detach() noexcept { return std::exchange(pointer_, nullptr); }
  void reset() noexcept {
    if (I* old = std::exchange(pointer_, nullptr); old != nullptr) old->Release();
  }

  // Where a function is to put a counted pointer.  REQUIRES: empty.
  I** out() noexcept { return &pointer_; }
  void** outVoid() noexcept { return reinterpret_cast<void**>(&pointer_); }

 private:
  I* pointer_ = nullptr;
};

// The object's interface, or an empty pointer.
template <class I>
ComPtr<I> query(IUnknown* object, const IID& id) noexcept {
  ComPtr<I> result;
  if (object != nullptr && FAILED(object->QueryInterface(id, result.outVoid()))) {
    return ComPtr<I>();
  }
  return result;
}

inline TextView viewOf(BSTR text) noexcept {
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

inline const OLECHAR* wide(TextView text) noexcept {
  return reinterpret_cast<const OLECHAR*>(text.data());
}
inline TextView fromWide(const wchar_t* text) noexcept {
  return reinterpret_cast<const char16_t*>(text);
}

// A new text, owned by the caller.  Raises: std::bad_alloc.
inline BSTR allocateBstr(TextView text) {
  BSTR result = SysAllocStringLen(wide(text), static_cast<UINT>(text.size()));
  if (result == nullptr) throw std::bad_alloc();
  return result;
}

class Bstr {
 public:
  Bstr() noexcept = default;
  explicit Bstr(TextView text) : text_(allocateBstr(text)) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  BSTR get() const noexcept { return text_; }
  BSTR* out() noexcept { return &text_; }
  BSTR detach() noexcept { return std::exchange(text_, nullptr); }
  TextView view() const noexcept { return viewOf(text_); }

 private:
  BSTR text_ = nullptr;
};

// A VARIANT that is cleared at its end.
class Variant : public VARIANT {
 public:
  Variant() noexcept { VariantInit(this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(this); }
};

}  // namespace tarvo::com
