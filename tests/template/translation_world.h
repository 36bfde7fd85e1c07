// A whole world for one translator: services, a printer, a line, a source; and an account of all
// that is to be seen while a template line is translated.
//
// Worlds in which the same happens give the same account, letter by letter, whether the services
// are asked for every step or not.
#pragma once

#include <functional>
#include <sstream>
#include <string>

#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "equipment/show_arguments.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsUtilMathOperations.h"
#include "template/asked_services.h"
#include "template/line_dump.h"
#include "template/line_translator.h"

namespace tarvo::test {

// Everything that a client can see of a variable.
inline std::string wholeDumpOf(const clsObSpecialVar& v) {
  std::ostringstream all;
  all << v.GetPosBegin() << "-" << v.GetPosEnd() << " size " << v.GetSize() << " reads "
      << inQuotes(v.GetReadText()) << " record " << inQuotes(v.GetRecordName()) << " field "
      << inQuotes(v.GetFieldName()) << " element " << v.GetIsFieldOfArray() << "/"
      << show(v.GetArrayPosition()) << "/" << v.GetFieldOfArrayHasPositionInsideTheArray()
      << " alignment " << v.GetAlignmentWasRead() << "/" << v.GetAlignmentType() << " length "
      << show(v.GetLength()) << " decimals " << show(v.GetDecimalPlaces()) << " flags "
      << v.GetPrintComa() << v.GetPrintZero() << v.GetNotSpacesToTheSides() << v.GetFillWithZero()
      << v.GetSeparatorOfCommasAndDot() << v.GetRepeatCharsUntilFill()
      << v.GetVariableToWriteEmpty() << v.GetVariableToApplyCondition() << v.GetValueComesInAttrib()
      << v.GetPrintLine() << v.GetLineOfRepeatToPrint() << v.GetEndOfRepeatPrintLine()
      << v.GetUsingSpecialSeparationString() << " pattern "
      << inQuotes(v.GetSpecialSeparationString()) << " values " << show(v.GetIifPossibleValues())
      << " kind " << v.GetTypeField() << " content " << inQuotes(v.GetContentString()) << "/"
      << show(v.GetContentNumeric()) << "/" << show(v.GetContentDate()) << "/" << v.GetContentBool()
      << "/" << inQuotes(v.GetContentEnum()) << " writes " << inQuotes(v.GetTextToWrite());
  return all.str();
}

class TranslationWorld;

// What a source does: gives the line's variable a value, or anything else.  `call` counts from 1
// in each translation.
using SourceAction = std::function<bool(Ref<clsObLineCharacts>& line, int call, TranslationWorld&)>;

// Notes what it is asked.  Gives up after many answers, for a text may never come to an end.
class RecordingSource final : public VariableSource {
 public:
  static constexpr int kMostAnswers = 40;
  static constexpr std::int32_t kGivesUp = 4711;

  RecordingSource(TranslationWorld& world, CallLog& log, const SourceAction& action)
      : world_(world), log_(log), action_(action) {}

  bool answer(Ref<clsObLineCharacts>& line) override {
    const Ref<clsObSpecialVar> variable = line->GetSpecialVar();
    log_.add("source.answer " + (variable ? wholeDumpOf(*variable) : "without variable"));
    if (++calls_ > kMostAnswers) throw RunTimeError(kGivesUp);
    return action_(line, calls_, world_);
  }

  void notFound(clsObLineCharacts& line) override {
    log_.add("source.notFound " + inQuotes(line.GetSpecialVar()->GetContentString()));
  }

 private:
  TranslationWorld& world_;
  CallLog& log_;
  const SourceAction& action_;
  int calls_ = 0;
};

// An operator before whom, and services before which, something happens.
using Happening = std::function<void()>;

class OperatorWhoActs final : public ForwardingMessage {
 public:
  OperatorWhoActs(Ref<clsMessage> next, const Happening& action)
      : ForwardingMessage(std::move(next)), action_(action) {}

  void sShowMessageWithTitle(TextView valText, TextView valTitle) override {
    ForwardingMessage::sShowMessageWithTitle(valText, valTitle);
    if (action_) action_();
  }

 private:
  const Happening& action_;
};

class ConvertThatActs final : public ForwardingConvert {
 public:
  explicit ConvertThatActs(const Happening& action) : action_(action) {}

 private:
  clsConvert& next() override {
    if (action_) action_();
    return ForwardingConvert::next();
  }

