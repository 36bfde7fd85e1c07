#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "tarvordp/check/rules.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {
namespace {

using tarvo::Control;
using tarvo::Text;
using tarvo::toUtf8;

constexpr std::size_t kColumns = 80;  // at 10 characters an inch
constexpr std::size_t kCondensedColumns = 137;
constexpr std::size_t kMostCharacters = 254;

struct Emphasis {
  Control begin;
  Control end;
  const char* name;
  const char* endWord;
};
constexpr std::array kEmphases = std::to_array<Emphasis>(
    {{Control::kBold, Control::kLight, "bold", "{BLANCA}"},
     {Control::kInitUnderline, Control::kEndUnderline, "underlined", "{FINSUBRAYADO}"},
     {Control::kInitExpanded, Control::kEndExpanded, "expanded", "{FINEXPANDIDO}"}});
constexpr std::size_t kExpanded = 2;

struct CodeOfControl {
  Control control;
  ControlCode code;
};
constexpr std::array kCodes =
    std::to_array<CodeOfControl>({{Control::kCondensed, ControlCode::condensed},
                                  {Control::kNormal, ControlCode::normal},
                                  {Control::kInitExpanded, ControlCode::initExpanded},
                                  {Control::kEndExpanded, ControlCode::endExpanded},
                                  {Control::kBold, ControlCode::bold},
                                  {Control::kLight, ControlCode::light},
                                  {Control::kInitUnderline, ControlCode::initUnderlying},
                                  {Control::kEndUnderline, ControlCode::endUnderlying}});

std::optional<ControlCode> codeOf(Control control) {
  for (const CodeOfControl& each : kCodes) {
    if (each.control == control) return each.code;
  }
  return {};
}

struct Pitch {
  bool isCondensed = false;
  bool isExpanded = false;

  bool operator==(const Pitch&) const = default;
};

// Widths are counted in units of which each pitch is a whole number.
class WidthRules {
 public:
  explicit WidthRules(RuleContext& context) : context_(context) {
    const bool saysWidth =
        context.profile != nullptr && context.profile->maxChrLinCondensed80Columns != 0;
    if (saysWidth) condensedColumns_ = context.profile->maxChrLinCondensed80Columns;
  }

  void check() {
    for (const TemplateLine& each : context_.of.lines) {
      if (isPrinted(each.section) && !each.line.isComment) checkLine(each);
    }
    for (const auto& waiting : leftOn_) {
      if (waiting) tell(*waiting, false);
    }
    tellCondensed();
  }

 private:
  // Emphasis that a line left on.
  struct LeftOn {
    Place place;
    Section section;
    const Emphasis* emphasis;
  };

  void checkLine(const TemplateLine& line) {
    section_ = line.section;
    begunHere_ = {};
    units_ = characters_ = 0;
    tooWideAt_.reset();
    isOnePitch_ = true;
    pitch_.reset();
    std::size_t from = 0;
    for (const WrittenVariable& variable : line.line.variables) {
      addText(line.line.text, from, variable.open);
      addVariable(line.line, variable);
      from = variable.close + 1;
    }
    addText(line.line.text, from, line.line.text.size());
    tellWidth(line.line);
    leaveLine();
  }

  // Blanks at the line's end fall off the paper unseen.
  void addText(const Text& text, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) add(1, i, text[i] == u' ');
  }

  void addVariable(const WrittenLine& line, const WrittenVariable& variable) {
    const std::size_t width =
        checkedMinimumWidth(line, variable, context_.of.kind, context_.findings);
    if (const Control control = controlOf(variable); control != Control::kNone) {
      if (sendsCode(control, line, variable)) apply(control, line.place(variable.open));
      return add(width, variable.open, true);
    }
    if (width > 0) add(width, variable.open, false);
  }

  std::size_t unitOf(Pitch pitch) const {
    return (pitch.isCondensed ? kColumns : condensedColumns_) * (pitch.isExpanded ? 2 : 1);
  }

  void add(std::size_t characters, std::size_t index, bool isBlank) {
    const Pitch pitch{isCondensed_, isOn_[kExpanded]};
    units_ += characters * unitOf(pitch);
    characters_ += characters;
    if (isBlank || characters == 0) return;
    if (section_ == Section::kHeader && !isCondensed_ && !hasPitchWord_) beginsNormal_ = true;
    if (pitch_ && *pitch_ != pitch) isOnePitch_ = false;
    pitch_ = pitch;
    inkUnits_ = units_;
    if (units_ > kColumns * condensedColumns_ && !tooWideAt_) tooWideAt_ = index;
  }

