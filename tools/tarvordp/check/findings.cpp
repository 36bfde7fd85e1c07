#include "tarvordp/check/findings.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace tarvordp {
namespace {

constexpr std::array<const char*, 3> kSeverities{"note", "warning", "error"};

bool isControl(char16_t c) noexcept { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

tarvo::Text escaped(char16_t control) {
  constexpr tarvo::TextView kDigits = u"0123456789ABCDEF";
  return {u'\\', u'x', kDigits[control >> 4 & 15], kDigits[control & 15]};
}

}  // namespace

const std::vector<Finding>& Findings::sorted() {
  std::stable_sort(found_.begin(), found_.end(),
                   [](const Finding& a, const Finding& b) { return a.place < b.place; });
  return found_;
}

bool Findings::hasErrors() const {
  return std::any_of(found_.begin(), found_.end(),
                     [](const Finding& each) { return each.severity == Severity::kError; });
}

void Findings::write(std::ostream& out, const std::string& name) {
  for (const Finding& each : sorted()) {
    out << name << ':' << each.place.line << ':' << each.place.column << ": "
        << kSeverities[static_cast<std::size_t>(each.severity)] << ": " << each.message << '\n';
  }
}

void Findings::add(Severity severity, Place place, std::string& message) {
  found_.push_back({place, severity, std::move(message)});
}

std::string quoted(tarvo::TextView text) {
  tarvo::Text shown;
  for (const char16_t c : text) {
    if (isControl(c)) {
      shown += escaped(c);
    } else {
      shown += c;
    }
  }
  return "'" + tarvo::toUtf8(shown) + "'";
}

std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace tarvordp
