// A face for an object of ours that is known by the names of its members alone: a form, a button, a
// report.  What the outside gets is a dispatch interface; it has no class and no type description.
//
// Like other faces (face.h) it counts its own references, holds one on the object, and is the same
// one as long as anybody holds it.
//
// A name gets its number when it is asked for, whether or not there is such a member: the object
// itself says so (438) when it is called.  Arguments are values, in their order; what the object
// changes in them does not come back.  A call that may mean a method or a property, as scripts make
// it, is a method where the object has one of that name
// (LateObject::hasMethod).
//
// Threads: the apartment's.
#pragma once

#include "frame/com/automation.h"
#include "frame/late_object.h"

namespace tarvo::com {

// The object's face, made if it has none yet, with one reference for the caller.
IDispatch* lateFaceOf(LateObject& object);

// The object whose face a foreign pointer is, when it is one of this server's; else empty.
Ref<Object> objectOfLateFace(IUnknown* unknown) noexcept;

}  // namespace tarvo::com
