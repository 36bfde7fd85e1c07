#include <set>
#include <utility>

#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "reports/library_variables.h"
#include "tarvordp/check/nearest_word.h"
#include "tarvordp/check/rules.h"

namespace tarvordp {
namespace {

using tarvo::Control;
using tarvo::Text;
using tarvo::TextView;

const WrittenVariable* lastOf(const WrittenLine& line, Control control) {
  const WrittenVariable* found = nullptr;
  for (const WrittenVariable& each : line.variables) {
    if (controlOf(each) == control) found = &each;
  }
  return found;
}

class ControlRules {
 public:
  ControlRules(RuleContext& context, const TemplateLine& line)
      : context_(context), section_(line.section), line_(line.line), flags_(flagsOf(line.line)) {}

  void check() {
    if (line_.isComment) return checkComment();
    tellTooFewStops();
    if (const WrittenVariable* word = lastOf(line_, Control::kRepeat)) checkRepeat(*word);
    if (const WrittenVariable* word = lastOf(line_, Control::kSkipPage)) checkSkipPage(*word);
  }

 private:
  bool isForm() const { return context_.of.kind == TemplateKind::kForm; }
  Findings& findings() { return context_.findings; }
  Place placeOf(const WrittenVariable& variable) const { return line_.place(variable.open); }

  void checkComment() {
    Text comment = line_.text;
    std::erase(comment, u'.');
    const Text word = tarvo::upperCase(tarvo::trimBlanks(comment));
    const std::size_t distance = editDistance(word, u"PAUSA");
    if (distance != 0 && distance < 3 && word.starts_with(u"PAU")) {
      findings().warning(line_.place(line_.text.find_first_not_of(u". ")),
                         "a comment " + quoted(word) + ", did you mean PAUSA?");
    }
  }

  void tellTooFewStops() {
    const TextView text = tarvo::trimBlanks(line_.text);
    if (!text.starts_with(u'.')) return;
    Text word(text.substr(text.starts_with(u"..") ? 2 : 1));
    word = tarvo::upperCase(tarvo::trimBlanks(word));
    if (word == u"PAUSA") {
      findings().warning(line_.place(line_.text.find(u'.')),
                         "a pause begins with three full stops: this line is printed");
    }
  }

  bool isValueOfClient(const WrittenVariable& variable) const {
    return variable.wasRead && !isAnsweredByLibrary(variable);
  }

  // Record and field.
  using ValueName = std::pair<Text, Text>;

  static ValueName valueNameOf(const WrittenVariable& variable) {
    return {tarvo::upperCase(variable.parsed->GetRecordName()),
            Text(variable.parsed->GetFieldName())};
  }

  // Of a line that is repeated by its values, each place takes the next one.
  void tellTwice() {
    std::set<ValueName> asked;
    for (const WrittenVariable& each : line_.variables) {
      if (!isValueOfClient(each) || each.parsed->GetIsFieldOfArray()) continue;
      if (asked.insert(valueNameOf(each)).second) continue;
      const std::string name = tarvo::toUtf8(each.parsed->GetFieldName());
      std::string told = "a repeated line asks for ";
      told.append(name)
          .append(
              " at both its places, and each may take the next value: a long text may never "
              "end (run-time error 6); a condition on it has an element number, {")
          .append(name)
          .append("[1],n,CONDICION}");
      findings().warning(placeOf(each), told);
      return;
    }
  }

  // The library asks the line's last variable whether the line is done.
  void checkRepeat(const WrittenVariable& word) {
    const WrittenVariable& last = line_.variables.back();
    if (isForm()) {
      findings().warning(placeOf(word), "REPEAT has no effect in a form");
    } else if (&last == &word) {
      findings().error(placeOf(word),
                       "REPEAT is the line's last variable, so nobody ends the repetition "
                       "(run-time error 6)");
    } else if (isAnsweredByLibrary(last)) {
      findings().warning(placeOf(last),
                         "the line's last variable ends the repetition: behind REPEAT that "
                         "must be one of the client's");
    } else {
      tellTwice();
    }
  }

  static bool isAnsweredByLibrary(const WrittenVariable& variable) {
    return variable.isConstant() || controlOf(variable) != Control::kNone ||
           tarvo::libraryVariable(variable.parsed->GetFieldName()) != tarvo::LibraryVariable::kNone;
  }

  void checkSkipPage(const WrittenVariable& word) {
    if (!flags_.isWritten()) {
      findings().warning(placeOf(word), "an open line without text breaks no page");
      return;
    }
    if (section_ == Section::kHeader) {
      findings().error(placeOf(word),
                       "SALTAPAGINA in the page header never ends: the new page prints the "
                       "header again (run-time error 28)");
      return;
    }
    if (flags_.lines > 1) tellSkips(word);
    if (isLastOf(Section::kBody) || isLastOf(Section::kInsertBody)) tellEmptyLines(word);
    if (!isForm()) {
      findings().note(placeOf(word),
                      "with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
                      "(run-time error 28)");
    }
  }

  // The line's skips are those of the header that is printed before it, where there is one.
  void tellSkips(const WrittenVariable& word) {
    const std::string lines = std::to_string(flags_.lines);
    findings().warning(placeOf(word),
                       hasHeader()
                           ? "the page header that SALTAPAGINA prints undoes SNL: the line "
                             "ends once, not " +
                                 lines + " times"
                           : "the page is broken before each of the line's " + lines + " lines");
  }

  // The break of the line that was measured or printed last holds for the empty lines that follow,
  // until a header's line ends it.
  void tellEmptyLines(const WrittenVariable& word) {
    const bool isInsert = section_ == Section::kInsertBody;
    if (!hasHeader()) {
      findings().warning(
          placeOf(word),
          std::string("without a header line to end it, this break repeats for every "
                      "empty line ") +
              (isInsert ? "of the body" : "behind the records"));
    } else if (isInsert) {
      findings().warning(placeOf(word),
                         "a break in the insert body's last line breaks the page for the empty "
                         "lines before the insert body too: a page with little but the header is "
                         "lost");
    } else if (linesOf(Section::kBody) > 1 &&
               linesOf(Section::kBody) == context_.of.bodyLines.value_or(0)) {
      findings().warning(placeOf(word),
                         "a record takes all lines of {CUERPO=n} and breaks the page in its last "
                         "one: a page is lost before the next record");
    }
  }

  int linesOf(Section section) const {
    std::size_t lines = 0;
    for (const TemplateLine& each : context_.of.lines) {
      if (each.section == section) lines += flagsOf(each.line).lines;
    }
    return static_cast<int>(lines);
  }

  bool hasHeader() const { return context_.of.lines.front().section == Section::kHeader; }

  // What follows its lines is a marker.
  bool isLastOf(Section section) const {
    return section_ == section && line_.number < context_.of.lines.size() &&
           context_.of.lines[line_.number].section != section;
  }

  RuleContext& context_;
  Section section_;
  const WrittenLine& line_;
  LineFlags flags_;
};

}  // namespace

void checkControls(RuleContext& context) {
  for (const TemplateLine& each : context.of.lines) {
    if (isPrinted(each.section)) ControlRules(context, each).check();
  }
}

}  // namespace tarvordp
