// The page writer of the form report: page_writer.h, and what is its own.
//
// A page ends with a form feed, whatever is asked, and no header follows it.  Lines are counted in
// a byte.  A page length of 0 means that every checked line breaks the page.
#pragma once

#include "reports/page_writer.h"

namespace tarvo {

class FormPageWriter final : public PageWriter {
 public:
  FormPageWriter(const ErrorIdentity& report, PageWriterHost& host) noexcept;

  bool fHasToSkipPage() override;
  void sSkipPage(bool eject) override;

  // Not for use: whatever the count, it writes 255 empty lines, breaking pages as it goes, and then
  // fails.  Clients of old know it like that.
  // Raises: 6, always.
  void sSkipNLines(std::uint8_t count) override;
};

}  // namespace tarvo
