// The parts of the report component, each reached by the names of its members (without regard to
// case).  Lengths are twips.
//
//   Section       "Controls"(name)
//   DataControl   "Recordset": a line table of this library (line_table.h), or Nothing.  No other
//                 object is taken, not even a record set: its rows are read by the table's own
//                 operations.  Raises: 13, with a description that says so
//   TextBox       "Column": the column whose text it shows, "" for none; "Width"; "FontName";
//                 "FontSize": points; "FontBold"; "FontItalic"
//   PageSettings  "PageWidth", "PageHeight": of the page as it is read; "Orientation": 1 the sheet
//                 stands upright, 2 it lies; "LeftMargin", "TopMargin", "RightMargin",
//                 "BottomMargin"
//   WideSheet     "Width", which cannot be set
//
// A property can also be read by a call of its name.
//
// Raises: 438 for unknown names, 13 for values of another kind, 450 for a wrong number of
// arguments, 5 for a number that makes no sense: a page below an inch or above 200 inches a side, a
// margin outside 0 to 200 inches, a width below 0, a font of less than 1 or more than 144 points,
// another orientation.
#pragma once

#include "frame/late_object.h"
#include "graphic/line_table.h"
#include "graphic/paged_text.h"

namespace tarvo {

// A sheet of 17 by 11 inches, on which 227 characters of Courier New 8 find room.
inline constexpr std::int32_t kWideSheetWidth = 24480;

inline constexpr std::int32_t kUpright = 1;
inline constexpr std::int32_t kLying = 2;

// The object behind a reference, to be reached by name.
// Raises: 91 when the reference is empty, 438 when the object cannot be reached so.
LateObject& lateObjectOf(const Ref<Object>& reference);

// What the parts have in common: every member is unknown, and a call reads a property.
class ReportPart : public LateObject {
 public:
  Value call(TextView name, std::span<const Value> arguments) override;
  Value get(TextView name, std::span<const Value> indexes) override;
  void put(TextView name, std::span<const Value> indexes, const Value& value) override;
};

class DataControl final : public ReportPart {
 public:
  const Ref<LineTable>& lines() const noexcept { return lines_; }

  Text typeName() override { return u"DataControl"; }
  Value get(TextView name, std::span<const Value> indexes) override;
  void put(TextView name, std::span<const Value> indexes, const Value& value) override;

 private:
  Ref<LineTable> lines_;
};

class TextBox final : public ReportPart {
 public:
  // Default: no column; as wide as an upright Letter page allows; Courier New 8.
  bool isBound() const noexcept { return !column_.empty(); }
  std::int32_t width() const noexcept { return width_; }

  // Its font, and the height of the rows that its characters need.
  void giveFontTo(PageFormat& format) const;

  Text typeName() override { return u"TextBox"; }
  Value get(TextView name, std::span<const Value> indexes) override;
  void put(TextView name, std::span<const Value> indexes, const Value& value) override;

 private:
  Value property(TextView name) const;

  Text column_;
  std::int32_t width_ = PageFormat().printableWidth();
  PageFormat font_;  // of it, the font alone
};

// The detail section, printed once for each row of the data: "dcOrigenData" is its data control,
// "txtData" its text box.
class DetailSection final : public ReportPart {
 public:
  DetailSection() : data_(make<DataControl>()), text_(make<TextBox>()) {}

  const DataControl& data() const { return *data_; }
  const TextBox& text() const { return *text_; }

  // Raises: 438 for an unknown name.
  Ref<LateObject> control(TextView name) const;

  Text typeName() override { return u"Section"; }
  Value get(TextView name, std::span<const Value> indexes) override;

 private:
  Ref<DataControl> data_;
  Ref<TextBox> text_;
};

class PageSettings final : public ReportPart {
 public:
  // The page, without a font.
  const PageFormat& format() const noexcept { return format_; }

  Text typeName() override { return u"PageSettings"; }
  Value get(TextView name, std::span<const Value> indexes) override;
  void put(TextView name, std::span<const Value> indexes, const Value& value) override;

 private:
  PageFormat format_;
};

// The auxiliary object that tells how wide a sheet for wide lines is: kWideSheetWidth.
class WideSheet final : public ReportPart {
 public:
  Text typeName() override { return u"WideSheet"; }
  Value get(TextView name, std::span<const Value> indexes) override;
};

}  // namespace tarvo
