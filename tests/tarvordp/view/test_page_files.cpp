// Drawn pages, looked at through the pictures' pixels and by programs that others wrote.
#include "tarvordp/view/page_files.h"

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <string>

#include "equipment/temporary_folder.h"
#include "graphic/outside_tools.h"
#include "page_dump.h"

namespace tarvordp {
namespace {

using namespace std::string_view_literals;
using tarvo::test::outputOf;
using testing::HasSubstr;

constexpr double kLeft = (9.5 - 8.0) / 2 * 72;  // of the first column on narrow paper
constexpr double kColumn = 7.2;
constexpr std::string_view kBlock = "\xDB";  // fills its cell

// A PNG file, read by its library and asked in points.
class Picture {
 public:
  explicit Picture(const std::filesystem::path& path)
      : surface_(cairo_image_surface_create_from_png(path.c_str())) {}
  Picture(const Picture&) = delete;
  ~Picture() { cairo_surface_destroy(surface_); }

  int width() const { return cairo_image_surface_get_width(surface_); }
  int height() const { return cairo_image_surface_get_height(surface_); }

  // The part of a place's pixels that are such.
  double partOf(double x, double y, double width, double height,
                const std::function<bool(int, int, int)>& isSuch) const {
    int all = 0;
    int such = 0;
    for (int row = pixel(y); row < pixel(y + height); ++row) {
      for (int column = pixel(x); column < pixel(x + width); ++column) {
        ++all;
        if (isSuch(colour(column, row, 16), colour(column, row, 8), colour(column, row, 0))) ++such;
      }
    }
    return static_cast<double>(such) / all;
  }

  double ink(double x, double y, double width, double height) const {
    return partOf(x, y, width, height,
                  [](int red, int green, int blue) { return red + green + blue < 300; });
  }
  double red(double x, double y, double width, double height) const {
    return partOf(x, y, width, height, [](int red, int green, int) { return red > green + 60; });
  }

 private:
  static int pixel(double points) { return static_cast<int>(std::lround(points * 2)); }
  int colour(int column, int row, unsigned shift) const {
    const unsigned char* data = cairo_image_surface_get_data(surface_);
    const int stride = cairo_image_surface_get_stride(surface_);
    const auto* line = reinterpret_cast<const std::uint32_t*>(data + row * stride);
    return static_cast<int>(line[column] >> shift & 0xFFU);
  }

  cairo_surface_t* surface_;
};

class PageFilesTest : public testing::Test {
 protected:
  PageFilesTest() { profile.maxLinPage = 8; }

  std::string path(const char* name) const { return (folder.path() / name).string(); }

  void draw(PageFiles& files, std::string_view bytes) {
    makePages(bytes, profile, [&](const Page& page) { files.add(page); });
    files.finish();
  }
  void useLetterPaper() {
    profile.maxLinPage = 66;
    paper = paperFor(0, 792);
  }
  Picture drawn(std::string_view bytes) {
    draw(*makePictures(path("p"), paper), bytes);
    return Picture(folder.path() / "p-1.png");
  }

