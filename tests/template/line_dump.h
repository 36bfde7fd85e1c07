// A template line as one line of text that a person can read: what differs from a cleared one.
//
//   dumpOf(a cleared line):      (nothing)
//   dumpOf(one with {SNL,3}x):   "x" skips=3
#pragma once

#include <string>

#include "equipment/bytes_dump.h"
#include "template/clsObLineCharacts.h"

namespace tarvo::test {

namespace detail {

inline void addWord(std::string& all, bool isSo, const std::string& word) {
  if (isSo) all += (all.empty() ? "" : " ") + word;
}

inline void addCount(std::string& all, const char* name, int count, int usual) {
  addWord(all, count != usual, name + ("=" + std::to_string(count)));
}

}  // namespace detail

// All but the text: a line takes notice of it when somebody looks at that.
inline std::string flagsOf(const clsObLineCharacts& line) {
  std::string all;
  detail::addCount(all, "alignment", line.GetAlignment(), eAT_Left);
  detail::addWord(all, line.GetHasTab(), "tab");
  detail::addCount(all, "tabPos", line.GetTabPos(), 0);
  detail::addWord(all, !line.GetSkipLine(), "open");
  detail::addWord(all, line.GetSkipNPoints(), "points");
  detail::addCount(all, "skips", line.GetNumberOfSkips(), 1);
  detail::addWord(all, !line.GetPrintLine(), "suppressed");
  detail::addWord(all, line.GetSkipPageWasRead(), "page");
  detail::addWord(all, line.GetPauseWasRead(), "pause");
  detail::addWord(all, line.GetLineToWriteEmpty(), "writtenEmpty");
  return all;
}

inline std::string dumpOf(const clsObLineCharacts& line) {
  std::string all;
  const Text& text = line.GetTextToWrite();
  detail::addWord(all, !text.empty(), inQuotes(text));
  const std::string flags = flagsOf(line);
  detail::addWord(all, !flags.empty(), flags);
  return all;
}

}  // namespace tarvo::test
