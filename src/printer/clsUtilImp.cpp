#include "printer/clsUtilImp.h"

#include <array>
#include <utility>

#include "frame/checked.h"
#include "frame/codepage.h"
#include "frame/modRDPGlobalValues.h"

namespace tarvo {
namespace {

constexpr TextView kLineEnd = u"\r\n";

// The letters that line printers keep at other places than the system's code page, and the byte at
// which they keep them.
struct PrinterLetter {
  char16_t letter;
  std::uint8_t byte;
};
constexpr std::array<PrinterLetter, 8> kPrinterLetters{{{u'á', 0xA0},
                                                        {u'é', 0x82},
                                                        {u'í', 0xA1},
                                                        {u'ó', 0xA2},
                                                        {u'ú', 0xA3},
                                                        {u'ñ', 0xA4},
                                                        {u'Ñ', 0xA5},
                                                        {u'º', 0xA7}}};

// The replacements as texts: a letter, and the character that the code page turns into its byte.
class LetterReplacements {
 public:
  explicit LetterReplacements(const CodePage& codePage) {
    for (std::size_t i = 0; i < kPrinterLetters.size(); ++i) {
      characters_[i] = codePage.decode(kPrinterLetters[i].byte);
      replacements_[i] = {TextView(&kPrinterLetters[i].letter, 1), TextView(&characters_[i], 1)};
    }
  }
  LetterReplacements(const LetterReplacements&) = delete;

  std::span<const clsTexto::Replacement> all() const noexcept { return replacements_; }

 private:
  std::array<char16_t, kPrinterLetters.size()> characters_{};
  std::array<clsTexto::Replacement, kPrinterLetters.size()> replacements_{};
};

// A reference of the call's own: a service may replace the services while it works.
Ref<clsTexto> texto() { return modRDPGlobalValues::ofThisThread().refInsTexto; }

}  // namespace

clsUtilImp::clsUtilImp() : clsUtilImp(makeSpooler()) {}
clsUtilImp::clsUtilImp(Ref<Spooler> spooler) : spooler_(std::move(spooler)) {}
clsUtilImp::~clsUtilImp() = default;

const ErrorIdentity& clsUtilImp::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsUtilImp", u"Lib. Impresión Texto"};
  return kIdentity;
}

void clsUtilImp::sSendJobAndStartNewOne() try {
  spooler_->endPage(printerHandle_);
  recordSystemError();
  spooler_->endDocument(printerHandle_);
  recordSystemError();
  sStartJobAndPage();
} catch (...) {
  trap("sSendJobAndStartNewOne");
}

void clsUtilImp::sInitializePrinterFileHandle(TextView valPhysicalPrinterName,
                                              TextView valDocumentName) try {
  sOpenPrinterAndStartJob(valPhysicalPrinterName, valDocumentName);
} catch (...) {
  trap("sInitializePrinterFileHandle");
}

void clsUtilImp::sClosePrinterFileHandle() try { sEndJobAndPageAndClosePrinter(); } catch (...) {
  trap("sClosePrinterFileHandle");
}

void clsUtilImp::sWriteLn(TextView valText, std::uint8_t valLeftMargin) try {
  writeMargined(valText, valLeftMargin, kLineEnd);
} catch (...) {
  trap("sWriteLn");
}

void clsUtilImp::sWrite(TextView valText, std::uint8_t valLeftMargin) try {
  writeMargined(valText, valLeftMargin, {});
} catch (...) {
  trap("sWrite");
}

void clsUtilImp::sSkipNPoints(const std::uint8_t& valNumberOfPoints) try {
  sWrite(chrHighLine1Point_, 0);
  countedLoop<std::uint8_t>(1, valNumberOfPoints, [this](std::uint8_t) { sWriteLn({}, 0); });
  sWrite(chrHighLine12Points_, 0);
} catch (...) {
  trap("sSkipNPoints");
}

void clsUtilImp::sResetPrinter() try { sWrite(chrReset_, 0); } catch (...) {
  trap("sResetPrinter");
}

void clsUtilImp::sCancelPrintProcess() noexcept {
  const auto ignoringErrors = [](auto&& step) {
    try {
      step();
    } catch (...) {  // the report is being given up: there is nobody left to tell
    }
  };
  ignoringErrors([this] { sWrite(chrFormFeed_, 0); });
  ignoringErrors([this] { sWrite(chrReset_, 0); });
  ignoringErrors([this] { sEndJobAndPageAndClosePrinter(); });
}

// Its reports carry the name of the operation that opens the next job; clients know it by that.
void clsUtilImp::sOpenPrinterAndStartJob(TextView name, TextView documentName) try {
  const bool opened = spooler_->openPrinter(name, printerHandle_);
  recordSystemError();
  if (!opened) {
    Text message = u"No se reconoce el nombre de la impresora: " + Text(name);
    const Ref<clsMessage> messages = modRDPGlobalValues::ofThisThread().refInsMessage;
    messages->sShowMessage(message);
    return;
  }
  document_ = {Text(documentName), {}, {}};
  sStartJobAndPage();
} catch (...) {
  trap("sSendJobAndStartNewOne");
}

void clsUtilImp::sStartJobAndPage() try {
  spooler_->startDocument(printerHandle_, document_);
  recordSystemError();
  spooler_->startPage(printerHandle_);
  recordSystemError();
} catch (...) {
  trap("sStartJobAndPage");
}

void clsUtilImp::sEndJobAndPageAndClosePrinter() try {
  spooler_->endPage(printerHandle_);
  recordSystemError();
  spooler_->endDocument(printerHandle_);
  recordSystemError();
  spooler_->closePrinter(printerHandle_);
  recordSystemError();
} catch (...) {
  trap("sEndJobAndPageAndClosePrinter");
}

void clsUtilImp::sWriteToFileHandle(TextView text) try {
  Borrowed<Text> replaced(replacedStorage_);
  fReplaceInvalidChars(text, *replaced);
  fSendStringToPrinter(*replaced);
} catch (...) {
  trap("sWriteToFileHandle");
}

void clsUtilImp::fReplaceInvalidChars(TextView text, Text& result) try {
  static const LetterReplacements replacements(CodePage::ofSystem());
  texto()->replaceEach(text, replacements.all(), result);
} catch (...) {
  trap("fReplaceInvalidChars");
}

bool clsUtilImp::fSendStringToPrinter(TextView text) try {
  Borrowed<std::string> bytes(byteStorage_);
  CodePage::ofSystem().encode(text, *bytes);
  spooler_->write(printerHandle_, *bytes);
  recordSystemError();
  return true;
} catch (...) {
  trap("fSendStringToPrinter");
}

void clsUtilImp::writeMargined(TextView text, std::uint8_t leftMargin, TextView end) {
  Borrowed<Text> line(lineStorage_);
  if (leftMargin != 0) {
    texto()->fLeftMargin(text, leftMargin, *line);
  } else {
    line->assign(text);
  }
  line->append(end);
  sWriteToFileHandle(*line);
}

void clsUtilImp::recordSystemError() const { setLastSystemError(spooler_->lastError()); }

}  // namespace tarvo
