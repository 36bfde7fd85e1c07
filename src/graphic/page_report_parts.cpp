#include "graphic/page_report_parts.h"

#include <algorithm>
#include <array>

#include "graphic/late_arguments.h"

namespace tarvo {
namespace {

constexpr std::int32_t kSmallestSide = 1440;
constexpr std::int32_t kLargestSide = 288000;  // what a PDF page may have
constexpr std::int32_t kLargestFont = 144;

constexpr std::string_view kOrientation = "Orientation";

std::int32_t checkedInteger(const Value& value, TextView about, std::int32_t least,
                            std::int32_t most) {
  const std::int32_t number = integerArgument(value, about);
  if (number < least || number > most) throw RunTimeError(kInvalidProcedureCall, about);
  return number;
}

struct PageLength {
  const char* name;
  std::int32_t PageFormat::*field;
  std::int32_t least;
};
constexpr std::array<PageLength, 6> kPageLengths{{
    {"PageWidth", &PageFormat::width, kSmallestSide},
    {"PageHeight", &PageFormat::height, kSmallestSide},
    {"LeftMargin", &PageFormat::leftMargin, 0},
    {"TopMargin", &PageFormat::topMargin, 0},
    {"RightMargin", &PageFormat::rightMargin, 0},
    {"BottomMargin", &PageFormat::bottomMargin, 0},
}};

const PageLength* findPageLength(TextView name) {
  const auto* found = std::find_if(
      kPageLengths.begin(), kPageLengths.end(),
      [name](const PageLength& length) { return equalIgnoringAsciiCase(name, length.name); });
  return found == kPageLengths.end() ? nullptr : found;
}

}  // namespace

LateObject& lateObjectOf(const Ref<Object>& reference) {
  auto* late = dynamic_cast<LateObject*>(&*reference);
  if (late == nullptr) throw RunTimeError(kNoSuchMember);
  return *late;
}

Value ReportPart::call(TextView name, std::span<const Value> arguments) {
  return get(name, arguments);
}

Value ReportPart::get(TextView name, std::span<const Value>) {
  throw RunTimeError(kNoSuchMember, name);
}

void ReportPart::put(TextView name, std::span<const Value>, const Value&) {
  throw RunTimeError(kNoSuchMember, name);
}

Value DataControl::get(TextView name, std::span<const Value> indexes) {
  if (!equalIgnoringAsciiCase(name, "Recordset")) return ReportPart::get(name, indexes);
  requireCount(indexes, 0);
  return Ref<Object>(lines_);
}

void DataControl::put(TextView name, std::span<const Value> indexes, const Value& value) {
  if (!equalIgnoringAsciiCase(name, "Recordset")) return ReportPart::put(name, indexes, value);
  requireCount(indexes, 0);
  const auto* object = value.tryGet<Ref<Object>>();
  auto* lines = object != nullptr ? dynamic_cast<LineTable*>(object->get()) : nullptr;
  const bool isNothing = object != nullptr && !*object;
  if (lines == nullptr && !isNothing) {
    throw RunTimeError(kTypeMismatch, u"Recordset takes a line table of this library, or Nothing");
  }
  lines_ = Ref<LineTable>(lines);
}

void TextBox::giveFontTo(PageFormat& format) const {
  constexpr std::int32_t kLineHeight = 23;  // twips to a point of the font: 1.15 em
  format.fontName = font_.fontName;
  format.fontSize = font_.fontSize;
  format.bold = font_.bold;
  format.italic = font_.italic;
  format.rowHeight = std::max(PageFormat().rowHeight, font_.fontSize * kLineHeight);
}

Value TextBox::get(TextView name, std::span<const Value> indexes) {
  Value value = property(name);
  requireCount(indexes, 0);
  return value;
}

Value TextBox::property(TextView name) const {
  if (equalIgnoringAsciiCase(name, "Column")) return column_;
  if (equalIgnoringAsciiCase(name, "Width")) return width_;
  if (equalIgnoringAsciiCase(name, "FontName")) return font_.fontName;
  if (equalIgnoringAsciiCase(name, "FontSize")) return font_.fontSize;
  if (equalIgnoringAsciiCase(name, "FontBold")) return font_.bold;
  if (equalIgnoringAsciiCase(name, "FontItalic")) return font_.italic;
  throw RunTimeError(kNoSuchMember, name);
}

void TextBox::put(TextView name, std::span<const Value> indexes, const Value& value) {
  get(name, indexes);  // refuses an unknown name, and indexes
  if (equalIgnoringAsciiCase(name, "Column")) {
    const TextView column = textArgument(value, name);
    const bool isKnown = column.empty() || equalIgnoringAsciiCase(column, kLineColumnName);
    if (!isKnown) throw RunTimeError(kNoSuchMember, column);
    column_ = column;
  } else if (equalIgnoringAsciiCase(name, "Width")) {
    width_ = checkedInteger(value, name, 0, kLargestSide);
  } else if (equalIgnoringAsciiCase(name, "FontName")) {
    font_.fontName = textArgument(value, name);
  } else if (equalIgnoringAsciiCase(name, "FontSize")) {
    font_.fontSize = static_cast<std::int16_t>(checkedInteger(value, name, 1, kLargestFont));
  } else if (equalIgnoringAsciiCase(name, "FontBold")) {
    font_.bold = booleanArgument(value, name);
  } else {
    font_.italic = booleanArgument(value, name);
  }
}

Ref<LateObject> DetailSection::control(TextView name) const {
  if (equalIgnoringAsciiCase(name, "dcOrigenData")) return data_;
  if (equalIgnoringAsciiCase(name, "txtData")) return text_;
  throw RunTimeError(kNoSuchMember, name);
}

Value DetailSection::get(TextView name, std::span<const Value> indexes) {
  if (!equalIgnoringAsciiCase(name, "Controls")) return ReportPart::get(name, indexes);
  requireCount(indexes, 1);
  return Ref<Object>(control(textArgument(indexes[0], name)));
}

Value PageSettings::get(TextView name, std::span<const Value> indexes) {
  const PageLength* length = findPageLength(name);
  const bool isKnown = length != nullptr || equalIgnoringAsciiCase(name, kOrientation);
  if (!isKnown) return ReportPart::get(name, indexes);
  requireCount(indexes, 0);
  if (length != nullptr) return format_.*length->field;
  return format_.landscape ? kLying : kUpright;
}

void PageSettings::put(TextView name, std::span<const Value> indexes, const Value& value) {
  get(name, indexes);  // refuses an unknown name, and indexes
  if (const PageLength* length = findPageLength(name); length != nullptr) {
    format_.*length->field = checkedInteger(value, name, length->least, kLargestSide);
  } else {
    format_.landscape = checkedInteger(value, name, kUpright, kLying) == kLying;
  }
}

Value WideSheet::get(TextView name, std::span<const Value> indexes) {
  if (!equalIgnoringAsciiCase(name, "Width")) return ReportPart::get(name, indexes);
  requireCount(indexes, 0);
  return kWideSheetWidth;
}

}  // namespace tarvo
