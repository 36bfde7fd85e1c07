// What the formatting of a value has to do, step by step, in the plainest way: the yardstick for
// every combination of kind, value, width and attributes.
//
// It knows nothing of the classes that it judges.  It has recording services of its own, so its
// calls can be compared with theirs one by one.
#pragma once

#include <algorithm>
#include <string>

#include "equipment/recording_services.h"
#include "services/clsConvert.h"
#include "services/clsTexto.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"

namespace tarvo::test {

struct FormatCase {
  eTypeFieldRecord kind = TFR_String;
  Text text;  // of a string or an enumeration
  Currency number;
  bool parenthesis = false;
  Date date;
  bool boolean = false;

  eAlignmentType alignment = eAT_Left;
  std::uint8_t length = 0;
  std::uint8_t decimals = 0;
  bool printComa = true;
  bool printZero = true;
  bool notSpacesToTheSides = false;
  bool fillWithZero = false;
  bool commasAndDot = false;
  bool repeat = false;
  bool hasIif = false;         // IIF("S" "C",Uno dos,"Ningun"o)
  bool hasDateFormat = false;  // d mmmm
  bool hasPattern = false;     // B: one blank in every gap
};

class ExpectedFormat {
 public:
  explicit ExpectedFormat(const FormatCase& c) : c_(c) { run(); }

  // "error 6" and so on when it fails.
  const std::string& result() const { return result_; }
  const CallLog& calls() const { return calls_; }

 private:
  struct Failure {
    int number;
  };

  void run() try {
    formatByKind();
    align();
    if (c_.notSpacesToTheSides) put([&](Text& to) { texto_->fTrim(text_, to); });
    if (c_.fillWithZero && c_.kind == TFR_Numeric) {
      put([&](Text& to) { texto_->fReplaceAll(text_, u" ", u"0", to); });
    }
    if (c_.hasPattern) spread();
    result_ = toUtf8(text_);
  } catch (const Failure& failure) {
    result_ = "error " + std::to_string(failure.number);
  }

  template <class Make>
  void put(Make make) {
    Text made;
    make(made);
    text_ = made;
  }

  bool isBlankZero() const { return !c_.printZero && c_.number.tenThousandths == 0; }

  void formatByKind() {
    switch (c_.kind) {
      case TFR_Numeric:
        return formatNumber();
      case TFR_Enum:
        if (!c_.hasIif) throw Failure{13};
        return choose(c_.text == u"S" || c_.text == u"C");
      case TFR_Date:
        return put([&](Text& to) {
          if (c_.hasDateFormat) {
            dates_->fFormatDate(c_.date, u"d mmmm", to);
          } else {
            dates_->fDefaultDateText(c_.date, to);
          }
        });
      case TFR_Boolean:
        put([&](Text& to) { convert_->fBooleanToText(c_.boolean, to); });
        if (c_.hasIif) choose(c_.boolean);
        return;
      default:
        return formatString();
    }
  }

  void formatNumber() {
    if (isBlankZero()) return;
    if (c_.printComa) {
      put([&](Text& to) {
        if (c_.commasAndDot) {
          convert_->fFormatNumberCommaDot(c_.number, c_.length, c_.decimals, c_.parenthesis, to);
        } else {
          convert_->fFormatNumberDotComma(c_.number, c_.length, c_.decimals, c_.parenthesis, to);
        }
      });
      return;
    }
    const Currency value = c_.decimals > 0 ? c_.number : math_->fRound(c_.number, 0);
    put([&](Text& to) { convert_->fNumberToText(Value(value), to); });
    put([&](Text& to) { texto_->fAlignRight(text_, c_.length, to); });
  }

  void formatString() {
    if (c_.length == 0) {
      text_ = c_.text;
    } else if (c_.repeat && c_.text.size() == 1) {
      put([&](Text& to) { texto_->fRepeat(c_.text, c_.length, to); });
    } else {
      put([&](Text& to) { texto_->fPadOrCut(c_.text, c_.length, u" ", to); });
    }
  }

  void choose(bool first) {
    put([&](Text& to) {
      texto_->fReplaceAll(first ? u"Uno dos" : u"\"Ningun\"o", u"\"", u"", to);
    });
  }

  void align() {
    if (c_.length == 0) return;
    if (c_.kind == TFR_Numeric && c_.alignment == eAT_Right && !isBlankZero()) return;
    switch (c_.alignment) {
      case eAT_Right:
        return put([&](Text& to) { texto_->fAlignRight(text_, c_.length, to); });
      case eAT_Left:
        return put([&](Text& to) { texto_->fAlignLeft(text_, c_.length, to); });
      case eAT_Center:
        return put([&](Text& to) { texto_->fAlignCenter(text_, c_.length, to); });
      case eAT_Justify:
        return justify();
    }
  }

  // A pass widens every gap by one blank.  One that leaves the text more than one character short
  // ends in the overflow; one that adds nothing is the last.
  void justify() {
    const std::size_t width = c_.length;
    put([&](Text& to) { texto_->fTrim(text_, to); });
    std::size_t before = 0;
    while (text_.size() < width && before < text_.size()) {
      before = text_.size();
      for (std::size_t i = 0; i + 1 < text_.size(); ++i) {
        if (text_[i] != u' ' || text_[i + 1] == u' ') continue;
        put([&](Text& to) { texto_->fInsert(text_, u" ", static_cast<std::int32_t>(i) + 1, to); });
        ++i;
      }
      if (text_.size() + 1 < width) throw Failure{6};
    }
  }

  void spread() {
    Text all = text_.substr(0, 1);
    for (std::size_t i = 1; i < text_.size(); ++i) {
      TextList elements;
      texto_->fSplit(u"B", u"-", elements);
      Text blank;
      texto_->fRepeat(u" ", 1, blank);
      all += blank + text_[i];
    }
    text_ = all;
  }

  const FormatCase& c_;
  CallLog calls_;
  Ref<RecordingTexto> texto_ = make<RecordingTexto>(calls_, make<LibTarvoCI::clsTexto>());
  Ref<RecordingConvert> convert_ = make<RecordingConvert>(calls_, make<LibTarvoCI::clsConvert>());
  Ref<RecordingDate> dates_ = make<RecordingDate>(calls_, make<LibTarvoCI::clsUtilDate>());
  Ref<RecordingMath> math_ = make<RecordingMath>(calls_, make<LibTarvoCI::clsUtilMathOperations>());
  Text text_;
  std::string result_;
};

}  // namespace tarvo::test
