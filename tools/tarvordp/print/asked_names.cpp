#include "tarvordp/print/asked_names.h"

#include <algorithm>

#include "tarvordp/job/record.h"

namespace tarvordp {
namespace {

constexpr std::size_t kMostNames = 5;

std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) {
    text.append(i == 0 ? "" : ", ").append(names[i]);
  }
  if (names.size() > kMostNames) {
    text += " and " + std::to_string(names.size() - kMostNames) + " more";
  }
  return text;
}

}  // namespace

void AskedNames::expect(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (std::ranges::find(unasked_, name, &Expected::written) != unasked_.end()) continue;
    unasked_.push_back({name, nameKey(tarvo::fromUtf8(name))});
  }
}

void AskedNames::note(const tarvo::Text& name, bool isNowhere) {
  isAny_ = true;
  const tarvo::Text key = nameKey(name);
  std::erase_if(unasked_, [&](const Expected& expected) { return expected.key == key; });
  if (isNowhere && unansweredKeys_.emplace(key, true).second) {
    unanswered_.push_back(tarvo::toUtf8(name));
  }
}

std::vector<std::string> AskedNames::hints() const {
  std::vector<std::string> hints;
  if (!unanswered_.empty()) {
    hints.push_back("these names of the template were not answered, at least once: " +
                    listed(unanswered_));
  }
  if (isAny_ && !unasked_.empty()) {
    std::vector<std::string> names;
    names.reserve(unasked_.size());
    for (const Expected& each : unasked_) names.push_back(each.written);
    hints.push_back("--set gives what no template asked for: " + listed(names));
  }
  return hints;
}

}  // namespace tarvordp
