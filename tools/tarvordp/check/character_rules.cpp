#include <algorithm>

#include "tarvordp/check/rules.h"
#include "tarvordp/hex_byte.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/view/character_set.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::TextView;

constexpr char16_t kOldEndOfFile = 0x1A;

class CharacterRules {
 public:
  explicit CharacterRules(RuleContext& context) : context_(context) {
    if (context.profile == nullptr) return;
    const SetSelection selection =
        selectedBy(bytesSent(*context.profile, ControlCode::internationalChars));
    set_ = selection.set;
    hasSet_ = selection.unknown.empty();
  }

  void check() {
    for (const TemplateLine& each : context_.of.lines) {
      if (isPrinted(each.section) && !each.line.isComment) checkLine(each.line);
    }
  }

 private:
  void checkLine(const WrittenLine& line) {
    told_.clear();
    std::size_t from = 0;
    for (const WrittenVariable& variable : line.variables) {
      checkText(line, from, variable.open);
      checkVariable(line, variable);
      from = variable.close + 1;
    }
    checkText(line, from, line.text.size());
  }

  // What of a variable is printed as it is written.
  void checkVariable(const WrittenLine& line, const WrittenVariable& variable) {
    if (variable.isConstant()) {
      const std::size_t begin = variable.open + 1;
      const std::size_t end = std::min(line.text.find(u',', begin), variable.close);
      checkText(line, begin, end);
    }
    for (const WrittenAttribute& each : variable.attributes) {
      if (each.argument && each.argument->close) checkArgument(line, each);
    }
  }

  void checkArgument(const WrittenLine& line, const WrittenAttribute& attribute) {
    const WrittenArgument& argument = *attribute.argument;
    std::size_t begin = argument.open + 1;
    if (attribute.word == u"IIF") begin = line.text.find(u',', begin);
    if (begin < *argument.close) checkText(line, begin, *argument.close);
  }

  void checkText(const WrittenLine& line, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      const char16_t c = line.text[i];
      if ((c >= 0x20 && c < 0x7F) || told_.find(c) != Text::npos) continue;
      if (c < 0x80 ? tellControl(line.place(i), c) : tellLetter(line.place(i), c)) told_ += c;
    }
  }

  bool tellControl(Place place, char16_t c) {
    if (c == kOldEndOfFile) {
      context_.findings.warning(place,
                                "character 1A, the end of file of old editors, is printed like "
                                "any other");
    } else if (c == u'\r') {
      context_.findings.warning(place,
                                "a carriage return within the line: what follows is "
                                "printed over it");
    } else if (c == u'\t') {
      context_.findings.warning(place,
                                "a tab character goes to the printer as it is: columns are "
                                "made with blanks");
    } else {
      context_.findings.note(place, "the control character " + quoted(TextView(&c, 1)) +
                                        " goes to the printer as it is");
    }
    return true;
  }

  bool tellLetter(Place place, char16_t c) {
    const std::uint8_t byte = context_.services.printedByte(c);
    const char16_t printed = characterOf(set_, byte);
    if (context_.isOtherEncoding || printed == c) return false;
    const std::string leaves = quoted(TextView(&c, 1)) + " leaves as byte " + hexOfByte(byte) +
                               " and prints as " + quoted(TextView(&printed, 1));
    const std::string set = nameOf(set_);
    if (!hasSet_) {
      context_.findings.warning(place, leaves + " in " + set + ", the usual character set");
    } else if (!hasCharacter(set_, c)) {
      context_.findings.warning(place,
                                leaves + ": the printer's character set (" + set + ") lacks it");
    } else {
      context_.findings.warning(place, leaves + ": " + set +
                                           " has it, but only á é í ó ú ñ Ñ º are sent as the "
                                           "printer has them");
    }
    return true;
  }

  RuleContext& context_;
  bool hasSet_ = false;
  CharacterSet set_ = CharacterSet::pc437;
  Text told_;  // once a line
};

}  // namespace

void checkCharacters(RuleContext& context) { CharacterRules(context).check(); }

}  // namespace tarvordp
