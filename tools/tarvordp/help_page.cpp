#include "tarvordp/help_page.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvordp {
namespace {

constexpr std::size_t kPageWidth = 80;
constexpr std::size_t kIndent = 2;
constexpr std::size_t kGap = 2;
// A name that is wider has its description on the next line.
constexpr std::size_t kWidestName = 22;

// A name and what it means, in two columns.
using Row = std::pair<std::string, std::string>;

std::string filled(const std::string& text, std::size_t indent) {
  std::istringstream words(text);
  std::string result;
  std::size_t column = indent;
  for (std::string word; words >> word;) {
    if (column > indent && column + 1 + word.size() > kPageWidth) {
      result.append(1, '\n').append(indent, ' ');
      column = indent;
    } else if (column > indent) {
      result += ' ';
      ++column;
    }
    result += word;
    column += word.size();
  }
  return result;
}

std::string table(const std::vector<Row>& rows) {
  std::size_t width = 0;
  for (const auto& [name, meaning] : rows) {
    if (name.size() <= kWidestName) width = std::max(width, name.size());
  }
  const std::size_t column = kIndent + width + kGap;
  std::string text;
  for (const auto& [name, meaning] : rows) {
    const std::size_t end = kIndent + name.size();
    text.append(kIndent, ' ').append(name);
    if (end + kGap > column) text += '\n';
    text.append(end + kGap > column ? column : column - end, ' ');
    text.append(filled(meaning, column)).append("\n");
  }
  return text;
}

std::string inCapitals(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// "N:INT in [1 - 255]" is the name, and what its check says of itself.
std::pair<std::string, std::string> typeOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t colon = type.find(':');
  if (colon == std::string::npos) return {type, {}};
  return {type.substr(0, colon), type.substr(colon + 1)};
}

std::vector<std::string> choicesOf(const CLI::Option& option) {
  const std::string check = typeOf(option).second;
  if (!check.starts_with('{') || !check.ends_with('}')) return {};
  return CLI::detail::split(check.substr(1, check.size() - 2), ',');
}

// "1 to 255"; empty: there is no range.
std::string rangeOf(const CLI::Option& option) {
  const std::string check = typeOf(option).second;
  const std::size_t begin = check.find('[');
  const std::size_t middle = check.find(" - ");
  const std::size_t end = check.find(']');
  if (!check.starts_with("INT in [") || middle == std::string::npos || end == std::string::npos) {
    return {};
  }
  return check.substr(begin + 1, middle - begin - 1) + " to " +
         check.substr(middle + 3, end - middle - 3);
}

bool takesMany(const CLI::Option& option) {
  return option.get_items_expected_max() >= CLI::detail::expected_max_vector_size;
}

// "-h, --help", "--printer NAME".
std::string nameOf(const CLI::Option& option) {
  if (option.get_positional()) return option.get_name(true, false);
  std::string name = CLI::detail::find_and_replace(option.get_name(false, true), ",", ", ");
  const std::string value = valueName(option);
  return value.empty() ? name : name + " " + value;
}

std::string meaningOf(const CLI::Option& option) {
  const std::string range = rangeOf(option);
  return option.get_description() + (range.empty() ? "" : " (" + range + ")");
}

std::vector<const CLI::Option*> optionsOf(const CLI::App& command, bool positional) {
  return command.get_options(
      [=](const CLI::Option* option) { return option->get_positional() == positional; });
}

// Paragraphs of a footer, in the order of a page.
class Footer {
 public:
  explicit Footer(const std::string& footer) {
    std::istringstream lines(footer);
    std::string paragraph;
    for (std::string line; std::getline(lines, line);) {
      if (line.empty()) {
        add(std::exchange(paragraph, {}));
      } else {
        paragraph += line + '\n';
      }
    }
    add(paragraph);
  }

  std::string page() const {
    std::string text;
    for (const auto* part : {&remarks_, &statuses_, &examples_}) {
      for (const std::string& paragraph : *part) text.append("\n").append(paragraph);
    }
    return text;
  }

