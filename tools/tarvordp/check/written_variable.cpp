#include "tarvordp/check/written_variable.h"

#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "tarvordp/check/mapped_text.h"
#include "tarvordp/check/nearest_word.h"
#include "template/attribute_words.h"
#include "template/control_words.h"

namespace tarvordp {
namespace {

using tarvo::RunTimeError;
using tarvo::Text;
using tarvo::TextView;
using tarvo::toUtf8;

constexpr std::size_t kNone = Text::npos;
constexpr std::size_t kLongestFreeAttributes = 255;

std::string errorName(const RunTimeError& error) {
  return "run-time error " + std::to_string(error.number());
}

class Reader {
 public:
  Reader(std::size_t lineNumber, ParserServices& services, Findings& findings,
         WrittenVariable& result)
      : lineNumber_(lineNumber), services_(services), findings_(findings), result_(result) {}

  void read(TextView inside) {
    if (std::size_t end = 0; readNames(inside, end)) readAttributes(attributesText(inside, end));
  }

 private:
  Place place(std::size_t index) const { return {lineNumber_, index + 1}; }
  std::size_t begin() const { return result_.open + 1; }
  tarvo::clsObSpecialVar& variable() { return *result_.parsed; }

  void fail(std::size_t index, std::string message) {
    findings_.error(place(index), std::move(message));
    result_.wasRead = false;
  }

  // `end` becomes the index of the comma that ends the names, kNone when none does.
  bool readNames(TextView inside, std::size_t& end) {
    const bool isFree = inside.starts_with(tarvo::kFreeMark);
    const std::size_t dot = isFree ? kNone : inside.find(u'.');
    const std::size_t comma = inside.find(u',');
    if (dot != kNone && comma < dot) {
      fail(begin() + dot,
           "this '.' ends the record name, though it stands behind a ',': begin the variable with "
           "a record name, or with '.' for none");
      return false;
    }
    end = comma;
    const TextView names = inside.substr(0, comma);
    try {
      variable().SetReadText(names);
      variable().sExtractFieldAndCharacteristics();
    } catch (const RunTimeError& error) {
      fail(begin() + names.find(u'['),
           "an element number is a number from 0 to 255 between '[' and ']' (" + errorName(error) +
               ")");
      return false;
    }
    variable().SetReadText(inside);
    return true;
  }

  // What follows the names' comma; that comma is its first character.
  MappedText attributesText(TextView inside, std::size_t end) const {
    if (end == kNone) return {{}, begin() + inside.size()};
    const TextView rest = inside.substr(end);
    if (!inside.starts_with(tarvo::kFreeMark)) return {rest, begin() + end};
    return {tarvo::upperCase(rest.substr(0, kLongestFreeAttributes)), begin() + end};
  }

  // As clsObSpecialVar::sExtractFieldAndCharacteristics does it, step by step.
  void readAttributes(MappedText rest) {
    bool isThereOne = !rest.text().empty();
    std::size_t comma = 0;
    while (isThereOne) {
      const std::size_t commaPlace = rest.place(comma);
      rest.erase(0, comma + 1);
      comma = rest.text().find(u',');
      const std::size_t open = rest.text().find(u'(');
      if (open == kNone || open == 0 || comma < open) {
        readAttribute(rest, comma, commaPlace);
      } else {
        readAttribute(rest, open, commaPlace);
        if (!readArgument(rest, open)) return;
        comma = rest.text().find(u',');
      }
      isThereOne = comma != kNone;
    }
  }

  // The first `size` characters.
  void readAttribute(const MappedText& rest, std::size_t size, std::size_t commaPlace) {
    const TextView written = TextView(rest.text()).substr(0, size);
    const std::size_t first = written.find_first_not_of(u' ');
    WrittenAttribute attribute;
    attribute.at = first == kNone ? commaPlace : rest.place(first);
    attribute.word = tarvo::upperCase(tarvo::trimBlanks(written));
    const std::size_t before = services_.messages();
    try {
      variable().sReadAttribute(written);
      attribute.isKnown = services_.messages() == before;
      if (!attribute.isKnown) reportUnknown(attribute, rest, size);
      isDate_ = isDate_ || attribute.word == u"DATEFORMAT" || attribute.word == u"DF";
      hasQlr_ = hasQlr_ || attribute.word == u"QLR";
    } catch (const RunTimeError& error) {
      fail(attribute.at, quoted(attribute.word) +
                             " is out of range, widths and decimals are 0 to 255 (" +
                             errorName(error) + ")");
    }
    result_.attributes.push_back(std::move(attribute));
  }

