// The PDF, as other programs see it: a checker, a text extractor, a renderer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "equipment/temporary_folder.h"
#include "frame/codepage.h"
#include "graphic/page_report_parts.h"
#include "graphic/pdf_writer.h"
#include "outside_tools.h"

namespace tarvo::test {
namespace {

class Pdf : public ::testing::Test {
 protected:
  std::string path() const { return (folder.path() / "pages.pdf").string(); }

  void write(const PagedText& pages, TextView title = u"Ventas") {
    std::ofstream(path(), std::ios::binary) << pdfOf(pages, title);
  }

  // The rows of all pages as one text, form feeds between the pages, as the extractor has them.
  std::string extracted(const char* mode = "-layout") {
    return outputOf("pdftotext -enc UTF-8 " + std::string(mode) + " " + path() + " -");
  }

  std::string expectValid() {
    const std::string said = outputOf("qpdf --check " + path());
    EXPECT_NE(said.find("No syntax or stream encoding errors found"), std::string::npos) << said;
    EXPECT_EQ(said.find("WARNING"), std::string::npos) << said;
    return said;
  }

  // What stands behind the label in the file's description.
  std::string info(const std::string& label) {
    std::istringstream lines(outputOf("pdfinfo -enc UTF-8 " + path()));
    for (std::string line; std::getline(lines, line);) {
      if (!line.starts_with(label + ":")) continue;
      return line.substr(line.find_first_not_of(' ', label.size() + 1));
    }
    return "(none)";
  }

  TemporaryFolder folder;
  PageFormat format;
};

Ref<PagedText> pagesOf(const PageFormat& format, std::initializer_list<TextView> rows) {
  const Ref<PagedText> pages = make<PagedText>(format);
  for (const TextView row : rows) pages->addRow(row);
  return pages;
}

Ref<PagedText> numberedRows(int count) {
  const Ref<PagedText> pages = make<PagedText>(PageFormat());
  for (int i = 1; i <= count; ++i) pages->addRow(u"Fila " + fromAscii(std::to_string(i)));
  return pages;
}

TEST_F(Pdf, IsValid) {
  TARVO_NEEDS_PROGRAM("qpdf");
  PageFormat wide;
  wide.width = kWideSheetWidth;
  for (const Ref<PagedText>& pages :
       {pagesOf(format, {}), pagesOf(format, {u""}), pagesOf(format, {u"A"}), numberedRows(66),
        numberedRows(67), numberedRows(3000), pagesOf(wide, {Text(227, u'x')})}) {
    write(*pages);
    expectValid();
  }
}

TEST_F(Pdf, HasItsPages) {
  TARVO_NEEDS_PROGRAM("pdfinfo");
  for (const auto& [rows, pages] : {std::pair(0, "1"), {66, "1"}, {67, "2"}, {3000, "46"}}) {
    write(*numberedRows(rows));
    EXPECT_EQ(info("Pages"), pages);
  }
}

TEST_F(Pdf, PagesHaveTheirSize) {
  TARVO_NEEDS_PROGRAM("pdfinfo");
  write(*numberedRows(1));
  EXPECT_EQ(info("Page size"), "612 x 792 pts (letter)");
  format.width = kWideSheetWidth;
  write(*pagesOf(format, {}));
  EXPECT_EQ(info("Page size"), "1224 x 792 pts");
  format.width = 2001;
  format.height = 14401;
  write(*pagesOf(format, {}));
  EXPECT_EQ(info("Page size"), "100.05 x 720.05 pts");
}

TEST_F(Pdf, HasATitleOfAnyCharacters) {
  TARVO_NEEDS_PROGRAM("pdfinfo");
  for (const char* title : {"Ventas del año (1/2) \\ <x>", "Отчёт", "€ 😀", ")"}) {
    write(*numberedRows(1), fromUtf8(title));
    EXPECT_EQ(info("Title"), title);
  }
}

TEST_F(Pdf, TheTextCanBeExtractedAsItWas) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  write(*pagesOf(format, {u"FACTURA Nº 00123", u"", u"  Año 2024: ñandú, ÁÉÍÓÚ áéíóú Üü ¿qué? ¡sí!",
                          u"(paréntesis) ((sin cerrar \\ barra \\\\ y \\n", u"precio: 1.234,50 €",
                          u"%PDF <<no>> [es] /un 'objeto'"}));
  EXPECT_EQ(extracted(),
            "FACTURA Nº 00123\n"
            "\n"
            "  Año 2024: ñandú, ÁÉÍÓÚ áéíóú Üü ¿qué? ¡sí!\n"
            "(paréntesis) ((sin cerrar \\ barra \\\\ y \\n\n"
            "precio: 1.234,50 €\n"
            "%PDF <<no>> [es] /un 'objeto'\n"
            "\f");
}

TEST_F(Pdf, EveryCharacterOfTheCodePageComesBack) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  Text all;
  for (unsigned byte = 0x21; byte < 0x100; ++byte) {
    const char16_t character = CodePage::windows1252().decode(static_cast<std::uint8_t>(byte));
    const bool isSeen = visibleCharacter(character) == character && byte != 0xA0 && byte != 0xAD;
    if (isSeen) all.push_back(character);
  }
  EXPECT_EQ(all.size(), 223u - 1 - 5 - 2);  // without 7F, the five undefined ones, blank and hyphen
  const Ref<PagedText> pages = make<PagedText>(format);
  for (std::size_t i = 0; i < all.size(); i += 20) pages->addRow(TextView(all).substr(i, 20));
  write(*pages);
  std::string expected;
  for (std::size_t i = 0; i < all.size(); i += 20) {
    expected += toUtf8(TextView(all).substr(i, 20)) + "\n";
  }
  EXPECT_EQ(extracted("-raw"), expected + "\f");
}

