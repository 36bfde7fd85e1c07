// Stand-in of the report utility: hands what it is told on to the report object, by name.
//
// A report object must offer these operations (texts, numbers and booleans by value):
//   "ApplyLayout"(layout) -> boolean       gets ready to show that layout (see report_layout.h)
//   "BindText"(control, column, width)     the text box shows that column of the data; its width in
//                                          twips, 0 leaves it
//   "SetFont"(control, font, size, bold, italic)                size in points
//   "Run"(toPrinter, title, modal, printer, device, option1, option2)
//                                          shows, prints or saves; device: ePrintingDevice's number
//
// Raises: 91 for an empty reference, 438 for an object that cannot be reached by name; what the
// report object raises passes as it is.  No reference is changed.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsUtReport final : public tarvo::clsUtReport {
 public:
  // The text of report_layout.h for the layout "rpxFormDraft", an empty one for any other name.
  // Names are compared exactly.
  void fLoadLayout(TextView valLayoutName, TextView valReportTitle, Text& result) override;

  // False for an empty layout, and then the report is not asked.
  // Raises: 13 when the report answers neither with a boolean nor with a number.
  bool fApplyLayout(Ref<Object>& refReport, TextView valLayout) override;

  void sBindText(Ref<Object>& refReport, TextView valControlName, TextView valColumnName,
                 std::int32_t valWidth) override;

  void sSetFont(Ref<Object>& refReport, TextView valControlName, TextView valFontName,
                std::int16_t valSize, bool valBold, bool valItalic) override;

  void sRunReport(Ref<Object>& refReport, bool valToPrinter, TextView valReportTitle, bool valModal,
                  TextView valPrinterName, tarvo::ePrintingDevice valDevice, TextView valOption1,
                  TextView valOption2) override;
};

}  // namespace LibTarvoCI