  // What follows an unknown word in parentheses is no finding of its own.
  void reportUnknown(const WrittenAttribute& attribute, const MappedText& rest, std::size_t size) {
    if (attribute.at < quietUntil_) return;
    const std::size_t open = rest.text().find(u'(');
    if (open != kNone && (open == size || attribute.word.starts_with(u'('))) {
      const std::size_t close = rest.text().find(u')', open);
      quietUntil_ = close == kNone ? result_.close : rest.place(close);
    }
    if (attribute.word.empty()) {
      findings_.error(place(attribute.at), "an attribute is empty: nothing follows this ','");
    } else if (attribute.word.starts_with(u'(') && variable().GetValueComesInAttrib()) {
      findings_.error(place(attribute.at), "a second IIF in one variable is not read");
    } else {
      findings_.error(place(attribute.at), unknownMessage(attribute.word));
    }
  }

  static std::string unknownMessage(TextView word) {
    std::string message = "unknown attribute " + quoted(word);
    if (const Text likely = nearestAttribute(word); !likely.empty()) {
      return message + ", did you mean " + toUtf8(likely) + "?";
    }
    if (tarvo::controlOf(word) != tarvo::Control::kNone) {
      return message + ": it is a control word, which has braces of its own";
    }
    return message;
  }

  // False: the rest is not read.
  bool readArgument(MappedText& rest, std::size_t open) {
    WrittenAttribute& attribute = result_.attributes.back();
    WrittenArgument argument{rest.place(open), {}, {}};
    const std::size_t close = rest.text().find(u')');
    const bool isClosed = close != kNone && close > open;
    if (isClosed) {
      argument.close = rest.place(close);
      argument.text = rest.text().substr(open + 1, close - open - 1);
    }
    attribute.argument = argument;
    if (variable().GetValueComesInAttrib()) return readFunction(rest, open, close, isClosed);
    if (isDate_) {
      Text text = rest.text();
      variable().sExtractIfHasDateFormat(text);
      if (isClosed) rest.erase(open, close - open + 1);
    }
    return true;
  }

  bool readFunction(MappedText& rest, std::size_t open, std::size_t close, bool isClosed) {
    const std::size_t bracket = rest.place(rest.text().find(u'[', open));
    const std::size_t before = services_.messages();
    try {
      services_.bearMessages(rest.text().size());
      Text text = rest.text();
      variable().sExtractIfHasFunction(text);
    } catch (const RunTimeError& error) {
      fail(bracket, functionMessage(error));
      return false;
    }
    if (services_.messages() != before) {
      findings_.warning(place(bracket),
                        "each bracket group shows the operator the message of an unknown "
                        "attribute; blanks written as they are print the same");
    }
    if (isClosed) {
      rest.erase(open, close - open + 1);
      rest.eraseAll(u"IIF");
      rest.trim();
    } else {
      quietUntil_ = result_.close;  // its values are read as attributes
    }
    return true;
  }

  std::string functionMessage(const RunTimeError& error) const {
    if (!hasQlr_) {
      return "brackets in a value of IIF need QLR before the IIF: without it the report never ends";
    }
    return "the brackets of an IIF value hold one or two numbers of blanks (" + errorName(error) +
           ")";
  }

  std::size_t lineNumber_;
  ParserServices& services_;
  Findings& findings_;
  WrittenVariable& result_;
  std::size_t quietUntil_ = 0;
  bool isDate_ = false;
  bool hasQlr_ = false;
};

}  // namespace

WrittenVariable readVariable(TextView line, std::size_t lineNumber, std::size_t open,
                             std::size_t close, ParserServices& services, Findings& findings) {
  WrittenVariable result;
  result.open = open;
  result.close = close;
  result.parsed = tarvo::make<tarvo::clsObSpecialVar>();
  services.bearMessages(line.size() + 1);
  Reader(lineNumber, services, findings, result).read(line.substr(open + 1, close - open - 1));
  return result;
}

}  // namespace tarvordp
