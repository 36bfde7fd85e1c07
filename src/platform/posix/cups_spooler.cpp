#include "platform/posix/cups_spooler.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <string>

#include "platform/file/call_order.h"
#include "platform/file/output_file.h"
#include "platform/posix/cups_queue.h"

namespace tarvo {
namespace {

// 0, or why a step failed (see lastError() in the header).
using Outcome = std::int32_t;
constexpr Outcome kDone = 0;

// A file without a name: it goes with its descriptor, whatever becomes of the program.
platform::FileDescriptor openTemporaryFile() {
  const char* folder = std::getenv("TMPDIR");
  std::string name = folder != nullptr && *folder != '\0' ? folder : "/tmp";
  name += "/tarvo-XXXXXX";
  const platform::FileDescriptor file = mkostemp(name.data(), O_CLOEXEC);
  if (file != platform::kNoFile) unlink(name.c_str());
  return file;
}

// The whole file, piece by piece.
class FilePieces {
 public:
  explicit FilePieces(platform::FileDescriptor file) noexcept : file_(file) {}

  int operator()(std::string_view& piece) {
    const ssize_t length = pread(file_, buffer_.data(), buffer_.size(), position_);
    if (length < 0) return errno;
    piece = std::string_view(buffer_.data(), static_cast<std::size_t>(length));
    position_ += length;
    return 0;
  }

 private:
  platform::FileDescriptor file_;
  off_t position_ = 0;
  std::array<char, 16 * 1024> buffer_;
};

class CupsSpooler final : public Spooler {
 public:
  bool openPrinter(TextView name, PrinterHandle& handle) override {
    handle = 0;
    order_.close();
    if (document_.isOpen()) finishDocument();
    if (!remember(queue_.open(name).code)) return false;
    handle = order_.open();
    return true;
  }

  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override {
    if (!inOrder(order_.startDocument(handle))) return false;
    title_ = document.documentName;
    if (document_.start(openTemporaryFile())) return true;
    order_.endDocument(handle);
    return remember(document_.error());
  }

  bool startPage(PrinterHandle handle) override { return inOrder(order_.startPage(handle)); }

  bool write(PrinterHandle handle, std::string_view bytes) override {
    if (!inOrder(order_.write(handle))) return false;
    document_.write(bytes);
    return remember(document_.error());
  }

  bool endPage(PrinterHandle handle) override { return inOrder(order_.endPage(handle)); }

  bool endDocument(PrinterHandle handle) override {
    if (!inOrder(order_.endDocument(handle))) return false;
    return remember(finishDocument());
  }

  bool closePrinter(PrinterHandle handle) override {
    if (!inOrder(order_.close(handle))) return false;
    document_.abandon();
    return true;
  }

  std::int32_t lastError() const noexcept override { return lastError_; }

 private:
  Outcome finishDocument() {
    const Outcome outcome = document_.flush() ? submitCollected() : document_.error();
    document_.abandon();
    return outcome;
  }

  Outcome submitCollected() {
    // A server takes no job without data.
    const bool isEmpty = lseek(document_.descriptor(), 0, SEEK_END) == 0;
    if (isEmpty) return kDone;
    FilePieces pieces(document_.descriptor());
    return queue_.submit(title_, CupsFormat::kRaw, std::ref(pieces)).code;
  }

  bool inOrder(bool answer) noexcept { return remember(answer ? kDone : EBADF); }
  bool remember(Outcome outcome) noexcept {
    lastError_ = outcome;
    return outcome == kDone;
  }

  CallOrder order_;
  CupsQueue queue_;
  Text title_;
  OutputFile document_;
  Outcome lastError_ = kDone;
};

}  // namespace

Ref<Spooler> makeCupsSpooler() { return make<CupsSpooler>(); }
Ref<Spooler> platform::makeSystemSpooler() { return makeCupsSpooler(); }

}  // namespace tarvo
