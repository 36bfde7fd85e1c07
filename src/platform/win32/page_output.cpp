// The page output of Windows: a preview window, the printers, files.
#include "graphic/page_output.h"

#include "graphic/saved_pages.h"
#include "platform/win32/gdi_printer.h"
#include "platform/win32/preview_window.h"

namespace tarvo::platform {
namespace {

class WindowsPageOutput final : public PageOutput {
 public:
  void show(const Ref<const PagedText>& pages, TextView title, bool modal) override {
    if (!showPreview(pages, title, modal)) saveUnshownPages(*pages, title);
  }

  void print(const Ref<const PagedText>& pages, TextView title, TextView printerName) override {
    if (isFilePrinter(printerName)) return savePages(*pages, title, printerName);
    printPages(*pages, title, printerName);
  }

  void save(const Ref<const PagedText>& pages, TextView title, TextView printerName) override {
    savePages(*pages, title, printerName);
  }
};

}  // namespace

Ref<PageOutput> makePageOutput() { return make<WindowsPageOutput>(); }

}  // namespace tarvo::platform
