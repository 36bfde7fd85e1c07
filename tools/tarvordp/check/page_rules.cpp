#include <algorithm>

#include "tarvordp/check/rules.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {
namespace {

constexpr std::size_t kMostBodyLines = 51;
constexpr std::size_t kMostLinesOfASheet = 254;
constexpr std::size_t kHalfLetterLines = 29;

// Printed lines of a section: with and without those that a condition may suppress.
struct Height {
  std::size_t least = 0;
  std::size_t most = 0;
  const TemplateLine* conditional = nullptr;  // the first one

  void add(const TemplateLine& line) {
    const LineFlags flags = flagsOf(line.line);
    most += flags.lines;
    if (!flags.isConditional) {
      least += flags.lines;
    } else if (conditional == nullptr) {
      conditional = &line;
    }
  }
};

std::string pageHolds(std::size_t lines) { return "a page holds " + counted(lines, "line"); }

class MasterDetailRules {
 public:
  explicit MasterDetailRules(RuleContext& context) : context_(context) {
    const PageConstants& constants = context.of.constants;
    if (constants.maxLinPage) {
      pageLength_ = *constants.maxLinPage;
    } else if (context.profile != nullptr) {
      pageLength_ = context.profile->maxLinPage;
    }
  }

  void check() {
    for (const TemplateLine& each : context_.of.lines) add(each);
    tellConditionalHeader();
    tellNoEnd();
    if (marker_ == nullptr || context_.of.bodyLines.value_or(0) <= 0) return;
    tellLargeBodies();
    checkPage();
  }

 private:
  std::size_t bodyLines() const { return static_cast<std::size_t>(*context_.of.bodyLines); }

  void add(const TemplateLine& line) {
    switch (line.section) {
      case Section::kHeader:
        return header_.add(line);
      case Section::kFooter:
        return footer_.add(line);
      case Section::kBody:
        countBodyLine(line, storedBody_, "body");
        return body_.add(line);
      case Section::kInsertBody:
        countBodyLine(line, storedInsert_, "insert body");
        return insert_.add(line);
      case Section::kBodyMarker:
        marker_ = &line;
        return;
      case Section::kInsertBodyMarker:
        insertMarker_ = &line;
        return;
      default:
        return;
    }
  }

  void countBodyLine(const TemplateLine& line, std::size_t& stored, const std::string& name) {
    if (++stored == kMostBodyLines + 1) {
      context_.findings.error({line.line.number, 1},
                              "the " + name + " has more than 51 lines (run-time error 9)");
    }
  }

  // The body's place is measured on the first page alone.
  void tellConditionalHeader() {
    if (header_.conditional == nullptr) return;
    context_.findings.warning({header_.conditional->line.number, 1},
                              "a condition may suppress this line: every page's header must be as "
                              "high as the first one's");
  }

  // The body takes the page's length away once it is reached.
  void tellNoEnd() {
    const PageConstants& constants = context_.of.constants;
    if (marker_ == nullptr || context_.of.bodyLines != 0) return;
    if (constants.isHalfLetter || constants.maxLinPage.value_or(0) == 0) return;
    context_.findings.warning(marker_->line.place(0),
                              "{CUERPO=0} takes every page's end away: NMAXLINPAGINA has no "
                              "effect");
  }

  void tellLargeBodies() {
    if (pageLength_ == 0) return;
    tellLarge(body_.least, *marker_, "a record takes ", false);
    if (insertMarker_ != nullptr) {
      tellLarge(insert_.least, *insertMarker_, "the insert body takes ", true);
    }
  }

  void tellLarge(std::size_t lines, const TemplateLine& at, const std::string& what,
                 bool isInsert) {
    if (lines <= bodyLines()) return;
    std::string message =
        what + counted(lines, "line") + ", {CUERPO=n} has room for " + std::to_string(bodyLines());
    if (isInsert) {
      // The page is broken only when the area is more than full.
      const bool isSplit = lines > bodyLines() + 1;
      message += isSplit ? ": it is split over pages" : ": the footer moves down a line";
      context_.findings.warning({at.line.number, 1}, message);
    } else {
      context_.findings.error({at.line.number, 1}, message);
    }
  }

  // A page is broken before its last line, and half-letter paper has its own length.
  void checkPage() {
    if (pageLength_ == 0) return;  // without end
    const PageConstants& constants = context_.of.constants;
    std::size_t room = 0;
    if (constants.isHalfLetter) {
      room =
          constants.maxLinPage ? static_cast<std::size_t>(*constants.maxLinPage) : kHalfLetterLines;
    } else if (pageLength_ > 0) {
      room = static_cast<std::size_t>(pageLength_) - 1;
    } else {
      return;  // not known
    }
    const std::size_t least = header_.least + bodyLines() + footer_.least;
    const std::size_t most = header_.most + bodyLines() + footer_.most;
    const Place place = marker_->line.place(0);
    const std::string sum = std::to_string(header_.most) + " + " + std::to_string(bodyLines()) +
                            " + " + std::to_string(footer_.most) + " = " + std::to_string(most) +
                            " lines (header, body, footer)";
    const std::string holds =
        constants.isHalfLetter
            ? "a half-letter page holds " + std::to_string(room)
            : "a page of " + counted(room + 1, "line") + " holds " + std::to_string(room);
    if (least > room) {
      context_.findings.error(place, sum + ": " + holds);
    } else if (most > room) {
      context_.findings.warning(place, sum + " when no condition suppresses any: " + holds);
    } else if (pageLength_ > 0 &&
               header_.least + bodyLines() + 1 > static_cast<std::size_t>(pageLength_)) {
      context_.findings.error(place,
                              "header and body reach the page's last line, which breaks "
                              "the page before the footer");
    }
  }

  RuleContext& context_;
  int pageLength_ = -1;  // not known
  Height header_, body_, insert_, footer_;
  std::size_t storedBody_ = 0;
  std::size_t storedInsert_ = 0;
  const TemplateLine* marker_ = nullptr;
  const TemplateLine* insertMarker_ = nullptr;
};

// A form's lines never break a page.
class FormRules {
 public:
  explicit FormRules(RuleContext& context) : context_(context) {}

  void check() {
    for (const TemplateLine& each : context_.of.lines) {
      const LineFlags flags = flagsOf(each.line);
      if (flags.breaksPage && flags.isWritten()) beginPage();
      for (std::size_t i = 0; i < flags.lines && !flags.isConditional; ++i) addLine(each);
    }
  }

 private:
  void beginPage() {
    lines_ = 0;
    isTold_ = false;
  }

  void addLine(const TemplateLine& line) {
    if (++lines_ == kMostLinesOfASheet + 1) {
      context_.findings.error({line.line.number, 1},
                              "more than 254 lines on one page (run-time error 6): SALTAPAGINA "
                              "begins another");
    }
    if (isTold_ || context_.profile == nullptr || context_.profile->maxLinPage == 0) return;
    const std::size_t room = static_cast<std::size_t>(context_.profile->maxLinPage) - 1;
    if (lines_ <= room) return;
    isTold_ = true;
    context_.findings.warning(
        {line.line.number, 1},
        "a form breaks no page by itself, and " + pageHolds(room) + ": SALTAPAGINA begins another");
  }

  RuleContext& context_;
  std::size_t lines_ = 0;
  bool isTold_ = false;
};

}  // namespace

void checkPages(RuleContext& context) {
  if (context.of.kind == TemplateKind::kMasterDetail) {
    MasterDetailRules(context).check();
  } else {
    FormRules(context).check();
  }
}

}  // namespace tarvordp
