#include "frame/com/late_object_face.h"

#include <ocidl.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "frame/com/convert.h"
#include "frame/com/server.h"

namespace tarvo::com {
namespace {

// Only this server's late faces have this interface: another copy of this code has another address.
IID ownInterface() noexcept {
  IID id{0x9D1B6C52, 0x70F4, 0x4B1E, {}};
  const void* const address = reinterpret_cast<const void*>(&ownInterface);
  std::memcpy(id.Data4, &address, sizeof address);
  return id;
}

char16_t lowerAscii(char16_t c) noexcept {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

class LateObjectFace final : public IDispatch, public ISupportErrorInfo {
 public:
  explicit LateObjectFace(LateObject& object) : object_(&object) {
    object.setFace(unknown());
    lockServer();
  }
  LateObjectFace(const LateObjectFace&) = delete;
  LateObjectFace& operator=(const LateObjectFace&) = delete;

  Ref<Object> object() const noexcept { return object_; }

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch) {
      *result = static_cast<IDispatch*>(this);
    } else if (id == IID_ISupportErrorInfo) {
      *result = static_cast<ISupportErrorInfo*>(this);
    } else if (id == ownInterface()) {
      *result = this;
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
    return id == IID_IDispatch ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return DISP_E_BADINDEX;
  }

  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    try {
      ids[0] = numberOf(fromWide(names[0]));
    } catch (...) {
      return E_OUTOFMEMORY;
    }
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
  }

  STDMETHODIMP Invoke(DISPID member, REFIID id, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT*) override {
    if (result != nullptr) VariantInit(result);
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (arguments == nullptr) return E_INVALIDARG;
    if (member < 1 || static_cast<std::size_t>(member) > names_.size()) {
      return DISP_E_MEMBERNOTFOUND;
    }
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (arguments->cNamedArgs != (isPut ? 1 : 0)) return DISP_E_NONAMEDARGS;
    if (arguments->cNamedArgs > arguments->cArgs) return DISP_E_BADPARAMCOUNT;
    // The object may lose its last reference while it works, and be asked for other names.
    const ComPtr<IUnknown> kept(unknown());
    try {
      const Text name = names_[static_cast<std::size_t>(member) - 1];
      ValueArray values = valuesOf(*arguments);
      if (isPut) {
        const Value newValue = std::move(values.back());
        values.pop_back();
        object_->put(name, values, newValue);
      } else {
        const Value answer = ask(name, flags, values);
        if (result != nullptr) variantFromValue(answer, *result);
      }
      return S_OK;
    } catch (...) {
      return reportException(statusOfCurrentException(IID_IDispatch), exception);
    }
  }

 private:
  ~LateObjectFace() {
    object_->setFace(nullptr);
    unlockServer();
  }

  // The pointer that is the object's identity.
  IUnknown* unknown() noexcept { return static_cast<IDispatch*>(this); }

  DISPID numberOf(TextView name) {
    const auto found = std::find_if(names_.begin(), names_.end(), [name](TextView known) {
      return std::equal(name.begin(), name.end(), known.begin(), known.end(),
                        [](char16_t a, char16_t b) { return lowerAscii(a) == lowerAscii(b); });
    });
    const auto place = found - names_.begin();
    if (found == names_.end()) names_.emplace_back(name);
    return static_cast<DISPID>(place + 1);
  }

  static ValueArray valuesOf(const DISPPARAMS& arguments) {
    ValueArray values(arguments.cArgs);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
      valueFromVariant(arguments.rgvarg[arguments.cArgs - 1 - i], values[i]);
    }
    return values;
  }

  Value ask(TextView name, WORD flags, const ValueArray& values) {
    const bool mayBeMethod = (flags & DISPATCH_METHOD) != 0;
    const bool mayBeProperty = (flags & DISPATCH_PROPERTYGET) != 0;
    const bool isMethod = mayBeMethod && (!mayBeProperty || object_->hasMethod(name));
    return isMethod ? object_->call(name, values) : object_->get(name, values);
  }

  Ref<LateObject> object_;
  std::vector<Text> names_;  // a name's number is its place, from 1
  ULONG references_ = 0;
};

}  // namespace

IDispatch* lateFaceOf(LateObject& object) {
  if (object.face() == nullptr) new LateObjectFace(object);  // the object knows it, until its end
  auto* face = static_cast<IDispatch*>(static_cast<IUnknown*>(object.face()));
  face->AddRef();
  return face;
}

Ref<Object> objectOfLateFace(IUnknown* unknown) noexcept {
  void* face = nullptr;
  if (unknown == nullptr || FAILED(unknown->QueryInterface(ownInterface(), &face))) return {};
  Ref<Object> object = static_cast<LateObjectFace*>(face)->object();
  static_cast<LateObjectFace*>(face)->Release();
  return object;
}

}  // namespace tarvo::com
