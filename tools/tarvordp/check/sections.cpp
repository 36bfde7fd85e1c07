#include "tarvordp/check/sections.h"

#include <algorithm>

#include "frame/codepage.h"
#include "frame/decimal.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/rounded.h"
#include "frame/upper_case.h"
#include "reports/section_markers.h"
#include "tarvordp/check/nearest_word.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::TextView;
using tarvo::toUtf8;

constexpr std::size_t kNone = Text::npos;
constexpr TextView kHalfLetter = u"MEDIACARTA";
constexpr TextView kPageLength = u"NMAXLINPAGINA";
constexpr TextView kPageLengthOfOld = u"NUMERODELINESPORPAGINA";

bool holds(TextView line, TextView marker) {
  return tarvo::upperCase(line).find(marker) != Text::npos;
}

// A constant's line as the report cleans it.
struct Constant {
  Text cleaned;
  Text name;  // empty without "="
  Text content;

  explicit Constant(TextView line) : cleaned(line) {
    std::erase(cleaned, u'.');
    cleaned = tarvo::upperCase(tarvo::trimBlanks(cleaned));
    const std::size_t sign = cleaned.find(u'=');
    if (sign == kNone) return;
    name = cleaned.substr(0, sign);
    content = cleaned.substr(sign + 1);
  }

  bool isPageLength() const { return name == kPageLength; }
  bool isKnown() const { return cleaned == kHalfLetter || isPageLength(); }
};

double numberIn(TextView text) {
  return tarvo::modRDPGlobalValues::ofThisThread().refInsConvert->fTextToNumber(text);
}

// As the report reads it; none when it does not fit.
template <class Number>
std::optional<int> wholeNumberIn(TextView text) {
  try {
    return tarvo::roundHalfToEven<Number>(numberIn(text));
  } catch (const tarvo::RunTimeError&) {
    return {};
  }
}

// --- Constants.

class ConstantReader {
 public:
  ConstantReader(PageConstants& constants, Findings& findings)
      : constants_(constants), findings_(findings) {}

  void read(const std::vector<Text>& lines) {
    std::size_t number = 0;
    bool goesOn = true;
    for (; number < lines.size() && goesOn; ++number) {
      goesOn = lines[number].starts_with(u'.');
      take(lines[number], number + 1);
    }
    for (; number < lines.size(); ++number) tellMisplaced(lines[number], number + 1);
  }

 private:
  static Place placeOf(TextView line, std::size_t number) {
    const std::size_t first = line.find_first_not_of(u". ");
    return {number, (first == kNone ? 0 : first) + 1};
  }

  void take(TextView line, std::size_t number) {
    const Constant constant(line);
    const Place place = placeOf(line, number);
    if (constant.cleaned == kHalfLetter) constants_.isHalfLetter = true;
    if (constant.isPageLength()) takePageLength(constant, place);
    if (constant.isKnown()) {
      tellPrinted(line, place);
    } else {
      tellNearly(constant, place);
    }
  }

  void takePageLength(const Constant& constant, Place place) {
    if (constant.content.find_first_of(u"0123456789") == kNone) {
      findings_.error(place, "NMAXLINPAGINA has no number: the page would have no end");
    }
    constants_.maxLinPage = wholeNumberIn<std::uint8_t>(constant.content);
    if (!constants_.maxLinPage) {
      findings_.error(place, "NMAXLINPAGINA is a number from 0 to 255 (run-time error 6)");
    }
  }

  void tellPrinted(TextView line, Place place) {
    if (tarvo::trimBlanks(line).starts_with(tarvo::kCommentMark)) return;
    findings_.warning(place,
                      "this constant is printed as a line of the header too: only after "
                      "three full stops is it not");
  }

