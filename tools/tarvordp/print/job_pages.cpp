#include "tarvordp/print/job_pages.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "frame/run_time_error.h"
#include "graphic/saved_pages.h"
#include "platform/file/file_spooler.h"
#include "tarvordp/print/output_file.h"

namespace tarvordp {
namespace {

namespace fs = std::filesystem;

// The file in which pages that cannot be shown will be saved (graphic/saved_pages.h).
tarvo::Text freeFileFor(tarvo::TextView title) {
  const fs::path first(tarvo::toUtf8(tarvo::pathForPages(title, {})));
  fs::path path = first;
  std::error_code ignored;
  for (int number = 2; fs::exists(fs::symlink_status(path, ignored)); ++number) {
    path = first.stem().string() + "." + std::to_string(number) + first.extension().string();
  }
  return tarvo::fromUtf8(path.string());
}

// Other errors come before anything is written: a file that was there is still there.
bool mayHaveLeftAPart(const tarvo::RunTimeError& error) {
  return error.number() == tarvo::kDiskFull || error.number() == tarvo::kDeviceError;
}

}  // namespace

JobPages::JobPages(tarvo::Ref<tarvo::PageOutput> platform, const std::string& file, Operator& op)
    : platform_(std::move(platform)), operator_(op) {
  if (!file.empty()) filePrinter_.append(tarvo::kFilePrinterPrefix).append(tarvo::fromUtf8(file));
}

// `path`: the file that may come of it; empty: none.
template <class Send>
void JobPages::send(const tarvo::PagedText& pages, tarvo::TextView path, Send send) {
  if (pages.rowsOnPage(0) == 0) return;  // and a file that was there stays there
  const std::string file = tarvo::toUtf8(path);
  try {
    send();
  } catch (const tarvo::RunTimeError& error) {
    if (mayHaveLeftAPart(error) && removeOrdinaryFile(file)) {
      operator_.tell("tarvordp: " + file + " was not whole and was removed");
    }
    throw;
  }
  pages_ += pages.pageCount();
  std::error_code ignored;
  if (!file.empty() && file != kStandardOutput && fs::exists(file, ignored)) {
    operator_.tell("tarvordp: the pages are in " + file);
  }
}

void JobPages::show(const tarvo::Ref<const tarvo::PagedText>& pages, tarvo::TextView title,
                    bool modal) {
  if (!filePrinter_.empty()) return save(pages, title, filePrinter_);
  send(*pages, freeFileFor(title), [&] { platform_->show(pages, title, modal); });
}

void JobPages::print(const tarvo::Ref<const tarvo::PagedText>& pages, tarvo::TextView title,
                     tarvo::TextView printerName) {
  if (!filePrinter_.empty()) return save(pages, title, filePrinter_);
  const bool isFile = tarvo::isFilePrinter(printerName);
  send(*pages, isFile ? tarvo::pathForPages(title, printerName) : tarvo::Text(),
       [&] { platform_->print(pages, title, printerName); });
}

void JobPages::save(const tarvo::Ref<const tarvo::PagedText>& pages, tarvo::TextView title,
                    tarvo::TextView printerName) {
  send(*pages, tarvo::pathForPages(title, printerName),
       [&] { tarvo::savePages(*pages, title, printerName); });
}

}  // namespace tarvordp
