#include "tarvordp/view/page_drawing.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <string>

namespace tarvordp {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kUnitsPerPoint = kUnitsPerInch / kPointsPerInch;
constexpr double kPi = 3.14159265358979323846;

constexpr double kStripWidth = 0.5 * kPointsPerInch;
constexpr double kHoleDistance = 0.5 * kPointsPerInch;
constexpr double kHoleRadius = 5.6;
constexpr double kBarHeight = 0.5 * kPointsPerInch;

// The font's characters are 0.6 of its size wide.  They reach from 0.832 above the baseline (Á) to
// 0.217 below it (ç): at this size a line holds all of them, so that none is cut off at the fold.
constexpr double kFontSize = 11.4;
constexpr double kUsualWidth = 0.6 * kFontSize;
constexpr double kBaseline = 9.5;   // below the line's top
constexpr double kUnderline = 1.7;  // below the baseline
constexpr double kUnderlineThickness = 0.7;
constexpr double kMostPrintedTop = 6;
constexpr double kDotColumn = 8;  // its height

// Labels find room between two lines' letters.
constexpr double kLabelSize = 4.2;
constexpr double kLabelHeight = 4.6;
constexpr double kLabelMargin = 1;
constexpr double kLabelRise = 7.7;  // of its foot over the baseline

struct Colour {
  double red, green, blue;
};
constexpr Colour kPaperColour{0.992, 0.988, 0.970};
constexpr Colour kHoleColour{0.830, 0.835, 0.815};
constexpr Colour kPerforation{0.78, 0.78, 0.76};
constexpr Colour kBar{0.905, 0.965, 0.900};
constexpr Colour kInk{0.105, 0.100, 0.200};
constexpr Colour kLabelInk{0.74, 0.10, 0.10};
constexpr Colour kLabelPaper{1.0, 0.945, 0.905};

void use(cairo_t* context, const Colour& colour) {
  cairo_set_source_rgb(context, colour.red, colour.green, colour.blue);
}

void fill(cairo_t* context, const Colour& colour, double x, double y, double width, double height) {
  use(context, colour);
  cairo_rectangle(context, x, y, width, height);
  cairo_fill(context);
}

void perforate(cairo_t* context, double x1, double y1, double x2, double y2) {
  static constexpr double kDashes[] = {3, 2.5};
  use(context, kPerforation);
  cairo_set_line_width(context, 0.8);
  cairo_set_dash(context, kDashes, 2, 0);
  cairo_move_to(context, x1, y1);
  cairo_line_to(context, x2, y2);
  cairo_stroke(context);
  cairo_set_dash(context, nullptr, 0, 0);
}

std::size_t faceOf(const Look& look) { return (look.bold ? 1U : 0U) + (look.italic ? 2U : 0U); }

cairo_font_face_t* makeFace(bool bold, bool italic) {
  return cairo_toy_font_face_create("Liberation Mono",
                                    italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                                    bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
}

void useFont(cairo_t* context, cairo_font_face_t* face, double horizontalScale, double size) {
  cairo_matrix_t matrix;
  cairo_matrix_init_scale(&matrix, size * horizontalScale, size);
  cairo_set_font_face(context, face);
  cairo_set_font_matrix(context, &matrix);
}

struct Glyphs {
  cairo_glyph_t* glyphs = nullptr;
  cairo_text_cluster_t* clusters = nullptr;
  int count = 0;
  int clusterCount = 0;
  cairo_text_cluster_flags_t flags{};

  Glyphs(cairo_t* context, const std::string& text) {
    const cairo_status_t status = cairo_scaled_font_text_to_glyphs(
        cairo_get_scaled_font(context), 0, 0, text.data(), static_cast<int>(text.size()), &glyphs,
        &count, &clusters, &clusterCount, &flags);
    if (status != CAIRO_STATUS_SUCCESS) count = clusterCount = 0;
  }
  Glyphs(const Glyphs&) = delete;
  Glyphs& operator=(const Glyphs&) = delete;
  ~Glyphs() {
    cairo_glyph_free(glyphs);
    cairo_text_cluster_free(clusters);
  }
};

// Gives back, when the program ends, what the libraries keep for the next font: leak checkers
// cannot see that it is still in use.
void releaseFontsAtExit() {
  struct Caches {
    ~Caches() {
      cairo_debug_reset_static_data();
      FcFini();
    }
  };
  static const Caches kCaches;
}

double across(const Paper& paper, int x) { return paper.printedLeft + x / kUnitsPerPoint; }

}  // namespace

Paper paperFor(int widestLine, int pageHeight) {
  static constexpr double kNarrowPrinted = 8.0;
  static constexpr double kWidePrinted = 13.6;
  const bool isNarrow = widestLine <= static_cast<int>(kNarrowPrinted * kUnitsPerInch);
  Paper paper;
  paper.width = (isNarrow ? 9.5 : 14.875) * kPointsPerInch;
  const double printed = (isNarrow ? kNarrowPrinted : kWidePrinted) * kPointsPerInch;
  paper.printedLeft = (paper.width - printed) / 2;
  paper.height = pageHeight;
  return paper;
}

double printedTopFor(int lowestInk, int pageHeight) {
  return std::clamp<double>(pageHeight - lowestInk, 0, kMostPrintedTop);
}

PageDrawing::PageDrawing(const Paper& paper)
    : paper_(paper),
      faces_{makeFace(false, false), makeFace(true, false), makeFace(false, true),
             makeFace(true, true)} {
  releaseFontsAtExit();
}

PageDrawing::~PageDrawing() {
  for (cairo_font_face_t* face : faces_) cairo_font_face_destroy(face);
}

void PageDrawing::draw(cairo_t* context, const Page& page) const {
  drawPaper(context);
  cairo_save(context);
  cairo_translate(context, 0, paper_.printedTop);
  for (const Line& line : page.lines) {
    for (const Run& run : line.runs) {
      if (run.unknown.empty()) drawRun(context, run, line.top + kBaseline);
      if (run.unknown.width > 0) drawGraphics(context, run, line.top + kBaseline);
    }
  }
  for (const Line& line : page.lines) drawLabels(context, line);
  cairo_restore(context);
}

// Labels of codes at one place stand side by side.
void PageDrawing::drawLabels(cairo_t* context, const Line& line) const {
  double free = 0;
  for (const Run& run : line.runs) {
    if (run.unknown.empty()) continue;
    const double place = across(paper_, run.x);
    free =
        drawLabel(context, shown(run.unknown), place, std::max(place, free), line.top + kBaseline);
  }
}

void PageDrawing::drawPaper(cairo_t* context) const {
  fill(context, kPaperColour, 0, 0, paper_.width, paper_.height);
  if (paper_.greenBars) drawBars(context);
  drawStrip(context, 0);
  drawStrip(context, paper_.width - kStripWidth);
  perforate(context, kStripWidth, 0, kStripWidth, paper_.height);
  const double right = paper_.width - kStripWidth;
  perforate(context, right, 0, right, paper_.height);
  perforate(context, 0, 0, paper_.width, 0);
  perforate(context, 0, paper_.height, paper_.width, paper_.height);
}

void PageDrawing::drawBars(cairo_t* context) const {
  const double width = paper_.width - 2 * kStripWidth;
  // Three lines fit a bar: the operator has the first one begin where a bar does.
  for (double y = paper_.printedTop + kBarHeight; y < paper_.height; y += 2 * kBarHeight) {
    fill(context, kBar, kStripWidth, y, width, std::min(kBarHeight, paper_.height - y));
  }
}

void PageDrawing::drawStrip(cairo_t* context, double left) const {
  use(context, kHoleColour);
  for (double y = kHoleDistance / 2; y < paper_.height; y += kHoleDistance) {
    cairo_new_sub_path(context);
    cairo_arc(context, left + kStripWidth / 2, y, kHoleRadius, 0, 2 * kPi);
    cairo_fill(context);
  }
}

void PageDrawing::drawRun(cairo_t* context, const Run& run, double baseline) const {
  const double width = run.look.width / kUnitsPerPoint;
  const double left = across(paper_, run.x);
  useFont(context, faces_[faceOf(run.look)], width / kUsualWidth, kFontSize);
  const std::string text = tarvo::toUtf8(run.text);
  const Glyphs glyphs(context, text);
  for (int i = 0; i < glyphs.count; ++i) {
    glyphs.glyphs[i].x = left + i * width;
    glyphs.glyphs[i].y = baseline;
  }
  use(context, kInk);
  cairo_show_text_glyphs(context, text.data(), static_cast<int>(text.size()), glyphs.glyphs,
                         glyphs.count, glyphs.clusters, glyphs.clusterCount, glyphs.flags);
  if (!run.look.underlined) return;
  fill(context, kInk, left, baseline + kUnderline, static_cast<double>(run.text.size()) * width,
       kUnderlineThickness);
}

// What the dots show is not known: the room that they take is hatched.
void PageDrawing::drawGraphics(cairo_t* context, const Run& run, double baseline) const {
  static constexpr double kHatch = 3;
  const double left = across(paper_, run.x);
  const double width = run.unknown.width / kUnitsPerPoint;
  const double top = baseline - kDotColumn;
  cairo_save(context);
  cairo_rectangle(context, left, top, width, kDotColumn);
  use(context, kLabelPaper);
  cairo_fill_preserve(context);
  cairo_clip(context);
  use(context, kLabelInk);
  cairo_set_line_width(context, 0.4);
  for (double x = left - kDotColumn; x < left + width; x += kHatch) {
    cairo_move_to(context, x, baseline);
    cairo_line_to(context, x + kDotColumn, top);
  }
  cairo_rectangle(context, left, top, width, kDotColumn);
  cairo_stroke(context);
  cairo_restore(context);
}

// It hangs over the line and points to the code's place: it takes no room among the characters.
// Gives where the next one may begin.
double PageDrawing::drawLabel(cairo_t* context, const std::string& text, double place, double left,
                              double baseline) const {
  const double width = static_cast<double>(text.size()) * kLabelSize * 0.6 + 2 * kLabelMargin;
  const double x = std::min(left, paper_.width - kStripWidth - width);
  const double top = std::max(baseline - kLabelRise - kLabelHeight, 0.5 - paper_.printedTop);
  cairo_set_source_rgba(context, kLabelPaper.red, kLabelPaper.green, kLabelPaper.blue, 0.8);
  cairo_rectangle(context, x, top, width, kLabelHeight);
  cairo_fill(context);
  use(context, kLabelInk);
  cairo_set_line_width(context, 0.4);
  cairo_rectangle(context, x, top, width, kLabelHeight);
  cairo_move_to(context, place, top);
  cairo_line_to(context, place, baseline + kUnderline);
  cairo_stroke(context);
  useFont(context, faces_[0], 1, kLabelSize);
  cairo_move_to(context, x + kLabelMargin, top + kLabelHeight - 0.9);
  cairo_show_text(context, text.c_str());
  return x + width;
}

}  // namespace tarvordp
