// What is wrong with a text that is no JSON, in words for a person who writes one by hand.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvordp {

// Where the JSON library met the mistake, and what it says.
struct JsonMistake {
  std::string_view text;    // the whole one
  std::size_t position;     // how many of its bytes were read
  std::string_view reason;  // the library's
  bool isBehindElement;     // in an array, behind one of its elements
};

// A sentence without the file's name.  Of the commonest mistakes in words of our own, of the others
// in those of the library; what is not UTF-8 is never repeated as it stands.
std::string describe(const JsonMistake& mistake);

}  // namespace tarvordp