  void tellNearly(const Constant& constant, Place place) {
    TextView name = constant.name.empty() ? TextView(constant.cleaned) : constant.name;
    if (name == kPageLengthOfOld) {
      findings_.warning(place,
                        "NUMERODELinesPORPAGINA has no effect: NMAXLINPAGINA sets the "
                        "lines of a page");
    } else if (constant.name == kHalfLetter) {
      findings_.warning(place,
                        "MEDIACARTA takes no number, so this has no effect: write MEDIACARTA "
                        "alone, and NMAXLINPAGINA=n in a line of its own");
    } else if (tarvo::trimBlanks(name) == kPageLength) {
      findings_.error(place,
                      "NMAXLINPAGINA has no effect: '=' and its number must follow it "
                      "at once");
    } else if (const Text likely = nearestConstant(name); !likely.empty()) {
      findings_.warning(
          place, "unknown constant " + quoted(name) + ", did you mean " + toUtf8(likely) + "?");
    }
  }

  void tellMisplaced(TextView line, std::size_t number) {
    if (!line.starts_with(u'.') || !Constant(line).isKnown()) return;
    findings_.error(placeOf(line, number),
                    "this constant has no effect: constants stand before every line that does "
                    "not begin with '.'");
  }

  PageConstants& constants_;
  Findings& findings_;
};

// --- Markers.

class SectionReader {
 public:
  SectionReader(const std::vector<Text>& lines, Template& result, Findings& findings)
      : lines_(lines), result_(result), findings_(findings) {}

  void read() {
    Section section = Section::kHeader;
    for (const Text& line : lines_) {
      const Section marker = markerOf(line, section);
      result_.lines.push_back({marker, WrittenLine{line, result_.lines.size() + 1, false, {}}});
      if (isPrinted(marker)) {
        tellMisplaced(result_.lines.back());
      } else {
        section = static_cast<Section>(static_cast<int>(marker) + 1);
        tellRest(result_.lines.back());
      }
    }
    tellMissing();
  }

 private:
  // The marker that the line is in the section, or the section itself.
  static Section markerOf(TextView line, Section section) {
    if (section == Section::kHeader && holds(line, tarvo::kBodyMarker)) return Section::kBodyMarker;
    if (section == Section::kBody && tarvo::upperCase(line) == tarvo::kInsertBodyMarker) {
      return Section::kInsertBodyMarker;
    }
    const bool isBody = section == Section::kBody || section == Section::kInsertBody;
    if (isBody && holds(line, tarvo::kEndOfBodyMarker)) return Section::kEndOfBodyMarker;
    return section;
  }

  static std::size_t find(TextView line, TextView marker) {
    return tarvo::upperCase(line).find(marker);
  }

  // What stands beside a marker.
  void tellRest(TemplateLine& marker) {
    if (marker.section == Section::kInsertBodyMarker) return;
    const WrittenLine& line = marker.line;
    const bool isBody = marker.section == Section::kBodyMarker;
    const TextView word = isBody ? tarvo::kBodyMarker : tarvo::kEndOfBodyMarker;
    const std::size_t begin = find(line.text, word);
    std::size_t end = begin + word.size();
    if (isBody) end = readBodyLines(line, end);
    Text rest(line.text, 0, begin);
    rest.append(line.text, std::min(end, line.text.size()));
    const TextView shown = tarvo::trimBlanks(rest);
    if (shown.empty()) return;
    const std::size_t at = line.text.find_first_not_of(u' ');
    findings_.warning(line.place(at < begin ? at : line.text.find_first_not_of(u' ', end)),
                      "what stands beside a marker is not printed");
  }

  // Gives where the marker ends.
  std::size_t readBodyLines(const WrittenLine& line, std::size_t begin) {
    const std::size_t close = line.text.find(u'}', begin);
    const TextView number = TextView(line.text).substr(begin, close - begin);
    const Place place = line.place(begin);
    if (close == kNone) findings_.error(place, "the '}' of {CUERPO=n} is missing");
    result_.bodyLines = wholeNumberIn<std::int16_t>(number);
    if (!result_.bodyLines) {
      findings_.error(place, "the number of {CUERPO=n} is at most 32767 (run-time error 6)");
    } else if (number.find_first_of(u"0123456789") == kNone) {
      findings_.error(place,
                      "{CUERPO=n} has no number: the body would be without limit, as with 0");
    } else if (*result_.bodyLines < 0) {
      findings_.error(place, "a negative number of body lines: no record is printed");
    }
    return close == kNone ? line.text.size() : close + 1;
  }

