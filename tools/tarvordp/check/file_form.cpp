#include "tarvordp/check/file_form.h"

#include <algorithm>
#include <optional>
#include <string>

#include "frame/codepage.h"
#include "tarvordp/utf8_letter.h"

namespace tarvordp {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMarkOfUtf8 = "\xEF\xBB\xBF"sv;
constexpr std::string_view kMarksOfUtf16[] = {"\xFF\xFE"sv, "\xFE\xFF"sv};

constexpr const char* kSaveOtherwise = "save it as Windows-1252 (\"ANSI\")";

struct Letter {
  std::size_t at;
  std::size_t size;
};

// The first letter beyond ASCII; none when there is none, and when the file is no UTF-8.
std::optional<Letter> firstLetterOfUtf8(std::string_view bytes) {
  std::optional<Letter> first;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t size = sizeOfLetter(bytes.substr(at));
    if (size == 0) return {};
    if (size > 1 && !first) first = Letter{at, size};
    at += size;
  }
  return first;
}

Place placeOf(std::string_view bytes, std::size_t index) {
  const std::string_view before = bytes.substr(0, index);
  const auto lines = static_cast<std::size_t>(std::ranges::count(before, '\n'));
  const std::size_t begin = before.rfind('\n') + 1;  // npos and one is 0
  return {lines + 1, index - begin + 1};
}

std::string asRead(std::string_view bytes) {
  tarvo::Text text;
  tarvo::CodePage::windows1252().decode(bytes, text);
  return quoted(text);
}

bool tellUtf8(std::string_view bytes, Findings& findings) {
  if (bytes.starts_with(kMarkOfUtf8)) {
    findings.warning({1, 1},
                     "this file begins with the mark of UTF-8; templates are read as Windows-1252, "
                     "so the first line begins with " +
                         asRead(kMarkOfUtf8) + ": " + kSaveOtherwise);
    return true;
  }
  const std::optional<Letter> letter = firstLetterOfUtf8(bytes);
  if (!letter) return false;
  const std::string_view written = bytes.substr(letter->at, letter->size);
  findings.warning(placeOf(bytes, letter->at),
                   "this file looks like UTF-8; templates are read as Windows-1252, so '" +
                       std::string(written) + "' is read as " + asRead(written) + ": " +
                       kSaveOtherwise);
  return true;
}

void tellOldLineEnds(std::string_view bytes, Findings& findings) {
  const std::size_t first = bytes.find('\r');
  if (bytes.find('\n') != std::string_view::npos || first >= bytes.size() - 1) return;
  findings.error(
      placeOf(bytes, first),
      "lines end by carriage returns alone: the whole file is one line; end them by CR LF");
}

}  // namespace

FileForm checkedFileForm(std::string_view bytes, Findings& findings) {
  if (bytes.empty()) {
    findings.warning({1, 1}, "the file is empty");
    return FileForm::usual;
  }
  if (std::ranges::any_of(kMarksOfUtf16, [&](auto mark) { return bytes.starts_with(mark); })) {
    findings.error(
        {1, 1},
        std::string("this file is UTF-16; templates are read as Windows-1252: ") + kSaveOtherwise);
    return FileForm::unreadable;
  }
  tellOldLineEnds(bytes, findings);
  if (const std::size_t zero = bytes.find('\0'); zero != std::string_view::npos) {
    findings.warning(placeOf(bytes, zero),
                     "a byte 00, which no text has: is this file a template?");
    return FileForm::noText;
  }
  return tellUtf8(bytes, findings) ? FileForm::otherEncoding : FileForm::usual;
}

}  // namespace tarvordp
