// What every object of the library, every service and every callback object is: counted, and shared
// through references.
//
// An object lives on the heap, is made with make<T>() and goes with its last reference.  Counting
// is not locked: an object belongs to the thread that made it.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/run_time_error.h"

namespace tarvo {

class Object {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void addReference() const noexcept { ++references_; }
  void release() const noexcept {
    if (--references_ == 0) delete this;
  }

  // The object under which a foreign object model knows this one, so that the same object always
  // shows the same face there.  Kept by that model's layer, which also clears it; not owned.
  void* face() const noexcept { return face_; }
  void setFace(void* face) noexcept { face_ = face; }

 protected:
  Object() = default;
  virtual ~Object() = default;

 private:
  mutable std::int32_t references_ = 0;
  void* face_ = nullptr;
};

// A counted reference; may be empty.
template <class T>
class Ref {
 public:
  Ref() noexcept = default;
  Ref(std::nullptr_t) noexcept {}  // implicit: Nothing is a value
  explicit Ref(T* object) noexcept : object_(object) { retain(); }
  Ref(const Ref& other) noexcept : object_(other.object_) { retain(); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other)
  noexcept : object_(other.get()) { retain(); }
  ~Ref() {
    if (object_ != nullptr) object_->release();
  }
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  T* get() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  // The object.  Raises: 91 when the reference is empty.
  T* operator->() const { return &**this; }
  T& operator*() const {
    if (object_ == nullptr) throw RunTimeError(kObjectNotSet);
    return *object_;
  }

  friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }

 private:
  void retain() const noexcept {
    if (object_ != nullptr) object_->addReference();
  }

  T* object_ = nullptr;
};

template <class T, class... Arguments>
Ref<T> make(Arguments&&... arguments) {
  return Ref<T>(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace tarvo
