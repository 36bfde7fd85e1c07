#include "reports/page_writer.h"

#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostCharacters = 254;
constexpr std::int16_t kReportWidthCode = 3;
constexpr std::size_t kTooManyColumns = 255;
constexpr std::uint8_t kGreatestWidth = 254;
constexpr std::uint8_t kUsualWidth = 76;

modRDPGlobalValues& services() { return modRDPGlobalValues::ofThisThread(); }

// A reference of the call's own: a service may replace it meanwhile.
Ref<clsUtilImp> printer() { return services().refInsImp; }

}  // namespace

PageWriter::PageWriter(const ErrorIdentity& report, PageWriterHost& host,
                       std::int16_t lastLine) noexcept
    : report_(report), host_(host), lastLine_(lastLine) {}

void PageWriter::initialize() noexcept {
  page_ = 1;
  line_ = 1;
  linePrinted_ = false;
  pointsAllowed_ = true;
  setPageRange(0, 9999);
  sSetMargins(1, 0, 0, 0);
}

void PageWriter::setPageRange(std::int16_t first, std::int16_t last) noexcept {
  firstPage_ = first;
  lastPage_ = last;
}

void PageWriter::sSetMargins(std::uint8_t first, std::uint8_t second, std::uint8_t third,
                             std::uint8_t left) {
  firstMargin_ = first;
  secondMargin_ = second;
  thirdMargin_ = third;
  leftMargin_ = left;
}

// The printer channel, where what is written goes to it; else null.
clsUtilImp* PageWriter::textChannel() const noexcept {
  if (device_ != ePD_Printer) return nullptr;
  clsUtilImp* const profile = services().refInsImp.get();
  return profile != nullptr && profile->GetCanPrintInTextMode() ? profile : nullptr;
}

bool PageWriter::usesTextChannel() const noexcept { return textChannel() != nullptr; }

// --- Writing.

// The text is the present line's own, and a header that is printed before it takes that line.
template <class Send>
void PageWriter::breakPageAndSend(TextView text, Send send) {
  if (!fHasToSkipPage()) return send(text);
  const Text kept(text);
  sSkipPage(true);
  host_.printPageHeader();
  send(kept);
}

void PageWriter::sWriteLine(TextView text) try {
  breakPageAndSend(text, [this](TextView line) { sWriteLineNoSkipPage(line); });
} catch (...) {
  trap("sWriteLine");
}

void PageWriter::sOBWrite(TextView text) try {
  breakPageAndSend(text, [this](TextView part) { sOBWriteNoSkipPage(part); });
} catch (...) {
  trap("sOBWrite");
}

void PageWriter::sWriteLineNoSkipPage(TextView text) try {
  if (!linesArePrinted()) return countLine();
  if (text.size() <= kMostCharacters) return printLine(text);
  const Text kept(text);  // the warning may lead back to the line object, whose text it is
  warnOfLongLine();
  printLine(kept);
} catch (...) {
  trap("sWriteLineNoSkipPage");
}

void PageWriter::printLine(TextView text) {
  sendLine(text);
  countLine();
  linePrinted_ = true;
}

void PageWriter::sOBWriteNoSkipPage(TextView text) try {
  if (!isInRange()) return;
  if (usesTextChannel()) {
    printer()->sWrite(text, leftMargin_);
  } else {
    Ref(graphic_)->sWrite(text, leftMargin_);
  }
} catch (...) {
  trap("sOBWriteNoSkipPage");
}

void PageWriter::sendLine(TextView text) {
  if (const Ref<clsUtilImp> channel(textChannel()); channel) {
    channel->sWriteLn(text, leftMargin_);
  } else {
    Ref(graphic_)->sWriteLn(text, leftMargin_);
  }
}

void PageWriter::countLine() {
  if (line_ >= lastLine_) throw RunTimeError(kOverflow);
  ++line_;
}

void PageWriter::warnOfLongLine() const {
  Text warning =
      u"La información a imprimir supera los 254 caracteres. Reduzca"
      u" el ancho de las columnas de monto y texto o disminuya el rango de la información"
      u" solicitada. El informe se imprimirá truncado.";
  const Ref<clsMessage> messages = services().refInsMessage;
  messages->sWarning(warning);
}

// --- Pages.

