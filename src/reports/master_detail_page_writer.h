// The page writer of the master-detail report: page_writer.h, and what is its own.
//
// A page ends with a form feed, or with empty lines: on half-letter paper down to the paper's last
// line, else five where no form feed is asked for.  Lines are counted in 16 bits.  A page length of
// 0 means that only the word breaks a page.
#pragma once

#include "reports/page_writer.h"

namespace tarvo {

// What the report knows of its paper.
struct HalfLetterPaper {
  bool isUsed = false;
  std::uint8_t lines = 29;
};

class MasterDetailPageWriter final : public PageWriter {
 public:
  // `paper` outlives the writer.
  MasterDetailPageWriter(const ErrorIdentity& report, PageWriterHost& host,
                         const HalfLetterPaper& paper) noexcept;

  bool fHasToSkipPage() override;
  void sSkipPage(bool eject) override;

  // Writes that many empty lines, each of which may break the page.
  void sSkipNLines(std::uint8_t count) override;

 private:
  void fillHalfLetterPage();

  const HalfLetterPaper& paper_;
};

}  // namespace tarvo
