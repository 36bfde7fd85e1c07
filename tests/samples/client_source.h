// The source of a client in another language, read as far as it speaks of the library: operations
// that it calls or implements, and classes that it creates.
//
// No parser of a language: a word that begins with "s", "f", "Get" or "Set" and then a capital
// letter is taken for an operation of the library, as all of them are called so.  A sample gives
// its own procedures other names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvo::test {

enum class Language { kVisualBasic, kCSharp, kPowerShell };

// A place where an operation's name stands.
struct Mention {
  std::string name;
  bool hasArguments = false;  // whether a list of arguments or parameters follows
  bool isDeclaration = false;
  std::vector<std::string> arguments;  // without blanks around them
};

// What `arguments` are in a declaration.
struct Parameter {
  std::string name;
  bool byReference = false;
};

class ClientSource {
 public:
  // `text` in any encoding that has ASCII's characters.
  ClientSource(Language language, std::string_view text);

  // In their order; comments and the insides of texts do not count.
  std::vector<Mention> mentions() const;

  // "LibTarvoCI.clsError": every name that begins with one of the libraries'; texts count.
  std::vector<std::string> classNames() const;

  // REQUIRES: an argument of a declaration.
  Parameter parameterOf(std::string_view argument) const;

 private:
  bool isQuote(char character) const;
  void addWithoutComments(std::string_view text);
  std::size_t skipText(std::size_t at) const;
  std::size_t readList(std::size_t at, std::vector<std::string>& arguments) const;
  std::string_view lineBefore(std::size_t at) const;
  Mention mentionAt(std::size_t begin, std::size_t end, std::string name) const;

  Language language_;
  std::string code_;  // without comments, continued lines joined
};

}  // namespace tarvo::test
