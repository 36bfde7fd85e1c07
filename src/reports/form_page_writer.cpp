#include "reports/form_page_writer.h"

#include <limits>

#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"

namespace tarvo {

FormPageWriter::FormPageWriter(const ErrorIdentity& report, PageWriterHost& host) noexcept
    : PageWriter(report, host, std::numeric_limits<std::uint8_t>::max()) {}

bool FormPageWriter::fHasToSkipPage() try {
  if (host().skipPageWasRead()) return true;
  return line() >= modRDPGlobalValues::ofThisThread().refInsImp->GetMaxLinPage();
} catch (...) {
  trap("fHasToSkipPage");
}

void FormPageWriter::sSkipPage(bool) try {
  sWriteFormFeed();
  beginNextPage();
} catch (...) {
  trap("sSkipPage");
}

void FormPageWriter::sSkipNLines(std::uint8_t) try {
  countedLoop<std::uint8_t>(1, 255, [this](std::uint8_t) { sWriteLine({}); });
} catch (...) {
  trap("sSkipNLines");
}

}  // namespace tarvo
