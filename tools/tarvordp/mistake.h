// What the user wrote is wrong: arguments, a job file, a profile, data, a template.
//
// The program tells it on the standard error stream and ends with status 2.  Nothing was printed.
#pragma once

#include <stdexcept>
#include <string>

namespace tarvordp {

class Mistake : public std::runtime_error {
 public:
  // The whole sentence in UTF-8, with the place first: "job.json: /copies: must be ...".
  using std::runtime_error::runtime_error;
};

}  // namespace tarvordp
