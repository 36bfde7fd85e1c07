// Objects across the border: our own come and go with their faces, foreign ones as proxies.
#include "frame/com/convert.h"
#include "frame/com/late_object_face.h"
#include "frame/com/outside_object.h"
#include "frame/com/server.h"

namespace tarvo::com {
namespace {

bool haveSameIdentity(IUnknown* a, IUnknown* b) {
  return a == b || query<IUnknown>(a, IID_IUnknown).get() == query<IUnknown>(b, IID_IUnknown).get();
}

IUnknown* preferredInterface(IUnknown* unknown, const ClassInfo* objectClass) {
  if (objectClass != nullptr) {
    auto own = query<IUnknown>(unknown, platformGuid(interfaceId(*objectClass)));
    if (own) return own.detach();
  }
  auto dispatch = query<IUnknown>(unknown, IID_IDispatch);
  return dispatch ? dispatch.detach() : ComPtr<IUnknown>(unknown).detach();
}

}  // namespace

Ref<Object> objectFromUnknown(IUnknown* unknown, const ClassInfo* objectClass) {
  if (unknown == nullptr) return {};
  if (objectClass == nullptr) {
    Ref<Object> own = objectOfLateFace(unknown);
    return own ? own : makeLateObject(unknown);
  }
  if (const Face* face = ownFace(unknown, *objectClass); face != nullptr) return face->object;
  const auto makeProxy = serverDescription().makeProxy;
  Ref<Object> proxy = makeProxy != nullptr ? makeProxy(unknown, *objectClass) : Ref<Object>();
  if (!proxy) throw RunTimeError(kTypeMismatch, fromAscii(objectClass->name));
  return proxy;
}

IUnknown* unknownFromObject(Object* object, const ClassInfo* objectClass) {
  if (object == nullptr) return nullptr;
  if (const auto* outside = dynamic_cast<const OutsideObject*>(object); outside != nullptr) {
    return preferredInterface(outside->unknown(), objectClass);
  }
  if (auto* face = static_cast<IUnknown*>(object->face()); face != nullptr) {
    face->AddRef();
    return face;
  }
  if (auto* late = dynamic_cast<LateObject*>(object); late != nullptr) return lateFaceOf(*late);
  const ComClass* comClass = objectClass != nullptr ? findClass(*objectClass) : nullptr;
  if (comClass == nullptr) throw RunTimeError(kTypeMismatch);
  return faceOf(*comClass, *object)->unknown();
}

bool isSameObject(IUnknown* unknown, const Object* object) {
  if (unknown == nullptr || object == nullptr) return (unknown == nullptr) == (object == nullptr);
  if (const auto* outside = dynamic_cast<const OutsideObject*>(object); outside != nullptr) {
    return haveSameIdentity(unknown, outside->unknown());
  }
  auto* face = static_cast<IUnknown*>(object->face());
  return face != nullptr && haveSameIdentity(unknown, face);
}

}  // namespace tarvo::com
