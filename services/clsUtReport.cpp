#include "services/clsUtReport.h"

#include <array>

#include "services/late_bound.h"
#include "services/report_layout.h"

namespace LibTarvoCI {
namespace {

template <class... Arguments>
Value callReport(const Ref<Object>& report, TextView operation, Arguments... arguments) {
  const std::array<Value, sizeof...(Arguments)> values{Value(arguments)...};
  return lateObject(report, u"refReport").call(operation, values);
}

}  // namespace

void clsUtReport::fLoadLayout(TextView valLayoutName, TextView valReportTitle, Text& result) {
  result.clear();
  if (valLayoutName != kDraftLayout) return;
  result = layoutText({Text(valLayoutName), Text(valReportTitle)});
}

bool clsUtReport::fApplyLayout(Ref<Object>& refReport, TextView valLayout) {
  if (valLayout.empty()) return false;
  return booleanOf(callReport(refReport, u"ApplyLayout", valLayout), u"ApplyLayout");
}

void clsUtReport::sBindText(Ref<Object>& refReport, TextView valControlName, TextView valColumnName,
                            std::int32_t valWidth) {
  callReport(refReport, u"BindText", valControlName, valColumnName, valWidth);
}

void clsUtReport::sSetFont(Ref<Object>& refReport, TextView valControlName, TextView valFontName,
                           std::int16_t valSize, bool valBold, bool valItalic) {
  callReport(refReport, u"SetFont", valControlName, valFontName, valSize, valBold, valItalic);
}

void clsUtReport::sRunReport(Ref<Object>& refReport, bool valToPrinter, TextView valReportTitle,
                             bool valModal, TextView valPrinterName,
                             tarvo::ePrintingDevice valDevice, TextView valOption1,
                             TextView valOption2) {
  callReport(refReport, u"Run", valToPrinter, valReportTitle, valModal, valPrinterName,
             static_cast<std::int32_t>(valDevice), valOption1, valOption2);
}

}  // namespace LibTarvoCI