  tarvo::test::TemporaryFolder folder;
  Profile profile = findProfile("epson-9pin", "");
  Paper paper = paperFor(0, 96);  // a slip of 8 lines
};

// The ink of character cells of the first line, "#" for a filled one.
std::string cellsOf(const Picture& picture, double cellWidth, int count) {
  std::string cells;
  for (int i = 0; i < count; ++i) {
    const double ink = picture.ink(kLeft + i * cellWidth + 1, 3, cellWidth - 2, 6);
    cells += ink > 0.9 ? '#' : ink < 0.05 ? '.' : '?';
  }
  return cells;
}

TEST_F(PageFilesTest, APictureIsOneSheet) {
  useLetterPaper();
  const Picture picture = drawn("x");
  EXPECT_EQ(picture.width(), 1368);
  EXPECT_EQ(picture.height(), 1584);
}

TEST_F(PageFilesTest, CharactersStandInTheirCells) {
  EXPECT_EQ(cellsOf(drawn("\xDB\xDB \xDB"), kColumn, 5), "##.#.");
  EXPECT_EQ(cellsOf(drawn("\x1BM\xDB \xDB\xDB"), 6, 5), "#.##.");
  EXPECT_EQ(cellsOf(drawn("\x0F\xDB \xDB\xDB"), 4.2, 5), "#.##.");
  EXPECT_EQ(cellsOf(drawn("\x1BM\x0F\xDB \xDB\xDB"), 3.6, 5), "#.##.");
  EXPECT_EQ(cellsOf(drawn("\x1BW\x01\xDB \xDB"), 14.4, 4), "#.#.");
}

TEST_F(PageFilesTest, TheLastColumnOfNarrowPaperIsOnIt) {
  const Picture picture = drawn(std::string(79, ' ') + std::string(kBlock));
  EXPECT_GT(picture.ink(kLeft + 79 * kColumn + 1, 3, kColumn - 2, 6), 0.9);
  EXPECT_LT(kLeft + 80 * kColumn, 684 - 36);
}

TEST_F(PageFilesTest, LinesStandTwelvePointsApartAndSkipsMoveThemByPoints) {
  const Picture picture = drawn(
      "\r\n\xDF\r\n\x1B"
      "A\x01\r\n\r\n\r\n\x1B"
      "2\xDF\r\n");
  // The upper half block begins at the same place of its line.
  const auto firstInk = [&](double from) {
    for (double y = from; y < from + 24; y += 0.5) {
      if (picture.ink(kLeft + 1, y, 5, 0.5) > 0.5) return y;
    }
    return -1.0;
  };
  const double first = firstInk(8);
  EXPECT_EQ(firstInk(first + 8) - first, 12 + 3);
}

TEST_F(PageFilesTest, BoldHasMoreInkAndItalicStandsOtherwise) {
  const auto inkOf = [&](std::string_view bytes) { return drawn(bytes).ink(kLeft, 0, 72, 12); };
  const double plain = inkOf("HHHHHHHHHH");
  EXPECT_GT(inkOf("\x1B"
                  "EHHHHHHHHHH"),
            plain * 1.2);
  EXPECT_GT(inkOf("HHHHHHHHHH\rHHHHHHHHHH"), plain * 1.02);
  // The ink's middle in the upper part of an H, and in its lower part.
  const auto slantOf = [&](std::string_view bytes) {
    const Picture picture = drawn(bytes);
    const auto middleOf = [&](double y) {
      double sum = 0;
      double ink = 0;
      for (double x = kLeft; x < kLeft + kColumn + 3; x += 0.5) {
        const double here = picture.ink(x, y, 0.5, 2);
        ink += here;
        sum += here * x;
      }
      return sum / ink;
    };
    return middleOf(2) - middleOf(7);
  };
  EXPECT_NEAR(slantOf("H"), 0, 0.01);
  EXPECT_GT(slantOf("\x1B"
                    "4H"),
            0.5);
}

TEST_F(PageFilesTest, UnderlinesReachFromTheFirstToTheLastCharacter) {
  const Picture picture = drawn(
      "a \x1B-\x01"
      "b c \x1B-\x00 d"sv);
  const auto lineAt = [&](int column) {
    return picture.ink(kLeft + column * kColumn + 0.5, 11.5, kColumn - 1, 0.5) > 0.9;
  };
  std::string seen;
  for (int column = 0; column < 9; ++column) seen += lineAt(column) ? '_' : '.';
  EXPECT_EQ(seen, "..____...");
}

TEST_F(PageFilesTest, UnknownCodesHangOverTheLineAndTakeNoRoom) {
  const Picture picture = drawn("\r\n    \x1Bv\xDB");
  EXPECT_GT(picture.ink(kLeft + 4 * kColumn + 1, 15, kColumn - 2, 6), 0.85);
  EXPECT_GT(picture.red(kLeft + 4 * kColumn, 8.5, 12, 6), 0.1);
  EXPECT_EQ(picture.red(kLeft, 0, 4 * kColumn - 1, 24), 0);
}

TEST_F(PageFilesTest, UnknownCodesOfTheFirstLineHangOverItToo) {
  paper.printedTop = 6;
  const Picture picture = drawn("  \x1Bv\xDB");
  EXPECT_GT(picture.red(kLeft + 2 * kColumn, 2.5, 12, 4), 0.1);
  EXPECT_EQ(picture.red(kLeft + 2 * kColumn + 1, 9, kColumn - 1, 6), 0);
}

TEST_F(PageFilesTest, LabelsOfCodesAtOnePlaceStandSideBySide) {
  const auto widthOfLabels = [&](std::string_view codes) {
    const Picture picture = drawn("\r\n    " + std::string(codes));
    const double left = kLeft + 4 * kColumn;
    double width = 0;
    for (double x = 0; x < 300; ++x) {
      if (picture.red(left + x, 8.5, 1, 6) > 0) width = x;
    }
    return width;
  };
  const double ofOne = widthOfLabels("\x1Bv");
  EXPECT_GT(ofOne, 10);
  EXPECT_GT(widthOfLabels("\x1Bv\x1Bv"), 1.8 * ofOne);
  EXPECT_GT(widthOfLabels("\x1Bv\x1Bv\x1Bv"), 2.6 * ofOne);
}

TEST_F(PageFilesTest, GraphicsAreHatchedAndTakeTheirRoom) {
  const Picture picture =
      drawn("\r\n\x1BK\x3C" + std::string(1, '\0') + std::string(60, 'x') + std::string(kBlock));
  for (double x = 0; x < 72; x += 9) {
    const double red = picture.red(kLeft + x + 0.5, 17, 8, 4);
    EXPECT_GT(red, 0.05) << x;
    EXPECT_LT(red, 0.6) << x;
  }
  EXPECT_GT(picture.ink(kLeft + 72 + 1, 15, kColumn - 2, 6), 0.85);
}

// The whole height of the tallest and the deepest letters is within their line, also where the line
// is the first or the last one of the paper.
TEST_F(PageFilesTest, LettersAreWholeAtThePapersEdges) {
  const auto inkOf = [&](const std::string& before, double top) {
    return drawn(before + "\xB5\x80\xA5gjpy\x1B-\x01_").ink(kLeft, top, 8 * kColumn, 12);
  };
  const std::string pc850 = "\x1B(t\x03" + std::string(1, '\0') + "\x01\x03" + std::string(1, '\0');
  profile.codes[static_cast<std::size_t>(ControlCode::internationalChars)] = tarvo::fromUtf8(pc850);
  const double whole = inkOf(pc850 + "\r\n\r\n", 24);
  EXPECT_NEAR(inkOf(pc850, 0), whole, 1e-9);
  const double last = inkOf(pc850 + "\r\n\r\n\r\n\r\n\r\n\r\n\r\n", 84);
  EXPECT_NEAR(last, whole, 0.002);  // the perforation's ink is under it
  EXPECT_EQ(drawn(pc850 + "\r\n\r\n\xB5gjpy").ink(kLeft, 0, 8 * kColumn, 24), 0);
}

TEST_F(PageFilesTest, TheFirstLineBeginsBelowTheFoldWhereThereIsRoom) {
  EXPECT_EQ(printedTopFor(65 * 12, 792), 6);
  EXPECT_EQ(printedTopFor(65 * 12 + 9, 792), 3);
  EXPECT_EQ(printedTopFor(792, 792), 0);
  EXPECT_EQ(printedTopFor(792 + 5, 792), 0);
  const double usual = drawn("\xDB").ink(kLeft + 1, 1, 5, 10);
  paper.printedTop = 6;
  const Picture lower = drawn("\xDB");
  EXPECT_EQ(lower.ink(kLeft + 1, 0, 5, 5.5), 0);
  EXPECT_NEAR(lower.ink(kLeft + 1, 7, 5, 10), usual, 1e-9);
}

TEST_F(PageFilesTest, PaperHasHolesAndPerforations) {
  useLetterPaper();
  const Picture picture = drawn(" ");
  const auto isHole = [](int red, int green, int blue) {
    return red < 225 && red > 190 && green > 190 && blue > 185;
  };
  for (double y = 18; y < 792; y += 36) {
    EXPECT_EQ(picture.partOf(16, y - 2, 4, 4, isHole), 1) << y;
    EXPECT_EQ(picture.partOf(684 - 20, y - 2, 4, 4, isHole), 1) << y;
  }
  EXPECT_EQ(picture.partOf(60, 60, 560, 600, isHole), 0);
  const double fold = picture.partOf(40, 791.5, 600, 0.5, isHole);
  EXPECT_GT(fold, 0.3);
  EXPECT_LT(fold, 0.8);
}

TEST_F(PageFilesTest, BarsAreOnTheSheetAlone) {
  paper.greenBars = true;
  const Picture picture = drawn(" ");
  const auto isGreen = [](int red, int green, int) { return green > red + 5; };
  EXPECT_EQ(picture.partOf(60, 38, 500, 32, isGreen), 1);
  EXPECT_EQ(picture.partOf(60, 2, 500, 32, isGreen), 0);
  EXPECT_EQ(picture.partOf(0, 0, 34, 96, isGreen), 0);
  paper.printedTop = 6;
  const Picture lower = drawn(" ");
  EXPECT_EQ(lower.partOf(60, 42.5, 500, 35, isGreen), 1);
  EXPECT_EQ(lower.partOf(60, 2, 500, 39, isGreen), 0);
}

TEST_F(PageFilesTest, WideLinesNeedWidePaper) {
  EXPECT_EQ(paperFor(80 * 72, 792).width, 684);
  EXPECT_EQ(paperFor(80 * 72 + 1, 792).width, 1071);
  const Paper wide = paperFor(kWidestLine, 792);
  EXPECT_LT(wide.printedLeft + kWidestLine / 10.0, wide.width - 36);
  EXPECT_GT(wide.printedLeft, 36);
}

TEST_F(PageFilesTest, EveryPageHasAPictureAndNoMore) {
  draw(*makePictures(path("p"), paper), "a\fb\fc");
  EXPECT_TRUE(folder.has(u"p-1.png") && folder.has(u"p-2.png") && folder.has(u"p-3.png"));
  EXPECT_FALSE(folder.has(u"p-0.png") || folder.has(u"p-4.png"));
}

TEST_F(PageFilesTest, APdfHasThePagesAndTheirText) {
  TARVO_NEEDS_PROGRAM("pdftotext");
  TARVO_NEEDS_PROGRAM("pdfinfo");
  TARVO_NEEDS_PROGRAM("qpdf");
  useLetterPaper();
  draw(*makePdf(path("p.pdf"), paper),
       "\x1B"
       "EFactura N\xA7 1\x1B"
       "F   \xA4\xA0\xC4\r\n\r\n\x0F"
       "condensado\f\x1BW\x01"
       "Expandido\r\n");
  EXPECT_EQ(outputOf("pdftotext -layout " + path("p.pdf") + " - | sed 's/^ *//'"),
            "Factura Nº 1   ñá─\n\ncondensado\n\fExpandido\n\f");
  EXPECT_THAT(outputOf("pdfinfo " + path("p.pdf")),
              testing::AllOf(HasSubstr("Pages:           2\n"), HasSubstr("684 x 792 pts")));
  EXPECT_THAT(outputOf("qpdf --check " + path("p.pdf")), HasSubstr("No syntax or stream"));
}

TEST_F(PageFilesTest, AFileThatCannotBeWrittenSaysWhy) {
  const auto whyNot = [&](const std::function<std::unique_ptr<PageFiles>()>& make) -> std::string {
    try {
      draw(*make(), "a");
    } catch (const CannotWrite& failure) {
      return failure.what();
    }
    return "written";
  };
  EXPECT_EQ(whyNot([&] { return makePictures("/nowhere/p", paper); }),
            "/nowhere/p-1.png: cannot be written: No such file or directory");
  EXPECT_EQ(whyNot([&] { return makePdf("/nowhere/p.pdf", paper); }),
            "/nowhere/p.pdf: cannot be written: No such file or directory");
  EXPECT_EQ(whyNot([&] { return makePdf("/dev/full", paper); }),
            "/dev/full: cannot be written: No space left on device");
}

TEST_F(PageFilesTest, AnUnfinishedPdfIsTakenAway) {
  {
    const auto pdf = makePdf(path("p.pdf"), paper);
    makePages("a", profile, [&](const Page& page) { pdf->add(page); });
  }
  EXPECT_FALSE(folder.has(u"p.pdf"));
  EXPECT_FALSE(folder.has(u"p.pdf.part"));
}

TEST_F(PageFilesTest, AnEarlierPdfStaysUntilTheNewOneIsWhole) {
  folder.write(u"p.pdf", "an earlier one");
  std::filesystem::create_symlink("p.pdf", folder.path() / "link.pdf");
  {
    const auto unfinished = makePdf(path("p.pdf"), paper);
    makePages("a", profile, [&](const Page& page) { unfinished->add(page); });
  }
  EXPECT_EQ(folder.contentOf(u"p.pdf"), "an earlier one");
  draw(*makePdf(path("link.pdf"), paper), "a");
  EXPECT_THAT(folder.contentOf(u"p.pdf"), testing::StartsWith("%PDF"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.pdf"));
  EXPECT_FALSE(folder.has(u"p.pdf.part"));
}

}  // namespace
}  // namespace tarvordp
