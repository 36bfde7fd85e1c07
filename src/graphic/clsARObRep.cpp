#include "graphic/clsARObRep.h"

#include <algorithm>
#include <array>
#include <utility>

#include "frame/late_object.h"
#include "frame/modRDPGlobalValues.h"
#include "graphic/page_report.h"
#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

constexpr std::int32_t kLongestOnUprightPage = 112;  // characters
constexpr std::int32_t kWideSheetBorder = 810;       // twips
constexpr std::int32_t kMargin = 360;                // twips
constexpr std::uint8_t kPointsOfALine = 12;

constexpr TextView kDetail = u"Detail";
constexpr TextView kTextBox = u"txtData";

using ControlCode = const Text& (clsUtilImp::*)() const noexcept;
constexpr std::array<ControlCode, 6> kRemovedCodes{
    &clsUtilImp::GetChrCondensed, &clsUtilImp::GetChrInitExpanded, &clsUtilImp::GetChrEndExpanded,
    &clsUtilImp::GetChrNormal,    &clsUtilImp::GetChrBold,         &clsUtilImp::GetChrLight};

// References of the call's own: a service may replace the services while it works.
Ref<clsTexto> texto() { return modRDPGlobalValues::ofThisThread().refInsTexto; }
Ref<clsUtReport> reportUtility() { return modRDPGlobalValues::ofThisThread().refInsUtReport; }

// A member of an object, which is an object itself.
Ref<Object> partOf(const Ref<Object>& whole, TextView name, std::span<const Value> indexes = {}) {
  const Value part = lateObjectOf(whole).get(name, indexes);
  const auto* object = part.tryGet<Ref<Object>>();
  if (object == nullptr) throw RunTimeError(kTypeMismatch, name);
  return *object;
}

Ref<Object> namedPartOf(const Ref<Object>& whole, TextView collection, TextView name) {
  const Value index(name);
  return partOf(whole, collection, {&index, 1});
}

// How wide the text box is on a page for wide lines.
std::int32_t wideColumnWidth() {
  const Ref<Object> sheet = make<WideSheet>();
  const Value width = lateObjectOf(sheet).get(u"Width", {});
  return std::get<std::int32_t>(width.content()) - kWideSheetBorder;
}

}  // namespace

clsARObRep::clsARObRep() : clsARObRep(platform::makePageOutput()) {}
clsARObRep::clsARObRep(Ref<PageOutput> output, MakeLineTable makeLineTable)
    : output_(std::move(output)), makeLineTable_(makeLineTable) {}
clsARObRep::~clsARObRep() = default;

const ErrorIdentity& clsARObRep::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsARObRep", u"Lib. Impresión Texto - clsARObRep"};
  return kIdentity;
}

void clsARObRep::sPrintReport(bool /*valShowMsg*/, bool valShowModeless) try {
  Ref(lines_)->moveFirst();
  // Of the call's own: a report that is shown may outlast the channel's.
  const Text title = reportTitle_;
  const Text printerName = physicalPrinterName_;
  Ref<Object> report = make<PageReport>(output_);
  const bool toPrinter = printingDevice_ == ePD_Printer;
  const bool modal = !valShowModeless;
  if (!fConfigReport(report)) return;
  reportUtility()->sRunReport(report, toPrinter, title, modal, printerName, printingDevice_, {},
                              {});
} catch (...) {
  trap("sPrintReport");
}

void clsARObRep::sInit(TextView initPhysicalPrinterName, TextView initReportTitle,
                       ePrintingDevice initPrintingDevice) try {
  physicalPrinterName_ = initPhysicalPrinterName;
  reportTitle_ = initReportTitle;
  printingDevice_ = initPrintingDevice;
  sInitializeGraphicHandle(reportTitle_);
} catch (...) {
  trap("sInit");
}

void clsARObRep::sInitializeGraphicHandle(TextView /*valDocumentName*/) try {
  lines_ = makeLineTable_();
  hasWideLines_ = false;
} catch (...) {
  trap("sInitializeGraphicHandle");
}

