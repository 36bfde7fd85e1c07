#include <algorithm>

#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "reports/library_variables.h"
#include "tarvordp/check/nearest_word.h"
#include "tarvordp/check/rules.h"
#include "template/attribute_words.h"

namespace tarvordp {
namespace {

using tarvo::Control;
using tarvo::Text;
using tarvo::TextView;
using tarvo::toUtf8;

bool countsItsWidth(Control control) {
  return control == Control::kSkipLines || control == Control::kSkipPoints ||
         control == Control::kBlanks;
}

class NameRules {
 public:
  NameRules(RuleContext& context, const WrittenLine& line, const WrittenVariable& variable)
      : context_(context),
        place_(line.place(variable.open)),
        variable_(variable),
        name_(tarvo::upperCase(tarvo::trimBlanks(variable.parsed->GetFieldName()))) {}

  void check() {
    if (variable_.isConstant()) return;
    if (const Control control = controlOf(variable_); control != Control::kNone) {
      checkControlWord(control);
    } else if (name_.empty()) {
      if (variable_.wasRead) warning("a variable without a field name");
    } else {
      const bool hasRecord = !variable_.parsed->GetRecordName().empty();
      if (!hasRecord && tellNearMarker()) return;
      if (!tellNoSeparator() && !hasRecord) tellNearWord();
    }
  }

 private:
  void warning(std::string message) { context_.findings.warning(place_, std::move(message)); }

  void checkControlWord(Control control) {
    const std::string word = toUtf8(name_);
    if (!variable_.parsed->GetRecordName().empty()) {
      warning("the field " + word +
              " is the control word, whatever record it has: the client is "
              "not asked");
    }
    const int width = variable_.parsed->GetLength();
    if (countsItsWidth(control) && width == 0 && variable_.wasRead) {
      warning(word + " without a number: {" + word + ",n}");
    } else if (!countsItsWidth(control) && width != 0) {
      warning("a width pads or cuts what " + word + " sends: it needs none");
    }
  }

  // Names may have blanks; a width or an attribute behind one is no part of the name.
  bool tellNoSeparator() {
    const bool hasSemicolon = name_.find(u';') != Text::npos;
    const std::size_t blank = name_.rfind(u' ');
    const bool hasAttribute = blank != Text::npos && isAttribute(TextView(name_).substr(blank + 1));
    if (!hasSemicolon && !hasAttribute) return false;
    warning("the client is asked for " + quoted(name_) + ", a name with a " +
            (hasSemicolon ? "semicolon" : "blank") + ": is a comma missing?");
    return true;
  }

  static bool isAttribute(TextView word) {
    const auto isIt = [&](const tarvo::AttributeWord& each) {
      return word == each.word || (word == each.shortWord && !word.empty());
    };
    return tarvo::isDecimal(word) || std::ranges::any_of(tarvo::kAttributeWords, isIt);
  }

  // A master-detail report's markers count as they are written alone.
  bool tellNearMarker() {
    const Text& inside = variable_.parsed->GetReadText();
    const Text likely = nearestMarker(inside);
    const Text written = u"{" + tarvo::upperCase(inside) + u"}";
    const bool isMarker =
        written == likely || (likely == u"{CUERPO=n}" && written.starts_with(u"{CUERPO="));
    if (context_.of.kind == TemplateKind::kForm) {
      const bool isNear =
          !likely.empty() && inside.find(u' ') != Text::npos && variable_.attributes.empty();
      if (isMarker || isNear) tellMarkerInForm(inside, isMarker ? Text() : likely);
      return isMarker || isNear;
    }
    if (likely.empty() || isMarker || !variable_.attributes.empty()) return isMarker;
    warning(quoted(u"{" + inside + u"}") + " is no marker, did you mean " + toUtf8(likely) + "?");
    return true;
  }

  // `likely`: the marker that it nearly is; empty: it is one.
  void tellMarkerInForm(const Text& inside, const Text& likely) {
    warning(quoted(u"{" + inside + u"}") +
            (likely.empty()
                 ? " is a marker of master-detail reports"
                 : " is nearly " + toUtf8(likely) + ", a marker of master-detail reports") +
            ": a form asks the client for it");
  }

  void tellNearWord() {
    const bool isOfReport = context_.of.kind == TemplateKind::kMasterDetail;
    if (const Text likely = isOfReport ? nearestLibraryVariable(name_) : Text(); !likely.empty()) {
      warning("the client is asked for " + toUtf8(name_) + ", did you mean " + toUtf8(likely) +
              "?");
      return;
    }
    const Text likely = nearestControlWord(name_);
    if (likely.empty()) return;
    const bool countsWidth = countsItsWidth(tarvo::controlOf(likely));
    if (!countsWidth && !variable_.attributes.empty()) return;
    warning("the client is asked for " + toUtf8(name_) + ", did you mean the control word " +
            toUtf8(likely) + "?");
  }

  RuleContext& context_;
  Place place_;
  const WrittenVariable& variable_;
  Text name_;
};

}  // namespace

void checkNames(RuleContext& context) {
  for (const TemplateLine& each : context.of.lines) {
    for (const WrittenVariable& variable : each.line.variables) {
      NameRules(context, each.line, variable).check();
    }
  }
}

}  // namespace tarvordp
