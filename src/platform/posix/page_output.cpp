// The page output of systems with CUPS and desktops of the usual kind.
//
// show: the PDF is a temporary file ($TMPDIR, else /tmp), which the user's viewer opens (xdg-open).
// It stays there: nobody can say when a viewer has read it.  A viewer that says that it could not
// is noticed only when the report is modal; where there is no display, no viewer, or no success,
// the pages are saved.  Modal lasts as long as xdg-open does, which on most desktops is not as long
// as the viewer's window.
//
// print: the PDF is one job of the queue, in the format application/pdf, so the queue's filters
// make of it what its printer wants.  Names are those of cups_queue.h.
#include "graphic/page_output.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "graphic/pdf_writer.h"
#include "graphic/saved_pages.h"
#include "platform/posix/cups_queue.h"

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

[[noreturn]] void fail(TextView printerName, const CupsOutcome& outcome) {
  setLastSystemError(outcome.code);
  failToPrint(printerName, fromUtf8(outcome.reason));
}

void submit(TextView printerName, TextView title, std::string_view document) {
  CupsQueue queue;
  const CupsOutcome opened = queue.open(printerName);
  if (!opened.isDone()) fail(printerName, opened);
  const auto wholeAtOnce = [&document](std::string_view& piece) {
    piece = std::exchange(document, {});
    return 0;
  };
  const CupsOutcome submitted = queue.submit(title, CupsFormat::kPdf, wholeAtOnce);
  if (!submitted.isDone()) fail(printerName, submitted);
}

class PosixPageOutput final : public PageOutput {
 public:
  void show(const Ref<const PagedText>& pages, TextView title, bool modal) override {
    if (!hasDisplay()) return saveUnshownPages(*pages, title);
    const std::string path = writeTemporary(pdfOf(*pages, title));
    if (openInViewer(path, modal)) return;
    unlink(path.c_str());
    saveUnshownPages(*pages, title);
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
