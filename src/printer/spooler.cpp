#include "printer/spooler.h"

#include "platform/file/file_spooler.h"

namespace tarvo {
namespace {

class RoutingSpooler final : public Spooler {
 public:
  bool openPrinter(TextView name, PrinterHandle& handle) override {
    current_ = &backEndFor(name);
    return (*current_)->openPrinter(name, handle);
  }
  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override {
    return current_ != nullptr && (*current_)->startDocument(handle, document);
  }
  bool startPage(PrinterHandle handle) override {
    return current_ != nullptr && (*current_)->startPage(handle);
  }
  bool write(PrinterHandle handle, std::string_view bytes) override {
    return current_ != nullptr && (*current_)->write(handle, bytes);
  }
  bool endPage(PrinterHandle handle) override {
    return current_ != nullptr && (*current_)->endPage(handle);
  }
  bool endDocument(PrinterHandle handle) override {
    return current_ != nullptr && (*current_)->endDocument(handle);
  }
  bool closePrinter(PrinterHandle handle) override {
    return current_ != nullptr && (*current_)->closePrinter(handle);
  }
  std::int32_t lastError() const noexcept override {
    return current_ != nullptr ? (*current_)->lastError() : 0;
  }

 private:
  // Back-ends are made on their first use: a program that prints into files never needs a spooler.
  Ref<Spooler>& backEndFor(TextView name) {
    const bool isFile = name.starts_with(kFilePrinterPrefix);
    Ref<Spooler>& backEnd = isFile ? file_ : system_;
    if (!backEnd) backEnd = isFile ? makeFileSpooler() : platform::makeSystemSpooler();
    return backEnd;
  }

  Ref<Spooler> file_;
  Ref<Spooler> system_;
  Ref<Spooler>* current_ = nullptr;
};

}  // namespace

Ref<Spooler> makeSpooler() { return make<RoutingSpooler>(); }

}  // namespace tarvo
