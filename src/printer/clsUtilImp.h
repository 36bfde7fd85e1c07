// The printer channel: the one object through which every text-mode report reaches a printer.
//
// It is two things in one.  The profile: the printer's name, its page length, and the raw control
// codes by which this model switches its modes.  The job: one raw spooler document at a time, to
// which lines go byte for byte, with the control codes between them.  Nothing is rendered and
// nothing is buffered here: every write is one spooler write, an empty one too.
//
// The library holds no table of printers.  The client makes one object, fills the profile, and
// hands it over (clsInitLibTarvoRpd.h); the profile may change between reports and counts from the
// next write on.
//
// Control codes are raw bytes as text, one character per byte of the system's code page (0 to 255),
// and may hold character 0.  A code that the client leaves empty is sent as nothing.  They pass the
// same replacement of Spanish letters as every text (see below).
//
// Letters: á é í ó ú ñ Ñ º leave as the bytes that line printers have for them (A0 82 A1 A2 A3 A4
// A5 A7, the PC character set); everything else leaves as its byte of the system's code page, and
// what that lacks as "?".
//
// Calling order for one report: sInitializePrinterFileHandle, then any number of writes, skips,
// rules and sSendJobAndStartNewOne, then once sClosePrinterFileHandle or sCancelPrintProcess.
//
// Errors: no spooler call's answer is looked at, but that of opening the printer: an unknown name
// shows a message, and what is written afterwards goes nowhere without a word.  Run-time errors
// (a missing or failing service, an overflow) follow the convention of trapped.h.  Nothing is
// rolled back: an open job stays open.
//
// Threads: the client's.  One report at a time.
#pragma once

#include <cstdint>
#include <string>

#include "frame/borrowed.h"
#include "frame/text.h"
#include "frame/trapped.h"
#include "frame/value.h"
#include "printer/spooler.h"

namespace tarvo {

class clsUtilImp final : public TrappedObject {
 public:
  // Default: the spooler that chooses its back-end by the printer's name.
  clsUtilImp();
  explicit clsUtilImp(Ref<Spooler> spooler);
  ~clsUtilImp() override;

  // --- The profile.  Values are kept as given: none is checked, trimmed or converted.
  // --- Default: empty texts, 0, false.

  // The printer's name as the spooler knows it.
  const Text& GetPrinterName() const noexcept { return printerName_; }
  void SetPrinterName(TextView valNewValue) { printerName_ = valNewValue; }

  // Lines on a page.
  std::uint8_t GetMaxLinPage() const noexcept { return maxLinPage_; }
  void SetMaxLinPage(std::uint8_t valNewValue) noexcept { maxLinPage_ = valNewValue; }

  // Characters per line in condensed print on 80-column paper; kept for the client.
  std::uint8_t GetMaxChrLinCondensed80Columns() const noexcept {
    return maxChrLinCondensed80Columns_;
  }
  void SetMaxChrLinCondensed80Columns(std::uint8_t valNewValue) noexcept {
    maxChrLinCondensed80Columns_ = valNewValue;
  }

  // Ejects the page.
  const Text& GetChrFormFeed() const noexcept { return chrFormFeed_; }
  void SetChrFormFeed(TextView valNewValue) { chrFormFeed_ = valNewValue; }

  // Switches condensed print on.
  const Text& GetChrCondensed() const noexcept { return chrCondensed_; }
  void SetChrCondensed(TextView valNewValue) { chrCondensed_ = valNewValue; }

  // Back to normal width.
  const Text& GetChrNormal() const noexcept { return chrNormal_; }
  void SetChrNormal(TextView valNewValue) { chrNormal_ = valNewValue; }

  // Starts expanded (double-width) print.
  const Text& GetChrInitExpanded() const noexcept { return chrInitExpanded_; }
  void SetChrInitExpanded(TextView valNewValue) { chrInitExpanded_ = valNewValue; }

  // Ends expanded print.
  const Text& GetChrEndExpanded() const noexcept { return chrEndExpanded_; }
  void SetChrEndExpanded(TextView valNewValue) { chrEndExpanded_ = valNewValue; }

  // Starts bold print.
  const Text& GetChrBold() const noexcept { return chrBold_; }
  void SetChrBold(TextView valNewValue) { chrBold_ = valNewValue; }

