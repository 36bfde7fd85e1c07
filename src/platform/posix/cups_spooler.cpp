#include "platform/posix/cups_spooler.h"

#include <cups/cups.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/file/call_order.h"
#include "platform/file/output_file.h"

namespace tarvo {
namespace {

// 0, or why a step failed (see lastError() in the header).
using Outcome = std::int32_t;
constexpr Outcome kDone = 0;
constexpr Outcome kServerAway = IPP_STATUS_ERROR_SERVICE_UNAVAILABLE;
constexpr Outcome kNoSuchQueue = IPP_STATUS_ERROR_NOT_FOUND;

constexpr int kConnectMilliseconds = 30'000;
constexpr double kSilenceSeconds = 60;

struct CloseConnection {
  void operator()(http_t* connection) const noexcept { httpClose(connection); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;

struct FreeDestination {
  void operator()(cups_dest_t* destination) const noexcept { cupsFreeDests(1, destination); }
};
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;

// A connection lives for one question or one job; no pause of the program finds one open.
Connection connect() {
  Connection connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(),
                                     1, kConnectMilliseconds, nullptr));
  const auto giveUp = [](http_t*, void*) { return 0; };
  if (connection) httpSetTimeout(connection.get(), kSilenceSeconds, giveUp, nullptr);
  return connection;
}

Outcome whyRefused() noexcept {
  const auto status = static_cast<Outcome>(cupsLastError());
  return status >= static_cast<Outcome>(IPP_STATUS_ERROR_BAD_REQUEST)
             ? status
             : static_cast<Outcome>(IPP_STATUS_ERROR_INTERNAL);
}

// The queue of that name, with the user's own options for it; none when the server has none.
Destination findDestination(http_t* connection, const std::string& name) {
  const std::size_t slash = name.find('/');
  const std::string queue = name.substr(0, slash);
  const std::string instance = slash == std::string::npos ? "" : name.substr(slash + 1);
  // What follows a character 0 would be ignored.
  if (name.find('\0') != std::string::npos) return nullptr;
  Destination found(
      cupsGetNamedDest(connection, queue.c_str(), instance.empty() ? nullptr : instance.c_str()));
  // A printer that was only seen in the network has no queue to put jobs in.
  const bool hasQueue = found && cupsGetOption("printer-uri-supported", found->num_options,
                                               found->options) != nullptr;
  return hasQueue ? std::move(found) : nullptr;
}

// What a server takes as a title: 255 bytes of whole characters, none of them a control.
std::string titleOf(TextView documentName) {
  constexpr std::size_t kLongest = 255;
  std::string title = toUtf8(documentName);
  std::size_t length = std::min(title.size(), kLongest);
  const auto isInsideCharacter = [&title](std::size_t at) {
    return at < title.size() && (static_cast<unsigned char>(title[at]) & 0xC0) == 0x80;
  };
  while (isInsideCharacter(length)) --length;
  title.resize(length);
  for (char& byte : title) {
    if (static_cast<unsigned char>(byte) < ' ' || byte == 0x7F) byte = ' ';
  }
  return title;
}

// A file without a name: it goes with its descriptor, whatever becomes of the program.
platform::FileDescriptor openTemporaryFile() {
  const char* folder = std::getenv("TMPDIR");
  std::string name = folder != nullptr && *folder != '\0' ? folder : "/tmp";
  name += "/tarvo-XXXXXX";
  const platform::FileDescriptor file = mkostemp(name.data(), O_CLOEXEC);
  if (file != platform::kNoFile) unlink(name.c_str());
  return file;
}

// Sends the whole file as the data of the request that is open on the connection.
Outcome sendFile(http_t* connection, platform::FileDescriptor file) {
  std::array<char, 16 * 1024> piece;
  off_t position = 0;
  for (;;) {
    const ssize_t length = pread(file, piece.data(), piece.size(), position);
    if (length == 0) return kDone;
    if (length < 0) return errno;
    const http_status_t status =
        cupsWriteRequestData(connection, piece.data(), static_cast<std::size_t>(length));
    if (status != HTTP_STATUS_CONTINUE) return whyRefused();
    position += length;
  }
}

Outcome sendDocument(http_t* connection, const cups_dest_t& destination, int job, const char* title,
                     platform::FileDescriptor file) {
  const http_status_t started =
      cupsStartDocument(connection, destination.name, job, title, CUPS_FORMAT_RAW, 1);
  if (started != HTTP_STATUS_CONTINUE) return whyRefused();
  const Outcome sent = sendFile(connection, file);
  const ipp_status_t finished = cupsFinishDocument(connection, destination.name);
  if (sent != kDone) return sent;
  return finished <= IPP_STATUS_OK_CONFLICTING ? kDone : whyRefused();
}

Outcome submit(const cups_dest_t& destination, const std::string& title,
               platform::FileDescriptor file) {
  const Connection connection = connect();
  if (!connection) return kServerAway;
  const char* const givenTitle = title.empty() ? nullptr : title.c_str();
  const int job = cupsCreateJob(connection.get(), destination.name, givenTitle,
                                destination.num_options, destination.options);
  if (job == 0) return whyRefused();
  const Outcome sent = sendDocument(connection.get(), destination, job, givenTitle, file);
  // Half a job must not wait in the queue.  The old connection may be what failed.
  if (sent != kDone) cupsCancelJob2(connect().get(), destination.name, job, 0);
  return sent;
}

class CupsSpooler final : public Spooler {
 public:
  bool openPrinter(TextView name, PrinterHandle& handle) override {
    handle = 0;
    order_.close();
    if (document_.isOpen()) finishDocument();
    const Connection connection = connect();
    if (!connection) return remember(kServerAway);
    destination_ = findDestination(connection.get(), toUtf8(name));
    if (!destination_) return remember(kNoSuchQueue);
    handle = order_.open();
    return remember(kDone);
  }

  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override {
    if (!inOrder(order_.startDocument(handle))) return false;
    title_ = titleOf(document.documentName);
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
    return isEmpty ? kDone : submit(*destination_, title_, document_.descriptor());
  }

  bool inOrder(bool answer) noexcept { return remember(answer ? kDone : EBADF); }
  bool remember(Outcome outcome) noexcept {
    lastError_ = outcome;
    return outcome == kDone;
  }

  CallOrder order_;
  Destination destination_;
  std::string title_;
  OutputFile document_;
  Outcome lastError_ = kDone;
};

}  // namespace

Ref<Spooler> makeCupsSpooler() { return make<CupsSpooler>(); }
Ref<Spooler> platform::makeSystemSpooler() { return makeCupsSpooler(); }

}  // namespace tarvo
