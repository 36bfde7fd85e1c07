// A client of the form report that answers from typed values and writes down how it is called.
#pragma once

#include <functional>
#include <string>

#include "equipment/call_log.h"
#include "frame/clsImplementIDTraduc.h"
#include "template/clsObLineCharacts.h"
#include "typed_values.h"

namespace tarvo::test {

class FormClient final : public clsImplementIDTraduc {
 public:
  explicit FormClient(CallLog& log) : log_(log) {}

  TypedValues values;
  Fault fault;                                              // of both callbacks
  std::function<bool(Ref<clsObLineCharacts>&)> translates;  // in the place of the values

  bool fTranslateSpecialVar(Ref<clsObLineCharacts>& refLineToWrite) override {
    log_.add("client.fTranslateSpecialVar " +
             TypedValues::nameOf(*refLineToWrite->GetSpecialVar()));
    fault.countCall();
    if (translates) return translates(refLineToWrite);
    return values.store(*refLineToWrite->GetSpecialVar());
  }

  void sDisplayPauseDialog() override {
    log_.add("client.sDisplayPauseDialog");
    fault.countCall();
  }

 private:
  CallLog& log_;
};

}  // namespace tarvo::test
