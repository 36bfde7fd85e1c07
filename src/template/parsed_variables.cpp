#include "template/parsed_variables.h"

#include "frame/modRDPGlobalValues.h"

namespace tarvo {

const ParsedVariable* ParsedVariables::find(TextView text) {
  forgetUnlessServicesAreTheSame();
  const auto found = variables_.find(text);
  return found == variables_.end() ? nullptr : found->second.get();
}

void ParsedVariables::keep(TextView text, Ref<const ParsedVariable> parsed) {
  if (text.size() > kLongestText) return;
  forgetUnlessServicesAreTheSame();
  if (variables_.size() >= kMostVariables) variables_.clear();
  variables_.insert_or_assign(Text(text), std::move(parsed));
}

void ParsedVariables::forgetUnlessServicesAreTheSame() {
  const modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
  if (services.refInsTexto == texto_ && services.refInsConvert == convert_) return;
  variables_.clear();
  texto_ = services.refInsTexto;
  convert_ = services.refInsConvert;
}

}  // namespace tarvo
