#include "frame/run_time_error.h"

#include <new>
#include <string>
#include <utility>

#include "frame/application.h"
#include "frame/thread_values.h"

namespace tarvo {
namespace {

struct Described {
  std::int32_t number;
  const char16_t* description;
};

constexpr Described kDescriptions[] = {
    {kInvalidProcedureCall, u"Invalid procedure call or argument"},
    {kOverflow, u"Overflow"},
    {kOutOfMemory, u"Out of memory"},
    {kSubscriptOutOfRange, u"Subscript out of range"},
    {kTypeMismatch, u"Type mismatch"},
    {kOutOfStackSpace, u"Out of stack space"},
    {kInternalError, u"Internal error"},
    {kFileNotFound, u"File not found"},
    {kDeviceError, u"Device I/O error"},
    {kDiskFull, u"Disk full"},
    {kInputPastEndOfFile, u"Input past end of file"},
    {kPermissionDenied, u"Permission denied"},
    {kPathNotFound, u"Path not found"},
    {kObjectNotSet, u"Object variable not set"},
    {kInvalidUseOfNull, u"Invalid use of Null"},
    {kCannotCreateObject, u"Component can't create object"},
    {kNoSuchMember, u"Object doesn't support this property or method"},
    {kArgumentNotOptional, u"Argument not optional"},
    {kWrongNumberOfArguments, u"Wrong number of arguments or invalid property assignment"},
};

Text describeAbout(std::int32_t number, TextView about) {
  Text description = describeErrorNumber(number);
  if (!about.empty()) description.append(u": ").append(about);
  return description;
}

RunTimeError::Details ownError(Text description) {
  return {Text(application().title), std::move(description), {}, 0};
}

}  // namespace

Text describeErrorNumber(std::int32_t number) {
  for (const Described& row : kDescriptions) {
    if (row.number == number) return row.description;
  }
  return u"Run-time error " + fromAscii(std::to_string(number));
}

RunTimeError::RunTimeError(std::int32_t number) : RunTimeError(number, TextView()) {}

RunTimeError::RunTimeError(std::int32_t number, TextView about)
    : RunTimeError(number, ownError(describeAbout(number, about))) {}

RunTimeError::RunTimeError(std::int32_t number, Details details)
    : RunTimeError(number, std::move(details), lastSystemError()) {}

RunTimeError::RunTimeError(std::int32_t number, Details details, std::int32_t lastDllError) {
  content_ = std::make_shared<const Content>(Content{number, std::move(details), lastDllError, {}});
}

const char* RunTimeError::what() const noexcept {
  try {
    std::string& what = content_->what;
    if (what.empty()) what = std::to_string(number()) + " " + toUtf8(description());
    return what.c_str();
  } catch (const std::exception&) {  // there is no memory for it
    return "run-time error";
  }
}

// At load time no thread has values yet, so there is no system error to ask for.  All threads share
// it, so what it says is made here.
const RunTimeError RunTimeError::kMemoryIsExhausted = [] {
  const RunTimeError error(kOutOfMemory, ownError(describeErrorNumber(kOutOfMemory)), 0);
  error.what();
  return error;
}();

namespace {

// May fail for want of memory itself.
RunTimeError classifyCurrentException() {
  try {
    throw;
  } catch (const RunTimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RunTimeError(kOutOfMemory);
  } catch (const std::exception& error) {
    return RunTimeError(kInternalError, fromUtf8(error.what()));
  } catch (...) {
    return RunTimeError(kInternalError);
  }
}

}  // namespace

RunTimeError currentRunTimeError() noexcept {
  try {
    return classifyCurrentException();
  } catch (const std::bad_alloc&) {
    return RunTimeError::kMemoryIsExhausted;
  }
}

std::int32_t lastSystemError() { return ThreadValues::ofThisThread().lastSystemError; }

void setLastSystemError(std::int32_t code) { ThreadValues::ofThisThread().lastSystemError = code; }

}  // namespace tarvo