  // Ends bold print.
  const Text& GetChrLight() const noexcept { return chrLight_; }
  void SetChrLight(TextView valNewValue) { chrLight_ = valNewValue; }

  // Resets the printer.
  const Text& GetChrReset() const noexcept { return chrReset_; }
  void SetChrReset(TextView valNewValue) { chrReset_ = valNewValue; }

  // Starts underlined print.
  const Text& GetChrInitUnderlying() const noexcept { return chrInitUnderlying_; }
  void SetChrInitUnderlying(TextView valNewValue) { chrInitUnderlying_ = valNewValue; }

  // Ends underlined print.
  const Text& GetChrEndUnderlying() const noexcept { return chrEndUnderlying_; }
  void SetChrEndUnderlying(TextView valNewValue) { chrEndUnderlying_ = valNewValue; }

  // Selects the 10-point font.
  const Text& GetChrFont10Points() const noexcept { return chrFont10Points_; }
  void SetChrFont10Points(TextView valNewValue) { chrFont10Points_ = valNewValue; }

  // Selects the 12-point font.
  const Text& GetChrFont12Points() const noexcept { return chrFont12Points_; }
  void SetChrFont12Points(TextView valNewValue) { chrFont12Points_ = valNewValue; }

  // Starts italic print; kept for the client.
  const Text& GetChrInitItalic() const noexcept { return chrInitItalic_; }
  void SetChrInitItalic(TextView valNewValue) { chrInitItalic_ = valNewValue; }

  // Ends italic print; kept for the client.
  const Text& GetChrEndItalic() const noexcept { return chrEndItalic_; }
  void SetChrEndItalic(TextView valNewValue) { chrEndItalic_ = valNewValue; }

  // Sets the line height to one point.
  const Text& GetChrHighLine1Point() const noexcept { return chrHighLine1Point_; }
  void SetChrHighLine1Point(TextView valNewValue) { chrHighLine1Point_ = valNewValue; }

  // Sets the line height back to twelve points, the normal line.
  const Text& GetChrHighLine12Points() const noexcept { return chrHighLine12Points_; }
  void SetChrHighLine12Points(TextView valNewValue) { chrHighLine12Points_ = valNewValue; }

  // The graphics-mode code; kept for the client.
  const Text& GetChrGraphics() const noexcept { return chrGraphics_; }
  void SetChrGraphics(TextView valNewValue) { chrGraphics_ = valNewValue; }

  // Selects the international characters.
  const Text& GetChrInternationalChars() const noexcept { return chrInternationalChars_; }
  void SetChrInternationalChars(TextView valNewValue) { chrInternationalChars_ = valNewValue; }

  // First free initialisation sequence; kept for the client.
  const Text& GetChrInitialString1() const noexcept { return chrInitialString1_; }
  void SetChrInitialString1(TextView valNewValue) { chrInitialString1_ = valNewValue; }

  // Second initialisation sequence; kept for the client.
  const Text& GetChrInitialString2() const noexcept { return chrInitialString2_; }
  void SetChrInitialString2(TextView valNewValue) { chrInitialString2_ = valNewValue; }

  // Third initialisation sequence; kept for the client.
  const Text& GetChrInitialString3() const noexcept { return chrInitialString3_; }
  void SetChrInitialString3(TextView valNewValue) { chrInitialString3_ = valNewValue; }

  // Fourth initialisation sequence; kept for the client.
  const Text& GetChrInitialString4() const noexcept { return chrInitialString4_; }
  void SetChrInitialString4(TextView valNewValue) { chrInitialString4_ = valNewValue; }

  // Whether this printer may be used in text mode at all.
  bool GetCanPrintInTextMode() const noexcept { return canPrintInTextMode_; }
  void SetCanPrintInTextMode(bool valNewValue) noexcept { canPrintInTextMode_ = valNewValue; }

  // --- The job.

  // Hands what was written so far to the spooler as a job of its own, and goes on in a new one of
  // the same name on the same printer.
  void sSendJobAndStartNewOne();

  // Opens the printer and its first job.  An unknown name shows "No se reconoce el nombre de la
  // impresora: " and the name, and raises nothing.  A job that is still open is left to the
  // spooler as it is: the file and CUPS back-ends complete it, Windows keeps it open, unseen.
  void sInitializePrinterFileHandle(TextView valPhysicalPrinterName, TextView valDocumentName);

