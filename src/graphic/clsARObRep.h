// The graphic channel: the second way for a report's lines, besides the printer channel
// (printer/clsUtilImp.h), and driven by the same calls.
//
// It collects the lines as rows of a table (line_table.h).  At the end it hands the table to a
// report component (page_report.h), which lays every row out as a line of fixed-pitch text, and has
// the report utility run it: shown, printed or saved, as the device says.  A page of paper has no
// use for printer control codes: six of them are taken out of every line; what is left stays, and
// shows as marks.
//
// Calling order for one report: sInit, then any number of writes and skips, then once
// sCloseGraphicHandle or sCancelGraphicPrintProcess.
//
// Needs of the services: the text service and the printer channel (for its control codes) with
// every line, the report utility at the end.
//
// Errors: they follow the convention of trapped.h; nothing is rolled back.  Writing before sInit
// and closing twice are error 91, writing after a cancel is 3704.
//
// Threads: the client's.  One report at a time.
#pragma once

#include <cstdint>

#include "frame/borrowed.h"
#include "frame/enums.h"
#include "frame/text.h"
#include "frame/trapped.h"
#include "graphic/line_table.h"
#include "graphic/page_output.h"

namespace tarvo {

class clsARObRep final : public TrappedObject {
 public:
  using MakeLineTable = Ref<LineTable> (*)();

  // Default: the platform's page output, the platform's line tables.
  clsARObRep();
  explicit clsARObRep(Ref<PageOutput> output,
                      MakeLineTable makeLineTable = platform::makeLineTable);
  ~clsARObRep() override;

  // Produces the report from the table: shown modally unless `valShowModeless`.  Nothing happens
  // when the layout cannot be applied.  The table stays as it is, so a report can be produced
  // again.
  //   valShowMsg  has no effect
  void sPrintReport(bool valShowMsg, bool valShowModeless);

  // Begins a report: keeps the three values and starts a new, empty table.
  //   initPhysicalPrinterName  for the device printer, its name; for the disk, "file:PATH" or
  //                            whatever; see page_output.h
  void sInit(TextView initPhysicalPrinterName, TextView initReportTitle,
             ePrintingDevice initPrintingDevice);

  // Starts a new, empty table in the place of the present one.  The name is not used.
  void sInitializeGraphicHandle(TextView valDocumentName);

  // Produces the report, modally, then closes its table, if that is still open, and lets go of it.
  // A report that the client begins on this channel while this one is shown is left alone.
  void sCloseGraphicHandle();

  // Adds a row: the margin's blanks and the text.
  void sWriteLn(TextView valText, std::uint8_t valLeftMargin);

  // The same: here no line can be left open, so every write is a row of its own.
  void sWrite(TextView valText, std::uint8_t valLeftMargin);

  // Adds empty rows, one for each 12 points, rounded to the nearest whole number (halves to even);
  // one row at least.
  void sSkipNPoints(std::uint8_t valNumberOfPoints);

  // Gives the report up: closes the table if it is open.  Nothing is shown or printed.
  void sCancelGraphicPrintProcess();

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;

  void sWriteToGraphicHandle(TextView text);
  bool fConfigReport(Ref<Object>& report);
  void sSetObRepPageSettings(Ref<Object>& report);

  // Has no handler of its own.
  void writeMargined(TextView text, std::uint8_t leftMargin);

  Ref<PageOutput> output_;
  MakeLineTable makeLineTable_;
  Text reportTitle_;
  Text physicalPrinterName_;
  ePrintingDevice printingDevice_ = ePD_Screen;
  Ref<LineTable> lines_;
  bool hasWideLines_ = false;  // of the present table

  // Storage that is kept between writes.  A write borrows it (frame/borrowed.h): a service may come
  // back to this object meanwhile.
  Kept<Text> marginedStorage_;
  Kept<Text> lineStorage_;
  Kept<Text> strippedStorage_;
};

}  // namespace tarvo
