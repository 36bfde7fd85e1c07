// Looks for what is wrong with a printer profile before anything is printed through it.
//
// Only what the profile itself shows: whether a printer understands its codes is seen on paper
// (tarvordp testpage).
#pragma once

#include <string>
#include <vector>

#include "tarvordp/profile/profile.h"

namespace tarvordp {

struct ProfileRemark {
  enum class Kind { warning, note };  // something will go wrong; something to know

  Kind kind;
  std::string text;  // a sentence, with the property's name
};

// Warnings first.
std::vector<ProfileRemark> checkProfile(const Profile& profile);

}  // namespace tarvordp
