// The operations of the template line, in interface order.
#pragma once

#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "template/clsObLineCharacts.h"
#include "template/clsObSpecialVar_members.h"

namespace tarvo {

template <>
struct Members<clsObLineCharacts> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 4;
  static constexpr const char* name = "clsObLineCharacts";
  static constexpr const char* help = "A template line while it is resolved";
  static constexpr auto table = memberTable(
      property<&clsObLineCharacts::GetTextToWrite, &clsObLineCharacts::SetTextToWrite>(
          "TextToWrite", "the line, with values in the place of the variables resolved so far"),
      property<&clsObLineCharacts::GetSpecialVar, &clsObLineCharacts::SetSpecialVar>(
          "SpecialVar", "the variable that is being resolved"),
      property<&clsObLineCharacts::GetAlignment, &clsObLineCharacts::SetAlignment>(
          "Alignment", "the line's alignment"),
      property<&clsObLineCharacts::GetHasTab, &clsObLineCharacts::SetHasTab>(
          "HasTab", "whether the word TAB was read"),
      property<&clsObLineCharacts::GetTabPos, &clsObLineCharacts::SetTabPos>("TabPos",
                                                                             "the tab's position"),
      property<&clsObLineCharacts::GetSkipLine, &clsObLineCharacts::SetSkipLine>(
          "SkipLine", "whether the line ends with line feeds"),
      property<&clsObLineCharacts::GetSkipNPoints, &clsObLineCharacts::SetSkipNPoints>(
          "SkipNPoints", "whether the paper advances by points after the line"),
      property<&clsObLineCharacts::GetNumberOfSkips, &clsObLineCharacts::SetNumberOfSkips>(
          "NumberOfSkips", "how many line feeds or points"),
      property<&clsObLineCharacts::GetPrintLine, &clsObLineCharacts::SetPrintLine>(
          "PrintLine", "whether the line is printed"),
      property<&clsObLineCharacts::GetSkipPageWasRead, &clsObLineCharacts::SetSkipPageWasRead>(
          "SkipPageWasRead", "whether the line breaks the page"),
      property<&clsObLineCharacts::GetPauseWasRead, &clsObLineCharacts::SetPauseWasRead>(
          "PauseWasRead", "whether the line is a comment that asks for a pause"),
      property<&clsObLineCharacts::GetLineToWriteEmpty, &clsObLineCharacts::SetLineToWriteEmpty>(
          "LineToWriteEmpty", "whether the line is printed as an empty one"),
      method<&clsObLineCharacts::sClrRecord>("sClrRecord",
                                             "an empty line that ends with one line feed"),
      method<&clsObLineCharacts::sExtractSpecialVar>(
          "sExtractSpecialVar", "has the variable read the first variable of a line", "valLine"),
      method<&clsObLineCharacts::sExtractComment>("sExtractComment", "takes the text of a comment",
                                                  "valLine"),
      method<&clsObLineCharacts::sFormatSpecialVar>("sFormatSpecialVar",
                                                    "has the variable format its value"),
      method<&clsObLineCharacts::sReplaceVarInTextToWrite>(
          "sReplaceVarInTextToWrite", "puts the formatted value in the variable's place"),
      method<&clsObLineCharacts::fSpecialVarIsAnyControlChar>(
          "fSpecialVarIsAnyControlChar",
          "whether the text is a control word; applies it and gives what goes to the printer",
          "valText", "refContent"),
      method<&clsObLineCharacts::fCheckAnyPrintingControlVarInCommentary>(
          "fCheckAnyPrintingControlVarInCommentary", "whether a comment's text is the pause word",
          "valText"),
      method<&clsObLineCharacts::GetField>("GetField", "the variable's field name"),
      method<&clsObLineCharacts::GetTextToPrint>("GetTextToPrint", "what is printed"),
      method<&clsObLineCharacts::fNumberOfPrintedLinesThatWillFill>(
          "fNumberOfPrintedLinesThatWillFill", "how many printed lines the line takes"));
};

}  // namespace tarvo
