// The line buffer of a body: the template lines of one repeating section of a master-detail report,
// and the numbers that place them on the page.
//
// Storage and nothing more: the engine reads the section into it once, and takes the lines from it
// for each record.  It has two of them, one for the body and one for the insert body.
//
// The setters keep what they are given; only the lines' bounds are checked.
//
// Errors: an accessor has no handler (trapped.h); whoever called it reports.
//
// Threads: the client's.
#pragma once

#include <array>
#include <cstdint>

#include "frame/object.h"
#include "frame/text.h"
#include "frame/value.h"

namespace tarvo {

class clsBody final : public Object {
 public:
  // The lines that a section may have.
  static constexpr std::size_t kMostLines = 51;

  // Default: no lines, every number 0, every flag false.
  clsBody();
  ~clsBody() override;

  // The lines as they were read, in their order: an array of 51, and Empty for each that was never
  // set.  A copy.
  Value GetLinesArray() const;

  // Index 0 is the first line.  Raises: 9 outside 0 to 50, and nothing is stored.
  void SetLinesArray(std::int16_t valIndex, TextView valNewValue);

  // How many lines were read, 0 to 51.
  std::int16_t GetNumberOfLinesWithInformation() const noexcept { return linesWithInformation_; }
  void SetNumberOfLinesWithInformation(std::int16_t valNewValue) noexcept {
    linesWithInformation_ = valNewValue;
  }

  // The most body lines that a page may hold; 0 means no limit.
  std::int16_t GetMaxNumberOfLinesToPrint() const noexcept { return mostLinesToPrint_; }
  void SetMaxNumberOfLinesToPrint(std::int16_t valNewValue) noexcept {
    mostLinesToPrint_ = valNewValue;
  }

  // The line of the page at which the body begins.
  std::int16_t GetNumberOfFirstLineOfBody() const noexcept { return firstLineOfBody_; }
  void SetNumberOfFirstLineOfBody(std::int16_t valNewValue) noexcept {
    firstLineOfBody_ = valNewValue;
  }

  // What the variable NUMERAR prints: the text below, or the record's number.
  bool GetUseNumberWithCharacterToTheLeftSide() const noexcept { return usesCharacter_; }
  void SetUseNumberWithCharacterToTheLeftSide(bool valNewValue) noexcept {
    usesCharacter_ = valNewValue;
  }
  const Text& GetCharacterToTheLeftSide() const noexcept { return character_; }
  void SetCharacterToTheLeftSide(TextView valNewValue);

  // The detail record that is being printed, counted from 1.
  std::int16_t GetRecordNumberToPrint() const noexcept { return recordNumber_; }
  void SetRecordNumberToPrint(std::int16_t valNewValue) noexcept { recordNumber_ = valNewValue; }

  // Whether an insert body follows: 0 for no, -1 for yes.
  std::int16_t GetHasInsertBody() const noexcept { return hasInsertBody_; }
  void SetHasInsertBody(std::int16_t valNewValue) noexcept { hasInsertBody_ = valNewValue; }

  // For the engine, without a copy: one line; empty for one that was never set.
  // Raises: 9 outside 0 to 50.
  const Text& line(std::size_t index) const;

 private:
  std::array<Value, kMostLines> lines_;
  Text character_;
  std::int16_t linesWithInformation_ = 0;
  std::int16_t mostLinesToPrint_ = 0;
  std::int16_t firstLineOfBody_ = 0;
  std::int16_t recordNumber_ = 0;
  std::int16_t hasInsertBody_ = 0;
  bool usesCharacter_ = false;
};

}  // namespace tarvo
