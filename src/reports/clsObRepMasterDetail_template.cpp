// The sections of the template, its constants, and the variables that the report answers itself.
#include <algorithm>
#include <utility>

#include "frame/modRDPGlobalValues.h"
#include "frame/rounded.h"
#include "frame/upper_case.h"
#include "printer/clsUtilImp.h"
#include "reports/clsObRepMasterDetail.h"
#include "reports/library_variables.h"
#include "reports/section_markers.h"
#include "template/braces.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

constexpr char16_t kConstantMark = u'.';
constexpr std::int32_t kLongestContent = 255;

constexpr TextView kHalfLetter = u"MEDIACARTA";
constexpr TextView kPageLength = u"NMAXLINPAGINA";
// Compared with a name in capitals, so it never matches.  Templates that have it rely on that.
constexpr TextView kPageLengthOfOld = u"NUMERODELinesPORPAGINA";

// Whether the line, in capitals, begins with the marker.
bool beginsInEitherCase(TextView line, TextView marker) noexcept {
  return line.size() >= marker.size() &&
         std::equal(marker.begin(), marker.end(), line.begin(),
                    [](char16_t capital, char16_t c) { return capital == upperCase(c); });
}

// Whether the line, in capitals, holds the marker, which begins with a brace.
bool holdsSectionMarker(TextView line, TextView marker) noexcept {
  if (!holdsBrace(line)) return false;
  for (std::size_t at = line.find(u'{'); at != TextView::npos; at = line.find(u'{', at + 1)) {
    if (beginsInEitherCase(line.substr(at), marker)) return true;
  }
  return false;
}

// Whether the line, in capitals, holds the marker; an empty line and an empty marker never do.
bool holds(TextView line, TextView marker) {
  if (line.empty() || marker.empty()) return false;
  const clsTexto* const service = modRDPGlobalValues::ofThisThread().refInsTexto.get();
  if (service != nullptr && service->mayBeBypassed() && marker.front() == u'{') {
    return holdsSectionMarker(line, marker);
  }
  return TextParts()->fHolds(upperCase(line), marker);
}

// A body like that one, but without lines.
Ref<clsBody> withoutLines(const clsBody& body) {
  Ref<clsBody> other = make<clsBody>();
  other->SetMaxNumberOfLinesToPrint(body.GetMaxNumberOfLinesToPrint());
  other->SetNumberOfFirstLineOfBody(body.GetNumberOfFirstLineOfBody());
  other->SetUseNumberWithCharacterToTheLeftSide(body.GetUseNumberWithCharacterToTheLeftSide());
  other->SetCharacterToTheLeftSide(body.GetCharacterToTheLeftSide());
  other->SetRecordNumberToPrint(body.GetRecordNumberToPrint());
  other->SetHasInsertBody(body.GetHasInsertBody());
  return other;
}

double numberIn(TextView text) {
  const Ref<clsConvert> conversions = modRDPGlobalValues::ofThisThread().refInsConvert;
  return conversions->fTextToNumber(text);
}

}  // namespace

// A pass over the template: opens it, and is the section that the report reads until it goes.  A
// section that is printed because a page broke inside another one leaves that one where it was.
class clsObRepMasterDetail::Section {
 public:
  explicit Section(clsObRepMasterDetail& report)
      : reading_(report.files(), report.fFileName()),
        line_(report.lineStorage_),
        current_(report.section_),
        outer_(std::exchange(report.section_, this)) {}
  Section(const Section&) = delete;
  Section& operator=(const Section&) = delete;
  ~Section() { current_ = outer_; }

  // The next line of the template; false at its end.
  bool next() { return next(*line_); }
  bool next(Text& line) {
    if (reading_->AtEndOfStream()) return false;
    reading_->ReadLine(line);
    return true;
  }
  Text& line() { return *line_; }

  void close() { reading_.close(); }

 private:
  Reading reading_;
  Borrowed<Text> line_;
  Section*& current_;
  Section* const outer_;
};

// --- Variables.

bool clsObRepMasterDetail::fTranslateSpecialVarLibrary() try {
  clsObSpecialVar& variable = *line_->GetSpecialVar();
  switch (libraryVariable(variable.GetFieldName())) {
    case LibraryVariable::kEndOfRecords:
      variable.SetContentNumeric(Currency::ofUnits(endOfDetailRecords_ ? 1 : 0), false);
      return true;
    case LibraryVariable::kCarriedForward:
      variable.SetContentNumeric(subTotal_, false);
      if (insertBodyWasPrinted_ && endOfDetailRecords_) {
        line_->SetLineToWriteEmpty(true);
        subTotal_ = {};
      }
      return true;
    case LibraryVariable::kBroughtForward:
      variable.SetContentNumeric(subTotal_, false);
      if (writer_.page() < 2) line_->SetLineToWriteEmpty(true);
      return true;
    case LibraryVariable::kRecordNumber:
      if (body_->GetUseNumberWithCharacterToTheLeftSide()) {
        variable.SetContentString(body_->GetCharacterToTheLeftSide());
      } else {
        variable.SetContentNumeric(Currency::ofUnits(body_->GetRecordNumberToPrint()), false);
      }
      return true;
    case LibraryVariable::kNone:
      return false;
  }
  return false;
} catch (...) {
  trap("fTranslateSpecialVarLibrary");
}

// --- Constants.

// The first line that is no constant is looked at as well.
void clsObRepMasterDetail::sReadAllFileTranslateConstantsAndAssignsItsValues() try {
  if (!templateExists()) return;
  Section section(*this);
  bool isConstant = true;
  while (isConstant && section.next()) {
    line_->sClrRecord();
    isConstant = section.line().starts_with(kConstantMark);
    sTranslateConstantAndAssingItsValue(section.line());
  }
  section.close();
} catch (...) {
  trap("sReadAllFileTranslateConstantsAndAssignsItsValues");
}

