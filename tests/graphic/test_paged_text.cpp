// How rows become pages.
#include "graphic/paged_text.h"

#include <gtest/gtest.h>

#include "equipment/recording_page_output.h"
#include "graphic/page_report_parts.h"

namespace tarvo::test {
namespace {

Ref<PagedText> upright() { return make<PagedText>(PageFormat()); }

Ref<PagedText> withRows(std::size_t count) {
  Ref<PagedText> pages = upright();
  for (std::size_t i = 1; i <= count; ++i) pages->addRow(fromAscii(std::to_string(i)));
  return pages;
}

PageFormat wideFormat() {
  PageFormat format;
  format.width = kWideSheetWidth;
  return format;
}

TEST(PagedText, ALetterPageHasTheLinesOfALinePrintersSheet) {
  EXPECT_EQ(upright()->rowsPerPage(), 66u);
  EXPECT_EQ(make<PagedText>(wideFormat())->rowsPerPage(), 66u);
}

TEST(PageFormat, LettersStandInTheMiddleOfTheirRow) {
  const struct {
    std::int16_t fontSize;
    std::int32_t rowHeight;
    std::int32_t baseline;
  } rows[] = {{8, 229, 162}, {12, 276, 210}, {12, 240, 192}, {144, 3312, 2520}};
  for (const auto& row : rows) {
    PageFormat format;
    format.fontSize = row.fontSize;
    format.rowHeight = row.rowHeight;
    EXPECT_EQ(format.baseline(), row.baseline) << row.fontSize;
  }
}

TEST(PagedText, AnUprightPageBears112Characters) {
  EXPECT_EQ(upright()->columns(), 120u);
  const Ref<PagedText> pages = upright();
  pages->addRow(Text(112, u'x'));
  EXPECT_EQ(pagesText(*pages), std::string(112, 'x') + "\n");
}

TEST(PagedText, AWidePageBears227CharactersInTheWidthOfItsTextBox) {
  const Ref<PagedText> pages = make<PagedText>(wideFormat(), kWideSheetWidth - 810);
  EXPECT_EQ(pages->columns(), 246u);
  pages->addRow(Text(227, u'x'));
  EXPECT_EQ(pagesText(*pages), std::string(227, 'x') + "\n");
}

TEST(PagedText, APageIsFullAfter66Rows) {
  EXPECT_EQ(withRows(1)->pageCount(), 1u);
  EXPECT_EQ(withRows(66)->pageCount(), 1u);
  EXPECT_EQ(withRows(67)->pageCount(), 2u);
  EXPECT_EQ(withRows(132)->pageCount(), 2u);
  EXPECT_EQ(withRows(133)->pageCount(), 3u);
}

TEST(PagedText, RowsStandOnTheirPages) {
  const Ref<PagedText> pages = withRows(134);
  EXPECT_EQ(pages->rowsOnPage(0), 66u);
  EXPECT_EQ(pages->rowsOnPage(1), 66u);
  EXPECT_EQ(pages->rowsOnPage(2), 2u);
  EXPECT_EQ(pages->row(0, 0), u"1");
  EXPECT_EQ(pages->row(0, 65), u"66");
  EXPECT_EQ(pages->row(1, 0), u"67");
  EXPECT_EQ(pages->row(2, 1), u"134");
}

TEST(PagedText, WithoutRowsIsOneEmptyPage) {
  EXPECT_EQ(upright()->pageCount(), 1u);
  EXPECT_EQ(upright()->rowsOnPage(0), 0u);
  EXPECT_EQ(pagesText(*upright()), "");
}

TEST(PagedText, AnEmptyRowTakesItsRoom) {
  const Ref<PagedText> pages = upright();
  for (const TextView row : {u"", u"a", u"", u""}) pages->addRow(row);
  EXPECT_EQ(pagesText(*pages), "\na\n\n\n");
}

TEST(PagedText, ARowThatIsTooLongGoesOnInTheNext) {
  const Ref<PagedText> pages = upright();
  pages->addRow(Text(120, u'a'));
  pages->addRow(Text(120, u'b') + u"c");
  pages->addRow(Text(120, u'd') + Text(120, u'e') + u"f");
  EXPECT_EQ(pagesText(*pages), std::string(120, 'a') + "\n" + std::string(120, 'b') + "\nc\n" +
                                   std::string(120, 'd') + "\n" + std::string(120, 'e') + "\nf\n");
}

TEST(PagedText, ARowThatIsTooLongGoesOnOnTheNextPage) {
  const Ref<PagedText> pages = upright();
  for (int i = 1; i < 66; ++i) pages->addRow(u"");
  pages->addRow(Text(120, u'a') + u"b");
  EXPECT_EQ(pages->pageCount(), 2u);
  EXPECT_EQ(pages->row(0, 65), Text(120, u'a'));
  EXPECT_EQ(pages->row(1, 0), u"b");
}

TEST(PagedText, NoCharacterIsLostWhateverTheWidths) {
  Text row;
  for (char16_t c = u'!'; c < u'\x400'; ++c) row.push_back(c);
  for (const std::int32_t width : {-5, 0, 1, 95, 96, 191, 192, 5000, 11520, 100000}) {
    const Ref<PagedText> pages = make<PagedText>(PageFormat(), width);
    pages->addRow(row);
    Text all;
    for (std::size_t page = 0; page < pages->pageCount(); ++page) {
      for (std::size_t i = 0; i < pages->rowsOnPage(page); ++i) {
        EXPECT_LE(pages->row(page, i).size(), pages->columns());
        all += pages->row(page, i);
      }
    }
    EXPECT_EQ(all, row) << width;
  }
}

TEST(PagedText, ATextBoxIsNoWiderThanThePage) {
  EXPECT_EQ(make<PagedText>(PageFormat(), 9600)->columns(), 100u);
  EXPECT_EQ(make<PagedText>(PageFormat(), 9695)->columns(), 100u);
  EXPECT_EQ(make<PagedText>(PageFormat(), 99999)->columns(), 120u);
}

TEST(PagedText, ALargerFontLeavesRoomForLess) {
  PageFormat format;
  format.fontSize = 12;
  format.rowHeight = 276;
  EXPECT_EQ(make<PagedText>(format)->columns(), 80u);
  EXPECT_EQ(make<PagedText>(format)->rowsPerPage(), 54u);
}

TEST(PagedText, APageWithoutRoomTakesOneCharacterAtATime) {
  PageFormat format;
  format.leftMargin = format.topMargin = 90000;
  EXPECT_EQ(format.printableWidth(), 0);
  EXPECT_EQ(format.printableHeight(), 0);
  const Ref<PagedText> pages = make<PagedText>(format);
  pages->addRow(u"ab");
  EXPECT_EQ(pagesText(*pages), "a\n-- page 2\nb\n");
}

TEST(VisibleCharacter, IsABulletForControlsAlone) {
  for (unsigned number = 0; number < 0x10000; ++number) {
    const auto character = static_cast<char16_t>(number);
    const bool isControl = number < 32 || (number >= 127 && number <= 159);
    EXPECT_EQ(visibleCharacter(character), isControl ? u'•' : character) << number;
  }
}

}  // namespace
}  // namespace tarvo::test
