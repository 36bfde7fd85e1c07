#include "platform/win32/gdi_printer.h"

#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "frame/run_time_error.h"
#include "graphic/page_output.h"
#include "platform/win32/gdi_pages.h"

namespace tarvo::platform {
namespace {

std::wstring wide(TextView text) { return std::wstring(text.begin(), text.end()); }

// What the system says of an error of its own, in one line; empty when it says nothing.
Text reasonOf(DWORD error) {
  wchar_t buffer[256];
  DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, error, 0, buffer, 256, nullptr);
  while (length > 0 && (buffer[length - 1] == L' ' || buffer[length - 1] == L'.')) --length;
  return Text(buffer, buffer + length);
}

[[noreturn]] void fail(TextView printerName) {
  const DWORD error = GetLastError();
  setLastSystemError(static_cast<std::int32_t>(error));
  failToPrint(printerName, error != 0 ? reasonOf(error) : Text());
}

// --- The paper.

struct Paper {
  std::int32_t shortSide;  // twips
  std::int32_t longSide;
  short number;
};

constexpr Paper kPapers[] = {
    {12240, 15840, DMPAPER_LETTER},
    {12240, 20160, DMPAPER_LEGAL},
    {15840, 24480, DMPAPER_TABLOID},
};

short tenthsOfMillimetres(std::int32_t twips) noexcept {
  return static_cast<short>(std::min(std::lround(twips * 254.0 / 1440), 32767L));
}

void requestPaper(const PageFormat& format, DEVMODEW& settings) noexcept {
  const auto [shortSide, longSide] = std::minmax(format.width, format.height);
  settings.dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
  settings.dmOrientation = format.width > format.height ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  for (const Paper& paper : kPapers) {
    if (paper.shortSide != shortSide || paper.longSide != longSide) continue;
    settings.dmPaperSize = paper.number;
    return;
  }
  settings.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
  settings.dmPaperSize = DMPAPER_USER;
  settings.dmPaperWidth = tenthsOfMillimetres(shortSide);
  settings.dmPaperLength = tenthsOfMillimetres(longSide);
}

class OpenPrinterHandle {
 public:
  explicit OpenPrinterHandle(std::wstring& name) noexcept {
    if (!OpenPrinterW(name.data(), &handle_, nullptr)) handle_ = nullptr;
  }
  OpenPrinterHandle(const OpenPrinterHandle&) = delete;
  OpenPrinterHandle& operator=(const OpenPrinterHandle&) = delete;
  ~OpenPrinterHandle() {
    if (handle_ != nullptr) ClosePrinter(handle_);
  }
  HANDLE get() const noexcept { return handle_; }

 private:
  HANDLE handle_ = nullptr;
};

// --- Where a page comes on a sheet.

// One direction of it.
struct Extent {
  double printableBegin;  // of the sheet, in device units from its edge
  double printableLength;
  double contentBegin;  // of the page, likewise, in its own size
  double contentLength;

  double end() const noexcept { return printableBegin + printableLength; }
  bool fits() const noexcept {
    return contentBegin >= printableBegin && contentBegin + contentLength <= end();
  }
  double factor() const noexcept { return std::min(1.0, printableLength / contentLength); }
  // Of the page's edge, from the beginning of what can be printed.
  double origin(double scale) const noexcept {
    return scale == 1 && fits() ? -printableBegin : -contentBegin * scale;
  }
};

Extent extentOf(HDC printer, int offset, int length, int resolution, std::int32_t begin,
                std::int32_t contentLength) noexcept {
  const double unitsPerTwip = GetDeviceCaps(printer, resolution) / 1440.0;
  return {static_cast<double>(GetDeviceCaps(printer, offset)),
          static_cast<double>(GetDeviceCaps(printer, length)), begin * unitsPerTwip,
          std::max(1.0, contentLength * unitsPerTwip)};
}

PagePlacement placementOn(HDC printer, const PageFormat& format) noexcept {
  const Extent across = extentOf(printer, PHYSICALOFFSETX, HORZRES, LOGPIXELSX, format.leftMargin,
                                 format.printableWidth());
  const Extent down = extentOf(printer, PHYSICALOFFSETY, VERTRES, LOGPIXELSY, format.topMargin,
                               format.printableHeight());
  const double scale = std::min(across.factor(), down.factor());
  return {across.origin(scale), down.origin(scale),
          GetDeviceCaps(printer, LOGPIXELSX) / 1440.0 * scale,
          GetDeviceCaps(printer, LOGPIXELSY) / 1440.0 * scale};
}

// --- The job.

// Given up unless it is finished.
class PrintJob {
 public:
  PrintJob(HDC printer, TextView title) : printer_(printer) {
    const std::wstring name = wide(title);
    DOCINFOW description{};
    description.cbSize = sizeof description;
    description.lpszDocName = name.c_str();
    isOpen_ = StartDocW(printer, &description) > 0;
  }
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;
  ~PrintJob() {
    if (isOpen_) AbortDoc(printer_);
  }

