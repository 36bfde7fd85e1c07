// Draws printed pages as they leave the printer: ink on continuous paper with its tractor strips
// and perforations.  The same drawing goes to pictures and to PDF (page_files.h).
#pragma once

#include <cairo.h>

#include <array>
#include <string>

#include "tarvordp/view/page_model.h"

namespace tarvordp {

// Sizes in points.
struct Paper {
  double width = 0;        // with both strips
  double printedLeft = 0;  // where the first column is
  double printedTop = 0;   // how far below the fold the first line begins
  double height = 0;
  bool greenBars = false;
};

// The usual paper on which the widest line finds room: 9 1/2 inches, or 14 7/8.
Paper paperFor(int widestLine, int pageHeight);

// How far below the fold an operator would have the first line begin: half a line, and less where
// the lowest line needs that room.
double printedTopFor(int lowestInk, int pageHeight);

class PageDrawing {
 public:
  explicit PageDrawing(const Paper& paper);
  PageDrawing(const PageDrawing&) = delete;
  PageDrawing& operator=(const PageDrawing&) = delete;
  ~PageDrawing();

  // Draws the whole page, paper first.  One unit of the context is a point.
  void draw(cairo_t* context, const Page& page) const;

 private:
  void drawPaper(cairo_t* context) const;
  void drawBars(cairo_t* context) const;
  void drawStrip(cairo_t* context, double left) const;
  void drawRun(cairo_t* context, const Run& run, double baseline) const;
  void drawGraphics(cairo_t* context, const Run& run, double baseline) const;
  void drawLabels(cairo_t* context, const Line& line) const;
  double drawLabel(cairo_t* context, const std::string& text, double place, double left,
                   double baseline) const;

  Paper paper_;
  std::array<cairo_font_face_t*, 4> faces_;  // upright, bold, italic, both
};

}  // namespace tarvordp
