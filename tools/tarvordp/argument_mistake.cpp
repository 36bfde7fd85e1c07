#include "tarvordp/argument_mistake.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "tarvordp/check/nearest_word.h"
#include "tarvordp/help_page.h"

namespace tarvordp {
namespace {

// More letters than these make another word of it.
constexpr std::size_t kMostWrongLetters = 2;

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string seeHelp(const std::string& command) { return "; see " + inQuotes(command + " --help"); }

std::string did(const std::string& word) { return " (did you mean " + inQuotes(word) + "?)"; }

// What was probably meant, as a remark; empty when nothing is near.
std::string meant(std::string_view word, const std::vector<std::string>& known) {
  const tarvo::Text written = tarvo::fromUtf8(word);
  const std::string* nearest = nullptr;
  std::size_t least = kMostWrongLetters + 1;
  for (const std::string& each : known) {
    if (word.size() > kMostWrongLetters && each.starts_with(word)) return did(each);
    const std::size_t distance = editDistance(written, tarvo::fromUtf8(each));
    if (distance < least && distance + 1 < each.size()) {
      least = distance;
      nearest = &each;
    }
  }
  return nearest == nullptr ? "" : did(*nearest);
}

std::vector<std::string> commandsOf(const CLI::App& program) {
  std::vector<std::string> names;
  for (const CLI::App* each : program.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(each->get_name());
  }
  return names;
}

std::vector<std::string> optionsOf(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_positional()) names.push_back(option->get_name());
  }
  return names;
}

// "a, b or c"
std::string enumerated(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 < words.size() ? ", " : " or ";
    text += words[i];
  }
  return text;
}

// The library's words begin with the argument's name (a flag's without its dashes), or end in it
// and its value.
const CLI::Option* argumentIn(const CLI::App& command, std::string_view words) {
  const CLI::Option* found = nullptr;
  for (const CLI::Option* option : command.get_options()) {
    const std::string name = option->get_name();
    const bool isNamed = words.find(name) != std::string_view::npos ||
                         words.starts_with(name.substr(name.find_first_not_of('-')) + " ");
    const bool isLonger = found == nullptr || name.size() > found->get_name().size();
    if (isNamed && isLonger) found = option;
  }
  return found;
}

std::string mistakenUse(const CLI::Option& option) {
  const std::string name = option.get_name();
  if (option.get_items_expected_max() == 0) return name + " takes no value";
  const bool isOnce = option.get_multi_option_policy() == CLI::MultiOptionPolicy::Throw;
  if (isOnce && option.count() > 1) return name + " is given more than once";
  return name + ": its value is missing: " + name + " " + valueName(option);
}

std::string wrongValue(const CLI::Option& option) {
  const std::string value = option.count() > 0 ? option.results().back() : "";
  const std::string allowed = valuesAllowed(option);
  return option.get_name() + ": " + inQuotes(value) + " is not " +
         (allowed.empty() ? "what it takes" : allowed);
}

std::string missing(const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_required() || option->count() > 0) continue;
    const std::string value = valueName(*option);
    return (option->get_positional() ? value : option->get_name() + " " + value) + " is missing";
  }
  return {};
}

// A word that nobody takes; empty: there is none.
std::string tooMuch(const CLI::App& program, const CLI::App& command) {
  const std::vector<std::string> words = program.remaining(true);
  const auto isOption = [](const std::string& word) {
    return word.size() > 1 && word.starts_with('-');
  };
  const auto option = std::ranges::find_if(words, isOption);
  if (option != words.end()) {
    const std::string name = option->substr(0, option->find('='));
    return "there is no option " + inQuotes(name) + meant(name, optionsOf(command));
  }
  return words.empty() ? "" : inQuotes(words.front()) + " is one argument too many";
}

std::string wordsFor(const CLI::App& program, const CLI::App& command,
                     const CLI::ParseError& failure) {
  const CLI::Option* argument = argumentIn(command, failure.what());
  if (argument != nullptr && dynamic_cast<const CLI::ArgumentMismatch*>(&failure) != nullptr) {
    return mistakenUse(*argument);
  }
  const bool isValue = dynamic_cast<const CLI::ValidationError*>(&failure) != nullptr ||
                       dynamic_cast<const CLI::ConversionError*>(&failure) != nullptr;
  if (argument != nullptr && isValue) return wrongValue(*argument);
  if (std::string words = tooMuch(program, command); !words.empty()) return words;
  if (&command == &program) return "say what to do: " + enumerated(commandsOf(program));
  if (std::string words = missing(command); !words.empty()) return words;
  return failure.what();
}

}  // namespace

std::string argumentMistake(const CLI::App& program, const CLI::ParseError& failure) {
  const std::vector<CLI::App*> chosen = program.get_subcommands();
  const CLI::App& command = chosen.empty() ? program : *chosen.front();
  const std::string name =
      chosen.empty() ? program.get_name() : program.get_name() + " " + command.get_name();
  return wordsFor(program, command, failure) + seeHelp(name);
}

std::string unknownCommand(const CLI::App& program, std::string_view word) {
  return "there is no command " + inQuotes(word) + meant(word, commandsOf(program)) +
         seeHelp(program.get_name());
}

}  // namespace tarvordp
