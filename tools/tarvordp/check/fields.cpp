#include "tarvordp/check/fields.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "reports/library_variables.h"
#include "tarvordp/check/file_form.h"

namespace tarvordp {
namespace {

using tarvo::Control;
using tarvo::Text;
using tarvo::toUtf8;

const WrittenAttribute* attribute(const WrittenVariable& variable,
                                  std::initializer_list<tarvo::TextView> words) {
  for (const WrittenAttribute& each : variable.attributes) {
    if (each.isKnown && std::find(words.begin(), words.end(), each.word) != words.end()) {
      return &each;
    }
  }
  return nullptr;
}

// "IIF("F",Fijo,Contratado)": "F" gives Fijo, anything else Contratado.
std::string conditionHint(const WrittenVariable& variable) {
  const WrittenAttribute* iif = attribute(variable, {u"IIF"});
  const auto* values = variable.parsed->GetIifPossibleValues().tryGet<tarvo::ValueArray>();
  if (iif == nullptr || !iif->argument || values == nullptr || values->size() < 2) {
    return "enumeration or boolean";
  }
  const auto text = [&](std::size_t i) {
    Text value = *(*values)[i].tryGet<Text>();
    std::erase(value, u'"');
    return toUtf8(value);
  };
  const Text condition = iif->argument->text.substr(0, iif->argument->text.find(u','));
  return "enumeration or boolean: " + toUtf8(condition) + " prints " + text(0) + ", else " +
         text(1);
}

class Hints {
 public:
  Hints(const WrittenLine& line, const WrittenVariable& variable, TemplateKind kind)
      : variable_(variable), parsed_(*variable.parsed) {
    if (kind == TemplateKind::kMasterDetail && isLibrarys()) {
      hints_.emplace_back("answered by the library");
      return;
    }
    addKind();
    addElement();
    if (parsed_.GetVariableToApplyCondition()) {
      hints_.emplace_back("not printed; empty suppresses the line");
    }
    if (repeats(line)) hints_.emplace_back("repeated line");
  }

  std::vector<std::string> take() { return std::move(hints_); }

 private:
  bool isLibrarys() const {
    return tarvo::libraryVariable(parsed_.GetFieldName()) != tarvo::LibraryVariable::kNone;
  }

  void addKind() {
    if (parsed_.GetValueComesInAttrib()) {
      hints_.push_back(conditionHint(variable_));
    } else if (const auto* date = attribute(variable_, {u"DATEFORMAT", u"DF"})) {
      hints_.push_back("date" + (date->argument ? " " + toUtf8(date->argument->text) : ""));
    } else if (isNumber()) {
      hints_.emplace_back("number");
    } else if (parsed_.GetUsingSpecialSeparationString()) {
      hints_.push_back("spread by " + toUtf8(parsed_.GetSpecialSeparationString()));
    } else if (parsed_.GetRepeatCharsUntilFill()) {
      hints_.emplace_back("one character, repeated");
    }
  }

  bool isNumber() const {
    return attribute(variable_, {u"SINCOMAS", u"SC", u"NOCERO", u"NC", u"CONCEROS", u"C0",
                                 u"COMASYPUNTO", u"CP"}) != nullptr;
  }

  void addElement() {
    if (!parsed_.GetIsFieldOfArray()) return;
    const std::string element = std::to_string(parsed_.GetArrayPosition());
    if (parsed_.GetFieldOfArrayHasPositionInsideTheArray()) {
      hints_.push_back("array element " + element + ", one character of it");
    } else {
      hints_.push_back("array element or segment " + element);
    }
  }

  static bool repeats(const WrittenLine& line) {
    return std::any_of(line.variables.begin(), line.variables.end(),
                       [](const auto& each) { return controlOf(each) == Control::kRepeat; });
  }

