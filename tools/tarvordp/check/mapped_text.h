// A part of a line that knows where each of its characters stood in the line, whatever was taken
// out of it meanwhile.
#pragma once

#include <cstddef>
#include <vector>

#include "frame/decimal.h"
#include "frame/text.h"

namespace tarvordp {

class MappedText {
 public:
  MappedText(tarvo::TextView text, std::size_t at) : text_(text), end_(at + text.size()) {
    for (std::size_t i = 0; i < text.size(); ++i) places_.push_back(at + i);
  }

  const tarvo::Text& text() const noexcept { return text_; }

  // Where its character stood; behind the last one, where the text ended.
  std::size_t place(std::size_t index) const {
    return index < places_.size() ? places_[index] : end_;
  }

  void erase(std::size_t from, std::size_t count) {
    const auto begin = places_.begin() + static_cast<std::ptrdiff_t>(from);
    places_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
    text_.erase(from, count);
  }

  // Every occurrence, from left to right.
  void eraseAll(tarvo::TextView word) {
    for (std::size_t i = text_.find(word); i != tarvo::Text::npos; i = text_.find(word, i)) {
      erase(i, word.size());
    }
  }

  void trim() {
    const std::size_t first = text_.find_first_not_of(u' ');
    if (first == tarvo::Text::npos) return erase(0, text_.size());
    const std::size_t last = text_.find_last_not_of(u' ');
    erase(last + 1, text_.size() - last - 1);
    erase(0, first);
  }

 private:
  tarvo::Text text_;
  std::vector<std::size_t> places_;
  std::size_t end_;
};

}  // namespace tarvordp