void clsObRepMasterDetail::sTranslateConstantAndAssingItsValue(TextView line) try {
  Text cleaned(line);
  Text name;
  Text content;
  sCleanAndExtractVariableAndContent(cleaned, name, content);
  if (cleaned == kHalfLetter) {
    paper_.isUsed = true;
  } else if (name == kPageLength || name == kPageLengthOfOld) {
    paper_.lines = roundHalfToEven<std::uint8_t>(numberIn(content));
    Ref(modRDPGlobalValues::ofThisThread().refInsImp)->SetMaxLinPage(paper_.lines);
  }
} catch (...) {
  trap("sTranslateConstantAndAssingItsValue");
}

void clsObRepMasterDetail::sCleanAndExtractVariableAndContent(Text& line, Text& name,
                                                              Text& content) try {
  const TextParts texts;
  Text stripped;
  texts->fStrip(line, u".", stripped);
  texts.trim(stripped);
  line = upperCase(stripped);
  const std::int32_t sign = texts.position(line, u"=");
  if (sign == 0) return;
  texts.part(line, 1, sign - 1, name);
  texts->fPart(line, sign + 1, kLongestContent, content);
} catch (...) {
  trap("sCleanAndExtractVariableAndContent");
}

// --- Sections.

bool clsObRepMasterDetail::fReadFileUntilLineFrom(TextView lineaDesde, Text& lineaLeida) try {
  if (lineaDesde.empty()) return true;
  if (section_ == nullptr) throw RunTimeError(kObjectNotSet);
  Borrowed<Text> line(searchStorage_);  // the section's own line may be the one being printed
  while (section_->next(*line)) {
    if (holds(*line, lineaDesde)) {
      lineaLeida = *line;
      return true;
    }
  }
  const Ref<clsMessage> messages = modRDPGlobalValues::ofThisThread().refInsMessage;
  messages->sShowMessageWithTitle(u"No se encontró línea desde =" + Text(lineaDesde) +
                                      u"= en el archivo " + names_.templateName,
                                  u"Impresión de Plantilla");
  return false;
} catch (...) {
  trap("fReadFileUntilLineFrom");
}

// An empty `from` begins at the first line, an empty `until` never comes.
void clsObRepMasterDetail::sReadFileFromLineFromToLineUntilAndPrint(TextView from,
                                                                    TextView until) try {
  if (!templateExists()) return sSendAlertIDNotFound();
  Section section(*this);
  Borrowed<Text> markerLine(markerStorage_);
  if (fReadFileUntilLineFrom(from, *markerLine)) {
    while (section.next() && !holds(section.line(), until)) {
      sProcessLineToWriteAndPrint(section.line());
    }
  }
  section.close();
} catch (...) {
  trap("sReadFileFromLineFromToLineUntilAndPrint");
}

// Into bodies of its own: a client that prints the report while it is asked for a line's value
// finds that line again.
bool clsObRepMasterDetail::readBody() {
  body_ = withoutLines(*body_);
  insertBody_ = make<clsBody>();
  Section section(*this);
  Text markerLine;
  const bool isLimited = fReadFileUntilLineFrom(kBodyMarker, markerLine) &&
                         fExtractNumberOfLinesToReadFromLine(markerLine);
  if (isLimited) {
    sReadAllBodyAndFillLinesArray(kEndOfBodyMarker);
    sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero();
  }
  section.close();
  return isLimited;
}

// The number stands between the marker and the next "}", wherever in the line the marker is.
bool clsObRepMasterDetail::fExtractNumberOfLinesToReadFromLine(TextView line) try {
  const std::size_t marker = upperCase(line).find(kBodyMarker);
  const TextView fromMarker = marker == Text::npos ? line : line.substr(marker);
  const TextParts texts;
  Text number;
  texts->fDelete(fromMarker, 1, static_cast<std::int32_t>(kBodyMarker.size()) - 1, number);
  if (const std::int32_t end = texts.position(number, u"}"); end > 0)
    texts.part(number, 1, end - 1);
  body_->SetMaxNumberOfLinesToPrint(roundHalfToEven<std::int16_t>(numberIn(number)));
  return body_->GetMaxNumberOfLinesToPrint() >= 0;
} catch (...) {
  trap("fExtractNumberOfLinesToReadFromLine");
}

void clsObRepMasterDetail::sReadAllBodyAndFillLinesArray(TextView until) try {
  body_->SetNumberOfLinesWithInformation(readLines(*body_, until, true));
  if (body_->GetHasInsertBody() != 0) sReadInsertBody(until);
} catch (...) {
  trap("sReadAllBodyAndFillLinesArray");
}

void clsObRepMasterDetail::sReadInsertBody(TextView until) try {
  insertBody_->SetNumberOfLinesWithInformation(readLines(*insertBody_, until, false));
} catch (...) {
  trap("sReadInsertBody");
}

// How many lines stand before the marker.
std::int16_t clsObRepMasterDetail::readLines(clsBody& into, TextView until,
                                             bool mayEndInInsertBody) {
  constexpr std::int16_t kYes = -1;
  std::int16_t count = 0;
  while (section_->next()) {
    const Text& line = section_->line();
    if (mayEndInInsertBody && upperCase(line) == kInsertBodyMarker) {
      body_->SetHasInsertBody(kYes);
      break;
    }
    if (holds(line, until)) break;
    into.SetLinesArray(count, line);
    ++count;
  }
  return count;
}

}  // namespace tarvo
