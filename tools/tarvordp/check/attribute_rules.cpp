
#include <algorithm>
#include <optional>

#include "frame/decimal.h"
#include "tarvordp/check/rules.h"
#include "template/attribute_words.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::TextView;
using tarvo::toUtf8;

constexpr std::size_t kNone = Text::npos;
constexpr int kDecimalsOfAnAmount = 4;

class AttributeRules {
 public:
  AttributeRules(const WrittenLine& line, const WrittenVariable& variable, Findings& findings)
      : line_(line), variable_(variable), findings_(findings) {}

  void check() {
    for (const WrittenAttribute& each : variable_.attributes) {
      if (each.isKnown) checkOne(each);
    }
    checkAlignments();
    checkPrecision();
  }

 private:
  void error(std::size_t at, std::string message) {
    findings_.error(line_.place(at), std::move(message));
  }
  void warning(std::size_t at, std::string message) {
    findings_.warning(line_.place(at), std::move(message));
  }

  void checkOne(const WrittenAttribute& attribute) {
    if (attribute.word == u"IIF") {
      checkIif(attribute);
    } else if (attribute.word == u"DATEFORMAT" || attribute.word == u"DF") {
      checkDateFormat(attribute);
    } else if (attribute.argument) {
      checkNeedlessArgument(attribute);
    }
    if (attribute.word == u"FILL" || attribute.word == u"REPEAT") checkFill(attribute);
    if (tarvo::isDecimal(attribute.word)) checkNumber(attribute);
  }

  void checkIif(const WrittenAttribute& attribute) {
    hasIif_ = true;
    if (variable_.isConstant() || controlOf(variable_) != tarvo::Control::kNone) {
      warning(attribute.at,
              "IIF chooses by the client's enumeration or boolean: it has no effect "
              "here");
    } else if (!attribute.argument) {
      error(attribute.at, "IIF without its values: IIF(\"X\",value,value)");
    } else if (!attribute.argument->close) {
      error(attribute.argument->open, "the '(' of IIF is not closed");
    } else {
      checkIifArgument(attribute);
    }
  }

  void checkIifArgument(const WrittenAttribute& attribute) {
    const Text& written = attribute.argument->text;
    const TextView condition = TextView(written).substr(0, written.find(u','));
    const std::size_t quote = condition.find(u'"');
    if (quote == kNone || condition.find(u'"', quote + 1) == kNone) {
      warning(attribute.argument->open,
              "the condition of IIF compares with texts between '\"': without them the second "
              "value is always printed");
    }
    if (!variable_.wasRead || isReplaced(attribute)) return;
    const auto* values = variable_.parsed->GetIifPossibleValues().tryGet<tarvo::ValueArray>();
    const std::size_t count = values == nullptr ? 0 : values->size();
    if (count < 2) {
      error(attribute.at,
            "IIF has " + (count == 0 ? "no value" : counted(count, "value")) +
                ", it needs two (run-time error 9 when the missing one is needed)" +
                (written.find(u'(') == kNone ? "" : ": a ')' inside a value ends them"));
    } else if (count > 2) {
      warning(attribute.at,
              "IIF has " + counted(count, "value") + ": only the first two are ever printed");
    }
  }

  // Whether a later argument took the place of its values.
  bool isReplaced(const WrittenAttribute& iif) const {
    const WrittenAttribute* const end = variable_.attributes.data() + variable_.attributes.size();
    return std::any_of(&iif + 1, end, [](const auto& each) { return each.argument.has_value(); });
  }

  void checkDateFormat(const WrittenAttribute& attribute) {
    const std::string word = toUtf8(attribute.word);
    if (hasIif_ && attribute.argument) {
      error(attribute.at, word + " after IIF is read as a second IIF: write it before");
    } else if (!attribute.argument) {
      error(attribute.at, word + " without its format prints nothing: " + word + "(dd/mm/yyyy)");
    } else if (!attribute.argument->close) {
      error(attribute.argument->open, "the '(' of " + word + " is not closed");
    } else if (attribute.argument->text.empty()) {
      error(attribute.at, word + " with an empty format prints nothing");
    }
    hasDateFormat_ = true;
  }

  void checkNeedlessArgument(const WrittenAttribute& attribute) {
    const std::string what = toUtf8(attribute.word) + " has no argument: this one ";
    if (hasIif_) {
      error(attribute.argument->open, what + "is read as that of a second IIF");
    } else if (hasDateFormat_) {
      error(attribute.argument->open, what + "is read as the date's format");
    } else {
      warning(attribute.argument->open, what + "is ignored");
    }
  }

  void checkFill(const WrittenAttribute& attribute) {
    if (variable_.parsed->GetLength() == 0) {
      warning(attribute.at, toUtf8(attribute.word) + " without a width repeats nothing");
    }
  }

  // The last one counts.
  void checkAlignments() {
    const WrittenAttribute* before = nullptr;
    for (const WrittenAttribute& each : variable_.attributes) {
      if (!each.isKnown || !alignmentIn(each.word)) continue;
      if (before != nullptr && alignmentIn(before->word) != alignmentIn(each.word)) {
        warning(each.at, toUtf8(each.word) + " takes the place of " + toUtf8(before->word));
      }
      before = &each;
    }
  }

  // Its long word; none when the word is no alignment.
  static std::optional<TextView> alignmentIn(TextView word) {
    for (const TextView name : {u"IZQUIERDA", u"DERECHA", u"CENTRO", u"JUSTIFICADO"}) {
      const auto each =
          std::ranges::find(tarvo::kAttributeWords, name, &tarvo::AttributeWord::word);
      if (word == each->word || word == each->shortWord) return each->word;
    }
    return {};
  }

  static int valueOf(TextView number) {
    return static_cast<int>(tarvo::roundedHalfToEven(tarvo::parseDecimal(number), 0));
  }

  // A first number 0 leaves the width unset.
  void checkNumber(const WrittenAttribute& attribute) {
    const int value = valueOf(attribute.word);
    if (!hasWidth_) {
      hasWidth_ = value != 0;
      if (value == 0) warning(attribute.at, "a width of 0 is none: the next number is the width");
    } else if (decimals_ != nullptr) {
      warning(attribute.at, "a third number takes the place of the decimals");
    } else {
      decimals_ = &attribute;
    }
  }

  void checkPrecision() {
    if (decimals_ == nullptr || !variable_.wasRead) return;
    const int decimals = variable_.parsed->GetDecimalPlaces();
    const int width = variable_.parsed->GetLength();
    if (decimals > kDecimalsOfAnAmount) {
      warning(decimals_->at, "an amount has four decimals: the others are always 0");
    }
    if (decimals > 0 && decimals + 2 > width) {
      warning(decimals_->at, "a width of " + std::to_string(width) + " has no room for " +
                                 counted(static_cast<std::size_t>(decimals), "decimal") +
                                 ": numbers print as '*'");
    }
  }

  const WrittenLine& line_;
  const WrittenVariable& variable_;
  Findings& findings_;
  bool hasIif_ = false;
  bool hasDateFormat_ = false;
  bool hasWidth_ = false;
  const WrittenAttribute* decimals_ = nullptr;
};

}  // namespace

void checkAttributes(const WrittenLine& line, const WrittenVariable& variable, Findings& findings) {
  AttributeRules(line, variable, findings).check();
}

}  // namespace tarvordp
