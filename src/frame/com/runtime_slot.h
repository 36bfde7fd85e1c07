// The thread slot of the compiler's run-time library.
//
// Inside a DLL the run-time library keeps its state of exceptions in a thread slot of the process,
// which it takes when the first exception is raised and does not give back when the DLL goes.  A
// host that loads and unloads the server again and again would run out of slots after a thousand
// times.
#pragma once

namespace tarvo::com {

// Makes the run-time library take its slot, and notes which one it took.
// REQUIRES: called once, while the DLL is being loaded.
void noteRuntimeSlot() noexcept;

// Gives the slot back.  REQUIRES: called last, while the DLL is being unloaded.
void freeRuntimeSlot() noexcept;

}  // namespace tarvo::com
