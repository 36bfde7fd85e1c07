#include "tarvordp/check/written_line.h"

#include <algorithm>

#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "template/clsObLineCharacts.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::TextView;

constexpr std::size_t kNone = Text::npos;
constexpr std::size_t kLastPosition = 32767;  // that the library counts to

// Only while variables follow does a "}" by itself do more than print.
void tellStrayBraces(WrittenLine& line, std::size_t from, std::size_t to, Findings& findings) {
  for (std::size_t i = line.text.find(u'}', from); i < to; i = line.text.find(u'}', i + 1)) {
    if (line.text.find(u'{', i) != kNone) {
      findings.error(line.place(i),
                     "a '}' without its '{' before a variable ends the report (run-time error 5)");
    } else {
      findings.warning(line.place(i), "a '}' without its '{' is printed as it stands");
    }
  }
}

void readVariables(WrittenLine& line, ParserServices& services, Findings& findings) {
  std::size_t from = 0;
  while (true) {
    std::size_t open = line.text.find(u'{', from);
    tellStrayBraces(line, from, std::min(open, line.text.size()), findings);
    if (open == kNone) return;
    const std::size_t close = line.text.find(u'}', open);
    if (close == kNone) {
      findings.error(line.place(open), "a '{' without its '}' ends the report (run-time error 5)");
      return;
    }
    for (std::size_t inner = line.text.find(u'{', open + 1); inner < close;
         inner = line.text.find(u'{', open + 1)) {
      findings.error(line.place(open), "a '{' whose '}' is missing before the next '{'");
      open = inner;
    }
    if (close >= kLastPosition && line.variables.empty()) {
      findings.error(line.place(open),
                     "a variable behind the line's 32,767th character ends the report (run-time "
                     "error 6)");
      return;
    }
    line.variables.push_back(readVariable(line.text, line.number, open, close, services, findings));
    from = close + 1;
  }
}

bool isSilent(tarvo::Control control) {
  switch (control) {
    case tarvo::Control::kSkipPoints:
    case tarvo::Control::kSkipLines:
    case tarvo::Control::kBlanks:
    case tarvo::Control::kSkipPage:
    case tarvo::Control::kTab:
    case tarvo::Control::kRepeat:
      return true;
    default:
      return false;
  }
}

// Without blanks, and without its variables unless they may have a text.
bool isBlank(const WrittenLine& line) {
  std::size_t from = 0;
  for (const WrittenVariable& variable : line.variables) {
    if (!isSilent(controlOf(variable))) return false;
    if (line.text.find_first_not_of(u' ', from) < variable.open) return false;
    from = variable.close + 1;
  }
  return line.text.find_first_not_of(u' ', from) == kNone;
}

}  // namespace

WrittenLine readLine(TextView text, std::size_t number, ParserServices& services,
                     Findings& findings) {
  WrittenLine line;
  line.text = text;
  line.number = number;
  line.isComment = tarvo::trimBlanks(text).starts_with(tarvo::kCommentMark);
  if (!line.isComment) readVariables(line, services, findings);
  return line;
}

tarvo::Control controlOf(const WrittenVariable& variable) {
  return tarvo::controlOf(tarvo::upperCase(tarvo::trimBlanks(variable.parsed->GetFieldName())));
}

LineFlags flagsOf(const WrittenLine& line) {
  LineFlags flags;
  flags.isBlank = isBlank(line);
  if (line.isComment) return flags;
  const auto object = tarvo::make<tarvo::clsObLineCharacts>();
  object->sClrRecord();
  Text content;
  for (const WrittenVariable& variable : line.variables) {
    object->SetSpecialVar(variable.parsed);
    object->fSpecialVarIsAnyControlChar(object->GetField(), content);
    flags.isConditional = flags.isConditional || variable.parsed->GetVariableToApplyCondition();
  }
  flags.lines = object->fNumberOfPrintedLinesThatWillFill();
  flags.breaksPage = object->GetSkipPageWasRead();
  flags.staysOpen = !object->GetSkipLine();
  return flags;
}

}  // namespace tarvordp
