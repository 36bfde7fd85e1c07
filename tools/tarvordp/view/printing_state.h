// The modes of a printer that bear on how characters look, and what each control code of a profile
// does to them.
#pragma once

#include "tarvordp/view/character_set.h"
#include "tarvordp/view/decoder.h"
#include "tarvordp/view/page_model.h"

namespace tarvordp {

class PrintingState {
 public:
  explicit PrintingState(const Profile& profile);

  // Form feeds and initial strings are the caller's matter.
  void apply(CodeSet codes);

  // What some modes do not survive.
  void lineEnds() noexcept;

  Look look() const noexcept;
  int lineHeight() const noexcept { return modes_.lineHeight; }
  CharacterSet characterSet() const noexcept { return modes_.characterSet; }

 private:
  struct Modes {
    bool condensed = false;
    bool twelveAnInch = false;
    bool expanded = false;
    bool bold = false;
    bool underlined = false;
    bool italic = false;
    int lineHeight = kPointsPerLine;
    CharacterSet characterSet = CharacterSet::pc437;
  };

  void applyPitch(CodeSet codes);

  const bool onePitchAtATime_;
  const bool normalSetsTenAnInch_;
  const bool expandedEndsWithLine_;
  const CharacterSet international_;
  Modes modes_;
};

}  // namespace tarvordp