 private:
  void add(const std::string& paragraph) {
    if (paragraph.empty()) return;
    std::vector<std::string>& part = paragraph.starts_with("Exit status") ? statuses_
                                     : paragraph.starts_with("Example")   ? examples_
                                                                          : remarks_;
    part.push_back(laidOut(paragraph));
  }

  static std::string laidOut(const std::string& paragraph) {
    std::string text;
    std::string prose;
    const auto endProse = [&] {
      if (!prose.empty()) text += filled(std::exchange(prose, {}), 0) + '\n';
    };
    std::istringstream lines(paragraph);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(' ')) {
        endProse();
        text += line + '\n';
      } else {
        prose += line + '\n';
      }
    }
    endProse();
    return text;
  }

  std::vector<std::string> remarks_;
  std::vector<std::string> statuses_;
  std::vector<std::string> examples_;
};

class HelpFormatter final : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* command, std::string name,
                        CLI::AppFormatMode /*mode*/) const override {
    std::string page = filled(command->get_description(), 0) + "\n\n";
    page += filled("Usage: " + name + usageOf(*command), sizeof "Usage:") + '\n';
    page += group("Commands", commandsOf(*command));
    page += group("Arguments", rowsOf(optionsOf(*command, true)));
    page += group("Options", optionRows(*command));
    return page + Footer(command->get_footer()).page();
  }

 private:
  static std::string usageOf(const CLI::App& command) {
    std::string usage;
    for (const CLI::Option* option : optionsOf(command, true)) {
      const std::string name = nameOf(*option) + (takesMany(*option) ? "..." : "");
      usage += option->get_required() ? " " + name : " [" + name + "]";
    }
    for (const CLI::Option* option : optionsOf(command, false)) {
      if (option->get_required()) usage += " " + nameOf(*option);
    }
    return usage + (commandsOf(command).empty() ? " [options]" : " COMMAND [arguments]");
  }

  static std::vector<Row> rowsOf(const std::vector<const CLI::Option*>& options) {
    std::vector<Row> rows;
    rows.reserve(options.size());
    for (const CLI::Option* option : options) {
      rows.emplace_back(nameOf(*option), meaningOf(*option));
    }
    return rows;
  }

  // The help on help comes last.
  static std::vector<Row> optionRows(const CLI::App& command) {
    std::vector<const CLI::Option*> options = optionsOf(command, false);
    std::stable_partition(options.begin(), options.end(), [&](const CLI::Option* option) {
      return option != command.get_help_ptr();
    });
    return rowsOf(options);
  }

  static std::vector<Row> commandsOf(const CLI::App& command) {
    std::vector<Row> rows;
    for (const CLI::App* each : command.get_subcommands([](const CLI::App*) { return true; })) {
      rows.emplace_back(each->get_name(), each->get_description());
    }
    return rows;
  }

  static std::string group(const char* title, const std::vector<Row>& rows) {
    return rows.empty() ? "" : std::string("\n") + title + ":\n" + table(rows);
  }
};

}  // namespace

std::shared_ptr<CLI::FormatterBase> makeHelpFormatter() {
  return std::make_shared<HelpFormatter>();
}

std::string valueName(const CLI::Option& option) {
  if (option.get_positional()) return option.get_name(true, false);
  if (option.get_items_expected_max() == 0) return {};
  const std::vector<std::string> choices = choicesOf(option);
  if (!choices.empty()) return CLI::detail::join(choices, "|");
  std::string type = typeOf(option).first;
  if (type != "TEXT" && type != "INT") return type;
  const std::string name = option.get_name();
  return inCapitals(name.substr(name.find_first_not_of('-')));
}

std::string valuesAllowed(const CLI::Option& option) {
  const std::vector<std::string> choices = choicesOf(option);
  if (!choices.empty()) return CLI::detail::join(choices, " or ");
  const std::string range = rangeOf(option);
  return range.empty() ? "" : "a whole number from " + range;
}

}  // namespace tarvordp