void PageWriter::sWriteFormFeed() try {
  if (!isInRange() || !usesTextChannel()) return;
  const Ref<clsUtilImp> channel = printer();
  channel->sWrite(channel->GetChrFormFeed(), 0);
} catch (...) {
  trap("sWriteFormFeed");
}

void PageWriter::sSkipPageAndPrintPageHeader() try {
  sSkipPage(true);
  host_.printPageHeader();
} catch (...) {
  trap("sSkipPageAndPrintPageHeader");
}

void PageWriter::beginNextPage() {
  line_ = 1;
  page_ = checkedAdd(page_, std::int16_t{1});
}

bool PageWriter::fLessOfNLinesAbsentToEndPage(std::uint8_t count) try {
  return narrow<std::uint8_t>(line_ + count) >= printer()->GetMaxLinPage();
} catch (...) {
  trap("fLessOfNLinesAbsentToEndPage");
}

// --- Skipping.

void PageWriter::sSkipNPoints(std::uint8_t count) try {
  if (!pointsAllowed_) return;
  if (usesTextChannel()) {
    printer()->sSkipNPoints(count);
  } else {
    Ref(graphic_)->sSkipNPoints(count);
  }
} catch (...) {
  trap("sSkipNPoints");
}

// --- Emphasis.

void PageWriter::writeCode(ProfileText code) {
  if (device_ != ePD_Printer) return;
  const Ref<clsUtilImp> channel = printer();
  sOBWriteNoSkipPage(((*channel).*code)());
}

void PageWriter::sWriteBold() try { writeCode(&clsUtilImp::GetChrBold); } catch (...) {
  trap("sWriteBold");
}

void PageWriter::sWriteLight() try { writeCode(&clsUtilImp::GetChrLight); } catch (...) {
  trap("sWriteLine");
}

void PageWriter::sWriteExpanded() try { writeCode(&clsUtilImp::GetChrInitExpanded); } catch (...) {
  trap("sWriteExpanded");
}

void PageWriter::sWriteCondensed() try { writeCode(&clsUtilImp::GetChrCondensed); } catch (...) {
  trap("sWriteCondensed");
}

void PageWriter::sWriteNormal() try { writeCode(&clsUtilImp::GetChrNormal); } catch (...) {
  trap("sWriteNormal");
}

void PageWriter::sWriteFont10Points() try {
  writeCode(&clsUtilImp::GetChrFont10Points);
} catch (...) {
  trap("sWriteFont10Points");
}

void PageWriter::sWriteFont12Points() try {
  writeCode(&clsUtilImp::GetChrFont12Points);
} catch (...) {
  trap("sWriteFont12Points");
}

void PageWriter::sResetPrinter() try { writeCode(&clsUtilImp::GetChrReset); } catch (...) {
  trap("sResetPrinter");
}

void PageWriter::sPrinterInternationalCharacters() try {
  if (device_ != ePD_Printer || printer()->GetChrInternationalChars().empty()) return;
  writeCode(&clsUtilImp::GetChrInternationalChars);
} catch (...) {
  trap("sPrinterInternationalCharacters");
}

// --- The emitted-on line.

void PageWriter::sWriteEmited() try { sWriteEmitedWithWidth(reportWidth_); } catch (...) {
  trap("sWriteEmited");
}

void PageWriter::sWriteEmitedWithWidth(std::uint8_t width) try {
  sWriteLight();
  const Ref<clsUtilDate> dates = services().refInsUtilDate;
  const Ref<clsConvert> conversions = services().refInsConvert;
  Text date;
  conversions->fDateToText(dates->fToday(), date);
  Text time;
  dates->fTimeText(time);
  const Ref<clsTexto> texts = services().refInsTexto;
  Text line;
  texts->fFitToWidth(u"Emitido el " + date + u" a las " + time, width, line);
  sWriteLine(line);
  sWriteBold();
} catch (...) {
  trap("sWriteEmitedWithWidth");
}

std::uint8_t PageWriter::fReportWidthAccordingToTitleColumns(TextView titleColumns) try {
  if (titleColumns.size() >= kTooManyColumns) return kGreatestWidth;
  const Ref<clsConvert> conversions = services().refInsConvert;
  const auto length = narrow<std::int32_t>(titleColumns.size());
  const auto width = narrow<std::uint8_t>(conversions->fReportWidth(length, kReportWidthCode));
  return width == 0 ? kUsualWidth : width;
} catch (...) {
  trap("fReportWidthAccordingToTitleColumns");
}

}  // namespace tarvo