  const Happening& action_;
};

class DateThatActs final : public ForwardingDate {
 public:
  explicit DateThatActs(const Happening& action) : action_(action) {}

 private:
  clsUtilDate& next() override {
    if (action_) action_();
    return ForwardingDate::next();
  }

  const Happening& action_;
};

class TranslationWorld {
 public:
  // Whether every service is asked, the text service is not, or none of them needs to be.
  enum TextService { kAsked, kBypassed, kAllBypassed };

  explicit TranslationWorld(TextService service) : isWatched_(service != kAllBypassed) {
    use(service);
    printer->SetChrBold(u"[bold]");
    printer->SetChrCondensed(u"[condensed]");
    printer->SetChrNormal(u"[normal]");
    useServices();
    prepareLines();
  }

  // From the next translation on.
  void use(TextService service) {
    if (service == kAsked) {
      texto = askedTexto;
    } else {
      texto = make<LibTarvoCI::clsTexto>();
    }
  }

  // Translates as an engine does, and tells what was to be seen.
  std::string translate(TextView templateLine, const SourceAction& action) {
    useServices();
    prepareLines();
    seen.clear();
    error->reports.clear();
    otherCalls.clear();
    RecordingSource source(*this, seen, action);
    const std::optional<RunTimeError> raised =
        errorOf([&] { translator.translate(line, templateLine, source); });
    std::string account = seen.text();
    if (raised) {
      account += "error " + std::to_string(raised->number()) + " of " + toUtf8(raised->source()) +
                 ": " + toUtf8(raised->description()) + "\n";
    }
    return account + "line: " + describe(line.get()) + "\nother: " + describe(other.get()) + "\n";
  }

  void useServices() {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = error;
    services.refInsMessage = operatorWhoActs_;
    services.refInsTexto = texto;
    services.refInsConvert = isWatched_ ? Ref<clsConvert>(convert) : plainConvert_;
    services.refInsUtilDate = isWatched_ ? Ref<clsUtilDate>(dates) : plainDates_;
    services.refInsUtilMathOperations = isWatched_ ? Ref<clsUtilMathOperations>(math) : plainMath_;
    services.refInsImp = printer;
  }

  // In a world in which no service is watched.
  void usePlain(Ref<clsConvert> service) { plainConvert_ = std::move(service); }

  // What happens before the operator, or a service, answers.
  Happening atEachMessage;
  Happening atEachConversion;
  Happening atEachDate;

  CallLog seen;        // what the source, the operator and the error service are told
  CallLog otherCalls;  // of the conversion, the date and the math service
  Ref<RecordingError> error = make<RecordingError>(seen);
  Ref<RecordingMessage> message = make<RecordingMessage>(seen);
  Ref<AskedTexto> askedTexto = make<AskedTexto>();
  Ref<clsTexto> texto;
  Ref<RecordingConvert> convert =
      make<RecordingConvert>(otherCalls, make<ConvertThatActs>(atEachConversion));
  Ref<RecordingDate> dates = make<RecordingDate>(otherCalls, make<DateThatActs>(atEachDate));
  Ref<RecordingMath> math =
      make<RecordingMath>(otherCalls, make<LibTarvoCI::clsUtilMathOperations>());
  Ref<clsUtilImp> printer = make<clsUtilImp>();

  LineTranslator translator;
  Ref<clsObLineCharacts> line;   // the engine's
  Ref<clsObLineCharacts> other;  // one that a source may use

 private:
  void prepareLines() {
    if (!line || !line->GetSpecialVar()) line = make<clsObLineCharacts>();
    line->sClrRecord();
    if (!other || other == line) other = make<clsObLineCharacts>();
    other->sClrRecord();
  }

  static std::string describe(const clsObLineCharacts* line) {
    if (line == nullptr) return "none";
    const Ref<clsObSpecialVar> variable = line->GetSpecialVar();
    return dumpOf(*line) + " prints " + inQuotes(line->GetTextToPrint()) + ", variable " +
           (variable ? wholeDumpOf(*variable) : "none");
  }

  bool isWatched_;
  Ref<clsConvert> plainConvert_ = make<LibTarvoCI::clsConvert>();
  Ref<clsUtilDate> plainDates_ = make<LibTarvoCI::clsUtilDate>();
  Ref<clsUtilMathOperations> plainMath_ = make<LibTarvoCI::clsUtilMathOperations>();
  Ref<OperatorWhoActs> operatorWhoActs_ = make<OperatorWhoActs>(message, atEachMessage);
};

}  // namespace tarvo::test
