// The blocks of code of a guide, with what stands behind the three back-ticks.
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo::test {

struct GuideBlock {
  std::string language;  // the first word
  std::string file;      // the second one: where the block stands as well; may be empty
  std::string text;      // every line with its end
  int line = 0;          // of the guide, at which it begins
};

inline std::vector<GuideBlock> blocksIn(std::istream& guide) {
  std::vector<GuideBlock> blocks;
  bool isInside = false;
  int number = 0;
  for (std::string line; std::getline(guide, line);) {
    ++number;
    if (line.starts_with("```")) {
      isInside = !isInside;
      if (!isInside) continue;
      const std::string info = line.substr(3);
      const std::size_t blank = info.find(' ');
      blocks.push_back({info.substr(0, blank),
                        blank == std::string::npos ? "" : info.substr(blank + 1), "", number});
    } else if (isInside) {
      blocks.back().text += line + '\n';
    }
  }
  return blocks;
}

inline std::vector<GuideBlock> blocksOfGuide(const std::string& name) {
  std::ifstream guide(TARVO_ROOT "/docs/" + name);
  return blocksIn(guide);
}

}  // namespace tarvo::test
