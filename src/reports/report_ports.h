// What a report engine reaches the world through, besides the printer channel and the services.
#pragma once

#include "graphic/page_output.h"
#include "reports/text_files.h"

namespace tarvo {

struct ReportPorts {
  Ref<TextFiles> files;    // where templates are read
  Ref<PageOutput> output;  // where the pages of the graphic channel go

  // Those of the platform.
  static ReportPorts ofPlatform();
};

}  // namespace tarvo
