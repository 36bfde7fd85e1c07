#include "reports/master_detail_page_writer.h"

#include <limits>

#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

constexpr std::uint8_t kLinesInsteadOfFormFeed = 5;

}  // namespace

MasterDetailPageWriter::MasterDetailPageWriter(const ErrorIdentity& report, PageWriterHost& host,
                                               const HalfLetterPaper& paper) noexcept
    : PageWriter(report, host, std::numeric_limits<std::int16_t>::max()), paper_(paper) {}

bool MasterDetailPageWriter::fHasToSkipPage() try {
  if (host().skipPageWasRead()) return true;
  const std::uint8_t pageLength = modRDPGlobalValues::ofThisThread().refInsImp->GetMaxLinPage();
  return pageLength > 0 && line() >= pageLength;
} catch (...) {
  trap("fHasToSkipPage");
}

void MasterDetailPageWriter::sSkipPage(bool eject) try {
  if (paper_.isUsed) {
    fillHalfLetterPage();
  } else if (eject) {
    sWriteFormFeed();
  } else {
    sSkipNLines(kLinesInsteadOfFormFeed);
  }
  beginNextPage();
} catch (...) {
  trap("sSkipPage");
}

void MasterDetailPageWriter::fillHalfLetterPage() {
  for (int number = line(); number <= paper_.lines; ++number) sWriteLineNoSkipPage({});
}

void MasterDetailPageWriter::sSkipNLines(std::uint8_t count) try {
  for (int i = 0; i < count; ++i) sWriteLine({});
} catch (...) {
  trap("sSkipNLines");
}

}  // namespace tarvo
