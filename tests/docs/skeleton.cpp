#include "skeleton.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "frame/upper_case.h"
#include "template/attribute_words.h"
#include "template/control_words.h"

namespace tarvo::test {
namespace {

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// A name that the library knows stays, any other is the author's.
bool isOfTheLanguage(const std::string& name) {
  static const std::set<std::string> kNames{
      "VAN", "VIENEN", "NUMERAR", "FINRENGLONESDOCUMENTOS", "FINCUERPO", "UNINSERTOCUERPO"};
  return controlOf(upperCase(fromUtf8(name))) != Control::kNone || kNames.contains(name) ||
         name.starts_with("CUERPO=");
}

std::string skeletonOfName(const std::string& name) {
  if (isOfTheLanguage(name)) return name;
  if (name.starts_with('@')) return "@~";
  const std::size_t element = name.find('[');
  return "~" + (element == std::string::npos ? "" : name.substr(element));
}

// The text between parentheses is a translation, the commas in it too.
std::string withoutArguments(const std::string& inside) {
  std::string text;
  bool isArgument = false;
  for (const char c : inside) {
    if (c == ')') isArgument = false;
    if (!isArgument) text += c;
    if (c == '(') {
      isArgument = true;
      text += '~';
    }
  }
  return text;
}

// As it is; "?" for one that the language does not have.
std::string skeletonOfAttribute(const std::string& written) {
  const Text attribute = upperCase(fromUtf8(trimmed(written)));
  const TextView word = TextView(attribute).substr(0, attribute.find(u'('));
  const bool isNumber = attribute.find_first_not_of(u"0123456789") == Text::npos;
  const bool isKnown = std::any_of(
      kAttributeWords.begin(), kAttributeWords.end(),
      [&](const AttributeWord& known) { return word == known.word || word == known.shortWord; });
  const bool isPattern = attribute.starts_with(kSeparatorPatternStart);
  return isNumber || isKnown || isPattern ? toUtf8(attribute) : "?";
}

std::string skeletonOfVariable(const std::string& inside) {
  std::istringstream parts(withoutArguments(inside));
  std::string part;
  std::getline(parts, part, ',');
  std::string skeleton = "{" + skeletonOfName(trimmed(part));
  while (std::getline(parts, part, ',')) skeleton += "," + skeletonOfAttribute(part);
  return skeleton + "}";
}

bool isConstant(const std::string& line) {
  return line.starts_with("...NMAXLINPAGINA") || line.starts_with("...MEDIACARTA") ||
         line.starts_with("...PAUSA");
}

}  // namespace

std::string skeletonOf(const std::string& line) {
  if (isConstant(line)) return line;
  if (trimmed(line).starts_with("...")) return "...~";
  std::string skeleton;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::size_t end = line[i] == '{' ? line.find('}', i) : std::string::npos;
    if (end != std::string::npos) {
      skeleton += skeletonOfVariable(line.substr(i + 1, end - i - 1));
      i = end;
    } else if (line[i] != ' ' && !skeleton.ends_with('~')) {
      skeleton += '~';
    }
  }
  return skeleton;
}

std::vector<std::string> skeletonOf(const Example& example) {
  std::vector<std::string> lines;
  for (const Template& each : example.templates) {
    lines.emplace_back("template");
    for (const std::string& line : each.lines) lines.push_back(skeletonOf(line));
  }
  for (const std::string& page : example.printed) {
    const auto count = std::count(page.begin(), page.end(), '\n');
    lines.push_back("printed lines: " + std::to_string(count));
  }
  if (!example.message.empty()) lines.emplace_back("message");
  return lines;
}

std::string skeletonOf(const std::vector<Heading>& headings) {
  std::string levels;
  for (const Heading& each : headings) {
    levels += (levels.empty() ? "" : " ") + std::string(each.level, '#');
  }
  return levels;
}

}  // namespace tarvo::test
