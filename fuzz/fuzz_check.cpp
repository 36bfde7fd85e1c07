// What check makes of arbitrary templates.
//
// An input is a template's bytes.  Whatever it is, it is looked through as both kinds of report,
// with a profile and without, and its fields are listed; every finding stands in the file and is
// one line.  What check reads of a variable is what the library reads.  And of a template in which
// nothing is found, every line can be translated: no error, no message to the operator.
#include <algorithm>
#include <sstream>
#include <string>

#include "frame/modRDPGlobalValues.h"
#include "fuzzing.h"
#include "tarvordp/check/check_template.h"
#include "tarvordp/check/fields.h"
#include "tarvordp/profile/profile.h"
#include "template/line_translator.h"

namespace tarvordp::fuzz {
namespace {

using tarvo::Ref;
using tarvo::Text;
using tarvo::toUtf8;
using tarvo::fuzz::require;

constexpr std::size_t kLongestInput = 2'000;

Profile someProfile() {
  Profile profile;
  profile.maxLinPage = 66;
  profile.maxChrLinCondensed80Columns = 132;
  profile.codes[static_cast<std::size_t>(ControlCode::bold)] =
      u"\x1B"
      u"E";
  profile.codes[static_cast<std::size_t>(ControlCode::condensed)] = u"\x0F";
  profile.codes[static_cast<std::size_t>(ControlCode::normal)] = u"\x12";
  profile.codes[static_cast<std::size_t>(ControlCode::endExpanded)] = u"\x12";
  return profile;
}

void requirePlaces(Findings& findings, const std::vector<Text>& lines) {
  for (const Finding& each : findings.sorted()) {
    require(each.place.line >= 1 && each.place.column >= 1, "places count from 1");
    const std::size_t count = std::max<std::size_t>(lines.size(), 1);
    require(each.place.line <= count, "a finding's line is one of the file's");
    const std::size_t length = lines.empty() ? 0 : lines[each.place.line - 1].size();
    require(each.place.column <= length + 1, "and its column of the line, or just behind it");
    require(!each.message.empty() && each.message.find('\n') == std::string::npos,
            "a message is one line");
  }
}

// A value of each kind that a variable may have: short, without braces.
class Client final : public tarvo::VariableSource {
 public:
  bool answer(Ref<tarvo::clsObLineCharacts>& line) override {
    tarvo::clsObSpecialVar& variable = *line->GetSpecialVar();
    const bool isChosen = variable.GetValueComesInAttrib();
    switch (++asked_ % 4) {
      case 0:
        if (isChosen) {
          variable.SetContentEnum(u"S");
        } else {
          variable.SetContentNumeric({-12'345'678}, true);
        }
        return true;
      case 1:
        variable.SetContentBoolean(true);
        return true;
      case 2:
        variable.SetContentDate(tarvo::Date{46'000.5});
        return true;
      default:
        variable.SetContentString(u"uno dos tres");
        return true;
    }
  }

 private:
  unsigned asked_ = 0;
};

void requireTranslation(const std::vector<Text>& lines, TemplateKind kind) {
  ParserServices services;
  Findings ignored;
  const Template read = readTemplate(lines, kind, services, ignored);
  services.bearMessages(0);
  const std::size_t before = services.messages();
  tarvo::LineTranslator translator;
  Ref<tarvo::clsObLineCharacts> line = tarvo::make<tarvo::clsObLineCharacts>();
  Client client;
  for (int turn = 0; turn < 4; ++turn) {
    for (const TemplateLine& each : read.lines) {
      if (!isPrinted(each.section)) continue;
      line->sClrRecord();
      try {
        translator.translate(line, each.line.text, client);
      } catch (const tarvo::RunTimeError& error) {
        std::fprintf(stderr, "%s in line %s\n", error.what(), toUtf8(each.line.text).c_str());
        require(false, "a template without findings is translated");
      }
    }
  }
  require(services.messages() == before, "and tells the operator nothing");
}

std::string describe(const tarvo::clsObSpecialVar& variable) {
  std::ostringstream text;
  const auto put = [&](const auto& each) { text << each << '|'; };
  put(toUtf8(variable.GetRecordName()));
  put(toUtf8(variable.GetFieldName()));
  put(int{variable.GetLength()});
  put(int{variable.GetDecimalPlaces()});
  put(int{variable.GetArrayPosition()});
  put(static_cast<int>(variable.GetAlignmentType()));
  put(toUtf8(variable.GetSpecialSeparationString()));
  for (const bool flag :
       {variable.GetIsFieldOfArray(), variable.GetFieldOfArrayHasPositionInsideTheArray(),
        variable.GetAlignmentWasRead(), variable.GetPrintComa(), variable.GetPrintZero(),
        variable.GetNotSpacesToTheSides(), variable.GetFillWithZero(),
        variable.GetSeparatorOfCommasAndDot(), variable.GetRepeatCharsUntilFill(),
        variable.GetVariableToWriteEmpty(), variable.GetVariableToApplyCondition(),
        variable.GetValueComesInAttrib(), variable.GetUsingSpecialSeparationString()}) {
    put(flag);
  }
  if (const auto* values = variable.GetIifPossibleValues().tryGet<tarvo::ValueArray>()) {
    for (const tarvo::Value& each : *values) put(toUtf8(*each.tryGet<Text>()));
  }
  return text.str();
}

// Variables are read here as the library reads them at once.
void requireSameReading(const std::vector<Text>& lines) {
  ParserServices services;
  Findings ignored;
  const Template read = readTemplate(lines, TemplateKind::kForm, services, ignored);
  for (const TemplateLine& each : read.lines) {
    for (const WrittenVariable& variable : each.line.variables) {
      if (!variable.wasRead) continue;
      const auto whole = tarvo::make<tarvo::clsObSpecialVar>();
      services.bearMessages(kLongestInput);
      whole->sExtract(tarvo::TextView(each.line.text)
                          .substr(variable.open, variable.close - variable.open + 1));
      require(describe(*whole) == describe(*variable.parsed), "a variable is read as it is");
    }
  }
}

void check(std::string_view bytes) {
  static const Profile kProfile = someProfile();
  const std::vector<Text> lines = templateLines(bytes);
  for (const TemplateKind kind : {TemplateKind::kForm, TemplateKind::kMasterDetail}) {
    Findings findings = checkTemplate(bytes, kind, nullptr);
    requirePlaces(findings, lines);
    if (findings.sorted().empty()) requireTranslation(lines, kind);
    Findings ofPrinter = checkTemplate(bytes, kind, &kProfile);
    requirePlaces(ofPrinter, lines);
  }
  requireSameReading(lines);
  Findings findings;
  std::ostringstream shown;
  write(shown, "T", fieldsOf(bytes, findings));
}

}  // namespace
}  // namespace tarvordp::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + std::min(size, tarvordp::fuzz::kLongestInput));
  tarvordp::fuzz::check(bytes);
  return 0;
}
