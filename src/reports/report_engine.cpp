#include "reports/report_engine.h"

#include <utility>

#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "template/text_parts.h"
#include "ui/clsLibTarvoRdp.h"

namespace tarvo {
namespace {

constexpr TextView kTemplateEnding = u".ID";
constexpr TextView kTwoLineEnds = u"\r\n\r\n";

Ref<clsUtilImp> printer() { return modRDPGlobalValues::ofThisThread().refInsImp; }

void showMessage(TextView text, TextView title) {
  const Ref<clsMessage> messages = modRDPGlobalValues::ofThisThread().refInsMessage;
  messages->sShowMessageWithTitle(text, title);
}

bool isBlank(TextView text) {
  Text rest;
  TextParts()->fStrip(text, u" ", rest);
  return rest.empty();
}

}  // namespace

ReportPorts ReportPorts::ofPlatform() {
  return {platform::makeTextFiles(), platform::makePageOutput()};
}

ReportEngine::ReportEngine(ReportPorts ports) : ports_(std::move(ports)) {}
ReportEngine::~ReportEngine() = default;

// --- The template.

const Text& ReportEngine::fFileName() const try {
  path_.assign(names_.templateDirectory).append(names_.templateName).append(kTemplateEnding);
  return path_;
} catch (...) {
  trap("fFileName");
}

bool ReportEngine::templateExists() const {
  const Ref<clsUtilFile> fileService = modRDPGlobalValues::ofThisThread().refInsUtilFile;
  return fileService->fFileExists(fFileName());
}

void ReportEngine::sSendAlertIDNotFound() const try {
  showMessage(u"La plantilla de impresión " + fFileName() +
                  u" no fue encontrada, chequee su directorio de instalación a ver si encuentra el "
                  u"archivo de nombre: " +
                  names_.templateName + Text(kTemplateEnding),
              u"Archivo no encontrado");
} catch (...) {
  trap("sSendAlertIDNotFound");
}

ReportEngine::Reading::~Reading() {
  if (!stream_) return;
  try {
    stream_->Close();
  } catch (...) {  // another error is on its way to the client
  }
}

void ReportEngine::Reading::close() { std::exchange(stream_, nullptr)->Close(); }

// --- The printer.

bool ReportEngine::fCurrentPrinterAlreadySelected(bool showMessages) const try {
  if (!printer()->GetPrinterName().empty()) return true;
  if (showMessages) {
    showMessage(u"Aún no ha sido escogida la impresora." +
                    make<clsLibTarvoRdp>()->fMsgForLocateOptionChoosePrinter() + u"." +
                    Text(kTwoLineEnds) + u"Este proceso será cancelado.",
                u"Imprimir " + names_.reportTitle);
  }
  return false;
} catch (...) {
  trap("fCurrentPrinterAlreadySelected");
}

void ReportEngine::openOutput() {
  const Ref<clsUtilImp> profile = printer();
  if (writer().usesTextChannel()) {
    profile->sInitializePrinterFileHandle(profile->GetPrinterName(), names_.reportTitle);
  } else {
    const auto graphic = make<clsARObRep>(ports_.output);
    writer().setGraphicChannel(graphic);
    graphic->sInit(profile->GetPrinterName(), names_.reportTitle, writer().device());
  }
}

void ReportEngine::closeOutput() {
  if (writer().usesTextChannel()) {
    printer()->sClosePrinterFileHandle();
  } else {
    Ref(writer().graphicChannel())->sCloseGraphicHandle();
    writer().setGraphicChannel(nullptr);
  }
}

// --- Lines.

void ReportEngine::translate(TextView templateLine) {
  translator_.translate(line_, templateLine, *this);
}

void ReportEngine::setText(clsObLineCharacts& line, TextView text) try {
  line.GetSpecialVar()->SetContentString(text);
} catch (...) {
  trap("SetSpecialVarString");
}

bool ReportEngine::skipPageWasRead() const noexcept { return line_ && line_->GetSkipPageWasRead(); }

void ReportEngine::sPrintLine() try {
  const Ref<clsObLineCharacts> line = line_;
  if (!line->GetPrintLine()) {
    if (line->GetPauseWasRead()) displayPause();
  } else if (line->GetSkipLine()) {
    writeLines();
  } else {
    writeOpenText();
  }
} catch (...) {
  trap("sPrintLine");
}

void ReportEngine::writeLineAsAsked(TextView text) {
  if (skipPageWasRead()) {
    writer().sWriteLine(text);
  } else {
    writer().sWriteLineNoSkipPage(text);
  }
}

// A header that is printed before the line leaves its own flags in the line object: how often to
// skip is asked after the line was written.
void ReportEngine::writeLines() {
  const Ref<clsObLineCharacts> line = line_;
  writeLineAsAsked(line->textToPrint());
  const int lastSkip = line->GetNumberOfSkips();
  for (int skip = 2; skip <= lastSkip; ++skip) writeLineAsAsked({});
}

void ReportEngine::writeOpenText() {
  const Ref<clsObLineCharacts> line = line_;
  if (const Text& text = line->GetTextToPrint(); !isBlank(text)) {
    if (line->GetSkipPageWasRead()) {
      writer().sOBWrite(text);
    } else {
      writer().sOBWriteNoSkipPage(text);
    }
  }
  if (line->GetSkipNPoints()) writer().sSkipNPoints(line->GetNumberOfSkips());
}

}  // namespace tarvo
