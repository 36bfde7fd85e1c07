// The members by which the parts of a page report are reached.
#include "graphic/page_report_parts.h"

#include <gtest/gtest.h>

#include <array>

#include "equipment/errors.h"
#include "equipment/show_arguments.h"
#include "graphic/memory_line_table.h"

namespace tarvo::test {
namespace {

struct Property {
  const char* name;
  Value initial;
  Value other;
  std::vector<Value> wrongKinds;
  std::vector<Value> nonsense;  // of the right kind, but error 5
};

const Value kText(Text(u"x"));
const Value kNumber(std::int32_t{1});

const std::vector<Property> kTextBox{
    {"Column", Value(Text()), Value(Text(u"ObData")), {kNumber, Value(true)}, {}},
    {"Width",
     std::int32_t{11520},
     std::int32_t{288000},
     {kText, Value()},
     {std::int32_t{-1}, std::int32_t{288001}}},
    {"FontName", Value(Text(u"Courier New")), Value(Text(u"Courier")), {kNumber}, {}},
    {"FontSize",
     std::int16_t{8},
     std::int16_t{144},
     {kText},
     {std::int32_t{0}, std::int32_t{-8}, std::int32_t{145}}},
    {"FontBold", false, true, {kText, Value()}, {}},
    {"FontItalic", false, true, {kText, Value()}, {}},
};

const std::vector<Value> kNoSide{std::int32_t{1439}, std::int32_t{-1}, std::int32_t{288001}};
const std::vector<Value> kNoMargin{std::int32_t{-1}, std::int32_t{288001}};

const std::vector<Property> kSettings{
    {"PageWidth", std::int32_t{12240}, std::int32_t{24480}, {kText, Value()}, kNoSide},
    {"PageHeight", std::int32_t{15840}, std::int32_t{1440}, {kText, Value()}, kNoSide},
    {"Orientation",
     std::int32_t{1},
     std::int32_t{2},
     {kText, Value(true)},
     {std::int32_t{0}, std::int32_t{3}}},
    {"LeftMargin", std::int32_t{360}, std::int32_t{0}, {kText}, kNoMargin},
    {"TopMargin", std::int32_t{360}, std::int32_t{1}, {kText}, kNoMargin},
    {"RightMargin", std::int32_t{360}, std::int32_t{288000}, {kText}, kNoMargin},
    {"BottomMargin", std::int32_t{360}, std::int32_t{720}, {kText}, kNoMargin},
};

Text swappedCase(std::string_view name) {
  Text text = fromAscii(name);
  for (char16_t& c : text) c ^= 0x20;
  return text;
}

// Every property is read and written under its name, and stays as it was after a refusal.
void walk(LateObject& object, const std::vector<Property>& properties) {
  const std::array<Value, 1> index{Value(std::int32_t{1})};
  for (const Property& property : properties) {
    SCOPED_TRACE(property.name);
    const Text name = fromAscii(property.name);
    EXPECT_EQ(object.get(name, {}), property.initial);
    object.put(name, {}, property.other);
    EXPECT_EQ(object.get(swappedCase(property.name), {}), property.other);
    EXPECT_EQ(object.call(name, {}), property.other) << "a call reads it too";
    for (const Value& value : property.wrongKinds) {
      EXPECT_EQ(errorNumberOf([&] { object.put(name, {}, value); }), kTypeMismatch) << show(value);
    }
    for (const Value& value : property.nonsense) {
      EXPECT_EQ(errorNumberOf([&] { object.put(name, {}, value); }), kInvalidProcedureCall)
          << show(value);
    }
    EXPECT_EQ(errorNumberOf([&] { object.put(name, index, property.initial); }),
              kWrongNumberOfArguments);
    EXPECT_EQ(errorNumberOf([&] { object.get(name, index); }), kWrongNumberOfArguments);
    EXPECT_EQ(object.get(name, {}), property.other);
    object.put(swappedCase(property.name), {}, property.initial);
    EXPECT_EQ(object.get(name, {}), property.initial);
  }
}

void expectUnknown(LateObject& object, TextView name) {
  const std::array<Value, 1> index{Value(std::int32_t{1})};
  for (const std::span<const Value> indexes : {std::span<const Value>(), {index}}) {
    const auto error = errorOf([&] { object.get(name, indexes); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->number(), kNoSuchMember);
    EXPECT_TRUE(error->description().ends_with(name)) << error->what();
    EXPECT_EQ(errorNumberOf([&] { object.put(name, indexes, true); }), kNoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { object.call(name, indexes); }), kNoSuchMember);
  }
}

TEST(PageReportParts, ATextBoxHasItsProperties) {
  const Ref<TextBox> box = make<TextBox>();
  walk(*box, kTextBox);
  for (const TextView unknown : {u"", u"Height", u"Widths", u"Text"}) expectUnknown(*box, unknown);
}

TEST(PageReportParts, PageSettingsHaveTheirProperties) {
  const Ref<PageSettings> settings = make<PageSettings>();
  walk(*settings, kSettings);
  for (const TextView unknown : {u"", u"Margin", u"PageWidt", u"PaperSize"}) {
    expectUnknown(*settings, unknown);
  }
}

TEST(PageReportParts, PageSettingsMakeAPage) {
  const Ref<PageSettings> settings = make<PageSettings>();
  std::int32_t next = 2000;
  for (const TextView name : {u"PageWidth", u"PageHeight", u"LeftMargin", u"TopMargin",
                              u"RightMargin", u"BottomMargin"}) {
    settings->put(name, {}, next++);
  }
  settings->put(u"Orientation", {}, kLying);
  const PageFormat& format = settings->format();
  EXPECT_EQ(format.width, 2000);
  EXPECT_EQ(format.height, 2001);
  EXPECT_EQ(format.leftMargin, 2002);
  EXPECT_EQ(format.topMargin, 2003);
  EXPECT_EQ(format.rightMargin, 2004);
  EXPECT_EQ(format.bottomMargin, 2005);
  EXPECT_TRUE(format.landscape);
}

TEST(PageReportParts, ATextBoxShowsTheOneColumnOrNone) {
  const Ref<TextBox> box = make<TextBox>();
  EXPECT_FALSE(box->isBound());
  box->put(u"Column", {}, Text(u"OBDATA"));
  EXPECT_TRUE(box->isBound());
  EXPECT_EQ(errorNumberOf([&] { box->put(u"Column", {}, Text(u"ObDat")); }), kNoSuchMember);
  EXPECT_TRUE(box->isBound());
  box->put(u"Column", {}, Value());
  EXPECT_FALSE(box->isBound());
}

TEST(PageReportParts, RowsAreHighEnoughForTheFont) {
  const struct {
    std::int32_t size;
    std::int32_t rowHeight;
  } rows[] = {{1, 229}, {8, 229}, {9, 229}, {10, 230}, {12, 276}, {144, 3312}};
  const Ref<TextBox> box = make<TextBox>();
  for (const auto& row : rows) {
    PageFormat format;
    format.width = 5000;
    box->put(u"FontSize", {}, row.size);
    box->giveFontTo(format);
    EXPECT_EQ(format.fontSize, row.size);
    EXPECT_EQ(format.rowHeight, row.rowHeight);
    EXPECT_EQ(format.width, 5000) << "the page stays as it is";
  }
}

TEST(PageReportParts, ADataControlTakesALineTableOrNothing) {
  const Ref<DataControl> control = make<DataControl>();
  EXPECT_EQ(control->get(u"Recordset", {}), Value(Ref<Object>()));
  const Ref<LineTable> table = makeMemoryLineTable();
  control->put(u"RECORDSET", {}, Ref<Object>(table));
  EXPECT_EQ(control->lines(), table);
  EXPECT_EQ(control->get(u"recordset", {}), Value(Ref<Object>(table)));
  for (const Value& other : {Value(), kText, kNumber, Value(Ref<Object>(control))}) {
    const auto error = errorOf([&] { control->put(u"Recordset", {}, other); });
    ASSERT_TRUE(error.has_value()) << show(other);
    EXPECT_EQ(error->number(), kTypeMismatch);
    EXPECT_EQ(error->description(),
              u"Type mismatch: Recordset takes a line table of this library, or Nothing");
  }
  EXPECT_EQ(control->lines(), table);
  control->put(u"Recordset", {}, Ref<Object>());
  EXPECT_FALSE(control->lines());
  expectUnknown(*control, u"DataSource");
}

TEST(PageReportParts, TheDetailHasTwoControls) {
  const Ref<DetailSection> detail = make<DetailSection>();
  const auto control = [&](const Value& name) {
    return detail->get(u"controls", std::array<Value, 1>{name});
  };
  EXPECT_EQ(control(Text(u"dcOrigenData")), Value(Ref<Object>(detail->control(u"DCORIGENDATA"))));
  EXPECT_EQ(control(Text(u"TXTDATA")), Value(Ref<Object>(detail->control(u"txtData"))));
  EXPECT_NE(control(Text(u"txtData")), control(Text(u"dcOrigenData")));
  EXPECT_EQ(errorNumberOf([&] { control(Text(u"txt")); }), kNoSuchMember);
  EXPECT_EQ(errorNumberOf([&] { control(kNumber); }), kTypeMismatch);
  EXPECT_EQ(errorNumberOf([&] { detail->get(u"Controls", {}); }), kWrongNumberOfArguments);
  expectUnknown(*detail, u"Height");
}

TEST(PageReportParts, AWideSheetTellsItsWidth) {
  const Ref<WideSheet> sheet = make<WideSheet>();
  EXPECT_EQ(sheet->get(u"width", {}), Value(std::int32_t{24480}));
  EXPECT_EQ(errorNumberOf([&] { sheet->put(u"Width", {}, kNumber); }), kNoSuchMember);
  expectUnknown(*sheet, u"Height");
}

TEST(PageReportParts, SayWhatTheyAre) {
  EXPECT_EQ(make<TextBox>()->typeName(), u"TextBox");
  EXPECT_EQ(make<DataControl>()->typeName(), u"DataControl");
  EXPECT_EQ(make<DetailSection>()->typeName(), u"Section");
  EXPECT_EQ(make<PageSettings>()->typeName(), u"PageSettings");
  EXPECT_EQ(make<WideSheet>()->typeName(), u"WideSheet");
}

}  // namespace
}  // namespace tarvo::test