void clsARObRep::sCloseGraphicHandle() try {
  const Ref<LineTable> lines = lines_;
  sPrintReport(true, false);
  // While the report is shown the client may have begun the next one, or given this one up.
  if (lines->isOpen()) lines->close();
  if (lines_ == lines) lines_ = nullptr;
} catch (...) {
  trap("sCloseGraphicHandle");
}

void clsARObRep::sWriteLn(TextView valText, std::uint8_t valLeftMargin) try {
  writeMargined(valText, valLeftMargin);
} catch (...) {
  trap("sWriteLn");
}

void clsARObRep::sWrite(TextView valText, std::uint8_t valLeftMargin) try {
  writeMargined(valText, valLeftMargin);
} catch (...) {
  trap("sWrite");
}

void clsARObRep::sSkipNPoints(std::uint8_t valNumberOfPoints) try {
  const int whole = valNumberOfPoints / kPointsOfALine;
  const int twiceRest = valNumberOfPoints % kPointsOfALine * 2;
  const bool isRoundedUp =
      twiceRest > kPointsOfALine || (twiceRest == kPointsOfALine && whole % 2 != 0);
  const int rows = std::max(1, isRoundedUp ? whole + 1 : whole);
  for (int i = 0; i < rows; ++i) sWriteLn({}, 0);
} catch (...) {
  trap("sSkipNPoints");
}

void clsARObRep::sCancelGraphicPrintProcess() try {
  if (lines_ && lines_->isOpen()) lines_->close();
} catch (...) {
  trap("sCancelGraphicPrintProcess");
}

void clsARObRep::writeMargined(TextView text, std::uint8_t leftMargin) {
  if (leftMargin == 0) return sWriteToGraphicHandle(text);
  Borrowed<Text> line(marginedStorage_);
  texto()->fLeftMargin(text, leftMargin, *line);
  sWriteToGraphicHandle(*line);
}

void clsARObRep::sWriteToGraphicHandle(TextView text) try {
  const Ref<clsTexto> service = texto();
  const Ref<clsUtilImp> printer = modRDPGlobalValues::ofThisThread().refInsImp;
  const Ref<LineTable> lines = lines_;
  Borrowed<Text> line(lineStorage_);
  Borrowed<Text> stripped(strippedStorage_);
  line->assign(text);
  for (const ControlCode code : kRemovedCodes) {
    service->fReplaceAll(*line, ((*printer).*code)(), {}, *stripped);
    line->swap(*stripped);
  }
  lines->addRow(*line);
  if (!hasWideLines_ && service->fLength(*line) > kLongestOnUprightPage) hasWideLines_ = true;
} catch (...) {
  trap("sWriteToGraphicHandle");
}

bool clsARObRep::fConfigReport(Ref<Object>& report) try {
  const Ref<clsUtReport> utility = reportUtility();
  Text layout;
  // A copy: the service may begin another report meanwhile.
  utility->fLoadLayout(u"rpxFormDraft", Text(reportTitle_), layout);
  if (!utility->fApplyLayout(report, layout)) return false;
  const Ref<Object> detail = namedPartOf(report, u"Sections", kDetail);
  const Ref<Object> data = namedPartOf(detail, u"Controls", u"dcOrigenData");
  lateObjectOf(data).put(u"Recordset", {}, Ref<Object>(lines_));
  const std::int32_t width = hasWideLines_ ? wideColumnWidth() : 0;
  utility->sBindText(report, kTextBox, kLineColumn, width);
  utility->sSetFont(report, kTextBox, u"Courier New", 8, false, false);
  sSetObRepPageSettings(report);
  return true;
} catch (...) {
  trap("fConfigReport");
}

void clsARObRep::sSetObRepPageSettings(Ref<Object>& report) try {
  const Ref<Object> part = partOf(report, u"PageSettings");
  LateObject& settings = lateObjectOf(part);
  if (hasWideLines_) {
    settings.put(u"PageWidth", {}, kWideSheetWidth);
    settings.put(u"Orientation", {}, kLying);
  }
  for (const TextView margin : {u"LeftMargin", u"TopMargin", u"RightMargin", u"BottomMargin"}) {
    settings.put(margin, {}, kMargin);
  }
} catch (...) {
  trap("sSetObRepPageSettings");
}

}  // namespace tarvo
