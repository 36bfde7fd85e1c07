// The operations of the line buffer, in interface order.
#pragma once

#include "frame/libraries.h"
#include "frame/member_table.h"
#include "reports/clsBody.h"

namespace tarvo {

template <>
struct Members<clsBody> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 7;
  static constexpr const char* name = "clsBody";
  static constexpr const char* help =
      "The line buffer of a body: its template lines and their place on the page";
  static constexpr auto table = memberTable(
      method<&clsBody::GetLinesArray>("GetLinesArray",
                                      "a copy of the 51 lines; Empty where none was set"),
      method<&clsBody::SetLinesArray>("SetLinesArray", "sets one line, 0 to 50", "valIndex",
                                      "valNewValue"),
      property<&clsBody::GetNumberOfLinesWithInformation,
               &clsBody::SetNumberOfLinesWithInformation>("NumberOfLinesWithInformation",
                                                          "how many lines were read"),
      property<&clsBody::GetMaxNumberOfLinesToPrint, &clsBody::SetMaxNumberOfLinesToPrint>(
          "MaxNumberOfLinesToPrint", "the most body lines on a page; 0 means no limit"),
      property<&clsBody::GetNumberOfFirstLineOfBody, &clsBody::SetNumberOfFirstLineOfBody>(
          "NumberOfFirstLineOfBody", "the line of the page at which the body begins"),
      property<&clsBody::GetUseNumberWithCharacterToTheLeftSide,
               &clsBody::SetUseNumberWithCharacterToTheLeftSide>(
          "UseNumberWithCharacterToTheLeftSide",
          "whether NUMERAR prints CharacterToTheLeftSide instead of the record's number"),
      property<&clsBody::GetCharacterToTheLeftSide, &clsBody::SetCharacterToTheLeftSide>(
          "CharacterToTheLeftSide", "what NUMERAR prints instead of the record's number"),
      property<&clsBody::GetRecordNumberToPrint, &clsBody::SetRecordNumberToPrint>(
          "RecordNumberToPrint", "the record that is being printed, counted from 1"),
      property<&clsBody::GetHasInsertBody, &clsBody::SetHasInsertBody>(
          "HasInsertBody", "whether an insert body follows: 0 for no, -1 for yes"));
};

}  // namespace tarvo
