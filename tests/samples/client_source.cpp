#include "client_source.h"

#include <algorithm>
#include <cctype>

namespace tarvo::test {
namespace {

bool isWordCharacter(char character) {
  return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}
bool isCapital(char character) { return character >= 'A' && character <= 'Z'; }

bool isOperationName(std::string_view word) {
  for (const std::string_view prefix : {"Get", "Set", "s", "f"}) {
    if (word.starts_with(prefix) && word.size() > prefix.size() && isCapital(word[prefix.size()])) {
      return true;
    }
  }
  return false;
}

std::string_view trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view firstWord(std::string_view text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), isWordCharacter);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string_view lastWord(std::string_view text) {
  std::size_t begin = text.size();
  while (begin > 0 && isWordCharacter(text[begin - 1])) --begin;
  return text.substr(begin);
}

}  // namespace

ClientSource::ClientSource(Language language, std::string_view text) : language_(language) {
  addWithoutComments(text);
}

bool ClientSource::isQuote(char character) const {
  return character == '"' || (character == '\'' && language_ == Language::kPowerShell);
}

// No text goes over the end of a line, but the compiled part of a script: its quotes stand at an
// end and a beginning of a line, and what is in between is code as well.
void ClientSource::addWithoutComments(std::string_view text) {
  const std::string_view comment = language_ == Language::kVisualBasic ? "'"
                                   : language_ == Language::kCSharp    ? "//"
                                                                       : "#";
  char quote = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') quote = 0;
    const bool isOtherComment = language_ == Language::kPowerShell && text.substr(i, 2) == "//";
    if (quote == 0 && (text.substr(i, comment.size()) == comment || isOtherComment)) {
      i = std::min(text.find('\n', i), text.size() - 1);
    }
    if (quote == 0 && isQuote(text[i])) {
      quote = text[i];
    } else if (text[i] == quote) {
      quote = 0;
    }
    if (text[i] != '\r') code_ += text[i];
    if (language_ == Language::kVisualBasic && code_.ends_with(" _\n")) {
      code_.replace(code_.size() - 3, 3, " ");
    }
  }
}

// Behind the text that begins there.
std::size_t ClientSource::skipText(std::size_t at) const {
  const std::size_t end = code_.find_first_of(std::string{code_[at], '\n'}, at + 1);
  return end == std::string::npos ? code_.size() : end + 1;
}

// The arguments from there to the bracket that ends them, or to the end of the line; gives where
// that is.
std::size_t ClientSource::readList(std::size_t at, std::vector<std::string>& arguments) const {
  const bool isBracketed = code_[at] == '(';
  std::size_t begin = isBracketed ? ++at : at;
  int depth = 0;
  const auto take = [&] {
    const std::string_view argument = trimmed(std::string_view(code_).substr(begin, at - begin));
    if (!argument.empty() || !arguments.empty()) arguments.emplace_back(argument);
    begin = at + 1;
  };
  while (at < code_.size()) {
    const char character = code_[at];
    if (isQuote(character)) {
      at = skipText(at);
      continue;
    }
    if (depth == 0 && (isBracketed ? character == ')' : character == '\n')) break;
    if (character == '(') ++depth;
    if (character == ')') --depth;
    if (character == ',' && depth == 0) take();
    ++at;
  }
  take();
  return at;
}

std::string_view ClientSource::lineBefore(std::size_t at) const {
  const std::size_t begin = code_.rfind('\n', at);
  return trimmed(std::string_view(code_).substr(begin + 1, at - begin - 1));
}

Mention ClientSource::mentionAt(std::size_t begin, std::size_t end, std::string name) const {
  Mention mention{std::move(name), false, false, {}};
  const std::string_view before = lineBefore(begin);
  const std::string_view rest = std::string_view(code_).substr(end);
  const bool isBasic = language_ == Language::kVisualBasic;
  mention.isDeclaration = before.find('.') == std::string_view::npos &&
                          (before.starts_with("Private ") || before.starts_with("public "));
  // A statement that is nothing but the call has its arguments without brackets.
  const bool isStatement = before.ends_with('.') && before.find(' ') == std::string_view::npos;
  if (rest.starts_with('(') || (isBasic && isStatement)) {
    mention.hasArguments = true;
    readList(end, mention.arguments);
  }
  return mention;
}

std::vector<Mention> ClientSource::mentions() const {
  std::vector<Mention> found;
  for (std::size_t at = 0; at < code_.size();) {
    // The whole compiled part of a script is no text, though quotes stand around it.
    const bool beginsText =
        isQuote(code_[at]) && skipText(at) <= code_.size() && code_[skipText(at) - 1] == code_[at];
    if (beginsText) {
      at = skipText(at);
      continue;
    }
    const std::string_view word = firstWord(std::string_view(code_).substr(at));
    // "clsImplementIDMD_fReadNextRecord" implements that operation of the contract.
    const std::size_t underscore = word.rfind('_');
    const std::string_view name =
        underscore == std::string_view::npos ? word : word.substr(underscore + 1);
    if (isOperationName(name)) found.push_back(mentionAt(at, at + word.size(), std::string(name)));
    at += std::max<std::size_t>(word.size(), 1);
  }
  return found;
}

std::vector<std::string> ClientSource::classNames() const {
  std::vector<std::string> found;
  for (const std::string_view library : {"LibTarvoRdpCI.", "LibTarvoCI."}) {
    for (std::size_t at = code_.find(library); at != std::string::npos;
         at = code_.find(library, at + 1)) {
      const std::string_view behind = std::string_view(code_).substr(at + library.size());
      // "LibTarvoCI.$name" is put together by the script.
      if (firstWord(behind).empty()) continue;
      found.push_back(std::string(library) + std::string(firstWord(behind)));
    }
  }
  return found;
}

Parameter ClientSource::parameterOf(std::string_view argument) const {
  if (language_ == Language::kVisualBasic) {
    const bool byValue = argument.starts_with("ByVal ");
    if (byValue) argument.remove_prefix(6);
    return {std::string(firstWord(argument)), !byValue};
  }
  return {std::string(lastWord(argument)), argument.starts_with("ref ")};
}

}  // namespace tarvo::test
