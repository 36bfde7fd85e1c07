#include "tarvordp/print/output_spooler.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/file/file_spooler.h"
#include "tarvordp/print/output_file.h"

namespace tarvordp {
namespace {

constexpr std::int32_t kFirstPrinterStatus = 1024;

std::string reasonOf(std::int32_t code) {
  if (code <= 0) return "the spooler did not say why";
  if (code < kFirstPrinterStatus) return std::generic_category().message(code);
  return "the print server answered with status " + std::to_string(code);
}

// The print protocol's (platform/posix/cups_spooler.h).
constexpr std::int32_t kUnknownQueue = 1030;
constexpr std::int32_t kServerIsAway = 1282;

std::string whyNotOpened(const std::string& name, std::int32_t code) {
  if (name.starts_with(tarvo::toUtf8(tarvo::kFilePrinterPrefix))) {
    return name + ": cannot be written: " + reasonOf(code);
  }
  const std::string printer = "printer \"" + name + '"';
  const std::string intoFile = "; file:PATH prints into a file";
  if (code == kUnknownQueue) {
    return "the system has no " + printer + ": \"lpstat -e\" lists those it has" + intoFile;
  }
  if (code == kServerIsAway) return printer + ": the print server cannot be reached" + intoFile;
  return printer + " cannot be opened: " + reasonOf(code);
}

std::string hex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace

OutputSpooler::OutputSpooler(tarvo::Ref<tarvo::Spooler> spooler, Trace& trace, std::string formFeed)
    : spooler_(std::move(spooler)), trace_(trace), formFeed_(std::move(formFeed)) {}

// Traces a call and gives its answer.
bool OutputSpooler::traced(const char* call, bool answer, const Trace::Json& more) {
  ++calls_;
  if (!trace_.isOn()) return answer;
  Trace::Json event{{"event", "spooler"}, {"call", call}};
  event.update(more);
  if (!answer) {
    event["answer"] = false;
    event["code"] = spooler_->lastError();
  }
  trace_.write(event);
  return answer;
}

// The first failure is the reason of all that follow.
bool OutputSpooler::watched(bool answer) {
  if (!answer && isJob_ && !failure_) failure_ = reasonOf(spooler_->lastError());
  return answer;
}

bool OutputSpooler::openPrinter(tarvo::TextView name, tarvo::PrinterHandle& handle) {
  printerName_ = tarvo::toUtf8(name);
  isOpen_ = spooler_->openPrinter(name, handle);
  handle_ = handle;
  unopened_ = isOpen_ ? "" : whyNotOpened(printerName_, spooler_->lastError());
  return traced("OpenPrinter", isOpen_, {{"name", printerName_}});
}

bool OutputSpooler::startDocument(tarvo::PrinterHandle handle,
                                  const tarvo::DocumentDescription& document) {
  if (failure_) return traced("StartDocPrinter", false, Trace::Json::object());
  file_.clear();
  isJob_ = isOpen_;
  const bool started = spooler_->startDocument(handle, document);
  traced("StartDocPrinter", started, {{"document", tarvo::toUtf8(document.documentName)}});
  if (started) {
    ++jobs_;
    noteFile();
  }
  return watched(started);
}

// Which file the file back-end has just begun (platform/file/file_spooler.h).
void OutputSpooler::noteFile() {
  const std::string prefix = tarvo::toUtf8(tarvo::kFilePrinterPrefix);
  if (!printerName_.starts_with(prefix)) return;
  const std::string path = printerName_.substr(prefix.size());
  std::error_code ignored;
  if (path != kStandardOutput && std::filesystem::is_regular_file(path, ignored)) {
    const int number = ++filesOf_[path];
    file_ = number == 1 ? path : path + "." + std::to_string(number);
  } else {
    file_ = path;
  }
}

bool OutputSpooler::startPage(tarvo::PrinterHandle handle) {
  return watched(traced("StartPagePrinter", spooler_->startPage(handle), Trace::Json::object()));
}

bool OutputSpooler::write(tarvo::PrinterHandle handle, std::string_view bytes) {
  const bool taken = spooler_->write(handle, bytes);
  if (trace_.isOn()) {
    traced("WritePrinter", taken, {{"bytes", hex(bytes)}});
  } else {
    ++calls_;
  }
  if (taken) bytes_ += bytes.size();
  if (taken && !formFeed_.empty() && bytes == formFeed_) ++pages_;
  return watched(taken);
}

bool OutputSpooler::endPage(tarvo::PrinterHandle handle) {
  return watched(traced("EndPagePrinter", spooler_->endPage(handle), Trace::Json::object()));
}

bool OutputSpooler::endDocument(tarvo::PrinterHandle handle) {
  const bool ended =
      watched(traced("EndDocPrinter", spooler_->endDocument(handle), Trace::Json::object()));
  if (!failure_) isJob_ = false;
  return ended;
}

bool OutputSpooler::closePrinter(tarvo::PrinterHandle handle) {
  isOpen_ = false;
  return watched(traced("ClosePrinter", spooler_->closePrinter(handle), Trace::Json::object()));
}

std::string OutputSpooler::abandon() {
  if (isOpen_) {
    traced("ClosePrinter", spooler_->closePrinter(handle_), Trace::Json::object());
    isOpen_ = false;
  }
  if (!std::exchange(isJob_, false)) return {};
  if (file_.empty()) return "the job was not sent to the printer";
  if (file_ == kStandardOutput) return "what was written to the standard output is not whole";
  if (removeOrdinaryFile(file_)) return file_ + " was not whole and was removed";
  return file_ + " is not whole";
}

}  // namespace tarvordp
