#include "tarvordp/view/page_files.h"

#include <cairo-pdf.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "tarvordp/interruption.h"

namespace tarvordp {
namespace {

constexpr double kPixelsPerPoint = 2;

namespace fs = std::filesystem;

// Where the bytes go until they are whole: beside the file itself, behind its links.  A device has
// no such place.
fs::path placeUntilWhole(const fs::path& target) {
  std::error_code ignored;
  if (fs::exists(target, ignored) && !fs::is_regular_file(target, ignored)) return target;
  return fs::path(target) += ".part";
}

// A file that is there whole or not at all: one that was there before stays until then.
class WholeFile {
 public:
  explicit WholeFile(std::string path)
      : path_(std::move(path)), target_(targetOf(path_)), place_(placeUntilWhole(target_)) {
    file_ = std::fopen(place_.c_str(), "wb");
    if (file_ == nullptr) fail();
  }
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;
  ~WholeFile() {
    if (file_ != nullptr) abandon();
  }

  // As cairo wants it.
  static cairo_status_t write(void* self, const unsigned char* bytes, unsigned int size) {
    auto& file = *static_cast<WholeFile*>(self);
    const bool isWritten =
        !Interruption::isAskedFor() && std::fwrite(bytes, 1, size, file.file_) == size;
    if (isWritten) return CAIRO_STATUS_SUCCESS;
    file.error_ = Interruption::isAskedFor() ? EINTR : errno;
    return CAIRO_STATUS_WRITE_ERROR;
  }

  // Raises: CannotWrite, unless the drawing went well and every byte arrived.
  void finish(cairo_status_t drawing) {
    const int closed = std::fclose(std::exchange(file_, nullptr));
    if (error_ == 0 && closed != 0) error_ = errno;
    // Not every surface of cairo passes a failed write on.
    if (drawing == CAIRO_STATUS_SUCCESS && error_ == 0) error_ = putInPlace();
    if (drawing == CAIRO_STATUS_SUCCESS && error_ == 0) return;
    remove();
    fail(drawing);
  }

 private:
  [[noreturn]] void fail(cairo_status_t drawing = CAIRO_STATUS_SUCCESS) const {
    const int error = error_ != 0 ? error_ : errno;
    const bool isDrawing =
        drawing != CAIRO_STATUS_SUCCESS && drawing != CAIRO_STATUS_WRITE_ERROR && error_ == 0;
    throw CannotWrite(
        path_ + ": cannot be written: " +
        (isDrawing ? cairo_status_to_string(drawing) : std::generic_category().message(error)));
  }
  void abandon() {
    std::fclose(std::exchange(file_, nullptr));
    remove();
  }
  static fs::path targetOf(const std::string& path) {
    std::error_code error;
    const fs::path plain = fs::weakly_canonical(path, error);
    return error ? fs::path(path) : plain;
  }
  // 0, or the error's number.
  int putInPlace() const {
    std::error_code error;
    if (place_ != target_) fs::rename(place_, target_, error);
    return error.value();
  }
  // A device stays.
  void remove() const {
    std::error_code ignored;
    if (place_ != target_) fs::remove(place_, ignored);
  }

  std::string path_;  // as it was given
  fs::path target_;
  fs::path place_;
  std::FILE* file_ = nullptr;
  int error_ = 0;
};

struct Destroy {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;
using Context = std::unique_ptr<cairo_t, Destroy>;

// Characters stand on the grid, not on pixels.
void drawExactly(cairo_t* context) {
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_set_font_options(context, options);
  cairo_font_options_destroy(options);
}

class Pictures final : public PageFiles {
 public:
  Pictures(std::string prefix, const Paper& paper)
      : prefix_(std::move(prefix)), paper_(paper), drawing_(paper) {}

  void add(const Page& page) override {
    const auto pixels = [](double points) {
      return static_cast<int>(std::lround(points * kPixelsPerPoint));
    };
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(paper_.width),
                                                     pixels(paper_.height)));
    const Context context(cairo_create(surface.get()));
    cairo_scale(context.get(), kPixelsPerPoint, kPixelsPerPoint);
    drawExactly(context.get());
    drawing_.draw(context.get(), page);
    WholeFile file(prefix_ + "-" + std::to_string(++pages_) + ".png");
    const cairo_status_t drawn = cairo_status(context.get());
    const cairo_status_t written =
        cairo_surface_write_to_png_stream(surface.get(), &WholeFile::write, &file);
    file.finish(drawn != CAIRO_STATUS_SUCCESS ? drawn : written);
  }

  void finish() override {}

 private:
  std::string prefix_;
  Paper paper_;
  PageDrawing drawing_;
  int pages_ = 0;
};

class Pdf final : public PageFiles {
 public:
  Pdf(std::string path, const Paper& paper)
      : file_(std::move(path)),
        surface_(cairo_pdf_surface_create_for_stream(&WholeFile::write, &file_, paper.width,
                                                     paper.height)),
        context_(cairo_create(surface_.get())),
        drawing_(paper) {
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "tarvordp view");
    drawExactly(context_.get());
  }
  ~Pdf() override {
    // While the file is still there to take what it writes.
    context_.reset();
    if (surface_ != nullptr) cairo_surface_finish(surface_.get());
  }

  void add(const Page& page) override {
    drawing_.draw(context_.get(), page);
    cairo_show_page(context_.get());
  }

  void finish() override {
    const cairo_status_t drawn = cairo_status(context_.get());
    context_.reset();
    cairo_surface_finish(surface_.get());
    const cairo_status_t written = cairo_surface_status(surface_.get());
    surface_.reset();
    file_.finish(drawn != CAIRO_STATUS_SUCCESS ? drawn : written);
  }

 private:
  WholeFile file_;
  Surface surface_;
  Context context_;
  PageDrawing drawing_;
};

}  // namespace

std::unique_ptr<PageFiles> makePictures(const std::string& prefix, const Paper& paper) {
  return std::make_unique<Pictures>(prefix, paper);
}

std::unique_ptr<PageFiles> makePdf(const std::string& path, const Paper& paper) {
  return std::make_unique<Pdf>(path, paper);
}

}  // namespace tarvordp
