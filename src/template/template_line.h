// A template line that has been looked through: where its variables stand, and what each of them
// says once it was read.
//
// Only a regular line, one whose braces come in pairs, and no comment, is translated by it; any
// other line is taken as it comes.  It depends on the text and the services alone.
#pragma once

#include <vector>

#include "frame/object.h"
#include "frame/text.h"
#include "template/control_words.h"
#include "template/parsed_variable.h"
#include "template/services_seen.h"

namespace tarvo {

class TemplateLine final : public Object {
 public:
  struct Variable {
    std::size_t open;  // index of its "{" in the line
    std::size_t size;  // characters between its braces

    // Once it was read; empty as long as reading it must be done again.
    Ref<const ParsedVariable> parsed;
    Control control = Control::kNone;
    bool isConstant = false;  // its name begins with "@"

    std::size_t end() const noexcept { return open + size + 2; }
  };

  // `services`: those with which its variables are read.
  TemplateLine(TextView text, const ServicesSeen& services);

  const Text& text() const noexcept { return text_; }

  // Whether the present services are those with which it is read.
  bool isOfPresentServices() const { return services_.arePresent(); }

  // Whether its first characters but blanks are "...".
  bool isComment() const noexcept { return isComment_; }

  // Whether every "{" has its "}" before the next one, and no "}" stands alone.
  bool isRegular() const noexcept { return isRegular_; }

  // In their order.  REQUIRES: a regular line.
  Variable* variables() noexcept { return variables_.data(); }
  const Variable* variablesEnd() const noexcept { return variables_.data() + variables_.size(); }

 private:
  void findVariables();

  Text text_;
  ServicesSeen services_;
  std::vector<Variable> variables_;
  bool isComment_;
  bool isRegular_ = true;
};

}  // namespace tarvo
