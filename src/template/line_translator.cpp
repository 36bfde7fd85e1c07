#include "template/line_translator.h"

#include <utility>

#include "frame/borrowed.h"
#include "frame/checked.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

constexpr TextView kNotFound = u"No se encontró";
constexpr std::int32_t kLongestConstant = 255;

bool isComment(TextView line) {
  Text trimmed;
  if (!line.empty()) TextParts()->fTrim(line, trimmed);
  return trimmed.starts_with(kCommentMark);
}

}  // namespace

void LineTranslator::translate(Ref<clsObLineCharacts>& line, TextView templateLine,
                               VariableSource& source) {
  Ref<clsObLineCharacts> held = line;
  if (TemplateLine* const known = lineOf(templateLine); known != nullptr) {
    if (known->isComment()) return takeKnownComment(*held, *known);
    held->beginTranslation(*known);
  } else {
    held->SetTextToWrite(templateLine);
    if (takeComment(*held, templateLine)) return;
  }
  resolveVariables(line, std::move(held), source);
}

void LineTranslator::takeKnownComment(clsObLineCharacts& line, const TemplateLine& comment) {
  line.SetPrintLine(false);
  line.SetTextToWrite(comment.comment());
  if (comment.asksForPause()) line.SetPauseWasRead(true);
}

bool LineTranslator::takeComment(clsObLineCharacts& line, TextView templateLine) {
  if (!isComment(templateLine)) return false;
  line.SetPrintLine(false);
  Text text(templateLine);
  line.sExtractComment(text);
  const Text comment = line.GetTextToWrite();
  line.fCheckAnyPrintingControlVarInCommentary(comment);
  return true;
}

inline void LineTranslator::askSource(Ref<clsObLineCharacts>& line, VariableSource& source) {
  if (source.answer(line)) return;
  source.setText(*line, kNotFound);
  source.notFound(*line);
}

// `held`: the same line object.
void LineTranslator::resolveVariables(Ref<clsObLineCharacts>& line, Ref<clsObLineCharacts> held,
                                      VariableSource& source) {
  clsObLineCharacts* current = &*held;
  for (std::int16_t count = 0; current->holdsVariable();
       count = checkedAdd(count, std::int16_t{1})) {
    const bool isClients = current->extractNextVariable();
    if (isClients || !giveLibrarysValue(*current, source)) askSource(line, source);
    if (current != line.get()) {  // the source has put another one there
      held = line;
      current = &*held;
    }
    current->settleVariable();
  }
}

// False: the variable is neither a control word nor a constant.
bool LineTranslator::giveLibrarysValue(clsObLineCharacts& line, VariableSource& source) {
  if (line.givesKnownText()) return true;
  Borrowed<Text> content(content_);
  const Ref<clsObSpecialVar> variable = line.GetSpecialVar();
  const Text* value = line.applyControlWord(*content);
  if (value == nullptr) {
    if (!variable->GetFieldName().starts_with(kFreeMark)) return false;
    TextParts()->fPart(variable->GetFieldName(), 2, kLongestConstant, *content);
    value = &*content;
  }
  source.setText(line, *value);
  return true;
}

// Null: the line is to be taken as it comes, for the text service is asked about every step of it,
// or its braces do not come in pairs.  Valid until the next line is looked for.
TemplateLine* LineTranslator::lineOf(TextView text) {
  if (!services_.areTheSame()) forgetLines();
  if (!services_.mayBypassTexto() || text.size() > kLongestLine) return nullptr;
  // A line that comes again mostly comes from the same place.
  Ref<TemplateLine>& recent = recent_[reinterpret_cast<std::uintptr_t>(text.data()) / 16 % kRecent];
  if (!recent || !TextEqual()(recent.get()->text(), text)) recent = findOrMake(text);
  TemplateLine* const known = recent.get();
  return known->isRegular() || known->isComment() ? known : nullptr;
}

Ref<TemplateLine> LineTranslator::findOrMake(TextView text) {
  auto found = lines_.find(text);
  if (found == lines_.end()) {
    if (lines_.size() >= kMostLines) lines_.clear();
    found = lines_.emplace(Text(text), make<TemplateLine>(text, services_)).first;
  }
  return found->second;
}

void LineTranslator::forgetLines() {
  lines_.clear();
  recent_.fill({});
}

}  // namespace tarvo
