#include "reports/clsObRepPlanilla.h"

#include <utility>

#include "frame/borrowed.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

constexpr ErrorIdentity kIdentity{u"clsObRepPlanilla", u"Lib. Impresión Texto - Ob Rep"};

modRDPGlobalValues& services() { return modRDPGlobalValues::ofThisThread(); }

}  // namespace

clsObRepPlanilla::clsObRepPlanilla() : clsObRepPlanilla(ReportPorts::ofPlatform()) {}
clsObRepPlanilla::clsObRepPlanilla(ReportPorts ports)
    : ReportEngine(std::move(ports)), writer_(kIdentity, *this) {}
clsObRepPlanilla::~clsObRepPlanilla() = default;

const ErrorIdentity& clsObRepPlanilla::errorIdentity() const noexcept { return kIdentity; }

void clsObRepPlanilla::sInit(Ref<clsImplementIDTraduc>& initTraducSpecialVar,
                             TextView initReportTitle, TextView initFileNameTxt,
                             TextView valUserName, TextView initReaderFileName,
                             TextView initDirPlanilla, ePruebaODefinitiva initPruebaODefinitiva,
                             eHojaDeLaPlanilla initHojaDeLaPlanilla) try {
  client_ = initTraducSpecialVar;
  draftOrDefinitive_ = initPruebaODefinitiva;
  sheets_ = initHojaDeLaPlanilla;
  names_.templateName = initReaderFileName;
  names_.templateDirectory = initDirPlanilla;
  line_ = nullptr;
  writer_.initialize();
  names_.reportTitle = initReportTitle;
  issueDate_ = Ref(services().refInsUtilDate)->fToday();
  writer_.setReportWidth(writer_.fReportWidthAccordingToTitleColumns({}));
  writer_.setDevice(ePD_Printer);
  names_.fileNameTxt = fileNameTxtOf(initFileNameTxt);
  names_.userPrefix = userPrefixOf(valUserName);
  firstSheet_.clear();
  secondSheet_.clear();
  draft_.clear();
} catch (...) {
  trap("sInit");
}

void clsObRepPlanilla::sInitForUserReport(Ref<clsImplementIDTraduc>& initTraducSpecialVar) try {
  client_ = initTraducSpecialVar;
  line_ = make<clsObLineCharacts>();
  Ref(line_)->sClrRecord();
} catch (...) {
  trap("sInitForUserReport");
}

void clsObRepPlanilla::sSearchSpecialVarAndTranslate(TextView valLine) try {
  translate(valLine);
} catch (...) {
  trap("sSearchSpecialVarAndTranslate");
}

void clsObRepPlanilla::sPrintReport() try {
  if (!fCurrentPrinterAlreadySelected(true)) return;
  if (draftOrDefinitive_ == ePOD_Borrador) {
    sWritePlanillaDraft();
  } else {
    sWritePlanillaDefinitiva();
  }
} catch (...) {
  trap("sPrintReport");
}

// --- The client.

bool clsObRepPlanilla::answer(Ref<clsObLineCharacts>& line) {
  return Ref(client_)->fTranslateSpecialVar(line);
}

void clsObRepPlanilla::displayPause() { Ref(client_)->sDisplayPauseDialog(); }

// --- The sheets.

void clsObRepPlanilla::sWritePlanillaDefinitiva() try {
  if (!fCanSendReportToCurrentPrinter(true)) return;
  if (sheets_ == eHP_PrimeraHoja || sheets_ == eHP_AmbasHojas) sWriteFirstSheet();
  if (sheets_ == eHP_SegundaHoja || sheets_ == eHP_AmbasHojas) sWriteSecondSheet();
} catch (...) {
  trap("sWritePlanillaDefinitiva");
}

void clsObRepPlanilla::sWriteFirstSheet() try {
  currentSheet_ = 0;
  names_.templateName = firstSheet_;
  if (names_.templateName.empty()) return;
  writer_.setDevice(ePD_Printer);
  writeSheet();
} catch (...) {
  trap("sWriteFirstSheet");
}

void clsObRepPlanilla::sWriteSecondSheet() try {
  currentSheet_ = 1;
  names_.templateName = secondSheet_;
  if (names_.templateName.empty()) return;
  writer_.setDevice(ePD_Printer);
  if (fFollowingSheetWasPlaced()) writeSheet();
} catch (...) {
  trap("sWriteSecondSheet");
}

void clsObRepPlanilla::sWritePlanillaDraft() try {
  names_.templateName = draft_;
  if (names_.templateName.empty()) return;
  writer_.setDevice(ePD_Screen);
  writeSheet();
} catch (...) {
  trap("sWritePlanillaDraft");
}

void clsObRepPlanilla::writeSheet() {
  openOutput();
  sWriteReport();
  closeOutput();
}

// Whether anything was printed is not forgotten between sheets: once a line was, every later sheet
// ends with a form feed.
void clsObRepPlanilla::sWriteReport() try {
  writer_.sResetPrinter();
  writer_.sWriteNormal();
  sReadTextFileAndPrint();
  writer_.sWriteNormal();
  if (writer_.linePrinted()) writer_.sWriteFormFeed();
} catch (...) {
  trap("sWriteReport");
}

void clsObRepPlanilla::sReadTextFileAndPrint() try {
  if (!templateExists()) return sSendAlertIDNotFound();
  Reading reading(files(), fFileName());
  Text templateLine;
  while (!reading->AtEndOfStream()) {
    reading->ReadLine(templateLine);
    if (!line_) line_ = make<clsObLineCharacts>();
    Ref(line_)->sClrRecord();
    sSearchSpecialVarAndTranslate(templateLine);
    sPrintLine();
  }
  reading.close();
} catch (...) {
  trap("sReadTextFileAndPrint");
}

// --- What the operator is asked and told.

// Without a printer's name the answer stays True: that was said before.
bool clsObRepPlanilla::fCanSendReportToCurrentPrinter(bool showMessages) const try {
  if (writer_.device() != ePD_Printer) return true;
  const Ref<clsUtilImp> profile = services().refInsImp;
  const Text& name = profile->GetPrinterName();
  if (name.empty() || profile->GetCanPrintInTextMode()) return true;
  if (showMessages) {
    const Ref<clsMessage> messages = services().refInsMessage;
    messages->sShowMessageWithTitle(u"La impresora que usted tiene seleccionada '" + name +
                                        u"', no admite impresión en Modo Texto.",
                                    u"Proceso Cancelado");
  }
  return false;
} catch (...) {
  trap("fCanSendReportToCurrentPrinter");
}

bool clsObRepPlanilla::fHasToShowMessageTurnPage() const try {
  return draftOrDefinitive_ == ePOD_Definitiva && sheets_ == eHP_AmbasHojas && currentSheet_ == 1;
} catch (...) {
  trap("fHasToShowMessageTurnPage");
}

bool clsObRepPlanilla::fFollowingSheetWasPlaced() const try {
  if (!fHasToShowMessageTurnPage()) return true;
  const Ref<clsMessage> messages = services().refInsMessage;
  return messages->fAskAcceptCancel(
      u"Coloque la segunda hoja de la planilla " + names_.reportTitle +
          u" en su impresora. Cuando esté listo  presione <Aceptar>.\rSi no desea continuar con la"
          u" impresión de la planilla, presione <Cancelar>.",
      u"Voltear Planilla");
} catch (...) {
  trap("fFollowingSheetWasPlaced");
}

}  // namespace tarvo