  // Ends the page and the job, and closes the printer.
  void sClosePrinterFileHandle();

  // Writes a line: the margin's blanks, the text, and the bytes 13 and 10.
  void sWriteLn(TextView valText, std::uint8_t valLeftMargin);

  // The same without a line end.
  void sWrite(TextView valText, std::uint8_t valLeftMargin);

  // Advances the paper by that many line feeds of one point each, then goes back to the normal line
  // height.  Raises: 6 for 255, after the 255 line feeds and before the height is set back.
  void sSkipNPoints(const std::uint8_t& valNumberOfPoints);

  // Writes the reset code.
  void sResetPrinter();

  // Gives the report up: ejects the page, resets the printer, ends and closes the job, so that what
  // was spooled is printed.  Never raises: each step is tried whatever became of the one before.
  void sCancelPrintProcess() noexcept;

  // --- Calibration output, on a job that the caller has opened; left margin 0.

  // Underscores in a row; then, if asked, a line end.  A count of 0 or less writes none.
  // Raises: 6 for 32767, after that many.
  void sPrintUnderscore(std::int16_t valNumberOfUnderscore, bool valSkipLine);

  // A ruler down the page: one long, numbered tick per unit, six steps of two points each.
  // Raises: 6 for more than 5461 units, after the reset.
  void sPrintVerticalRule(std::int16_t valLength, bool valEndWitFormFeed);

  // A ruler across the page, in groups of ten columns, once in normal and once in condensed print.
  // The last line is left open.
  // Raises: 6 for 32767 groups, after that many, and for -32768, in the tens line.
  void sPrintHorizontalRule(bool valDoFormFeed, std::int16_t valLengthNormalRule,
                            std::int16_t valLengthCondensedRule);

  // One page that shows every mode of the profile.
  void sPrintTestPage();

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;

  void sOpenPrinterAndStartJob(TextView name, TextView documentName);
  void sStartJobAndPage();
  void sEndJobAndPageAndClosePrinter();
  void sWriteToFileHandle(TextView text);
  void fReplaceInvalidChars(TextView text, Text& result);
  bool fSendStringToPrinter(TextView text);

  // The pieces of which the writes and the rules are made; they have no handler of their own.
  void writeMargined(TextView text, std::uint8_t leftMargin, TextView end);
  void writeAtOnce(TextView text, std::uint8_t leftMargin, TextView end);
  void sendAtOnce(TextView text, std::uint8_t leftMargin, TextView end);
  void writeVerticalStep(std::int16_t step);
  void writeUnitsLine(std::int16_t groups);
  void writeTensLine(std::int16_t groups);
  Text numberText(const Value& number) const;
  void recordSystemError() const;

  Text printerName_;
  std::uint8_t maxLinPage_ = 0;
  std::uint8_t maxChrLinCondensed80Columns_ = 0;
  Text chrFormFeed_;
  Text chrCondensed_;
  Text chrNormal_;
  Text chrInitExpanded_;
  Text chrEndExpanded_;
  Text chrBold_;
  Text chrLight_;
  Text chrReset_;
  Text chrInitUnderlying_;
  Text chrEndUnderlying_;
  Text chrFont10Points_;
  Text chrFont12Points_;
  Text chrInitItalic_;
  Text chrEndItalic_;
  Text chrHighLine1Point_;
  Text chrHighLine12Points_;
  Text chrGraphics_;
  Text chrInternationalChars_;
  Text chrInitialString1_;
  Text chrInitialString2_;
  Text chrInitialString3_;
  Text chrInitialString4_;
  bool canPrintInTextMode_ = false;
  Ref<Spooler> spooler_;
  PrinterHandle printerHandle_ = 0;  // not cleared on close
  DocumentDescription document_;     // kept for every job of one report

  // Storage that is kept between writes, so that a write allocates nothing once it has grown.
  // A write borrows it (frame/borrowed.h): a service may come back to this object meanwhile.
  Kept<Text> lineStorage_;
  Kept<Text> replacedStorage_;
  Kept<std::string> byteStorage_;
};

}  // namespace tarvo