  void tellWidth(const WrittenLine& line) {
    if (characters_ > kMostCharacters) {
      context_.findings.error(line.place(0),
                              "the line has more than 254 characters: each time it is printed a "
                              "warning is shown");
    }
    if (!tooWideAt_) return;
    const Pitch pitch = isOnePitch_ ? *pitch_ : Pitch{};
    const std::size_t unit = unitOf(pitch);
    const std::size_t room = kColumns * condensedColumns_ / unit;
    const std::size_t need = (inkUnits_ + unit - 1) / unit;
    context_.findings.warning(line.place(*tooWideAt_), "the line takes " + counted(need, "column") +
                                                           " at least, the paper has " +
                                                           std::to_string(room) + nameOf(pitch));
  }

  static std::string nameOf(Pitch pitch) {
    if (pitch.isCondensed && pitch.isExpanded) return " in condensed and expanded print";
    if (pitch.isCondensed) return " in condensed print";
    return pitch.isExpanded ? " in expanded print" : "";
  }

  // False: the profile has no code for it.
  bool sendsCode(Control control, const WrittenLine& line, const WrittenVariable& variable) {
    const std::optional<ControlCode> code = codeOf(control);
    if (context_.profile == nullptr || !code || !context_.profile->code(*code).empty()) return true;
    bool& isTold = isTold_[static_cast<std::size_t>(control)];
    if (!isTold) {
      context_.findings.note(line.place(variable.open),
                             "the profile has no " + std::string(propertyName(*code)) + ": " +
                                 toUtf8(variable.parsed->GetFieldName()) + " sends nothing");
    }
    isTold = true;
    return false;
  }

  // On some printers one code ends more than its own kind of print.
  bool areTheSame(Control a, Control b) const {
    if (context_.profile == nullptr) return false;
    const Text& code = context_.profile->code(*codeOf(a));
    return !code.empty() && code == context_.profile->code(*codeOf(b));
  }

  bool ends(Control control, Control end) const {
    return control == end || (codeOf(control) && areTheSame(control, end));
  }

  void apply(Control control, Place place) {
    if (control == Control::kCondensed || control == Control::kNormal) hasPitchWord_ = true;
    if (control == Control::kCondensed) {
      isCondensed_ = true;
      condensedAt_ = place;
      return;
    }
    if (ends(control, Control::kNormal)) isCondensed_ = false;
    for (std::size_t i = 0; i < kEmphases.size(); ++i) {
      if (control == kEmphases[i].begin) {
        isOn_[i] = true;
        begunHere_[i] = place;
      } else if (ends(control, kEmphases[i].end)) {
        end(i);
      }
    }
  }

  void end(std::size_t emphasis) {
    isOn_[emphasis] = false;
    begunHere_[emphasis].reset();
    std::optional<LeftOn>& waiting = leftOn_[emphasis];
    if (waiting) tell(*waiting, waiting->section == section_);
    waiting.reset();
  }

  void leaveLine() {
    for (std::size_t i = 0; i < kEmphases.size(); ++i) {
      if (begunHere_[i] && !leftOn_[i]) leftOn_[i] = {*begunHere_[i], section_, &kEmphases[i]};
    }
  }

  void tell(const LeftOn& waiting, bool isMeant) {
    const std::string what = std::string(waiting.emphasis->name) +
                             " print goes on behind the "
                             "line's end";
    if (isMeant) {
      context_.findings.note(waiting.place, what);
    } else {
      context_.findings.warning(waiting.place,
                                what + ": " + waiting.emphasis->endWord + " is missing");
    }
  }

  // The next page's header begins as the last line leaves the printer.
  void tellCondensed() {
    if (context_.of.kind != TemplateKind::kMasterDetail || !isCondensed_ || !beginsNormal_) return;
    context_.findings.warning(condensedAt_,
                              "condensed print is still on when the next page's header begins: "
                              "{NORMAL} is missing");
  }

  RuleContext& context_;
  std::size_t condensedColumns_ = kCondensedColumns;

  // The printer, from line to line.
  bool isCondensed_ = false;
  Place condensedAt_{};
  bool hasPitchWord_ = false;
  bool beginsNormal_ = false;  // the header has text before it says how it is printed
  std::array<bool, kEmphases.size()> isOn_{};
  std::array<std::optional<LeftOn>, kEmphases.size()> leftOn_;
  std::array<bool, tarvo::kControls> isTold_{};

  // The line.
  Section section_ = Section::kSheet;
  std::array<std::optional<Place>, kEmphases.size()> begunHere_;
  std::size_t units_ = 0;
  std::size_t inkUnits_ = 0;
  std::size_t characters_ = 0;
  std::optional<std::size_t> tooWideAt_;
  std::optional<Pitch> pitch_;
  bool isOnePitch_ = true;
};

}  // namespace

void checkWidths(RuleContext& context) { WidthRules(context).check(); }

}  // namespace tarvordp
