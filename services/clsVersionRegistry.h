// Stand-in of the version registry: where each library of the family announces its version.
//
// The versions are the process's, not the instance's: a library announces through an instance that
// it lets go at once, and whoever wants to know makes another.  Any thread may call.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsVersionRegistry final : public tarvo::clsVersionRegistry {
 public:
  // Keeps the text; the reference is not changed.
  void sRegisterVersion(Text& refVersion) override;

  // The text that was registered last, empty when none was.
  void GetRegisteredVersion(Text& result) const;

  // Every different text that was registered, in the order of their first time.
  void GetRegisteredVersions(TextList& result) const;
};

}  // namespace LibTarvoCI
