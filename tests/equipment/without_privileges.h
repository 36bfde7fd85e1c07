// What a user may who is not the administrator.
#pragma once

#include <unistd.h>

#include <cstdlib>

namespace tarvo::test {

// While it lives, somebody else is at work: the administrator may read and write everything.
class WithoutPrivileges {
 public:
  WithoutPrivileges() : user_(geteuid()) {
    if (user_ == 0) isOther_ = seteuid(kNobody) == 0;
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
  ~WithoutPrivileges() {
    if (isOther_ && seteuid(user_) != 0) std::abort();
  }

  bool areThey() const { return user_ != 0 || isOther_; }

 private:
  static constexpr uid_t kNobody = 65534;

  uid_t user_;
  bool isOther_ = false;
};

}  // namespace tarvo::test
