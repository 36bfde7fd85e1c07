// The Windows print spooler behind the spooler port, by its seven raw calls.
#include <windows.h>
#include <winspool.h>

#include <string>

#include "frame/codepage.h"
#include "printer/spooler.h"

namespace tarvo {
namespace {

HANDLE handleOf(PrinterHandle handle) noexcept { return reinterpret_cast<HANDLE>(handle); }

// A text of a document as the spooler's eight-bit call takes it.
class AnsiText {
 public:
  explicit AnsiText(TextView text) { CodePage::ofSystem().encode(text, bytes_); }
  LPSTR get() noexcept { return bytes_.data(); }
  LPSTR getOrAbsent() noexcept { return bytes_.empty() ? nullptr : bytes_.data(); }

 private:
  std::string bytes_;
};

class WinSpooler final : public Spooler {
 public:
  bool openPrinter(TextView name, PrinterHandle& handle) override {
    // An absent name would open the print server itself, so an empty one is handed over as it is.
    std::string printerName;
    CodePage::ofSystem().encode(name, printerName);
    HANDLE opened = nullptr;
    const bool isOpen = remember(OpenPrinterA(printerName.data(), &opened, nullptr) != 0);
    handle = isOpen ? reinterpret_cast<PrinterHandle>(opened) : 0;
    return isOpen;
  }

  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override {
    AnsiText documentName(document.documentName);
    AnsiText outputFile(document.outputFile);
    AnsiText dataType(document.dataType);
    DOC_INFO_1A description{documentName.get(), outputFile.getOrAbsent(), dataType.getOrAbsent()};
    return remember(StartDocPrinterA(handleOf(handle), 1, reinterpret_cast<LPBYTE>(&description)) !=
                    0);
  }

  bool startPage(PrinterHandle handle) override {
    return remember(StartPagePrinter(handleOf(handle)) != 0);
  }

  bool write(PrinterHandle handle, std::string_view bytes) override {
    // The call takes a pointer to data that it does not change.
    void* const data = const_cast<char*>(bytes.data());
    DWORD written = 0;
    const bool taken =
        WritePrinter(handleOf(handle), data, static_cast<DWORD>(bytes.size()), &written) != 0;
    return remember(taken) && written == bytes.size();
  }

  bool endPage(PrinterHandle handle) override {
    return remember(EndPagePrinter(handleOf(handle)) != 0);
  }

  bool endDocument(PrinterHandle handle) override {
    return remember(EndDocPrinter(handleOf(handle)) != 0);
  }

  bool closePrinter(PrinterHandle handle) override {
    return remember(ClosePrinter(handleOf(handle)) != 0);
  }

  std::int32_t lastError() const noexcept override { return lastError_; }

 private:
  // After a success the system's code may be anything.
  bool remember(bool answer) noexcept {
    lastError_ = answer ? 0 : static_cast<std::int32_t>(GetLastError());
    return answer;
  }

  std::int32_t lastError_ = 0;
};

}  // namespace

Ref<Spooler> platform::makeSystemSpooler() { return make<WinSpooler>(); }

}  // namespace tarvo
