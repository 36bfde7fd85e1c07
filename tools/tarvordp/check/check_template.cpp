#include "tarvordp/check/check_template.h"

#include "tarvordp/check/file_form.h"
#include "tarvordp/check/rules.h"

namespace tarvordp {

Findings checkTemplate(std::string_view bytes, std::optional<TemplateKind> kind,
                       const Profile* profile) {
  Findings findings;
  const FileForm form = checkedFileForm(bytes, findings);
  if (form == FileForm::unreadable) return findings;
  ParserServices services;
  const std::vector<tarvo::Text> lines = templateLines(bytes);
  const Template read = readTemplate(lines, kind ? *kind : guessedKind(lines), services, findings);
  RuleContext context{read, profile, services, findings, form == FileForm::otherEncoding};
  for (const TemplateLine& each : read.lines) {
    for (const WrittenVariable& variable : each.line.variables) {
      checkAttributes(each.line, variable, findings);
    }
  }
  checkNames(context);
  checkControls(context);
  checkPages(context);
  checkWidths(context);
  if (form != FileForm::noText) checkCharacters(context);
  return findings;
}

}  // namespace tarvordp
