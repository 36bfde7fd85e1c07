// Stand-in of the text service.
//
// Every operation goes over its text once and needs no memory but the result's own, which is used
// again when it is large enough.  "Blank" is character 32 and nothing else.
//
// Raises: 5 for a position below 1, a negative count, width or distance, and where an operation
// says so; 6 for a position or length past 2,147,483,647; 7 for a result that memory cannot hold.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsTexto final : public tarvo::clsTexto {
 public:
  // The position of the searched text at or after the start, 0 when there is none or nothing is
  // searched.  Exact comparison.
  std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) override;

  // A count of 0 means to the end; a start past the end gives an empty text.
  void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount, Text& result) override;

  std::int32_t fLength(TextView valText) override;

  // Without the blanks at both ends.
  void fTrim(TextView valText, Text& result) override;

  // Left to right, the inserted text not searched again; an empty old text changes nothing.
  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override;

  // The same as fReplaceAll for each, in one pass when every replacement is one character by one.
  void replaceEach(TextView text, std::span<const Replacement> replacements, Text& result) override;

  // Empty items are kept.  An empty text, and an empty separator, give the text as the one item.
  void fSplit(TextView valText, TextView valSeparator, TextList& result) override;

  // Without the characters from valStart through valStart + valDistance, both included.
  void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
               Text& result) override;

  // A position past the end appends.
  void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
               Text& result) override;

  // Without every occurrence of valCharacter's first character; an empty one removes nothing.
  void fStrip(TextView valText, TextView valCharacter, Text& result) override;

  // valCharacter's first character that many times.  Raises: 5 when it is empty.
  void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) override;

  // Alignment never cuts: what is longer than the width comes back without the blanks that the
  // alignment takes off, but whole.

  // Blanks at its end off, then filled with blanks on the right; blanks before it are kept.  But a
  // text that fills the width and has blanks before and none behind, as a number field has, gets
  // them moved behind it.
  void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) override;
  // Blanks at its end off, then filled with blanks on the left.
  void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) override;
  // Blanks at both ends off, then filled on both sides, the odd one behind.
  void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) override;

  // Exactly the width: cut at its right end, or filled on the right with valFill over and over.
  // Raises: 5 when something must be filled and valFill is empty.
  void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill, Text& result) override;

  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override;

  // As fAlignRight, then cut at its right end when it is longer.
  void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) override;

  // Never true for an empty marker.
  bool fHolds(TextView valText, TextView valMarker) override;

  bool mayBeBypassed() const noexcept override { return true; }
};

}  // namespace LibTarvoCI
