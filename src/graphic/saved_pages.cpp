#include "graphic/saved_pages.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>

#include "frame/run_time_error.h"
#include "graphic/pdf_writer.h"
#include "platform/file/file_spooler.h"
#include "platform/file/new_file.h"

namespace tarvo {
namespace {

constexpr TextView kStandardOutput = u"-";
constexpr TextView kNamelessTitle = u"Informe";
constexpr TextView kEnding = u".pdf";
constexpr std::size_t kLongestName = 240;  // bytes of UTF-8: file systems take 255

constexpr TextView kForbidden = u"/\\:*?\"<>|";

// With any ending, these are devices on Windows; COM and LPT with one digit behind.
constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
constexpr std::array<std::string_view, 2> kNumberedDevices{"COM", "LPT"};

bool isDeviceName(TextView name) {
  const TextView stem = name.substr(0, name.find(u'.'));
  const auto isStem = [](TextView text) {
    return [text](std::string_view device) { return equalIgnoringAsciiCase(text, device); };
  };
  if (std::any_of(kDevices.begin(), kDevices.end(), isStem(stem))) return true;
  const bool hasDigit = stem.size() == 4 && stem[3] >= u'0' && stem[3] <= u'9';
  return hasDigit &&
         std::any_of(kNumberedDevices.begin(), kNumberedDevices.end(), isStem(stem.substr(0, 3)));
}

// Whole characters, as many as a file system takes.
Text cutToFit(const Text& name) {
  std::string bytes = toUtf8(name);
  if (bytes.size() <= kLongestName) return name;
  std::size_t length = kLongestName;
  while ((static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80) --length;
  bytes.resize(length);
  return fromUtf8(bytes);
}

Text fileNameFor(TextView title) {
  Text name(title.empty() ? kNamelessTitle : title);
  for (char16_t& character : name) {
    const bool isVisible = visibleCharacter(character) == character;
    if (!isVisible || kForbidden.find(character) != TextView::npos) character = u'_';
  }
  if (isDeviceName(name)) name.insert(name.begin(), u'_');
  return cutToFit(name).append(kEnding);
}

[[noreturn]] void fail(TextView path) {
  const int reason = errno;
  setLastSystemError(reason);
  switch (reason) {
    case ENOENT:
    case ENOTDIR:
      throw RunTimeError(kPathNotFound, path);
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      throw RunTimeError(kPermissionDenied, path);
    case ENOSPC:
    case EFBIG:
      throw RunTimeError(kDiskFull, path);
    default:
      throw RunTimeError(kDeviceError, path);
  }
}

platform::FileDescriptor open(TextView path) {
  if (path == kStandardOutput) return platform::openStandardOutput();
  return platform::openForWriting(path);
}

// Opens the file of that title, or the first of its numbered ones that is free; `path` is its name.
platform::FileDescriptor openFree(TextView title, Text& path) {
  const Text name = pathForPages(title, {});
  const TextView stem = TextView(name).substr(0, name.size() - kEnding.size());
  path = name;
  for (int number = 2;; ++number) {
    const platform::FileDescriptor file = platform::openNewFile(path);
    if (file != platform::kNoFile || errno != EEXIST) return file;
    path.assign(stem).append(u".").append(fromAscii(std::to_string(number))).append(kEnding);
  }
}

}  // namespace

bool isFilePrinter(TextView printerName) { return printerName.starts_with(kFilePrinterPrefix); }

Text pathForPages(TextView title, TextView printerName) {
  if (isFilePrinter(printerName)) return Text(printerName.substr(kFilePrinterPrefix.size()));
  return fileNameFor(title);
}

void savePages(const PagedText& pages, TextView title, TextView printerName) {
  const Text path = pathForPages(title, printerName);
  // Made before the file: what makes it fail must not cost an older file.
  const std::string pdf = pdfOf(pages, title);
  writeAndClose(open(path), pdf, path);
}

void saveUnshownPages(const PagedText& pages, TextView title) {
  const std::string pdf = pdfOf(pages, title);
  Text path;
  const platform::FileDescriptor file = openFree(title, path);
  writeAndClose(file, pdf, path);
}

void writeAndClose(platform::FileDescriptor file, std::string_view bytes, TextView path) {
  if (file == platform::kNoFile) fail(path);
  const bool written = platform::writeFully(file, bytes);
  const int reason = errno;
  const bool closed = platform::closeFile(file);
  if (!written) errno = reason;
  if (!written || !closed) fail(path);
}

}  // namespace tarvo
