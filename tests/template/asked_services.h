// Stand-ins as services that must be asked for everything, as outside ones are.
#pragma once

#include <functional>

#include "tests/equipment/forwarding_services.h"

namespace tarvo::test {

class AskedTexto final : public ForwardingTexto {
 public:
  bool splitsIntoNothing = false;    // another service's answer to an empty text
  std::function<void()> atEachCall;  // happens before the call is answered

  void fSplit(TextView valText, TextView valSeparator, TextList& result) override {
    ForwardingTexto::fSplit(valText, valSeparator, result);
    if (splitsIntoNothing && valText.empty()) result.clear();
  }

 private:
  clsTexto& next() override {
    if (atEachCall) atEachCall();
    return ForwardingTexto::next();
  }
};

using AskedDate = ForwardingDate;

}  // namespace tarvo::test