TEST_F(Pdf, CharactersOutsideTheCodePageAreQuestionMarks) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  write(*pagesOf(format, {u"a\x416z", u"a\xD83D\xDE00z", u"a\xDC00z"}));
  EXPECT_EQ(extracted("-raw"), "a?z\na??z\na?z\n\f");
}

TEST_F(Pdf, ControlCharactersAreBulletsAndKeepTheirColumn) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  Text controls;
  for (char16_t c = 0; c < 32; ++c) controls.push_back(c);
  write(*pagesOf(format, {controls + u"|", Text(32, u'x') + u"|", u"\x1B@\x7F\x81\x95\x9F."}));
  std::string bullets;
  for (int i = 0; i < 32; ++i) bullets += "•";
  EXPECT_EQ(extracted("-raw"), bullets + "|\n" + std::string(32, 'x') + "|\n•@••••.\n\f");
}

TEST_F(Pdf, ALongReportIsExtractedRowForRow) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  write(*numberedRows(200));
  std::string expected;
  for (int i = 1; i <= 200; ++i) {
    expected += "Fila " + std::to_string(i) + "\n";
    if (i % 66 == 0 || i == 200) expected += "\f";
  }
  EXPECT_EQ(extracted("-raw"), expected);
}

// The corners of the grid, in points from the upper left corner of the page.
struct Box {
  double left, top, right, bottom;
};
Box boxOfWord(const std::string& html, const std::string& word) {
  const std::size_t end = html.find(">" + word + "</word>");
  if (end == std::string::npos) return {};
  const std::size_t start = html.rfind("<word", end);
  Box box{};
  std::sscanf(html.c_str() + start, "<word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\"",
              &box.left, &box.top, &box.right, &box.bottom);
  return box;
}

TEST_F(Pdf, RowsAndColumnsStandWhereTheGridSays) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  const Ref<PagedText> pages = make<PagedText>(format);
  pages->addRow(u"first" + Text(110, u' ') + u"right");
  for (int i = 0; i < 64; ++i) pages->addRow(u"");
  pages->addRow(u"last");
  write(*pages);
  const std::string html = extracted("-bbox");
  const Box first = boxOfWord(html, "first");
  EXPECT_NEAR(first.left, 18, 0.01);
  EXPECT_NEAR(first.right, 18 + 5 * 4.8, 0.01);
  EXPECT_GT(first.top, 18);
  EXPECT_LT(first.bottom, 18 + 11.45);
  const Box right = boxOfWord(html, "right");
  EXPECT_NEAR(right.left, 18 + 115 * 4.8, 0.01);
  EXPECT_NEAR(right.right, 612 - 18, 0.01);
  const Box last = boxOfWord(html, "last");
  EXPECT_NEAR(last.top - first.top, 65 * 11.45, 0.01);
  EXPECT_LT(last.bottom, 792 - 18);
}

