// Objects whose life a test follows: as the last reference takes the object with it, the moments at
// which it goes prove how often it is referenced.
#pragma once

#include <memory>
#include <utility>

namespace tarvo::test {

// How many of the objects that were made with it are alive.  The objects may outlive it.
class LifeCount {
 public:
  int alive() const { return *count_; }

 private:
  template <class Base>
  friend class Tracked;

  std::shared_ptr<int> count_ = std::make_shared<int>(0);
};

template <class Base>
class Tracked final : public Base {
 public:
  template <class... Arguments>
  explicit Tracked(const LifeCount& life, Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)...), count_(life.count_) {
    ++*count_;
  }
  ~Tracked() override { --*count_; }

 private:
  std::shared_ptr<int> count_;
};

}  // namespace tarvo::test
