// The page output of systems with CUPS and desktops of the usual kind.
//
// show: the PDF is a temporary file ($TMPDIR, else /tmp), which the user's viewer opens (xdg-open).
// It stays there: nobody can say when a viewer has read it.  A viewer that says that it could not
// is noticed only when the report is modal; where there is no display, no viewer, or no success,
// the pages are saved.  Modal lasts as long as xdg-open does, which on most desktops is not as long
// as the viewer's window.
//
// print: the PDF is one job of the queue, in the format application/pdf, so the queue's filters
// make of it what its printer wants.  Names are those of cups_spooler.h: "queue", "queue/instance".
#include "graphic/page_output.h"

#include <cups/cups.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "graphic/pdf_writer.h"
#include "graphic/saved_pages.h"

namespace tarvo {
namespace {

// --- The viewer.

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool hasDisplay() { return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY"); }

// Writes a new file that only the user can read; gives its name.
std::string writeTemporary(std::string_view bytes) {
  constexpr std::string_view kEnding = ".pdf";
  std::string name = isSet("TMPDIR") ? std::getenv("TMPDIR") : "/tmp";
  name.append("/tarvo-XXXXXX").append(kEnding);
  const int file = mkostemps(name.data(), static_cast<int>(kEnding.size()), O_CLOEXEC);
  try {
    writeAndClose(file, bytes, fromUtf8(name));
  } catch (...) {
    unlink(name.c_str());
    throw;
  }
  return name;
}

// False when the program says that it failed.
bool waitFor(pid_t program) {
  int status = 0;
  while (waitpid(program, &status, 0) < 0) {
    // Where our own program ignores its children nothing is known but that they have ended.
    if (errno != EINTR) return true;
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A program that nobody waits for leaves its exit code behind; it is taken away when the next one
// is started.
void forget(pid_t program) {
  static thread_local std::vector<pid_t> forgotten;
  std::erase_if(forgotten, [](pid_t one) { return waitpid(one, nullptr, WNOHANG) != 0; });
  forgotten.push_back(program);
}

bool openInViewer(std::string path, bool modal) {
  std::string program = "xdg-open";
  char* const arguments[] = {program.data(), path.data(), nullptr};
  pid_t started = 0;
  const int reason = posix_spawnp(&started, program.c_str(), nullptr, nullptr, arguments, environ);
  if (reason != 0) return false;
  if (modal) return waitFor(started);
  forget(started);
  return true;
}

// --- The printer.

struct FreeDestination {
  void operator()(cups_dest_t* destination) const noexcept { cupsFreeDests(1, destination); }
};
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;

// The queue of that name with the user's options for it; none when the server has none, or is away.
Destination findDestination(const std::string& queue, const std::string& instance) {
  return Destination(cupsGetNamedDest(CUPS_HTTP_DEFAULT, queue.c_str(),
                                      instance.empty() ? nullptr : instance.c_str()));
}

// What a server takes as a title: 255 bytes of whole characters, none of them a control.
std::string jobTitle(TextView title) {
  constexpr std::size_t kLongest = 255;
  std::string bytes = toUtf8(title);
  std::size_t length = std::min(bytes.size(), kLongest);
  while (length < bytes.size() && (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80) {
    --length;
  }
  bytes.resize(length);
  for (char& byte : bytes) {
    if (static_cast<unsigned char>(byte) < ' ' || byte == 0x7F) byte = ' ';
  }
  return bytes;
}

bool sendDocument(const char* queue, int job, const char* title, std::string_view document) {
  if (cupsStartDocument(CUPS_HTTP_DEFAULT, queue, job, title, CUPS_FORMAT_PDF, 1) !=
      HTTP_STATUS_CONTINUE) {
    return false;
  }
  const bool sent = cupsWriteRequestData(CUPS_HTTP_DEFAULT, document.data(), document.size()) ==
                    HTTP_STATUS_CONTINUE;
  return cupsFinishDocument(CUPS_HTTP_DEFAULT, queue) <= IPP_STATUS_OK_CONFLICTING && sent;
}

// What the server answered last, before anything else is asked of it.
[[noreturn]] void failWithAnswer(TextView printerName) {
  setLastSystemError(cupsLastError());
  const char* reason = cupsLastErrorString();
  failToPrint(printerName, fromUtf8(reason != nullptr ? reason : ""));
}

// Cancels a job unless it is complete: half a job must not wait in the queue.
class Job {
 public:
  Job(const cups_dest_t& destination, const char* title)
      : queue_(destination.name),
        number_(cupsCreateJob(CUPS_HTTP_DEFAULT, queue_, title, destination.num_options,
                              destination.options)) {}
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  ~Job() {
    if (number_ != 0 && !isComplete_) cupsCancelJob2(CUPS_HTTP_DEFAULT, queue_, number_, 0);
  }

  bool send(const char* title, std::string_view document) {
    isComplete_ = number_ != 0 && sendDocument(queue_, number_, title, document);
    return isComplete_;
  }

 private:
  const char* queue_;
  int number_;
  bool isComplete_ = false;
};

void submit(TextView printerName, TextView title, std::string_view document) {
  const std::string name = toUtf8(printerName);
  const std::size_t slash = name.find('/');
  const std::string queue = name.substr(0, slash);
  // No name would be the default printer, and what follows a character 0 would be ignored.
  if (queue.empty() || name.find('\0') != std::string::npos) failToPrint(printerName, {});
  const std::string instance = slash == std::string::npos ? "" : name.substr(slash + 1);
  const Destination destination = findDestination(queue, instance);
  if (!destination) failWithAnswer(printerName);
  const std::string titleBytes = jobTitle(title);
  const char* const givenTitle = titleBytes.empty() ? nullptr : titleBytes.c_str();
  Job job(*destination, givenTitle);
  if (!job.send(givenTitle, document)) failWithAnswer(printerName);
}

class PosixPageOutput final : public PageOutput {
 public:
  void show(const Ref<const PagedText>& pages, TextView title, bool modal) override {
    if (!hasDisplay()) return savePages(*pages, title, {});
    const std::string path = writeTemporary(pdfOf(*pages, title));
    if (openInViewer(path, modal)) return;
    unlink(path.c_str());
    savePages(*pages, title, {});
  }

  void print(const Ref<const PagedText>& pages, TextView title, TextView printerName) override {
    if (isFilePrinter(printerName)) return savePages(*pages, title, printerName);
    submit(printerName, title, pdfOf(*pages, title));
  }

  void save(const Ref<const PagedText>& pages, TextView title, TextView printerName) override {
    savePages(*pages, title, printerName);
  }
};

}  // namespace

Ref<PageOutput> platform::makePageOutput() { return make<PosixPageOutput>(); }

}  // namespace tarvo
