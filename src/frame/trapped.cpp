#include "frame/trapped.h"

#include <utility>

#include "frame/modRDPGlobalValues.h"

namespace tarvo {
namespace {

Text describeThroughService(const RunTimeError& error, const ErrorIdentity& identity,
                            const char* procedure) {
  Text description;
  // A reference of the call's own: a service may replace the services while it works.
  const Ref<clsError> errors = modRDPGlobalValues::ofThisThread().refInsError;
  errors->fDescribeError(error.description(), identity.className, fromAscii(procedure),
                         identity.moduleDescription, identity.kind, error.helpContext(),
                         error.helpFile(), error.lastDllError(), 0, description);
  return description;
}

}  // namespace

void trapAs(const ErrorIdentity& identity, const char* procedure) {
  const RunTimeError error = currentRunTimeError();
  throw RunTimeError(error.number(),
                     {error.source(), describeThroughService(error, identity, procedure), {}, 0});
}

void TrappedObject::trap(const char* procedure) const { trapAs(errorIdentity(), procedure); }

}  // namespace tarvo
