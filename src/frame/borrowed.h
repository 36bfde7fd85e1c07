// Storage that an object keeps between calls, lent to one call.
//
// A call that uses an object's kept storage and calls out to a service may be entered again on the
// same object before it ends.  It therefore takes the storage with it and brings it back: a second
// call finds none and makes its own.
#pragma once

#include <utility>

namespace tarvo {

template <class Storage>
class Borrowed {
 public:
  explicit Borrowed(Storage& home) noexcept : home_(home), storage_(std::move(home)) {}
  Borrowed(const Borrowed&) = delete;
  Borrowed& operator=(const Borrowed&) = delete;
  ~Borrowed() { home_ = std::move(storage_); }

  Storage& operator*() noexcept { return storage_; }
  Storage* operator->() noexcept { return &storage_; }

 private:
  Storage& home_;
  Storage storage_;
};

}  // namespace tarvo
