// Where the pages of a printed job's graphic output go: into the file that was asked for, else
// where the platform puts them; and the operator is told about files.
//
// A file that was not written whole is removed.
#pragma once

#include <cstdint>
#include <string>

#include "graphic/page_output.h"
#include "tarvordp/print/operator.h"

namespace tarvordp {

class JobPages final : public tarvo::PageOutput {
 public:
  // `file`: where all pages are saved, in UTF-8; empty: nothing was asked for.
  // REQUIRES: `op` outlives the calls.
  JobPages(tarvo::Ref<tarvo::PageOutput> platform, const std::string& file, Operator& op);

  void show(const tarvo::Ref<const tarvo::PagedText>& pages, tarvo::TextView title,
            bool modal) override;
  void print(const tarvo::Ref<const tarvo::PagedText>& pages, tarvo::TextView title,
             tarvo::TextView printerName) override;
  void save(const tarvo::Ref<const tarvo::PagedText>& pages, tarvo::TextView title,
            tarvo::TextView printerName) override;

  // That arrived.
  std::uint64_t pages() const noexcept { return pages_; }

 private:
  template <class Send>
  void send(const tarvo::PagedText& pages, tarvo::TextView path, Send send);

  tarvo::Ref<tarvo::PageOutput> platform_;
  tarvo::Text filePrinter_;  // "file:PATH"; empty: no file was asked for
  Operator& operator_;
  std::uint64_t pages_ = 0;
};

}  // namespace tarvordp
