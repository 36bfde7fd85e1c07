#include "services/clsVersionRegistry.h"

#include <algorithm>
#include <atomic>

namespace LibTarvoCI {
namespace {

struct Registered {
  TextList versions;
  Text last;
};

Registered& registered() {
  static Registered ofThisProcess;
  return ofThisProcess;
}

// A lock that spins: it is held for the copy of one short text, a few times in a program's life.
std::atomic_flag busy;

class Lock {
 public:
  Lock() noexcept {
    while (busy.test_and_set(std::memory_order_acquire)) {
    }
  }
  ~Lock() { busy.clear(std::memory_order_release); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
};

}  // namespace

void clsVersionRegistry::sRegisterVersion(Text& refVersion) {
  const Lock lock;
  TextList& versions = registered().versions;
  if (std::find(versions.begin(), versions.end(), refVersion) == versions.end()) {
    versions.push_back(refVersion);
  }
  registered().last = refVersion;
}

void clsVersionRegistry::GetRegisteredVersion(Text& result) const {
  const Lock lock;
  result = registered().last;
}

void clsVersionRegistry::GetRegisteredVersions(TextList& result) const {
  const Lock lock;
  result = registered().versions;
}

}  // namespace LibTarvoCI
