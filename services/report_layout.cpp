#include "services/report_layout.h"

namespace LibTarvoCI {
namespace {
constexpr char16_t kSeparator = u'|';
}

Text layoutText(const ReportLayout& layout) {
  Text text = layout.name;
  text.push_back(kSeparator);
  return text.append(layout.reportTitle);
}

bool readLayout(TextView text, ReportLayout& layout) {
  const std::size_t separator = text.find(kSeparator);
  if (separator == TextView::npos) return false;
  layout.name = text.substr(0, separator);
  layout.reportTitle = text.substr(separator + 1);
  return true;
}

}  // namespace LibTarvoCI
