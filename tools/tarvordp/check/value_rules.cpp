// Values that the library can be asked for before there is a client.
#include <algorithm>
#include <optional>

#include "frame/date.h"
#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "reports/library_variables.h"
#include "tarvordp/check/rules.h"

namespace tarvordp {
namespace {

using tarvo::Control;
using tarvo::RunTimeError;
using tarvo::Text;
using tarvo::TextView;

constexpr std::size_t kNone = Text::npos;

class ValueRules {
 public:
  ValueRules(const WrittenLine& line, const WrittenVariable& variable, Findings& findings)
      : line_(line), variable_(variable), parsed_(*variable.parsed), findings_(findings) {}

  std::size_t minimumWidth(TemplateKind kind) {
    if (!variable_.wasRead) return 0;
    std::size_t width = 0;
    if (variable_.isConstant()) {
      width = constantWidth();
    } else if (const Control control = controlOf(variable_); control != Control::kNone) {
      width = controlWidth(control);
    } else {
      width = fieldWidth(kind);
    }
    return parsed_.GetVariableToWriteEmpty() ? 0 : width;
  }

 private:
  static constexpr tarvo::TextView kPattern = u"PATRONSEPARADOR=";

  // The attribute that begins with the text; null when there is none.
  const WrittenAttribute* attribute(TextView begin) const {
    for (const WrittenAttribute& each : variable_.attributes) {
      if (each.isKnown && each.word.starts_with(begin)) return &each;
    }
    return nullptr;
  }

  bool isJustified() const { return parsed_.GetAlignmentType() == tarvo::eAT_Justify; }

  // None: it cannot be formatted.
  std::optional<std::size_t> formatted() {
    try {
      parsed_.sFormatSpecialVar();
      return parsed_.GetTextToWrite().size();
    } catch (const RunTimeError& error) {
      number_ = error.number();
      return {};
    }
  }

  std::string because() const { return " (run-time error " + std::to_string(number_) + ")"; }

  std::size_t constantWidth() {
    constexpr std::size_t kLongest = 255;
    parsed_.SetContentString(parsed_.GetFieldName().substr(1, kLongest));
    const std::optional<std::size_t> width = formatted();
    if (!width) tellUnformatted("this constant");
    return width.value_or(0);
  }

  void tellUnformatted(const std::string& what) {
    if (const WrittenAttribute* pattern = attribute(kPattern);
        pattern != nullptr && !isJustified()) {
      tellPattern(*pattern);
      return;
    }
    findings_.error(line_.place(variable_.open),
                    what + " cannot be justified to its width" + because());
  }

  void tellPattern(const WrittenAttribute& pattern) {
    findings_.error(line_.place(pattern.at),
                    "a pattern is made of codes like 2B or 3C, with '-' between them" + because());
  }

  // A code takes no place on the paper, what fills its width does.
  std::size_t controlWidth(Control control) {
    const std::size_t width = parsed_.GetNotSpacesToTheSides() ? 0 : parsed_.GetLength();
    switch (control) {
      case Control::kSkipPoints:
        return 0;
      case Control::kSkipLines:
      case Control::kBlanks:
      case Control::kSkipPage:
      case Control::kTab:
      case Control::kRepeat:
        return width;
      default:
        return 0;
    }
  }

  std::size_t fieldWidth(TemplateKind kind) {
    if (const WrittenAttribute* pattern = attribute(kPattern)) checkPattern(*pattern);
    if (hasIif()) return iifWidth();
    tellJustified();
    if (const WrittenAttribute* format = dateFormat()) return dateWidth(*format);
    const std::size_t width = parsed_.GetNotSpacesToTheSides() ? 0 : parsed_.GetLength();
    const bool isNumber =
        kind == TemplateKind::kMasterDetail &&
        tarvo::libraryVariable(parsed_.GetFieldName()) != tarvo::LibraryVariable::kNone;
    return std::max<std::size_t>(width, isNumber ? 1 : 0);
  }

  // Only a value long enough can be.
  void tellJustified() {
    if (!isJustified() || parsed_.GetLength() < 2) return;
    const WrittenAttribute* word = attribute(u"JUSTIFICADO");
    if (word == nullptr) word = attribute(u"QJ");
    if (word == nullptr) return;
    findings_.note(
        line_.place(word->at),
        "a text that is too short even with a second blank between all its words, such as "
        "a single word, cannot be justified (run-time error 6)");
  }

  // As many characters as there are, for each of which an element may be used.
  void checkPattern(const WrittenAttribute& pattern) {
    constexpr std::size_t kLongest = 255;
    const std::size_t length = parsed_.GetLength() == 0 ? kLongest : parsed_.GetLength();
    parsed_.SetContentString(Text(length, u'X'));
    if (!formatted()) tellPattern(pattern);
  }

  bool hasIif() const {
    const auto* values = parsed_.GetIifPossibleValues().tryGet<tarvo::ValueArray>();
    return parsed_.GetValueComesInAttrib() && values != nullptr && values->size() >= 2;
  }

  // A boolean's and an enumeration's value are formatted alike.
  std::size_t iifWidth() {
    const WrittenAttribute* iif = attribute(u"IIF");
    const Text condition = iif != nullptr && iif->argument ? iif->argument->text : Text();
    std::size_t least = kNone;
    for (const Text& content : {quotedIn(condition), Text(u"\"")}) {
      parsed_.SetContentEnum(content);
      const std::optional<std::size_t> width = formatted();
      if (!width) return tellUnformattedIif(iif);
      least = std::min(least, *width);
    }
    return least;
  }

  std::size_t tellUnformattedIif(const WrittenAttribute* iif) {
    if (attribute(kPattern) == nullptr) {
      findings_.error(line_.place(iif == nullptr ? variable_.open : iif->at),
                      "a value of IIF cannot be justified to its width" + because());
    }
    return 0;
  }

  // The first text between double quotes.
  static Text quotedIn(const Text& condition) {
    const std::size_t open = condition.find(u'"');
    if (open == kNone) return u"\"";
    const std::size_t close = condition.find(u'"', open + 1);
    return condition.substr(open + 1, close - open - 1);
  }

  const WrittenAttribute* dateFormat() const {
    const WrittenAttribute* format = attribute(u"DATEFORMAT");
    return format != nullptr ? format : attribute(u"DF");
  }

  // In the shortest words that a date has: a Monday in May.
  std::size_t dateWidth(const WrittenAttribute& format) {
    parsed_.SetContentDate(tarvo::dateOf({2026, 5, 4, 1, 1, 1}));
    const std::optional<std::size_t> width = formatted();
    if (!width && attribute(kPattern) == nullptr && !isJustified()) {
      findings_.error(line_.place(format.at), "a date cannot be printed so" + because());
    }
    return width.value_or(0);
  }

  const WrittenLine& line_;
  const WrittenVariable& variable_;
  tarvo::clsObSpecialVar& parsed_;
  Findings& findings_;
  std::int32_t number_ = 0;
};

}  // namespace

std::size_t checkedMinimumWidth(const WrittenLine& line, const WrittenVariable& variable,
                                TemplateKind kind, Findings& findings) {
  return ValueRules(line, variable, findings).minimumWidth(kind);
}

}  // namespace tarvordp
