#include "services/date_format.h"

#include <algorithm>
#include <array>

#include "services/digits.h"

namespace LibTarvoCI {
namespace {

using tarvo::CivilTime;

constexpr std::array<TextView, 7> kWeekdays{u"domingo", u"lunes",   u"martes", u"miércoles",
                                            u"jueves",  u"viernes", u"sábado"};
constexpr std::array<TextView, 12> kMonths{u"enero",      u"febrero", u"marzo",     u"abril",
                                           u"mayo",       u"junio",   u"julio",     u"agosto",
                                           u"septiembre", u"octubre", u"noviembre", u"diciembre"};
constexpr std::size_t kShortName = 3;

constexpr TextView kHalfOfDay = u"AM/PM";

enum class Kind { kLiteral, kDay, kMonth, kYear, kHour, kMinute, kSecond, kAmPm };

struct Token {
  Kind kind = Kind::kLiteral;
  std::size_t width = 0;  // letters, of a date letter's form
  TextView literal;
};

struct DateLetter {
  char16_t letter;
  Kind kind;
  std::size_t longest;
};
constexpr std::array<DateLetter, 6> kDateLetters{{{u'd', Kind::kDay, 4},
                                                  {u'm', Kind::kMonth, 4},
                                                  {u'y', Kind::kYear, 4},
                                                  {u'h', Kind::kHour, 2},
                                                  {u'n', Kind::kMinute, 2},
                                                  {u's', Kind::kSecond, 2}}};

char16_t lowerAscii(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

bool isLetter(char16_t c) {
  const char16_t lower = lowerAscii(c);
  return (lower >= u'a' && lower <= u'z') || c == u'ª' || c == u'º' || c >= u'À';
}

bool startsWithHalfOfDay(TextView text) {
  return text.size() >= kHalfOfDay.size() &&
         std::equal(kHalfOfDay.begin(), kHalfOfDay.end(), text.begin(),
                    [](char16_t a, char16_t b) { return lowerAscii(a) == lowerAscii(b); });
}

// Takes a format apart, one token at a time.
class Scanner {
 public:
  explicit Scanner(TextView format) : rest_(format) {}

  // False at the end.
  bool next(Token& token) {
    if (rest_.empty()) return false;
    token = take();
    if (token.kind == Kind::kMonth && token.width <= 2 && afterHour_) token.kind = Kind::kMinute;
    if (token.kind != Kind::kLiteral) {
      afterHour_ = token.kind == Kind::kHour;
    } else if (std::any_of(token.literal.begin(), token.literal.end(), isLetter)) {
      afterHour_ = false;
    }
    return true;
  }

 private:
  Token take() {
    if (startsWithHalfOfDay(rest_)) {
      rest_.remove_prefix(kHalfOfDay.size());
      return {Kind::kAmPm, 0, {}};
    }
    if (rest_[0] == u'\\' && rest_.size() > 1) {
      rest_.remove_prefix(1);
      return literal(1);
    }
    if (rest_[0] == u'"') return quoted();
    for (const DateLetter& row : kDateLetters) {
      if (row.letter == lowerAscii(rest_[0])) return dateLetter(row);
    }
    return literal(1);
  }

  Token literal(std::size_t size) {
    const Token token{Kind::kLiteral, 0, rest_.substr(0, size)};
    rest_.remove_prefix(size);
    return token;
  }

  Token quoted() {
    rest_.remove_prefix(1);
    const std::size_t end = rest_.find(u'"');
    if (end == TextView::npos) return literal(rest_.size());
    const Token token = literal(end);
    rest_.remove_prefix(1);
    return token;
  }

  Token dateLetter(const DateLetter& row) {
    std::size_t width = 1;
    while (width < row.longest && width < rest_.size() && lowerAscii(rest_[width]) == row.letter) {
      ++width;
    }
    if (row.kind == Kind::kYear) width -= width % 2;
    if (width == 0) return literal(1);
    rest_.remove_prefix(width);
    return {row.kind, width, {}};
  }

  TextView rest_;
  bool afterHour_ = false;
};

bool showsHalfOfDay(TextView format) {
  Scanner scanner(format);
  for (Token token; scanner.next(token);) {
    if (token.kind == Kind::kAmPm) return true;
  }
  return false;
}

void appendNumber(Text& text, int number, std::size_t digits) {
  appendDigits(text, static_cast<std::uint64_t>(number), static_cast<int>(digits));
}

// The form of one or two letters is the number, of three the short name, of four the name.
void appendNumberOrName(Text& text, int number, TextView name, std::size_t width) {
  if (width < kShortName) {
    appendNumber(text, number, width);
  } else {
    text.append(width == kShortName ? name.substr(0, kShortName) : name);
  }
}

int hourOfHalfDay(int hour) { return hour % 12 == 0 ? 12 : hour % 12; }

void appendToken(Text& text, const CivilTime& time, const Token& token, bool halves) {
  switch (token.kind) {
    case Kind::kLiteral:
      text.append(token.literal);
      break;
    case Kind::kDay:
      appendNumberOrName(text, time.day, kWeekdays[static_cast<std::size_t>(time.weekday)],
                         token.width);
      break;
    case Kind::kMonth:
      appendNumberOrName(text, time.month, kMonths[static_cast<std::size_t>(time.month - 1)],
                         token.width);
      break;
    case Kind::kYear:
      appendNumber(text, token.width == 2 ? time.year % 100 : time.year, token.width);
      break;
    case Kind::kHour:
      appendNumber(text, halves ? hourOfHalfDay(time.hour) : time.hour, token.width);
      break;
    case Kind::kMinute:
      appendNumber(text, time.minute, token.width);
      break;
    case Kind::kSecond:
      appendNumber(text, time.second, token.width);
      break;
    case Kind::kAmPm:
      text.append(time.hour < 12 ? u"AM" : u"PM");
      break;
  }
}

}  // namespace

void formatTime(const CivilTime& time, TextView format, Text& result) {
  const bool halves = showsHalfOfDay(format);
  result.clear();
  Scanner scanner(format);
  for (Token token; scanner.next(token);) appendToken(result, time, token, halves);
}

}  // namespace LibTarvoCI
