#include "callback_probe.h"

#include "frame/com/outside_object.h"
#include "frame/com/public_com_classes.h"
#include "frame/com/server.h"

namespace tarvo {
namespace {

constexpr Currency kSubtotal = Currency::ofUnits(1500);

Text reported(const char* operation, TextView result) {
  return fromAscii(operation) + u" " + Text(result) + u"\n";
}
Text shown(bool value) { return value ? u"true" : u"false"; }
Text numberShown(std::int64_t value) { return fromAscii(std::to_string(value)); }

class ClientOfReport final : public VariableSource {
 public:
  explicit ClientOfReport(clsImplementIDMD& client) : client_(client) {}
  bool answer(Ref<clsObLineCharacts>& line) override {
    return client_.fTranslateSpecialVarMD(line, kSubtotal);
  }

 private:
  clsImplementIDMD& client_;
};

class ClientOfForm final : public VariableSource {
 public:
  explicit ClientOfForm(clsImplementIDTraduc& client) : client_(client) {}
  bool answer(Ref<clsObLineCharacts>& line) override { return client_.fTranslateSpecialVar(line); }

 private:
  clsImplementIDTraduc& client_;
};

Text translated(LineTranslator& translator, Ref<clsObLineCharacts>& line, TextView templateLine,
                VariableSource& source) {
  line->sClrRecord();
  translator.translate(line, templateLine, source);
  return line->GetTextToPrint();
}

}  // namespace

const ErrorIdentity& clsCallbackProbe::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsCallbackProbe", u"Probe"};
  return kIdentity;
}

void clsCallbackProbe::sInit(Ref<clsImplementIDMD>& initTraducSpecialVar) {
  client_ = initTraducSpecialVar;
}

Text clsCallbackProbe::fCallAll(Currency valTotal) try {
  const bool known = client_->fTranslateSpecialVarMD(line_, valTotal);
  Text report = reported("fTranslateSpecialVarMD", shown(known));
  client_->sDisplayPauseDialog();
  report += reported("fReadFirstRecord", shown(client_->fReadFirstRecord()));
  report += reported("fReadNextRecord", shown(client_->fReadNextRecord()));
  Currency total = valTotal;
  client_->sAccumSubTotal(total);
  report += reported("sAccumSubTotal", numberShown(total.tenThousandths));
  bool mustShow = false;
  Text message;
  const bool can = client_->fCanExecuteWriteReport(mustShow, message);
  report += reported("fCanExecuteWriteReport",
                     shown(can) + u", " + shown(mustShow) + u", \"" + message + u"\"");
  report += reported("fDetailRecordCount", numberShown(client_->fDetailRecordCount()));
  return report;
} catch (...) {
  trap("fCallAll");
}

Text clsCallbackProbe::fTranslateLine(TextView valLine) try {
  ClientOfReport source(*client_);
  return translated(translator_, line_, valLine, source);
} catch (...) {
  trap("fTranslateLine");
}

void clsFormCallbackProbe::sInit(Ref<clsImplementIDTraduc>& initTraducSpecialVar) {
  client_ = initTraducSpecialVar;
}
void clsFormCallbackProbe::sPause() { client_->sDisplayPauseDialog(); }
Text clsFormCallbackProbe::fTranslateLine(TextView valLine) {
  ClientOfForm source(*client_);
  return translated(translator_, line_, valLine, source);
}

namespace com {

const ServerDescription& serverDescription() {
  static const auto classes =
      comClasses(ClassList<clsCallbackProbe, clsFormCallbackProbe, clsObSpecialVar,
                           clsObLineCharacts, clsImplementIDTraduc, clsImplementIDMD>{});
  static const ServerDescription description{&kProbeLibrary, classes, &makeCallbackProxy};
  return description;
}

}  // namespace com
}  // namespace tarvo
