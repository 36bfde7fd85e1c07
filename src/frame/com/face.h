// A face: the COM object under which an object of the library is known outside.
//
// It has the class's dual interface, whose table of functions is made from the member table
// (vtable.h), and beside it the interfaces that tell about errors and the class.  It counts its own
// references and holds one on the library's object, which in turn knows its face while there is
// one, so an object shows the same face as long as anybody holds it.
//
// Threads: the apartment's.
#pragma once

#include <ocidl.h>

#include "frame/class_info.h"
#include "frame/com/automation.h"
#include "frame/object.h"

namespace tarvo::com {

// A public class as the server offers it.
struct ComClass {
  const ClassInfo* info;
  const void* const* vtable;  // of the dual interface
  Ref<Object> (*create)();    // a new object
};

struct Face;

// ISupportErrorInfo: every operation leaves an error object when it fails.
struct ErrorInfoSupport final : ISupportErrorInfo {
  explicit ErrorInfoSupport(Face& face) : face_(face) {}
  STDMETHODIMP QueryInterface(REFIID id, void** result) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override;

 private:
  Face& face_;
};

// IProvideClassInfo2: the class in the type library; it has no events.
struct ClassInfoProvider final : IProvideClassInfo2 {
  explicit ClassInfoProvider(Face& face) : face_(face) {}
  STDMETHODIMP QueryInterface(REFIID id, void** result) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetClassInfo(ITypeInfo** result) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* result) override;

 private:
  Face& face_;
};

struct Face {
  Face(const ComClass& comClass, Object& object);
  Face(const Face&) = delete;
  ~Face();

  const void* const* vtable;  // first: this is what an interface pointer points at
  const ComClass& comClass;
  Ref<Object> object;
  ULONG references = 0;
  ErrorInfoSupport errorInfoSupport{*this};
  ClassInfoProvider classInfoProvider{*this};

  IUnknown* unknown() noexcept { return reinterpret_cast<IUnknown*>(this); }
};

// The object's face, made if it has none yet, with one reference for the caller.
Face* faceOf(const ComClass& comClass, Object& object);

// The face that a foreign pointer is, when it is one of this server and of the class; else null.
// Not counted.
Face* ownFace(IUnknown* unknown, const ClassInfo& info) noexcept;

GUID platformGuid(const Guid& guid) noexcept;

// The first seven functions of every dual interface.
HRESULT STDMETHODCALLTYPE faceQueryInterface(Face* face, REFIID id, void** result);
ULONG STDMETHODCALLTYPE faceAddRef(Face* face);
ULONG STDMETHODCALLTYPE faceRelease(Face* face);
HRESULT STDMETHODCALLTYPE faceGetTypeInfoCount(Face* face, UINT* count);
HRESULT STDMETHODCALLTYPE faceGetTypeInfo(Face* face, UINT index, LCID locale, ITypeInfo** result);
HRESULT STDMETHODCALLTYPE faceGetIDsOfNames(Face* face, REFIID id, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids);
HRESULT STDMETHODCALLTYPE faceInvoke(Face* face, DISPID member, REFIID id, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError);

}  // namespace tarvo::com