  const WrittenVariable& variable_;
  const tarvo::clsObSpecialVar& parsed_;
  std::vector<std::string> hints_;
};

bool isAsked(const WrittenVariable& variable) {
  return variable.wasRead && !variable.isConstant() && controlOf(variable) == Control::kNone;
}

// Where each field of a section stands among them: by all that makes it another one.
using FieldPlaces =
    std::map<std::tuple<std::string, std::string, unsigned, unsigned, std::vector<std::string>>,
             std::size_t>;

void add(std::vector<Field>& fields, FieldPlaces& places, Field field) {
  const auto [place, isNew] = places.try_emplace(
      {field.record, field.name, field.width, field.decimals, field.hints}, fields.size());
  if (isNew) {
    fields.push_back(std::move(field));
    return;
  }
  std::vector<std::size_t>& lines = fields[place->second].lines;
  if (lines.back() != field.lines.front()) lines.push_back(field.lines.front());
}

Field fieldOf(const WrittenLine& line, const WrittenVariable& variable, TemplateKind kind) {
  const tarvo::clsObSpecialVar& parsed = *variable.parsed;
  return {toUtf8(parsed.GetRecordName()), toUtf8(parsed.GetFieldName()),      parsed.GetLength(),
          parsed.GetDecimalPlaces(),      Hints(line, variable, kind).take(), {line.number}};
}

const char* titleOf(Section section) {
  switch (section) {
    case Section::kHeader:
      return "page header";
    case Section::kBody:
      return "body, for each detail record";
    case Section::kInsertBody:
      return "insert body";
    case Section::kFooter:
      return "page footer";
    default:
      return "sheet";
  }
}

// --- The table.

using Row = std::vector<std::string>;

// A character beyond ASCII is several bytes.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& each : parts) text += (text.empty() ? "" : ", ") + each;
  return text;
}

Row rowOf(const Field& field) {
  std::vector<std::string> lines;
  for (const std::size_t line : field.lines) lines.push_back(std::to_string(line));
  const auto shown = [](const std::string& text) { return text.empty() ? "-" : text; };
  const auto number = [&](unsigned value) {
    return field.width == 0 ? std::string("-") : std::to_string(value);
  };
  return {shown(field.record),    shown(field.name), number(field.width),
          number(field.decimals), joined(lines),     joined(field.hints)};
}

void writeTable(std::ostream& out, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
  }
  for (const Row& row : rows) {
    std::string text;
    for (std::size_t i = 0; i < row.size(); ++i) {
      text += "  " + row[i] + std::string(widths[i] - widthOf(row[i]), ' ');
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  }
}

}  // namespace

TemplateFields fieldsOf(std::string_view bytes, Findings& findings) {
  if (checkedFileForm(bytes, findings) == FileForm::unreadable) return {TemplateKind::kForm, {}};
  ParserServices services;
  const std::vector<Text> lines = templateLines(bytes);
  const Template read = readTemplate(lines, guessedKind(lines), services, findings);
  TemplateFields result{read.kind, {}};
  FieldPlaces places;  // of the last section
  for (const TemplateLine& each : read.lines) {
    for (const WrittenVariable& variable : each.line.variables) {
      if (!isAsked(variable)) continue;
      const bool isNew = result.sections.empty() || result.sections.back().section != each.section;
      if (isNew) {
        result.sections.push_back({each.section, {}});
        places.clear();
      }
      add(result.sections.back().fields, places, fieldOf(each.line, variable, read.kind));
    }
  }
  return result;
}

void write(std::ostream& out, const std::string& name, const TemplateFields& fields) {
  out << name << ": " << (fields.kind == TemplateKind::kForm ? "form" : "master-detail") << '\n';
  if (fields.sections.empty()) out << "no fields\n";
  for (const FieldsOfSection& section : fields.sections) {
    out << titleOf(section.section) << '\n';
    std::vector<Row> rows{{"RECORD", "FIELD", "WIDTH", "DECIMALS", "LINES", "HINTS"}};
    for (const Field& field : section.fields) rows.push_back(rowOf(field));
    writeTable(out, rows);
  }
}

}  // namespace tarvordp
