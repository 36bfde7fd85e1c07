#include "frame/com/face.h"

#include <cstring>
#include <new>

#include "frame/com/server.h"

namespace tarvo::com {

GUID platformGuid(const Guid& guid) noexcept {
  static_assert(sizeof(GUID) == sizeof(Guid));
  GUID result;
  std::memcpy(&result, &guid, sizeof result);
  return result;
}

Face::Face(const ComClass& itsClass, Object& itsObject)
    : vtable(itsClass.vtable), comClass(itsClass), object(&itsObject) {
  itsObject.setFace(unknown());
  lockServer();
}

Face::~Face() {
  object->setFace(nullptr);
  unlockServer();
}

Face* faceOf(const ComClass& comClass, Object& object) {
  auto* face = reinterpret_cast<Face*>(static_cast<IUnknown*>(object.face()));
  if (face == nullptr) face = new Face(comClass, object);
  faceAddRef(face);
  return face;
}

Face* ownFace(IUnknown* unknown, const ClassInfo& info) noexcept {
  const auto classInterface = query<IUnknown>(unknown, platformGuid(interfaceId(info)));
  if (!classInterface) return nullptr;
  // Another server's object of the same class has functions of its own; only ours has this one.
  const auto* functions = *reinterpret_cast<const void* const* const*>(classInterface.get());
  if (functions[0] != reinterpret_cast<const void*>(&faceQueryInterface)) return nullptr;
  return reinterpret_cast<Face*>(classInterface.get());
}

HRESULT STDMETHODCALLTYPE faceQueryInterface(Face* face, REFIID id, void** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  const GUID own = platformGuid(interfaceId(*face->comClass.info));
  if (id == IID_IUnknown || id == IID_IDispatch || id == own) {
    *result = face;
  } else if (id == IID_ISupportErrorInfo) {
    *result = static_cast<ISupportErrorInfo*>(&face->errorInfoSupport);
  } else if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) {
    *result = static_cast<IProvideClassInfo2*>(&face->classInfoProvider);
  } else {
    return E_NOINTERFACE;
  }
  faceAddRef(face);
  return S_OK;
}

ULONG STDMETHODCALLTYPE faceAddRef(Face* face) { return ++face->references; }

ULONG STDMETHODCALLTYPE faceRelease(Face* face) {
  const ULONG left = --face->references;
  if (left == 0) delete face;
  return left;
}

HRESULT STDMETHODCALLTYPE faceGetTypeInfoCount(Face*, UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE faceGetTypeInfo(Face* face, UINT index, LCID, ITypeInfo** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return typeInfoOf(platformGuid(interfaceId(*face->comClass.info)), result);
}

// --- The two small interfaces.

STDMETHODIMP ErrorInfoSupport::QueryInterface(REFIID id, void** result) {
  return faceQueryInterface(&face_, id, result);
}
STDMETHODIMP_(ULONG) ErrorInfoSupport::AddRef() { return faceAddRef(&face_); }
STDMETHODIMP_(ULONG) ErrorInfoSupport::Release() { return faceRelease(&face_); }

STDMETHODIMP ErrorInfoSupport::InterfaceSupportsErrorInfo(REFIID id) {
  const bool isDispatch = id == IID_IDispatch;
  return isDispatch || id == platformGuid(interfaceId(*face_.comClass.info)) ? S_OK : S_FALSE;
}

STDMETHODIMP ClassInfoProvider::QueryInterface(REFIID id, void** result) {
  return faceQueryInterface(&face_, id, result);
}
STDMETHODIMP_(ULONG) ClassInfoProvider::AddRef() { return faceAddRef(&face_); }
STDMETHODIMP_(ULONG) ClassInfoProvider::Release() { return faceRelease(&face_); }

STDMETHODIMP ClassInfoProvider::GetClassInfo(ITypeInfo** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return typeInfoOf(platformGuid(classId(*face_.comClass.info)), result);
}

STDMETHODIMP ClassInfoProvider::GetGUID(DWORD, GUID* result) {
  if (result == nullptr) return E_POINTER;
  *result = GUID_NULL;
  return E_FAIL;  // the only kind there is asks for the events' interface
}

}  // namespace tarvo::com
