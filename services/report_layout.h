// The texts by which the report utility knows a layout that it has loaded.
#pragma once

#include "services/fail.h"

namespace LibTarvoCI {

// A page of one column: one fixed-pitch text box in the detail, bound once per row.
inline constexpr TextView kDraftLayout = u"rpxFormDraft";

struct ReportLayout {
  Text name;
  Text reportTitle;
};

// "NAME|TITLE"; the title may hold anything.  REQUIRES: no "|" in the name.
Text layoutText(const ReportLayout& layout);

// Takes such a text apart.  False, and `layout` as it was, for a text without "|".
bool readLayout(TextView text, ReportLayout& layout);

}  // namespace LibTarvoCI
