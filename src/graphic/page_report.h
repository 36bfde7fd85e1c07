// The report component: one text column on pages, one row of text for each row of the data.
//
// It is reached by the names of its members, as a report utility reaches any report (contract:
// services/clsUtReport.h):
//
//   "ApplyLayout"(layout) -> boolean    puts everything back to that layout's beginning.  It knows
//                                       "rpxFormDraft", alone or with "|" and anything behind;
//                                       False for any other text
//   "BindText"(control, column, width)  the text box shows that column; 0 leaves its width
//   "SetFont"(control, font, size, bold, italic)
//   "Run"(toPrinter, title, modal, printer, device, option1, option2)
//                                       lays the rows out, from the first on, and hands the pages
//                                       to the output: prints them when the first argument or the
//                                       device says so, else shows or saves them.  Options are not
//                                       looked at
//   "Sections"(name)                    "Detail", see page_report_parts.h
//   "PageSettings"                      likewise
//
// The layout: a Letter page, upright, with margins of a quarter of an inch; section "Detail" with
// the data control "dcOrigenData" and the text box "txtData" over the whole width; see PageFormat.
// A text box that shows no column shows nothing, but takes its room.
//
// Raises: 438 for unknown names, 13 for values of another kind, 450 for a wrong number of
// arguments, 5 for numbers that make no sense, 91 from Run without data; what the table and the
// output raise.
#pragma once

#include "graphic/page_output.h"
#include "graphic/page_report_parts.h"

namespace tarvo {

class PageReport final : public ReportPart {
 public:
  explicit PageReport(Ref<PageOutput> output);

  Text typeName() override { return u"PageReport"; }
  Value call(TextView name, std::span<const Value> arguments) override;
  Value get(TextView name, std::span<const Value> indexes) override;

 private:
  bool applyLayout(std::span<const Value> arguments);
  void bindText(std::span<const Value> arguments);
  void setFont(std::span<const Value> arguments);
  void run(std::span<const Value> arguments);

  LateObject& textBox(const Value& name) const;
  Ref<const PagedText> layOut() const;

  Ref<PageOutput> output_;
  Ref<DetailSection> detail_;
  Ref<PageSettings> settings_;
};

}  // namespace tarvo
