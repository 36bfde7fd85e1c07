// Storage that an object keeps between calls, lent to one call.
//
// A call that uses an object's kept storage and calls out to a service may be entered again on the
// same object before it ends.  It therefore takes the storage with it and brings it back: a second
// call finds none and makes its own.
//
//   Kept<Text> lineStorage_;                      // a member
//   Borrowed<Text> line(lineStorage_);            // in a call; holds what the last call left
#pragma once

#include <memory>
#include <utility>

namespace tarvo {

template <class Storage>
class Borrowed;

// Only Borrowed looks into it.
template <class Storage>
class Kept {
 private:
  friend Borrowed<Storage>;
  std::unique_ptr<Storage> storage_;
};

template <class Storage>
class Borrowed {
 public:
  explicit Borrowed(Kept<Storage>& home) : home_(home), storage_(std::move(home.storage_)) {
    if (!storage_) storage_ = std::make_unique<Storage>();
  }
  Borrowed(const Borrowed&) = delete;
  Borrowed& operator=(const Borrowed&) = delete;
  ~Borrowed() { home_.storage_ = std::move(storage_); }

  Storage& operator*() noexcept { return *storage_; }
  Storage* operator->() noexcept { return storage_.get(); }

 private:
  Kept<Storage>& home_;
  std::unique_ptr<Storage> storage_;
};

}  // namespace tarvo
