// The trapped-error convention.
//
// Every procedure that has a handler hands a run-time error to the error service, with its class,
// its own name and its class's module description, and raises it again with the text that comes
// back: same number, same source, no help.  So each level adds itself to the description, innermost
// first, until the client has the error.  Nothing is rolled back.
//
// A procedure with a handler is a function-try-block that names itself and nothing more:
//
//   void clsUtilImp::sResetPrinter() try {
//     sWrite(chrReset_, 0);
//   } catch (...) { trap("sResetPrinter"); }
//
// The body is in one place only, here.  When the error service is missing, or fails itself, its own
// failure goes on instead.
#pragma once

#include <cstdint>

#include "frame/object.h"

namespace tarvo {

// How a class signs its error reports.
struct ErrorIdentity {
  const char16_t* className;
  const char16_t* moduleDescription;
  std::int16_t kind = 2;  // 1 a form, 2 a class
};

class TrappedObject : public Object {
 protected:
  // Reports the exception being handled under the procedure's name, and raises it again.
  // REQUIRES: called while an exception is being handled; a name in plain ASCII.
  // Raises: always.
  [[noreturn]] void trap(const char* procedure) const;

 private:
  virtual const ErrorIdentity& errorIdentity() const noexcept = 0;
};

// The same for procedures that belong to no object.
[[noreturn]] void trapAs(const ErrorIdentity& identity, const char* procedure);

}  // namespace tarvo
