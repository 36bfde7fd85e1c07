#include "tarvordp/check/parser_services.h"

#include <limits>
#include <string>
#include <utility>

#include "printer/clsUtilImp.h"
#include "printer/spooler.h"
#include "services/clsConvert.h"
#include "services/clsError.h"
#include "services/clsTexto.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"

namespace tarvordp {

using tarvo::make;
using tarvo::Text;
using tarvo::TextView;

class ParserServices::Operator final : public tarvo::clsMessage {
 public:
  std::size_t messages = 0;
  std::size_t most = std::numeric_limits<std::size_t>::max();

  void sShowMessage(Text&) override { count(); }
  void sShowMessageWithTitle(TextView, TextView) override { count(); }
  void sWarning(Text&) override { count(); }
  void sWarningWithTitle(TextView, TextView) override { count(); }
  bool fAskAcceptCancel(TextView, TextView) override {
    count();
    return true;
  }
  bool fWarnLocation(TextView, std::int16_t) override {
    count();
    return true;
  }

 private:
  void count() {
    if (++messages > most) throw tarvo::RunTimeError(kEndless);
  }
};

class ParserServices::Paper final : public tarvo::Spooler {
 public:
  std::string last;

  bool openPrinter(TextView, tarvo::PrinterHandle& handle) override {
    handle = 1;
    return true;
  }
  bool startDocument(tarvo::PrinterHandle, const tarvo::DocumentDescription&) override {
    return true;
  }
  bool startPage(tarvo::PrinterHandle) override { return true; }
  bool write(tarvo::PrinterHandle, std::string_view bytes) override {
    last = bytes;
    return true;
  }
  bool endPage(tarvo::PrinterHandle) override { return true; }
  bool endDocument(tarvo::PrinterHandle) override { return true; }
  bool closePrinter(tarvo::PrinterHandle) override { return true; }
  std::int32_t lastError() const noexcept override { return 0; }
};

ParserServices::ParserServices()
    : before_(tarvo::modRDPGlobalValues::ofThisThread()),
      operator_(make<Operator>()),
      paper_(make<Paper>()) {
  tarvo::modRDPGlobalValues services;
  services.refInsError = make<LibTarvoCI::clsError>();
  services.refInsMessage = operator_;
  services.refInsTexto = make<LibTarvoCI::clsTexto>();
  services.refInsConvert = make<LibTarvoCI::clsConvert>();
  services.refInsUtilDate = make<LibTarvoCI::clsUtilDate>();
  services.refInsUtilMathOperations = make<LibTarvoCI::clsUtilMathOperations>();
  services.refInsImp = make<tarvo::clsUtilImp>(paper_);
  tarvo::modRDPGlobalValues::ofThisThread() = services;
  services.refInsImp->sInitializePrinterFileHandle(u"check", u"check");
}

ParserServices::~ParserServices() { tarvo::modRDPGlobalValues::ofThisThread() = before_; }

std::size_t ParserServices::messages() const { return operator_->messages; }

void ParserServices::bearMessages(std::size_t count) {
  operator_->most = operator_->messages + count;
}

std::uint8_t ParserServices::printedByte(char16_t character) {
  tarvo::modRDPGlobalValues::ofThisThread().refInsImp->sWrite(TextView(&character, 1), 0);
  return static_cast<std::uint8_t>(paper_->last.at(0));
}

}  // namespace tarvordp
