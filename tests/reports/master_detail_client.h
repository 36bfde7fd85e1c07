// A client of the master-detail report: records and values as a person types them, and an account
// of how it is called.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "equipment/call_log.h"
#include "equipment/show_arguments.h"
#include "frame/clsImplementIDMD.h"
#include "template/clsObLineCharacts.h"
#include "typed_values.h"

namespace tarvo::test {

class MasterDetailClient final : public clsImplementIDMD {
 public:
  explicit MasterDetailClient(CallLog& log) : log_(log) {}

  TypedValues values;                                       // of every section
  std::vector<TypedValues> records;                         // searched first
  std::vector<Currency> amounts;                            // what each record adds to the subtotal
  std::map<std::string, std::vector<std::string>> repeats;  // one text for each pass
  bool canPrint = true;
  bool showsRefusal = false;
  Text refusal;
  Fault fault;  // of every callback
  std::function<void(const std::string&)> beforeCall;
  std::function<bool(Ref<clsObLineCharacts>&)> translates;  // in the place of the values

  // Forgets how far the repeated lines are, as after an error.
  void restart() { passes_.clear(); }

  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& refLineToWrite,
                              Currency valMontoSubTotal) override {
    const std::string name = TypedValues::nameOf(*refLineToWrite->GetSpecialVar());
    called("fTranslateSpecialVarMD " + name + ", " + show(valMontoSubTotal));
    if (translates) return translates(refLineToWrite);
    clsObSpecialVar& variable = *refLineToWrite->GetSpecialVar();
    if (const auto found = repeats.find(name); found != repeats.end()) {
      return storeNextPass(variable, name, found->second);
    }
    return (present_ < records.size() && records[present_].store(variable)) ||
           values.store(variable);
  }

  void sDisplayPauseDialog() override { called("sDisplayPauseDialog"); }

  bool fReadFirstRecord() override {
    called("fReadFirstRecord");
    present_ = 0;
    return !records.empty();
  }

  bool fReadNextRecord() override {
    called("fReadNextRecord");
    if (present_ + 1 >= records.size()) return false;
    ++present_;
    return true;
  }

  void sAccumSubTotal(Currency& refMontoSubTotal) override {
    called("sAccumSubTotal " + show(refMontoSubTotal));
    if (present_ < amounts.size()) refMontoSubTotal += amounts[present_];
  }

  bool fCanExecuteWriteReport(bool& refMustShowErrorMsg, Text& refErrorMsgToDisplay) override {
    called("fCanExecuteWriteReport " + show(refMustShowErrorMsg) + ", " +
           inQuotes(refErrorMsgToDisplay));
    refMustShowErrorMsg = showsRefusal;
    refErrorMsgToDisplay = refusal;
    return canPrint;
  }

  std::int32_t fDetailRecordCount() override {
    called("fDetailRecordCount");
    return static_cast<std::int32_t>(records.size());
  }

 private:
  void called(const std::string& what) {
    log_.add("client." + what);
    if (beforeCall) beforeCall(what);
    fault.countCall();
  }

  bool storeNextPass(clsObSpecialVar& variable, const std::string& name,
                     const std::vector<std::string>& texts) {
    std::size_t& pass = passes_[name];
    variable.SetContentString(fromUtf8(texts[pass]));
    pass = (pass + 1) % texts.size();
    variable.SetEndOfRepeatPrintLine(pass == 0);
    return true;
  }

  CallLog& log_;
  std::size_t present_ = static_cast<std::size_t>(-1);
  std::map<std::string, std::size_t> passes_;
};

}  // namespace tarvo::test
