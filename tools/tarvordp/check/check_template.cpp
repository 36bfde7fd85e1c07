#include "tarvordp/check/check_template.h"

#include "tarvordp/check/rules.h"

namespace tarvordp {

Findings checkTemplate(std::string_view bytes, std::optional<TemplateKind> kind,
                       const Profile* profile) {
  Findings findings;
  ParserServices services;
  const std::vector<tarvo::Text> lines = templateLines(bytes);
  const Template read = readTemplate(lines, kind ? *kind : guessedKind(lines), services, findings);
  RuleContext context{read, profile, services, findings};
  for (const TemplateLine& each : read.lines) {
    for (const WrittenVariable& variable : each.line.variables) {
      checkAttributes(each.line, variable, findings);
    }
  }
  checkNames(context);
  checkControls(context);
  checkPages(context);
  checkWidths(context);
  checkCharacters(context);
  return findings;
}

}  // namespace tarvordp
