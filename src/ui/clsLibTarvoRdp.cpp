#include "ui/clsLibTarvoRdp.h"

#include "frame/checked.h"
#include "template/text_parts.h"
#include "ui/frmChoosePrintingMode.h"

namespace tarvo {
namespace {

constexpr std::int16_t kLastLine = 10;
constexpr std::int32_t kEnoughCharacters = 180;

const ValueArray& linesOf(const Value& shortText) {
  const auto* lines = shortText.tryGet<ValueArray>();
  if (lines == nullptr) throw RunTimeError(kTypeMismatch, u"valShortText");
  return *lines;
}

TextView lineAt(const ValueArray& lines, std::size_t index) {
  if (index >= lines.size()) throw RunTimeError(kSubscriptOutOfRange);
  if (lines[index].tryGet<Empty>() != nullptr) return {};
  const auto* text = lines[index].tryGet<Text>();
  if (text == nullptr) throw RunTimeError(kTypeMismatch, u"valShortText");
  return *text;
}

std::int16_t segmentsToSkip(const clsObSpecialVar& variable) {
  std::int16_t skip = narrow<std::int16_t>(variable.GetArrayPosition() - 1);
  // Read as a number a true boolean is -1, so that nothing is added.
  const std::int16_t pass = variable.GetLineOfRepeatToPrint() ? -1 : 0;
  if (pass > 0) skip = checkedSubtract(checkedAdd(skip, pass), std::int16_t{1});
  return skip;
}

void goOnToNextSegment(clsObSpecialVar& variable) {
  variable.SetArrayPosition(narrow<std::uint8_t>(variable.GetArrayPosition() + 1));
}

}  // namespace

clsLibTarvoRdp::clsLibTarvoRdp() : clsLibTarvoRdp(&platform::makePrintingModeWindow) {}
clsLibTarvoRdp::clsLibTarvoRdp(PrintingModeWindowMaker makeWindow) : makeWindow_(makeWindow) {}
clsLibTarvoRdp::~clsLibTarvoRdp() = default;

const ErrorIdentity& clsLibTarvoRdp::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsLibTarvoRdp", u"clsLibTarvoRdp"};
  return kIdentity;
}

bool clsLibTarvoRdp::fChoosePrintingMode(ePrintingMode& refPrintingMode) try {
  refPrintingMode = ePM_Graphic;
  const auto form = make<frmChoosePrintingMode>(makeWindow_());
  form->showModal();
  if (form->GetPrintInTextMode()) refPrintingMode = ePM_Text;
  return form->GetPrintInTextMode() || form->GetPrintInGraphMode();
} catch (...) {
  trap("fChoosePrintinMode");
}

Text clsLibTarvoRdp::fMsgForLocateOptionChoosePrinter() {
  return u"\r\nPara accesar a la opción de Escoger Impresora, debe dirigirse al menú T, "
         u"seleccionar "
         u"la opción 'Configuración de Impresión', una vez allí presione el botón 'Impresión "
         u"Texto' "
         u"y ubíquese en la pestaña 'Escoger Impresora'";
}

Value clsLibTarvoRdp::fToStringArray(TextView valText, std::int16_t valRowCount,
                                     std::int16_t valRowLength) try {
  if (valRowCount < 0) throw RunTimeError(kSubscriptOutOfRange);
  ValueArray rows(static_cast<std::size_t>(valRowCount) + 1);
  const TextParts service;
  for (std::int16_t i = 0; i < valRowCount; ++i) {
    const std::int16_t start = checkedAdd(std::int16_t{1}, checkedMultiply(i, valRowLength));
    Text row;
    service.part(valText, start, valRowLength, row);
    rows[static_cast<std::size_t>(i)] = std::move(row);
  }
  return rows;
} catch (...) {
  trap("fToStringArray");
}

Text clsLibTarvoRdp::fExtractShortText(Ref<clsObSpecialVar>& refVarEspecial,
                                       const Value& valShortText,
                                       bool valIfResultIsEmptySetPrintLineFalse) try {
  const Ref<clsObSpecialVar> held(refVarEspecial.get());  // a service may let go of the other
  clsObSpecialVar& variable = *held;
  const std::int16_t skip = segmentsToSkip(variable);
  const std::uint8_t width = variable.GetLength();
  const ValueArray& lines = linesOf(valShortText);
  Text text(lineAt(lines, 0));
  std::int16_t next = 1;
  Text segment;
  sAddTextIfPossible(lines, text, next, kLastLine);
  for (std::int16_t i = 0; i < skip; ++i) {
    fExtractSegment(text, width, segment);
    sAddTextIfPossible(lines, text, next, kLastLine);
  }
  Text result;
  fExtractSegment(text, width, result);
  if (result.empty() && !variable.GetEndOfRepeatPrintLine()) variable.SetPrintLine(false);

  sAddTextIfPossible(lines, text, next, kLastLine);
  fExtractSegment(text, width, segment);
  if (segment.empty()) variable.SetEndOfRepeatPrintLine(true);

  if (valIfResultIsEmptySetPrintLineFalse) {
    if (result.empty()) {
      variable.SetPrintLine(false);
    } else {
      goOnToNextSegment(variable);
    }
  }
  return result;
} catch (...) {
  trap("fExtractShortText");
}

// Takes the first segment off the text.
void clsLibTarvoRdp::fExtractSegment(Text& text, std::uint8_t width, Text& segment) try {
  const TextParts service;
  service.trim(text);
  const std::int16_t cut = fMinInt(fSearchWhereToCutOnlyText(text, width), width);
  service.part(text, 1, cut, segment);
  if (cut > 0) {
    Text rest;
    service->fDelete(text, 1, cut - 1, rest);
    text.swap(rest);
  }
} catch (...) {
  trap("fExtractSegment");
}

// How many characters the first segment has.
std::int16_t clsLibTarvoRdp::fSearchWhereToCutOnlyText(const Text& text, std::uint8_t width) try {
  const std::int16_t length = narrow<std::int16_t>(TextParts()->fLength(text));
  if (length <= width) return fMinInt(length, width);
  const std::size_t separator = TextView(text).substr(0, width).find_last_of(u" -");
  return separator == TextView::npos ? std::int16_t{width} : narrow<std::int16_t>(separator);
} catch (...) {
  trap("fSearchWhereToCutOnlyText");
}

std::int16_t clsLibTarvoRdp::fMinInt(std::int16_t a, std::int16_t b) try {
  return a < b ? a : b;
} catch (...) {
  trap("fMinInt");
}

// Fills the text up with the lines that follow.
void clsLibTarvoRdp::sAddTextIfPossible(const ValueArray& lines, Text& text, std::int16_t& index,
                                        std::int16_t limit) try {
  const TextParts service;
  while (static_cast<std::size_t>(index) + 1 < lines.size() && index <= limit &&
         service->fLength(text) < kEnoughCharacters) {
    text += lineAt(lines, static_cast<std::size_t>(index));
    index = checkedAdd(index, std::int16_t{1});
  }
} catch (...) {
  trap("sAddTextIfPossible");
}

}  // namespace tarvo
