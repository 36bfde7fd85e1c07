#include "printer/clsUtilImp.h"

#include <algorithm>
#include <array>
#include <cstring>
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

// Characters that are looked at in one step.
constexpr std::size_t kAtOnce = 16;
using Characters = char16_t __attribute__((vector_size(kAtOnce * sizeof(char16_t))));
using Bytes = char __attribute__((vector_size(kAtOnce)));

// Replacement and code page in one step: a text's bytes as the printer gets them.
class PrinterBytes {
 public:
  PrinterBytes(const LetterReplacements& replacements, const CodePage& codePage)
      : codePage_(codePage) {
    for (std::size_t c = 0; c < bytes_.size(); ++c) {
      TextView character(&characterOf(c), 1);
      for (const clsTexto::Replacement& each : replacements.all()) {
        if (character == each.oldText) character = each.newText;
      }
      bytes_[c] = static_cast<char>(codePage.encode(character[0]));
      if (c < kAsciiEnd && bytes_[c] != static_cast<char>(c)) keepsAscii_ = false;
    }
  }

  char blank() const noexcept { return bytes_[u' ']; }

  // Puts as many bytes as the text has characters.
  void put(TextView text, char* bytes) const noexcept {
    if (!keepsAscii_ || text.size() < kAtOnce) return putEach(text, bytes);
    const std::size_t last = text.size() - kAtOnce;
    for (std::size_t i = 0; i < last; i += kAtOnce) putPiece(text.data() + i, bytes + i);
    putPiece(text.data() + last, bytes + last);  // some of them for the second time
  }

 private:
  static constexpr std::size_t kAsciiEnd = 0x80;

  static const char16_t& characterOf(std::size_t number) noexcept {
    static constexpr auto kCharacters = [] {
      std::array<char16_t, 256> all{};
      for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char16_t>(i);
      return all;
    }();
    return kCharacters[number];
  }

  void putPiece(const char16_t* text, char* bytes) const noexcept {
    if (!putAscii(text, bytes)) putEach({text, kAtOnce}, bytes);
  }

  // Most of what is printed.  False: not the whole piece is.
  static bool putAscii(const char16_t* text, char* bytes) noexcept {
    Characters characters;
    std::memcpy(&characters, text, sizeof characters);
    std::array<std::uint64_t, 4> words;
    std::memcpy(&words, text, sizeof words);
    const std::uint64_t all = words[0] | words[1] | words[2] | words[3];
    if ((all & 0xFF80'FF80'FF80'FF80) != 0) return false;
    const auto narrow = __builtin_convertvector(characters, Bytes);
    std::memcpy(bytes, &narrow, sizeof narrow);
    return true;
  }

  // No letter that is replaced lies beyond the table.
  void putEach(TextView text, char* bytes) const noexcept {
    for (const char16_t c : text) {
      *bytes++ = c < bytes_.size() ? bytes_[c] : static_cast<char>(codePage_.encode(c));
    }
  }

  const CodePage& codePage_;
  std::array<char, 256> bytes_{};
  bool keepsAscii_ = true;
};

const LetterReplacements& replacements() {
  static const LetterReplacements replacements(CodePage::ofSystem());
  return replacements;
}

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
  texto()->replaceEach(text, replacements().all(), result);
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
  const clsTexto* texts = modRDPGlobalValues::ofThisThread().refInsTexto.get();
  if (texts != nullptr && texts->mayBeBypassed()) return writeAtOnce(text, leftMargin, end);
  Borrowed<Text> line(lineStorage_);
  if (leftMargin != 0) {
    texto()->fLeftMargin(text, leftMargin, *line);
  } else {
    line->assign(text);
  }
  line->append(end);
  sWriteToFileHandle(*line);
}

// What the steps of a write come to where nobody is asked about them.
void clsUtilImp::writeAtOnce(TextView text, std::uint8_t leftMargin, TextView end) try {
  sendAtOnce(text, leftMargin, end);
} catch (...) {
  trap("sWriteToFileHandle");
}

void clsUtilImp::sendAtOnce(TextView text, std::uint8_t leftMargin, TextView end) try {
  static const PrinterBytes printerBytes(replacements(), CodePage::ofSystem());
  Borrowed<std::string> bytes(byteStorage_);
  const std::size_t size = leftMargin + text.size() + end.size();
  if (bytes->size() < size) bytes->resize(size);
  char* at = std::fill_n(bytes->data(), leftMargin, printerBytes.blank());
  printerBytes.put(text, at);
  printerBytes.put(end, at + text.size());
  spooler_->write(printerHandle_, {bytes->data(), size});
  recordSystemError();
} catch (...) {
  trap("fSendStringToPrinter");
}

void clsUtilImp::recordSystemError() const { setLastSystemError(spooler_->lastError()); }

}  // namespace tarvo
