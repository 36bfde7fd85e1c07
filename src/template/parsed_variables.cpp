#include "template/parsed_variables.h"

namespace tarvo {

const ParsedVariable* ParsedVariables::find(TextView text) {
  if (!services_.areTheSame()) variables_.clear();
  const auto found = variables_.find(text);
  return found == variables_.end() ? nullptr : found->second.get();
}

void ParsedVariables::keep(TextView text, Ref<const ParsedVariable> parsed) {
  if (!services_.areTheSame()) {  // replaced while it was read: it was read with both
    variables_.clear();
    return;
  }
  if (text.size() > kLongestText) return;
  if (variables_.size() >= kMostVariables) variables_.clear();
  variables_.insert_or_assign(Text(text), std::move(parsed));
}

}  // namespace tarvo
