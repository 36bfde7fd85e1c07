// What a C++ client needs of COM, for this sample: owners of references and texts, errors as
// exceptions, and a base for objects that the library calls.
//
// Nothing here is particular to the library; a program with ATL, WIL or C++/WinRT has all of it.
#pragma once

#include <windows.h>
// windows.h must come first.
#include <oleauto.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace com {

// A text that the library gets, or gives.
class Text {
 public:
  Text() = default;
  Text(const std::wstring& text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(text_); }

  operator BSTR() const { return text_; }  // lent; the callee does not keep it
  BSTR* out() { return &text_; }           // where a callee puts one.  REQUIRES: empty
  BSTR release() { return std::exchange(text_, nullptr); }
  std::wstring str() const { return {text_ == nullptr ? L"" : text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

// A counted reference.
template <class Interface>
class Ref {
 public:
  Ref() = default;
  explicit Ref(Interface* object) : object_(object) { object_->AddRef(); }
  Ref(const Ref&) = delete;
  Ref& operator=(const Ref&) = delete;
  ~Ref() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* operator->() const { return object_; }
  // For an argument by reference: the callee may put another object there.
  Interface** inOut() { return &object_; }
  Interface** out() { return &object_; }  // REQUIRES: empty

 private:
  Interface* object_ = nullptr;
};

// An operation that failed: its status, and the description that it left.
class Error : public std::exception {
 public:
  Error(HRESULT status, std::wstring description)
      : status_(status), description_(std::move(description)) {}

  HRESULT status() const { return status_; }
  const std::wstring& description() const { return description_; }

 private:
  HRESULT status_;
  std::wstring description_;
};

// Every call into the library goes through it.
inline void check(HRESULT status) {
  if (SUCCEEDED(status)) return;
  Ref<IErrorInfo> info;
  Text description;
  if (GetErrorInfo(0, info.out()) == S_OK) info->GetDescription(description.out());
  throw Error(status, description.str());
}

// An object by its ProgID, as an interface of its class.
template <class Interface>
void create(const wchar_t* progId, Ref<Interface>& object) {
  CLSID classId;
  check(CLSIDFromProgID(progId, &classId));
  check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                         reinterpret_cast<void**>(object.out())));
}

// A base of an object that the library calls through one of its interfaces.  The library calls
// early-bound objects through their table of functions, so that nothing need be found by name.
// Made with `new`; it goes with its last reference.
template <class Interface>
class Implements : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    const bool isKnown = id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(Interface);
    *result = isKnown ? static_cast<Interface*>(this) : nullptr;
    if (isKnown) AddRef();
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

 protected:
  virtual ~Implements() = default;

 private:
  ULONG references_ = 0;
};

}  // namespace com
