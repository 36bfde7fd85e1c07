// The names that the templates of a report asked for, as far as a person should be told of them
// afterwards: a misspelt name prints "No se encontró", and nothing else tells of it.
#pragma once

#include <string>
#include <vector>

#include "frame/text.h"
#include "template/text_key.h"

namespace tarvordp {

class AskedNames {
 public:
  // Names that were given a value for this report alone, so that somebody expects them to be asked
  // for.  As they were written, in UTF-8.
  void expect(const std::vector<std::string>& names);

  // Whether one of those was not asked for so far.
  bool expectsMore() const noexcept { return !unasked_.empty(); }

  // A template asked for the name.  `isNowhere`: no record and no value of the job has it; a name
  // whose value is null is somewhere, and answered so on purpose.
  void note(const tarvo::Text& name, bool isNowhere);

  // What a person should know, a sentence each; none when all is well.
  std::vector<std::string> hints() const;

 private:
  bool isAny_ = false;  // whether there was a name at all
  struct Expected {
    std::string written;
    tarvo::Text key;  // in capitals
  };

  std::vector<Expected> unasked_;        // of the expected ones
  std::vector<std::string> unanswered_;  // as the templates wrote them first
  tarvo::TextMap<bool> unansweredKeys_;  // the same, in capitals
};

}  // namespace tarvordp
