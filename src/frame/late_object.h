// An object that is known only by the names of its members: a client's combo box or form, a report
// component, a script's object.
//
// The library never asks what such an object is; it calls by name and passes on what comes back.
// A foreign object model supplies the implementation, and so does any native program.
#pragma once

#include <span>

#include "frame/object.h"
#include "frame/value.h"

namespace tarvo {

class LateObject : public Object {
 public:
  // The object's run-time type name, for instance "ComboBox".  Raises: what the object raises.
  virtual Text typeName() = 0;

  // Calls a member.  Names are compared without regard to ASCII case.
  // Raises: 438 when the object has no such member; what the member raises.
  virtual Value call(TextView name, std::span<const Value> arguments) = 0;

  // Whether a use of the name that may mean a method or a property, as scripts write both, means
  // call(); otherwise it means get().
  // Default: always, for objects whose call() reads properties too, or passes both on.
  virtual bool hasMethod(TextView /*name*/) { return true; }

  // Reads and writes a property; `indexes` are those of an indexed one.
  // Raises: as call().
  virtual Value get(TextView name, std::span<const Value> indexes) = 0;
  virtual void put(TextView name, std::span<const Value> indexes, const Value& value) = 0;
};

}  // namespace tarvo
