#include "graphic/pdf_writer.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/codepage.h"
#include "graphic/deflate.h"

namespace tarvo {
namespace {

// The objects of the file; each page is two more, itself and what stands on it.
enum Object : std::size_t { kCatalog = 1, kPages, kFont, kInfo, kFirstPage };

std::size_t pageObject(std::size_t page) noexcept { return kFirstPage + 2 * page; }

// Bytes of a file, appended piece by piece.
class Bytes {
 public:
  std::string& all() noexcept { return bytes_; }
  std::size_t size() const noexcept { return bytes_.size(); }
  void clear() noexcept { bytes_.clear(); }
  void push(char byte) { bytes_.push_back(byte); }

  Bytes& operator<<(std::string_view text) {
    bytes_.append(text);
    return *this;
  }

  // With zeros before it, when it has fewer digits than that.
  Bytes& number(std::size_t value, int digits = 1) {
    if (digits > 1 || value > 9) number(value / 10, digits - 1);
    push(static_cast<char>('0' + value % 10));
    return *this;
  }

  // A length in points, exactly.
  Bytes& points(std::int32_t twips) {
    constexpr std::size_t kHundredthsOfATwip = 100 / kTwipsPerPoint;
    const auto size = static_cast<std::size_t>(std::abs(twips));
    if (twips < 0) push('-');
    number(size / kTwipsPerPoint);
    const std::size_t rest = size % kTwipsPerPoint;
    if (rest != 0) (*this << ".").number(rest * kHundredthsOfATwip, 2);
    return *this;
  }

  Bytes& reference(std::size_t object) { return number(object) << " 0 R"; }

  Bytes& hexText(TextView text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    *this << "<FEFF";  // UTF-16, high byte first
    for (const char16_t character : text) {
      for (int shift = 12; shift >= 0; shift -= 4) push(kDigits[character >> shift & 0xF]);
    }
    return *this << ">";
  }

 private:
  std::string bytes_;
};

std::string_view fontNameOf(const PageFormat& format) noexcept {
  if (format.bold) return format.italic ? "Courier-BoldOblique" : "Courier-Bold";
  return format.italic ? "Courier-Oblique" : "Courier";
}

void drawCharacter(char16_t character, Bytes& content) {
  const auto byte = static_cast<char>(CodePage::windows1252().encode(visibleCharacter(character)));
  if (byte == '(' || byte == ')' || byte == '\\') content.push('\\');
  content.push(byte);
}

// The drawing operations of a page.
void drawPage(const PagedText& pages, std::size_t page, Bytes& content) {
  const PageFormat& format = pages.format();
  // Every row begins by going down one, the first one too.
  const std::int32_t start =
      format.height - format.topMargin - format.baseline() + format.rowHeight;
  (content << "BT\n/F ").number(static_cast<std::size_t>(format.fontSize)) << " Tf\n";
  content.points(format.rowHeight) << " TL\n";
  (content.points(format.leftMargin) << " ").points(start) << " Td\n";
  for (std::size_t i = 0; i < pages.rowsOnPage(page); ++i) {
    const TextView row = pages.row(page, i);
    if (row.empty()) {
      content << "T*\n";
      continue;
    }
    content.push('(');
    for (const char16_t character : row) drawCharacter(character, content);
    content << ")'\n";
  }
  content << "ET";
}

class PdfFile {
 public:
  PdfFile(const PagedText& pages, TextView title) : pages_(pages), title_(title) {}

  std::string write() {
    bytes_ << "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";  // the second line says that the file is binary
    begin() << "<</Type/Catalog/Pages ";
    bytes_.reference(kPages) << ">>";
    end();
    addPageTree();
    begin() << "<</Type/Font/Subtype/Type1/BaseFont/" << fontNameOf(pages_.format())
            << "/Encoding/WinAnsiEncoding>>";
    end();
    (begin() << "<</Title").hexText(title_) << "/Producer(LibTarvoRdpCI)>>";
    end();
    for (std::size_t page = 0; page < pages_.pageCount(); ++page) addPage(page);
    finish();
    return std::move(bytes_.all());
  }

 private:
  // Objects are numbered from 1 in the order in which they begin.
  Bytes& begin() {
    objectOffsets_.push_back(bytes_.size());
    return bytes_.number(objectOffsets_.size()) << " 0 obj\n";
  }
  void end() { bytes_ << "\nendobj\n"; }

  // What all pages have in common is said once, here.
  void addPageTree() {
    const PageFormat& format = pages_.format();
    (begin() << "<</Type/Pages/Count ").number(pages_.pageCount()) << "/MediaBox[0 0 ";
    (bytes_.points(format.width) << " ").points(format.height) << "]/Resources<</Font<</F ";
    bytes_.reference(kFont) << ">>>>/Kids[";
    for (std::size_t page = 0; page < pages_.pageCount(); ++page) {
      bytes_.reference(pageObject(page)) << "\n";
    }
    bytes_ << "]>>";
    end();
  }

  void addPage(std::size_t page) {
    (begin() << "<</Type/Page/Parent ").reference(kPages) << "/Contents ";
    bytes_.reference(pageObject(page) + 1) << ">>";
    end();
    content_.clear();
    drawPage(pages_, page, content_);
    compressed_.clear();
    deflater_.compress(content_.all(), compressed_);
    (begin() << "<</Filter/FlateDecode/Length ").number(compressed_.size()) << ">>stream\n";
    bytes_ << compressed_ << "\nendstream";
    end();
  }

  // The table of the objects' places, which readers look for at the end.
  void finish() {
    constexpr int kOffsetDigits = 10;
    const std::size_t start = bytes_.size();
    const std::size_t size = objectOffsets_.size() + 1;
    (bytes_ << "xref\n0 ").number(size) << "\n0000000000 65535 f \n";
    for (const std::size_t offset : objectOffsets_) {
      bytes_.number(offset, kOffsetDigits) << " 00000 n \n";
    }
    (bytes_ << "trailer\n<</Size ").number(size) << "/Root ";
    bytes_.reference(kCatalog) << "/Info ";
    (bytes_.reference(kInfo) << ">>\nstartxref\n").number(start) << "\n%%EOF\n";
  }

  const PagedText& pages_;
  TextView title_;
  Bytes bytes_;
  std::vector<std::size_t> objectOffsets_;
  Deflater deflater_;
  Bytes content_;
  std::string compressed_;
};

}  // namespace

std::string pdfOf(const PagedText& pages, TextView title) { return PdfFile(pages, title).write(); }

}  // namespace tarvo