  bool isOpen() const noexcept { return isOpen_; }

  bool print(const PagedText& pages, std::size_t page, const PagePlacement& placement) {
    return StartPage(printer_) > 0 && drawPage(printer_, pages, page, placement) &&
           EndPage(printer_) > 0;
  }

  bool finish() noexcept {
    isOpen_ = EndDoc(printer_) <= 0;
    return !isOpen_;
  }

 private:
  HDC printer_;
  bool isOpen_;
};

class DeviceContext {
 public:
  explicit DeviceContext(HDC device) noexcept : device_(device) {}
  DeviceContext(const DeviceContext&) = delete;
  DeviceContext& operator=(const DeviceContext&) = delete;
  ~DeviceContext() {
    if (device_ != nullptr) DeleteDC(device_);
  }
  HDC get() const noexcept { return device_; }

 private:
  HDC device_;
};

DEVMODEW* modeOf(PrinterSettings& settings) noexcept {
  return settings.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(settings.data());
}

PrinterSettings settingsOf(HANDLE printer, std::wstring& name, const PageFormat& format) {
  const LONG size = DocumentPropertiesW(nullptr, printer, name.data(), nullptr, nullptr, 0);
  if (size < static_cast<LONG>(sizeof(DEVMODEW))) return {};
  PrinterSettings settings(static_cast<std::size_t>(size));
  DEVMODEW* const mode = modeOf(settings);
  if (DocumentPropertiesW(nullptr, printer, name.data(), mode, nullptr, DM_OUT_BUFFER) != IDOK) {
    return {};
  }
  requestPaper(format, *mode);
  // The driver makes of it what it can.
  if (DocumentPropertiesW(nullptr, printer, name.data(), mode, mode,
                          DM_IN_BUFFER | DM_OUT_BUFFER) != IDOK) {
    return {};
  }
  return settings;
}

}  // namespace

PrinterSettings settingsFor(const PageFormat& format, TextView printerName) {
  std::wstring name = wide(printerName);
  const OpenPrinterHandle printer(name);
  if (printer.get() == nullptr) return {};
  return settingsOf(printer.get(), name, format);
}

void printPages(const PagedText& pages, TextView title, TextView printerName) {
  // Cut there, it would be the name of another printer.
  if (printerName.find(u'\0') != TextView::npos) {
    SetLastError(ERROR_INVALID_PRINTER_NAME);
    fail(printerName);
  }
  std::wstring name = wide(printerName);
  const OpenPrinterHandle printer(name);
  if (printer.get() == nullptr) fail(printerName);
  PrinterSettings settings = settingsOf(printer.get(), name, pages.format());
  const DeviceContext device(CreateDCW(L"WINSPOOL", name.c_str(), nullptr, modeOf(settings)));
  if (device.get() == nullptr) fail(printerName);
  printPages(device.get(), pages, {0, pages.pageCount()}, title, printerName);
}

void printPages(HDC printer, const PagedText& pages, PageRange range, TextView title,
                TextView printerName) {
  if (GetDeviceCaps(printer, HORZRES) <= 0 || GetDeviceCaps(printer, VERTRES) <= 0) {
    SetLastError(ERROR_UNKNOWN_PRINTER_DRIVER);
    fail(printerName);
  }
  PrintJob job(printer, title);
  if (!job.isOpen()) fail(printerName);
  const PagePlacement placement = placementOn(printer, pages.format());
  for (std::size_t page = range.first; page < range.end; ++page) {
    if (!job.print(pages, page, placement)) fail(printerName);
  }
  if (!job.finish()) fail(printerName);
}

}  // namespace tarvo::platform
