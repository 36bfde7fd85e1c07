// Run-time errors at the border to COM: one function for each direction.
//
// Outside, a classic error number n is the status 0x800A0000 + n; any other number is a status
// itself.  Description, source and help travel in the thread's error object.
#pragma once

#include "frame/com/automation.h"
#include "frame/run_time_error.h"

namespace tarvo::com {

// The status for the exception being handled; sets the thread's error object for the interface.
// REQUIRES: called while an exception is being handled.
HRESULT statusOfCurrentException(const IID& interfaceId) noexcept;

// Fills `exception` from the thread's error object, which is used up by it.  The texts are the
// caller's to free.
void takeErrorObject(HRESULT status, EXCEPINFO& exception) noexcept;

// What a dispatch interface answers for a call that ended in that status and left an error object:
// the error goes into `exception` where the caller wants one.
HRESULT reportException(HRESULT status, EXCEPINFO* exception) noexcept;

// Raises the run-time error that a foreign object's failing call stands for: what `exception` says
// where the object filled it, else what the thread's error object says.  Frees what `exception`
// holds.
[[noreturn]] void raiseForeignError(HRESULT status, EXCEPINFO* exception);

// The run-time error number of a foreign status.
std::int32_t numberOfStatus(HRESULT status) noexcept;

// The foreign status of a run-time error number.
HRESULT statusOfNumber(std::int32_t number) noexcept;

// Raises the error of a failed status, for platform calls that say no more.
inline void check(HRESULT status) {
  if (FAILED(status)) throw RunTimeError(numberOfStatus(status));
}

}  // namespace tarvo::com
