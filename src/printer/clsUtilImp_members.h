// The operations of the printer channel, in interface order.
#pragma once

#include "frame/libraries.h"
#include "frame/member_table.h"
#include "printer/clsUtilImp.h"

namespace tarvo {

template <>
struct Members<clsUtilImp> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 2;
  static constexpr const char* name = "clsUtilImp";
  static constexpr const char* help =
      "The printer channel: printer profile, raw spooler job, rules and test page";
  static constexpr auto table = memberTable(
      property<&clsUtilImp::GetPrinterName, &clsUtilImp::SetPrinterName>(
          "PrinterName", "the printer's name as the spooler knows it"),
      property<&clsUtilImp::GetMaxLinPage, &clsUtilImp::SetMaxLinPage>("MaxLinPage",
                                                                       "lines on a page"),
      property<&clsUtilImp::GetMaxChrLinCondensed80Columns,
               &clsUtilImp::SetMaxChrLinCondensed80Columns>(
          "MaxChrLinCondensed80Columns",
          "characters per line in condensed print on 80-column paper; kept for the client"),
      property<&clsUtilImp::GetChrFormFeed, &clsUtilImp::SetChrFormFeed>("ChrFormFeed",
                                                                         "ejects the page"),
      property<&clsUtilImp::GetChrCondensed, &clsUtilImp::SetChrCondensed>(
          "ChrCondensed", "switches condensed print on"),
      property<&clsUtilImp::GetChrNormal, &clsUtilImp::SetChrNormal>("ChrNormal",
                                                                     "back to normal width"),
      property<&clsUtilImp::GetChrInitExpanded, &clsUtilImp::SetChrInitExpanded>(
          "ChrInitExpanded", "starts expanded (double-width) print"),
      property<&clsUtilImp::GetChrEndExpanded, &clsUtilImp::SetChrEndExpanded>(
          "ChrEndExpanded", "ends expanded print"),
      property<&clsUtilImp::GetChrBold, &clsUtilImp::SetChrBold>("ChrBold", "starts bold print"),
      property<&clsUtilImp::GetChrLight, &clsUtilImp::SetChrLight>("ChrLight", "ends bold print"),
      property<&clsUtilImp::GetChrReset, &clsUtilImp::SetChrReset>("ChrReset",
                                                                   "resets the printer"),
      property<&clsUtilImp::GetChrInitUnderlying, &clsUtilImp::SetChrInitUnderlying>(
          "ChrInitUnderlying", "starts underlined print"),
      property<&clsUtilImp::GetChrEndUnderlying, &clsUtilImp::SetChrEndUnderlying>(
          "ChrEndUnderlying", "ends underlined print"),
      property<&clsUtilImp::GetChrFont10Points, &clsUtilImp::SetChrFont10Points>(
          "ChrFont10Points", "selects the 10-point font"),
      property<&clsUtilImp::GetChrFont12Points, &clsUtilImp::SetChrFont12Points>(
          "ChrFont12Points", "selects the 12-point font"),
      property<&clsUtilImp::GetChrInitItalic, &clsUtilImp::SetChrInitItalic>(
          "ChrInitItalic", "starts italic print; kept for the client"),
      property<&clsUtilImp::GetChrEndItalic, &clsUtilImp::SetChrEndItalic>(
          "ChrEndItalic", "ends italic print; kept for the client"),
      property<&clsUtilImp::GetChrHighLine1Point, &clsUtilImp::SetChrHighLine1Point>(
          "ChrHighLine1Point", "sets the line height to one point"),
      property<&clsUtilImp::GetChrHighLine12Points, &clsUtilImp::SetChrHighLine12Points>(
          "ChrHighLine12Points", "sets the line height back to twelve points, the normal line"),
      property<&clsUtilImp::GetChrGraphics, &clsUtilImp::SetChrGraphics>(
          "ChrGraphics", "the graphics-mode code; kept for the client"),
      property<&clsUtilImp::GetChrInternationalChars, &clsUtilImp::SetChrInternationalChars>(
          "ChrInternationalChars", "selects the international characters"),
      property<&clsUtilImp::GetChrInitialString1, &clsUtilImp::SetChrInitialString1>(
          "ChrInitialString1", "first free initialisation sequence; kept for the client"),
      property<&clsUtilImp::GetChrInitialString2, &clsUtilImp::SetChrInitialString2>(
          "ChrInitialString2", "second initialisation sequence; kept for the client"),
      property<&clsUtilImp::GetChrInitialString3, &clsUtilImp::SetChrInitialString3>(
          "ChrInitialString3", "third initialisation sequence; kept for the client"),
      property<&clsUtilImp::GetChrInitialString4, &clsUtilImp::SetChrInitialString4>(
          "ChrInitialString4", "fourth initialisation sequence; kept for the client"),
      property<&clsUtilImp::GetCanPrintInTextMode, &clsUtilImp::SetCanPrintInTextMode>(
          "CanPrintInTextMode", "whether this printer may be used in text mode at all"),
      method<&clsUtilImp::sSendJobAndStartNewOne>(
          "sSendJobAndStartNewOne", "hands what was written to the spooler, goes on in a new job"),
      method<&clsUtilImp::sInitializePrinterFileHandle>(
          "sInitializePrinterFileHandle", "opens the printer and its first job",
          "valPhysicalPrinterName", "valDocumentName"),
      method<&clsUtilImp::sClosePrinterFileHandle>("sClosePrinterFileHandle",
                                                   "ends the job and closes the printer"),
      method<&clsUtilImp::sWriteLn>("sWriteLn", "writes a line", "valText", "valLeftMargin"),
      method<&clsUtilImp::sWrite>("sWrite", "writes text and leaves the line open", "valText",
                                  "valLeftMargin"),
      method<&clsUtilImp::sSkipNPoints>("sSkipNPoints", "advances the paper by points",
                                        "valNumberOfPoints"),
      method<&clsUtilImp::sResetPrinter>("sResetPrinter", "writes the reset code"),
      method<&clsUtilImp::sCancelPrintProcess>("sCancelPrintProcess", "gives the report up"),
      method<&clsUtilImp::sPrintUnderscore>("sPrintUnderscore", "writes a row of underscores",
                                            "valNumberOfUnderscore", "valSkipLine"),
      method<&clsUtilImp::sPrintVerticalRule>("sPrintVerticalRule", "prints a ruler down the page",
                                              "valLength", "valEndWitFormFeed"),
      method<&clsUtilImp::sPrintHorizontalRule>("sPrintHorizontalRule",
                                                "prints a ruler across the page", "valDoFormFeed",
                                                "valLengthNormalRule", "valLengthCondensedRule"),
      method<&clsUtilImp::sPrintTestPage>("sPrintTestPage",
                                          "prints a page that shows every mode of the profile"));
};

}  // namespace tarvo
