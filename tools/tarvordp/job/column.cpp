#include "tarvordp/job/column.h"

#include <algorithm>
#include <array>
#include <string>

#include "frame/upper_case.h"
#include "tarvordp/job/amount.h"

namespace tarvordp {
namespace {

struct KindName {
  std::string_view name;
  ColumnKind kind;
};
constexpr std::array<KindName, 5> kKindNames{{{"date", ColumnKind::date},
                                              {"enum", ColumnKind::enumeration},
                                              {"bool", ColumnKind::boolean},
                                              {"number", ColumnKind::number},
                                              {"text", ColumnKind::text}}};

constexpr std::array<tarvo::TextView, 5> kTrue{u"TRUE", u"1", u"S", u"SÍ", u"SI"};
constexpr std::array<tarvo::TextView, 4> kFalse{u"FALSE", u"0", u"N", u"NO"};

bool readBoolean(std::string_view written) {
  const tarvo::Text word = tarvo::upperCase(checkedText(written));
  if (std::ranges::find(kTrue, word) != kTrue.end()) return true;
  if (std::ranges::find(kFalse, word) != kFalse.end()) return false;
  throw BadValue("\"" + std::string(written) +
                 "\" is neither true nor false: write true/false, 1/0, S/N or sí/no");
}

}  // namespace

Column readColumn(std::string_view written) {
  const std::size_t colon = written.rfind(':');
  if (colon == std::string_view::npos) return {checkedText(written)};
  const std::string_view kind = written.substr(colon + 1);
  const auto found = std::ranges::find(kKindNames, kind, &KindName::name);
  if (found == kKindNames.end()) {
    throw BadValue("column \"" + std::string(written) + "\": \"" + std::string(kind) +
                   "\" is no kind: there are :date, :enum, :bool, :number and :text");
  }
  return {checkedText(written.substr(0, colon)), found->kind};
}

JobValue cellValue(std::string_view text, ColumnKind kind) {
  switch (kind) {
    case ColumnKind::date:
      return DateValue{readDate(text, "T ")};
    case ColumnKind::enumeration:
      return EnumValue{checkedText(text)};
    case ColumnKind::boolean:
      return BooleanValue{readBoolean(text)};
    case ColumnKind::number:
      return NumberValue{readAmount(text)};
    case ColumnKind::unsaid:
    case ColumnKind::text:
      break;
  }
  return TextValue{checkedText(text)};
}

// What is malformed does not come back as it was.
tarvo::Text checkedText(std::string_view utf8) {
  tarvo::Text text = tarvo::fromUtf8(utf8);
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (!std::ranges::all_of(utf8, isAscii) && tarvo::toUtf8(text) != utf8) {
    throw BadValue("a text is not UTF-8");
  }
  return text;
}

}  // namespace tarvordp
