// Files of printed pages: a picture for each page, or one PDF.
//
// A file is written beside its place, with ".part" behind its name, and put there when it is whole.
// When it cannot be, or somebody wants the program to end (tarvordp/interruption.h), it is taken
// away again, and one that was there before stays.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "tarvordp/view/page_drawing.h"

namespace tarvordp {

// A file could not be written; what() says which, and why.
class CannotWrite : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Takes the pages of one job, in order.
class PageFiles {
 public:
  virtual ~PageFiles() = default;
  // Raises: CannotWrite.
  virtual void add(const Page& page) = 0;
  // After the last page.  Raises: CannotWrite.
  virtual void finish() = 0;
};

// PREFIX-1.png, PREFIX-2.png …, 144 pixels an inch.
std::unique_ptr<PageFiles> makePictures(const std::string& prefix, const Paper& paper);

// The file is made with the first page.
std::unique_ptr<PageFiles> makePdf(const std::string& path, const Paper& paper);

}  // namespace tarvordp
