// The page output of Windows as far as it goes without a printer and a screen: the drawing of a
// page, and what is refused.  Printing is in test_page_output_printed.py, the window in
// ui/preview.cpp.
#include <gmock/gmock.h>

#include "equipment/errors.h"
#include "equipment/temporary_folder.h"
#include "graphic/page_output.h"
#include "graphic/pdf_writer.h"
#include "platform/win32/gdi_pages.h"
#include "platform/win32/gdi_printer.h"
#include "platform/win32/preview_window.h"

namespace tarvo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A text that was drawn: where its baseline begins, and where each of its characters does.
struct DrawnText {
  std::wstring text;
  POINT at;
  std::vector<int> advances;
};

// Records what is drawn, in a metafile.
class Recorder {
 public:
  Recorder() : device_(CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr)) {}
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;
  ~Recorder() {
    if (device_ != nullptr) DeleteEnhMetaFile(CloseEnhMetaFile(device_));
  }

  HDC device() const { return device_; }

  struct Drawing {
    std::vector<DrawnText> texts;
    std::vector<LOGFONTW> fonts;
  };

  Drawing finish() {
    const HENHMETAFILE file = CloseEnhMetaFile(std::exchange(device_, nullptr));
    Drawing drawing;
    EnumEnhMetaFile(nullptr, file, &visit, &drawing, nullptr);
    DeleteEnhMetaFile(file);
    return drawing;
  }

 private:
  static int CALLBACK visit(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM parameter) {
    auto& drawing = *reinterpret_cast<Drawing*>(parameter);
    const auto* bytes = reinterpret_cast<const BYTE*>(record);
    if (record->iType == EMR_EXTTEXTOUTW) {
      const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
      const auto* characters = reinterpret_cast<const wchar_t*>(bytes + text.offString);
      const auto* advances = reinterpret_cast<const int*>(bytes + text.offDx);
      drawing.texts.push_back({std::wstring(characters, text.nChars),
                               {text.ptlReference.x, text.ptlReference.y},
                               std::vector<int>(advances, advances + text.nChars)});
    } else if (record->iType == EMR_EXTCREATEFONTINDIRECTW) {
      drawing.fonts.push_back(
          reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record)->elfw.elfLogFont);
    }
    return 1;
  }

  HDC device_;
};

Ref<PagedText> pagesOf(std::initializer_list<TextView> rows, PageFormat format = {}) {
  const Ref<PagedText> pages = make<PagedText>(std::move(format));
  for (const TextView row : rows) pages->addRow(row);
  return pages;
}

Recorder::Drawing draw(const PagedText& pages, std::size_t page,
                       const platform::PagePlacement& placement) {
  Recorder recorder;
  EXPECT_TRUE(platform::drawPage(recorder.device(), pages, page, placement));
  return recorder.finish();
}

// Where each character begins, counted from the row's first.
std::vector<int> edgesOf(const DrawnText& text) {
  std::vector<int> edges{0};
  for (const int advance : text.advances) edges.push_back(edges.back() + advance);
  return edges;
}

TEST(DrawnPages, HaveTheirRowsWhereThePageSaysSo) {
  const Ref<PagedText> pages = pagesOf({u"uno", u"", u" tres"});
  const Recorder::Drawing drawing = draw(*pages, 0, {100, 50, 1, 1});
  ASSERT_EQ(drawing.texts.size(), 2u) << "an empty row draws nothing";
  const DrawnText& first = drawing.texts[0];
  const DrawnText& third = drawing.texts[1];
  EXPECT_EQ(first.text, L"uno");
  EXPECT_EQ(third.text, L" tres");
  // 360 twips of margin; letters of 160 in a row of 229 stand on 34 + 128.
  EXPECT_EQ(first.at.x, 100 + 360);
  EXPECT_EQ(first.at.y, 50 + 360 + 34 + 128);
  EXPECT_EQ(third.at.x, first.at.x);
  EXPECT_EQ(third.at.y, first.at.y + 2 * 229);
  EXPECT_THAT(first.advances, ElementsAre(96, 96, 96));
}

TEST(DrawnPages, KeepColumnsUnderEachOtherAtAnySize) {
  const Ref<PagedText> pages = pagesOf({Text(120, u'i'), Text(120, u'W'), Text(119, u' ') + u"x"});
  for (const double scale : {0.0123, 0.0333, 0.06667, 0.1, 0.7, 1.0, 1.9}) {
    SCOPED_TRACE(scale);
    const Recorder::Drawing drawing = draw(*pages, 0, {-7.3, 0, scale, scale * 1.5});
    ASSERT_EQ(drawing.texts.size(), 3u);
    const std::vector<int> edges = edgesOf(drawing.texts[0]);
    EXPECT_EQ(edgesOf(drawing.texts[1]), edges);
    EXPECT_EQ(edgesOf(drawing.texts[2]), edges);
    for (std::size_t column = 0; column <= 120; ++column) {
      const double exact = -7.3 + (360 + 96.0 * static_cast<double>(column)) * scale;
      EXPECT_LE(std::abs(drawing.texts[0].at.x + edges[column] - exact), 0.5001) << column;
    }
  }
}

