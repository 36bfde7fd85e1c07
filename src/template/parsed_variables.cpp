#include "template/parsed_variables.h"

namespace tarvo {

const ParsedVariable* ParsedVariables::find(TextView text) {
  if (!services_.areTheSame()) variables_.clear();
  const auto found = variables_.find(text);
  return found == variables_.end() ? nullptr : found->second.get();
}

bool ParsedVariables::keep(TextView text, Ref<const ParsedVariable> parsed) {
  if (!services_.areTheSame()) {
    variables_.clear();
    return false;
  }
  if (text.size() > kLongestText) return true;
  if (variables_.size() >= kMostVariables) variables_.clear();
  variables_.insert_or_assign(Text(text), std::move(parsed));
  return true;
}

}  // namespace tarvo