  // A marker where it is none.
  void tellMisplaced(const TemplateLine& each) {
    const WrittenLine& line = each.line;
    if (tarvo::trimBlanks(line.text).starts_with(tarvo::kCommentMark)) {
      // The footer begins at the first one, in a comment too.
      if (each.section != Section::kHeader || !holds(line.text, tarvo::kEndOfBodyMarker)) return;
    }
    for (const TextView marker :
         {tarvo::kBodyMarker, tarvo::kEndOfBodyMarker, tarvo::kInsertBodyMarker}) {
      const std::size_t at = find(line.text, marker);
      if (at != kNone) findings_.error(line.place(at), misplaced(each.section, marker));
    }
  }

  static std::string misplaced(Section section, TextView marker) {
    if (marker == tarvo::kBodyMarker) return "a second {CUERPO=n}: it is printed like a variable";
    if (marker == tarvo::kEndOfBodyMarker) {
      return section == Section::kHeader
                 ? "{FINCUERPO} before {CUERPO=n}: the footer would begin here"
                 : "a second {FINCUERPO}: it is printed like a variable";
    }
    return section == Section::kBody
               ? "{UNINSERTOCUERPO} must be alone in its line, without blanks"
               : "{UNINSERTOCUERPO} has its place between {CUERPO=n} and {FINCUERPO}: it is "
                 "printed like a variable";
  }

  bool has(Section section) const {
    return std::any_of(result_.lines.begin(), result_.lines.end(),
                       [section](const auto& each) { return each.section == section; });
  }

  void tellMissing() {
    if (!has(Section::kBodyMarker)) {
      findings_.error({1, 1},
                      "no line holds {CUERPO=n}: everything is header, and no record is "
                      "printed");
    } else if (!has(Section::kEndOfBodyMarker)) {
      findings_.error({lines_.size(), 1},
                      "no line holds {FINCUERPO}: the body goes on to the end "
                      "of the file, and there is no footer");
    }
  }

  const std::vector<Text>& lines_;
  Template& result_;
  Findings& findings_;
};

}  // namespace

bool isPrinted(Section section) {
  return section != Section::kBodyMarker && section != Section::kInsertBodyMarker &&
         section != Section::kEndOfBodyMarker;
}

std::vector<Text> templateLines(std::string_view bytes) {
  std::vector<Text> lines;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
    tarvo::CodePage::windows1252().decode(line, lines.emplace_back());
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
  return lines;
}

TemplateKind guessedKind(const std::vector<Text>& lines) {
  const bool hasMarker = std::any_of(lines.begin(), lines.end(), [](const Text& line) {
    return holds(line, tarvo::kBodyMarker) || holds(line, u"{CUERPO}") ||
           holds(line, u"{CUERPO:") || holds(line, u"FINCUERPO}") ||
           holds(line, u"UNINSERTOCUERPO}");
  });
  if (hasMarker) return TemplateKind::kMasterDetail;
  for (const Text& line : lines) {
    if (!line.starts_with(u'.')) break;
    if (Constant(line).isKnown()) return TemplateKind::kMasterDetail;
  }
  return TemplateKind::kForm;
}

Template readTemplate(const std::vector<Text>& lines, TemplateKind kind, ParserServices& services,
                      Findings& findings) {
  Template result;
  result.kind = kind;
  if (kind == TemplateKind::kMasterDetail) {
    ConstantReader(result.constants, findings).read(lines);
    SectionReader(lines, result, findings).read();
  } else {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      result.lines.push_back({Section::kSheet, WrittenLine{lines[i], i + 1, false, {}}});
    }
  }
  for (TemplateLine& each : result.lines) {
    if (isPrinted(each.section)) {
      each.line = readLine(each.line.text, each.line.number, services, findings);
    }
  }
  return result;
}

}  // namespace tarvordp