TEST(DrawnPages, ShowControlsAsMarks) {
  const Ref<PagedText> pages = pagesOf({u"a\u001Bb\tc\u0085 ñ€"});
  const Recorder::Drawing drawing = draw(*pages, 0, {});
  ASSERT_EQ(drawing.texts.size(), 1u);
  EXPECT_EQ(drawing.texts[0].text, L"a\u2022b\u2022c\u2022 ñ€");
}

TEST(DrawnPages, AreEachItsOwn) {
  const Ref<PagedText> pages = make<PagedText>(PageFormat());
  for (int row = 0; row < 70; ++row) pages->addRow(fromAscii(std::to_string(row)));
  EXPECT_EQ(draw(*pages, 0, {}).texts.size(), 66u);
  const Recorder::Drawing second = draw(*pages, 1, {});
  ASSERT_EQ(second.texts.size(), 4u);
  EXPECT_EQ(second.texts[0].text, L"66");
  EXPECT_EQ(second.texts[0].at.y, 360 + 34 + 128);
}

TEST(DrawnPages, AskForTheirFont) {
  PageFormat format;
  format.fontName = u"Courier New";
  format.fontSize = 10;
  format.bold = true;
  format.italic = true;
  const Recorder::Drawing drawing = draw(*pagesOf({u"a"}, format), 0, {0, 0, 1, 0.5});
  ASSERT_EQ(drawing.fonts.size(), 1u);
  const LOGFONTW& font = drawing.fonts[0];
  EXPECT_STREQ(font.lfFaceName, L"Courier New");
  EXPECT_EQ(font.lfHeight, -100);
  EXPECT_EQ(font.lfWeight, FW_BOLD);
  EXPECT_EQ(font.lfItalic, TRUE);
  EXPECT_EQ(font.lfPitchAndFamily & 3, FIXED_PITCH);
}

TEST(DrawnPages, TakeALongNameOfAFont) {
  PageFormat format;
  format.fontName = Text(100, u'F');
  const Recorder::Drawing drawing = draw(*pagesOf({u"a"}, format), 0, {});
  EXPECT_EQ(drawing.texts.size(), 1u);
}

TEST(DrawnPages, LeaveTheDeviceAsItWas) {
  Recorder recorder;
  SetTextAlign(recorder.device(), TA_RIGHT);
  SetTextColor(recorder.device(), RGB(1, 2, 3));
  platform::drawPage(recorder.device(), *pagesOf({u"a"}), 0, {});
  EXPECT_EQ(GetTextAlign(recorder.device()), static_cast<UINT>(TA_RIGHT));
  EXPECT_EQ(GetTextColor(recorder.device()), RGB(1, 2, 3));
}

class PageOutputOfWindows : public testing::Test {
 protected:
  Ref<const PagedText> pages_ = pagesOf({u"Año 2024", u"Total: 1.250,00"});
  Ref<PageOutput> output_ = platform::makePageOutput();
  TemporaryFolder folder_;
};

TEST_F(PageOutputOfWindows, AnUnknownPrinterIsAnErrorWithItsName) {
  const auto error = errorOf([this] { output_->print(pages_, u"Título", u"No existe"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), kPrinterError);
  EXPECT_THAT(toUtf8(error->description()), HasSubstr("No existe"));
  EXPECT_EQ(error->lastDllError(), ERROR_INVALID_PRINTER_NAME);
}

TEST_F(PageOutputOfWindows, NoNameIsNoPrinter) {
  EXPECT_EQ(errorNumberOf([this] { output_->print(pages_, u"T", u""); }), kPrinterError);
  const Text cut(u"TarvoRaw\0x", 10);
  EXPECT_EQ(errorNumberOf([&] { output_->print(pages_, u"T", cut); }), kPrinterError);
}

// The equipment's printers have a driver that says nothing of paper.
TEST_F(PageOutputOfWindows, APrinterThatHasNoPagesIsAnError) {
  EXPECT_EQ(errorNumberOf([this] { output_->print(pages_, u"T", u"TarvoRaw"); }), kPrinterError);
}

TEST_F(PageOutputOfWindows, AFilePrinterSaves) {
  const Text path = folder_.pathOf(u"informe.pdf");
  output_->print(pages_, u"Título", u"file:" + path);
  EXPECT_EQ(folder_.contentOf(u"informe.pdf"), pdfOf(*pages_, u"Título"));
  output_->save(pages_, u"Otro", u"file:" + path);
  EXPECT_EQ(folder_.contentOf(u"informe.pdf"), pdfOf(*pages_, u"Otro"));
}

// This program has no screen.
TEST_F(PageOutputOfWindows, WhatCannotBeShownIsSaved) {
  ASSERT_NE(SetCurrentDirectoryW(folder_.path().c_str()), 0);
  output_->show(pages_, u"Título: 1", true);
  output_->show(pages_, u"Otro", false);
  SetCurrentDirectoryW(L"C:\\");
  EXPECT_EQ(folder_.contentOf(u"Título_ 1.pdf"), pdfOf(*pages_, u"Título: 1"));
  EXPECT_EQ(folder_.contentOf(u"Otro.pdf"), pdfOf(*pages_, u"Otro"));
  EXPECT_FALSE(platform::anyPreviewIsOpen());
}

}  // namespace
}  // namespace tarvo::test
