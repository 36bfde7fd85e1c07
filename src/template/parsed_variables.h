// The variables that were read before, by the text between their braces.
//
// As good as reading them again, as long as the services are the same ones: with others everything
// is forgotten.  Holds a bounded number of them, so a text that is never the same twice costs no
// memory.
#pragma once

#include "template/parsed_variable.h"
#include "template/services_seen.h"
#include "template/text_key.h"

namespace tarvo {

class ParsedVariables {
 public:
  static constexpr std::size_t kMostVariables = 512;
  static constexpr std::size_t kLongestText = 1024;  // longer ones are not kept

  // Null when the text was not read before with the present services.
  const ParsedVariable* find(TextView text);

  // Keeps it, in place of all others when there are too many.  False: it must be read again each
  // time, for the services were replaced while it was read.
  bool keep(TextView text, Ref<const ParsedVariable> parsed);

 private:
  TextMap<Ref<const ParsedVariable>> variables_;
  ServicesSeen services_;
};

}  // namespace tarvo
