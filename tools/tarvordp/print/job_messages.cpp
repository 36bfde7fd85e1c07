#include "tarvordp/print/job_messages.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "frame/upper_case.h"
#include "services/location_warning.h"
#include "tarvordp/interruption.h"

namespace tarvordp {
namespace {

constexpr int kMostRepetitions = 100;

constexpr tarvo::TextView kTurnSheet = u"Voltear Planilla";

// Titles of the messages after which nothing, or a sheet less, is printed: no text mode, no
// template, nothing found.
constexpr tarvo::TextView kNothingFound = u"Impresión de Informe";
constexpr tarvo::TextView kNoTemplate = u"Archivo no encontrado";
constexpr std::array<tarvo::TextView, 3> kNotPrinted{u"Proceso Cancelado", kNoTemplate,
                                                     kNothingFound};
constexpr tarvo::TextView kEndingTwice = u".ID.ID";
// No printer was chosen; the report's title follows.
constexpr tarvo::TextView kNoPrinter = u"Imprimir ";
constexpr tarvo::TextView kUnknownPrinter = u"No se reconoce el nombre de la impresora";

bool meansNotPrinted(tarvo::TextView title) {
  return std::ranges::find(kNotPrinted, title) != kNotPrinted.end() ||
         title.starts_with(kNoPrinter);
}

}  // namespace

JobMessages::JobMessages(Operator& op, Trace& trace, std::optional<bool> turnSheet,
                         Activity activity)
    : operator_(op), trace_(trace), turnSheet_(turnSheet), activity_(std::move(activity)) {}

void JobMessages::sShowMessage(tarvo::Text& refText) {
  if (refText.starts_with(kUnknownPrinter)) saidThatNotPrinted_ = true;
  show("sShowMessage", refText, {});
}

void JobMessages::sShowMessageWithTitle(tarvo::TextView valText, tarvo::TextView valTitle) {
  if (meansNotPrinted(valTitle)) saidThatNotPrinted_ = true;
  if (valTitle == kNothingFound) saidThatNothingFound_ = true;
  if (valTitle == kNoTemplate &&
      tarvo::upperCase(valText).find(kEndingTwice) != tarvo::Text::npos) {
    saidTemplateEndingTwice_ = true;
  }
  show("sShowMessageWithTitle", valText, valTitle);
}

void JobMessages::sWarning(tarvo::Text& refText) { show("sWarning", refText, {}); }

// The client's own refusal.
void JobMessages::sWarningWithTitle(tarvo::TextView valText, tarvo::TextView valTitle) {
  saidThatNotPrinted_ = true;
  show("sWarningWithTitle", valText, valTitle);
}

bool JobMessages::fAskAcceptCancel(tarvo::TextView valText, tarvo::TextView valTitle) {
  const bool accepted = ask("fAskAcceptCancel", valText, valTitle);
  if (!accepted) saidThatNotPrinted_ = true;
  if (!accepted && valTitle == kTurnSheet) leftOutSecondSheet_ = true;
  return accepted;
}

bool JobMessages::fWarnLocation(tarvo::TextView valProjectTitle, std::int16_t valLocationCode) {
  return ask("fWarnLocation", LibTarvoCI::locationWarning(valProjectTitle, valLocationCode),
             valProjectTitle);
}

void JobMessages::show(const char* operation, tarvo::TextView text, tarvo::TextView title) {
  tell(text, title);
  trace_.write({{"event", "message"},
                {"operation", operation},
                {"text", tarvo::toUtf8(text)},
                {"title", tarvo::toUtf8(title)},
                {"answer", nullptr}});
}

bool JobMessages::ask(const char* operation, tarvo::TextView text, tarvo::TextView title) {
  tell(text, title);
  bool accepted = true;
  if (turnSheet_ && title == kTurnSheet) {
    accepted = *turnSheet_;
  } else if (operator_.canBeAsked()) {
    accepted = operator_.accepts("Aceptar (A) o cancelar (C): ");
    if (Interruption::isAskedFor()) {
      throw tarvo::RunTimeError(tarvo::kDeviceError, {u"tarvordp", u"Interrupted", {}, 0});
    }
  }
  trace_.write({{"event", "question"},
                {"operation", operation},
                {"text", tarvo::toUtf8(text)},
                {"title", tarvo::toUtf8(title)},
                {"answer", accepted}});
  return accepted;
}

void JobMessages::tell(tarvo::TextView text, tarvo::TextView title) {
  std::string line;
  if (!title.empty()) line.append("[").append(tarvo::toUtf8(title)).append("] ");
  line += tarvo::toUtf8(text);
  endEndlessMessage(line);
  operator_.tell(line);
}

void JobMessages::endEndlessMessage(const std::string& line) {
  const std::uint64_t activity = activity_();
  const bool isRepeated = line == lastLine_ && activity == lastActivity_;
  repetitions_ = isRepeated ? repetitions_ + 1 : 0;
  lastLine_ = line;
  lastActivity_ = activity;
  if (repetitions_ == kMostRepetitions) {
    throw tarvo::RunTimeError(
        tarvo::kInvalidProcedureCall,
        {u"tarvordp", u"The same message came again and again, so the report was ended", {}, 0});
  }
}

}  // namespace tarvordp