TEST_F(Pdf, APageIsWrittenInAFewOperations) {
  TARVO_NEEDS_PROGRAM("qpdf");
  format.leftMargin = 401;
  format.topMargin = 720;
  write(*pagesOf(format, {u"(a\\b)", u"", u"Total"}));
  const std::string plain = outputOf("qpdf --qdf --object-streams=disable " + path() + " -");
  // Rows begin 36 points below the upper edge; each is 11.45 high, and its letters stand 8.1 below
  // its own upper edge.
  EXPECT_NE(plain.find("BT\n"
                       "/F 8 Tf\n"
                       "11.45 TL\n"
                       "20.05 759.35 Td\n"
                       "(\\(a\\\\b\\))'\n"
                       "T*\n"
                       "(Total)'\n"
                       "ET"),
            std::string::npos)
      << plain;
}

TEST_F(Pdf, TheFontIsCourierInTheStyleOfThePages) {
  TARVO_NEEDS_PROGRAM("pdffonts");
  const struct {
    bool bold, italic;
    const char* name;
  } rows[] = {{false, false, "Courier "},
              {true, false, "Courier-Bold "},
              {false, true, "Courier-Oblique "},
              {true, true, "Courier-BoldOblique "}};
  for (const auto& row : rows) {
    format.bold = row.bold;
    format.italic = row.italic;
    write(*pagesOf(format, {u"A"}));
    const std::string fonts = outputOf("pdffonts " + path());
    EXPECT_NE(fonts.find(std::string("\n") + row.name), std::string::npos) << fonts;
    EXPECT_NE(fonts.find("WinAnsi"), std::string::npos) << fonts;
  }
}

// How many points of a rendered page are dark, of a portable grey map.
std::size_t darkPoints(const std::string& image) {
  std::istringstream stream(image);
  std::string kind;
  std::size_t width = 0;
  std::size_t height = 0;
  int white = 0;
  stream >> kind >> width >> height >> white;
  if (kind != "P5" || image.size() < width * height) return 0;
  const std::string_view points(image.data() + image.size() - width * height, width * height);
  return static_cast<std::size_t>(std::count_if(points.begin(), points.end(), [](char point) {
    return static_cast<unsigned char>(point) < 128;
  }));
}

TEST_F(Pdf, ARendererDrawsIt) {
  TARVO_NEEDS_PROGRAM("pdftoppm");
  const auto drawn = [this](std::initializer_list<TextView> rows) {
    write(*pagesOf(format, rows));
    const std::string image = (folder.path() / "page").string();
    EXPECT_EQ(outputOf("pdftoppm -gray -r 144 -f 1 -singlefile " + path() + " " + image), "");
    const std::string content = folder.contentOf(u"page.pgm");
    EXPECT_TRUE(content.starts_with("P5\n1224 1584\n"));
    return darkPoints(content);
  };
  EXPECT_EQ(drawn({}), 0u);
  EXPECT_EQ(drawn({u"      "}), 0u);
  const std::size_t one = drawn({u"MMMMMMMMMMMMMMMMMMMM"});
  EXPECT_GT(one, 300u);
  EXPECT_NEAR(static_cast<double>(drawn({u"MMMMMMMMMMMMMMMMMMMM", u"MMMMMMMMMMMMMMMMMMMM"})),
              2.0 * static_cast<double>(one), 0.3 * static_cast<double>(one));
  EXPECT_GT(drawn({u"\x1B"}), 0u) << "a control character leaves a mark";
}

TEST_F(Pdf, AnotherInterpreterReadsItToo) {
  TARVO_NEEDS_PROGRAM("gs");
  write(*pagesOf(format, {u"Año (uno) \\ dos", u"", u"tres"}));
  const std::string text =
      outputOf("gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=txtwrite -sOutputFile=- " + path());
  EXPECT_NE(text.find("Año (uno) \\ dos"), std::string::npos) << text;
  EXPECT_NE(text.find("tres"), std::string::npos) << text;
}

TEST_F(Pdf, TheSamePagesAreTheSameBytes) {
  EXPECT_EQ(pdfOf(*numberedRows(100), u"Ventas"), pdfOf(*numberedRows(100), u"Ventas"));
  EXPECT_NE(pdfOf(*numberedRows(100), u"Ventas"), pdfOf(*numberedRows(100), u"Compras"));
}

TEST_F(Pdf, IsSmall) {
  EXPECT_NE(pdfOf(*numberedRows(1), u"Ventas").find("/MediaBox[0 0 612 792]"), std::string::npos);
  EXPECT_LT(pdfOf(*numberedRows(66), u"Ventas").size(), 1'500u);
  EXPECT_LT(pdfOf(*numberedRows(10'000), u"Ventas").size(), 120'000u);
}

}  // namespace
}  // namespace tarvo::test
