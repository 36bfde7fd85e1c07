#include "platform/file/file_spooler.h"

#include <cerrno>
#include <map>
#include <string>

#include "platform/file/call_order.h"
#include "platform/file/output_file.h"

namespace tarvo {
namespace {

constexpr TextView kStandardOutput = u"-";

class FileSpooler final : public Spooler {
 public:
  bool openPrinter(TextView name, PrinterHandle& handle) override;
  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override;
  bool startPage(PrinterHandle handle) override { return inOrder(order_.startPage(handle)); }
  bool write(PrinterHandle handle, std::string_view bytes) override {
    return inOrder(order_.write(handle)) && report(job_.write(bytes));
  }
  bool endPage(PrinterHandle handle) override { return inOrder(order_.endPage(handle)); }
  bool endDocument(PrinterHandle handle) override {
    return inOrder(order_.endDocument(handle)) && report(job_.finish());
  }
  bool closePrinter(PrinterHandle handle) override {
    return inOrder(order_.close(handle)) && finishAbandonedJob();
  }
  std::int32_t lastError() const noexcept override { return lastError_; }

 private:
  // What was printed on one path so far.
  struct Printed {
    std::uint32_t jobs = 0;
    bool isDevice = false;  // takes every job itself
  };

  platform::FileDescriptor openJob();
  bool finishAbandonedJob() { return report(!job_.isOpen() || job_.finish()); }

  bool inOrder(bool answer) noexcept { return remember(answer, EBADF); }
  bool report(bool answer) noexcept { return remember(answer, job_.error()); }
  bool remember(bool answer, std::int32_t error) noexcept {
    lastError_ = answer ? 0 : error;
    return answer;
  }

  CallOrder order_;
  Text path_;
  std::map<Text, Printed> printed_;
  OutputFile job_;
  std::int32_t lastError_ = 0;
};

bool FileSpooler::openPrinter(TextView name, PrinterHandle& handle) {
  handle = 0;
  order_.close();
  finishAbandonedJob();
  const bool isOurs = name.starts_with(kFilePrinterPrefix);
  const TextView path = isOurs ? name.substr(kFilePrinterPrefix.size()) : TextView();
  errno = 0;
  if (path != kStandardOutput && !platform::canHoldFile(path)) return remember(false, errno);
  path_ = path;
  handle = order_.open();
  return remember(true, 0);
}

bool FileSpooler::startDocument(PrinterHandle handle, const DocumentDescription&) {
  if (!inOrder(order_.startDocument(handle))) return false;
  if (report(job_.start(openJob()))) return true;
  order_.endDocument(handle);
  return false;
}

platform::FileDescriptor FileSpooler::openJob() {
  if (path_ == kStandardOutput) return platform::openStandardOutput();
  Printed& printed = printed_[path_];
  const bool isNumbered = printed.jobs > 0 && !printed.isDevice;
  const Text path = isNumbered ? path_ + u"." + fromAscii(std::to_string(printed.jobs + 1)) : path_;
  const platform::FileDescriptor file = platform::openForWriting(path);
  if (file == platform::kNoFile) return file;
  if (printed.jobs == 0) printed.isDevice = !platform::isOrdinaryFile(file);
  ++printed.jobs;
  return file;
}

}  // namespace

Ref<Spooler> makeFileSpooler() { return make<FileSpooler>(); }

}  // namespace tarvo
