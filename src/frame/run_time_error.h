// The one kind of failure: a run-time error with a classic number.
//
// A procedure that fails throws RunTimeError.  On its way to the client it passes the error service
// once per procedure (see trapped.h), which is how a description turns into a call trace.  Errors
// that a client's or a service's object raised travel as the same type with their own number.
//
// Number: 1 to 65535 for the classic run-time errors; anything else is a COM status as its signed
// 32 bits (an automation server's own errors, for instance 0x80040201).
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "frame/text.h"

namespace tarvo {

// The classic numbers that this library raises itself, or meets.
enum ErrorNumber : std::int32_t {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kOutOfStackSpace = 28,
  kInternalError = 51,
  kFileNotFound = 53,
  kDeviceError = 57,
  kDiskFull = 61,
  kInputPastEndOfFile = 62,
  kPermissionDenied = 70,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kCannotCreateObject = 429,
  kNoSuchMember = 438,
  kArgumentNotOptional = 449,
  kWrongNumberOfArguments = 450,
};

// "Overflow" for 6 and so on; a neutral sentence with the number for one that has no text.
Text describeErrorNumber(std::int32_t number);

class RunTimeError : public std::exception {
 public:
  // An error of the library's own: the number's description, and the library as its source.
  explicit RunTimeError(std::int32_t number);

  // The same with what it is about added to the description ("Type mismatch: valLeftMargin").
  RunTimeError(std::int32_t number, TextView about);

  // Default: an empty text and 0.
  struct Details {
    Text source;
    Text description;
    Text helpFile;
    std::int32_t helpContext = 0;
  };
  RunTimeError(std::int32_t number, Details details);

  // Copied, never moved: an error always has its content.
  RunTimeError(const RunTimeError&) noexcept = default;
  RunTimeError& operator=(const RunTimeError&) noexcept = default;
  ~RunTimeError() override = default;

  std::int32_t number() const noexcept { return content_->number; }
  const Text& source() const noexcept { return content_->details.source; }
  const Text& description() const noexcept { return content_->details.description; }
  const Text& helpFile() const noexcept { return content_->details.helpFile; }
  std::int32_t helpContext() const noexcept { return content_->details.helpContext; }

  // The system's error code of the last platform call before this error was raised.
  std::int32_t lastDllError() const noexcept { return content_->lastDllError; }

  // Number and description in UTF-8, for logs and test output.  Made when it is asked for: on its
  // way to the client an error becomes a new one at every level, with a longer description.
  const char* what() const noexcept override;

 private:
  struct Content {
    std::int32_t number;
    Details details;
    std::int32_t lastDllError;
    mutable std::string what;
  };

  RunTimeError(std::int32_t number, Details details, std::int32_t lastDllError);

  friend RunTimeError currentRunTimeError() noexcept;
  static const RunTimeError kMemoryIsExhausted;  // made while there is memory

  // Shared, so that an error can be copied while memory is short.
  std::shared_ptr<const Content> content_;
};

// The exception being handled, as a run-time error: itself, 7 for exhausted memory, 51 with its
// text for any other.  REQUIRES: called while an exception is being handled.
RunTimeError currentRunTimeError() noexcept;

// The system's error code of the last platform call on this thread.  It is kept for the error
// handlers alone; no code decides anything by it.
std::int32_t lastSystemError();
void setLastSystemError(std::int32_t code);

}  // namespace tarvo
