#include "equipment/recording_spooler.h"

#include "equipment/bytes_dump.h"

namespace tarvo::test {
namespace {

// On one line.
std::string flatDump(std::string_view bytes) {
  std::string dump = bytesDump(bytes);
  std::erase(dump, '\n');
  return dump;
}

std::string descriptionOf(const DocumentDescription& document) {
  std::string line = inQuotes(document.documentName);
  if (!document.outputFile.empty()) line += " output " + inQuotes(document.outputFile);
  if (!document.dataType.empty()) line += " type " + inQuotes(document.dataType);
  return line;
}

}  // namespace

std::string RecordingSpooler::bytes() const {
  std::string all;
  for (const Job& job : jobs_) all += job.bytes;
  return all;
}

void RecordingSpooler::record(std::string line) {
  log_.add(std::move(line));
  fault.countCall();
}

void RecordingSpooler::record(const char* operation, PrinterHandle handle,
                              std::string_view arguments) {
  std::string line = std::string(operation) + " " + std::to_string(handle);
  if (!arguments.empty()) line.append(" ").append(arguments);
  record(std::move(line));
}

bool RecordingSpooler::answer(bool ownAnswer) {
  lastError_ = next_ ? next_->lastError() : 0;
  if (nextError_ != kPlain) lastError_ = nextError_++;
  return ownAnswer;
}

bool RecordingSpooler::openPrinter(TextView name, PrinterHandle& handle) {
  record("openPrinter " + inQuotes(name));
  if (next_) return answer(next_->openPrinter(name, handle));
  const bool isKnown = !unknown_.contains(name);
  handle = isKnown ? ++lastHandle_ : 0;
  return answer(isKnown);
}

bool RecordingSpooler::startDocument(PrinterHandle handle, const DocumentDescription& document) {
  record("startDocument", handle, descriptionOf(document));
  if (handle != 0) jobs_.push_back({document.documentName, {}, false});
  return answer(next_ ? next_->startDocument(handle, document) : handle != 0);
}

bool RecordingSpooler::startPage(PrinterHandle handle) {
  record("startPage", handle);
  return answer(next_ ? next_->startPage(handle) : handle != 0);
}

bool RecordingSpooler::write(PrinterHandle handle, std::string_view bytes) {
  record("write", handle, flatDump(bytes));
  if (hasOpenJob()) jobs_.back().bytes += bytes;
  return answer(next_ ? next_->write(handle, bytes) : handle != 0);
}

bool RecordingSpooler::endPage(PrinterHandle handle) {
  record("endPage", handle);
  return answer(next_ ? next_->endPage(handle) : handle != 0);
}

bool RecordingSpooler::endDocument(PrinterHandle handle) {
  record("endDocument", handle);
  if (hasOpenJob()) jobs_.back().isEnded = true;
  return answer(next_ ? next_->endDocument(handle) : handle != 0);
}

bool RecordingSpooler::closePrinter(PrinterHandle handle) {
  record("closePrinter", handle);
  return answer(next_ ? next_->closePrinter(handle) : handle != 0);
}

bool FailingSpooler::openPrinter(TextView name, PrinterHandle& handle) {
  handle = 0;
  const bool isOpen = unlessItFails([&](Spooler& next) { return next.openPrinter(name, handle); });
  if (isOpen && !next_) handle = 1;
  return isOpen;
}
bool FailingSpooler::startDocument(PrinterHandle handle, const DocumentDescription& document) {
  return unlessItFails([&](Spooler& next) { return next.startDocument(handle, document); });
}
bool FailingSpooler::startPage(PrinterHandle handle) {
  return unlessItFails([&](Spooler& next) { return next.startPage(handle); });
}
bool FailingSpooler::write(PrinterHandle handle, std::string_view bytes) {
  return unlessItFails([&](Spooler& next) { return next.write(handle, bytes); });
}
bool FailingSpooler::endPage(PrinterHandle handle) {
  return unlessItFails([&](Spooler& next) { return next.endPage(handle); });
}
bool FailingSpooler::endDocument(PrinterHandle handle) {
  return unlessItFails([&](Spooler& next) { return next.endDocument(handle); });
}
bool FailingSpooler::closePrinter(PrinterHandle handle) {
  return unlessItFails([&](Spooler& next) { return next.closePrinter(handle); });
}

}  // namespace tarvo::test
