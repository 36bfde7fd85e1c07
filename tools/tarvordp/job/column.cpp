#include "tarvordp/job/column.h"

#include <algorithm>
#include <array>
#include <string>

#include "frame/upper_case.h"
#include "tarvordp/job/amount.h"
#include "tarvordp/json/excerpt.h"

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

// What is malformed does not come back as it was.
void requireUtf8(std::string_view text) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::ranges::all_of(text, isAscii)) return;
  if (tarvo::toUtf8(tarvo::fromUtf8(text)) != text) throw BadValue("a text is not UTF-8");
}

bool readBoolean(std::string_view written) {
  const tarvo::Text word = tarvo::upperCase(tarvo::fromUtf8(written));
  if (std::ranges::find(kTrue, word) != kTrue.end()) return true;
  if (std::ranges::find(kFalse, word) != kFalse.end()) return false;
  throw BadValue(quotedExcerpt(written) +
                 " is neither true nor false: write true/false, 1/0, S/N or sí/no");
}

}  // namespace

Column readColumn(std::string_view written) {
  requireUtf8(written);
  const std::size_t colon = written.rfind(':');
  if (colon == std::string_view::npos) return {tarvo::fromUtf8(written)};
  const std::string_view kind = written.substr(colon + 1);
  const auto found = std::ranges::find(kKindNames, kind, &KindName::name);
  if (found == kKindNames.end()) {
    throw BadValue("column \"" + std::string(written) + "\": \"" + std::string(kind) +
                   "\" is no kind: there are :date, :enum, :bool, :number and :text");
  }
  return {tarvo::fromUtf8(written.substr(0, colon)), found->kind};
}

JobValue cellValue(std::string_view text, ColumnKind kind) {
  requireUtf8(text);
  switch (kind) {
    case ColumnKind::date:
      return DateValue{readDate(text, "T ")};
    case ColumnKind::enumeration:
      return EnumValue{tarvo::fromUtf8(text)};
    case ColumnKind::boolean:
      return BooleanValue{readBoolean(text)};
    case ColumnKind::number:
      return NumberValue{readCellAmount(text)};
    case ColumnKind::unsaid:
    case ColumnKind::text:
      break;
  }
  return TextValue{tarvo::fromUtf8(text)};
}

}  // namespace tarvordp
