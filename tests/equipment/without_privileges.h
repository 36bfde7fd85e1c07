// What a user may who is not the administrator.
#pragma once

#include <grp.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

namespace tarvo::test {

// While it lives, somebody else is at work, of none of the administrator's groups: the
// administrator may read and write everything.
class WithoutPrivileges {
 public:
  WithoutPrivileges() : user_(geteuid()), group_(getegid()) {
    if (user_ != 0) return;
    groups_.resize(static_cast<std::size_t>(getgroups(0, nullptr)));
    getgroups(static_cast<int>(groups_.size()), groups_.data());
    isOther_ = setgroups(0, nullptr) == 0 && setegid(kNobody) == 0 && seteuid(kNobody) == 0;
    if (!isOther_) restore();
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
  ~WithoutPrivileges() {
    if (isOther_) restore();
  }

  bool areThey() const { return user_ != 0 || isOther_; }

 private:
  static constexpr uid_t kNobody = 65534;

  // A test must not go on as somebody else than it began.
  void restore() const {
    const bool isBack = seteuid(user_) == 0 && setegid(group_) == 0 &&
                        setgroups(groups_.size(), groups_.data()) == 0;
    if (!isBack) std::abort();
  }

  uid_t user_;
  gid_t group_;
  std::vector<gid_t> groups_;
  bool isOther_ = false;
};

}  // namespace tarvo::test
