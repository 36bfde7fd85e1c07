// The page writer: how a report's lines become pages.
//
// Every kind of report writes through one of these.  It counts lines and pages, breaks the page,
// decides whether a page lies in the range that is printed, and hands what is written to one of two
// channels: the printer channel (clsUtilImp) where raw text goes to a printer that takes it, the
// graphic channel (clsARObRep) everywhere else.  It knows nothing of templates.
//
// What the kinds of report do differently stands in a class of each: form_page_writer.h and
// master_detail_page_writer.h.  They say when a page is full, how it ends, and how lines are
// skipped.
//
// Counting: the next line's number on the page, from 1; pages from 1.  A page that is written line
// by line breaks before the line whose number is the profile's page length, so it holds one line
// less than that.  Points and open text do not count.
//
// Errors: the operations follow the convention of trapped.h, under the class and the module of the
// report.  Leaving the range of a counter is error 6, after the line that did it was sent.
//
// Threads: the client's.
#pragma once

#include <cstdint>

#include "frame/enums.h"
#include "frame/text.h"
#include "frame/trapped.h"
#include "graphic/clsARObRep.h"

namespace tarvo {

class clsUtilImp;

// What a report does for its writer.
class PageWriterHost {
 public:
  // Whether the line that is being printed carried the word that breaks the page.
  virtual bool skipPageWasRead() const noexcept = 0;

  // Prints the header of a page that was just begun.
  virtual void printPageHeader() = 0;

 protected:
  ~PageWriterHost() = default;
};

class PageWriter : public TrappedObject {
 public:
  // --- The counters, as the report's sInit sets them and afterwards.

  // Page 1, line 1, pages 0 to 9999, nothing printed yet, points allowed, margins 1, 0, 0, 0.
  // The device and the report width stay.
  void initialize() noexcept;

  std::int16_t page() const noexcept { return page_; }
  void setPage(std::int16_t page) noexcept { page_ = page; }
  std::int16_t line() const noexcept { return line_; }

  // Whether a line was sent since initialize().
  bool linePrinted() const noexcept { return linePrinted_; }

  // The pages that are printed, both included.  Open text and form feeds of other pages are not
  // sent.  Lines go by a looser rule: they are kept back only when the first page lies above the
  // last one, and then on the pages between the two.
  void setPageRange(std::int16_t first, std::int16_t last) noexcept;

  void allowPoints(bool allowed) noexcept { pointsAllowed_ = allowed; }

  ePrintingDevice device() const noexcept { return device_; }
  void setDevice(ePrintingDevice device) noexcept { device_ = device; }

  // The fourth margin stands before everything that is written; the others are the engines'.
  void sSetMargins(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t left);

  std::uint8_t reportWidth() const noexcept { return reportWidth_; }
  void setReportWidth(std::uint8_t width) noexcept { reportWidth_ = width; }

  // The graphic channel, for the time that it is open.
  const Ref<clsARObRep>& graphicChannel() const noexcept { return graphic_; }
  void setGraphicChannel(Ref<clsARObRep> channel) noexcept { graphic_ = std::move(channel); }

  // Whether what is written goes to the printer channel.
  bool usesTextChannel() const noexcept;

  // --- Writing.

  // A line; the first two words break a full page before it and print the new page's header.
  // A text of more than 254 characters shows a warning, and is sent whole.
  void sWriteLine(TextView text);
  void sWriteLineNoSkipPage(TextView text);

  // Text that leaves the line open.
  void sOBWrite(TextView text);
  void sOBWriteNoSkipPage(TextView text);

  // --- Pages.

  // Sends the profile's form feed, on the printer channel only.
  void sWriteFormFeed();

  // Whether a line that is written now breaks the page.
  virtual bool fHasToSkipPage() = 0;

  // Ends the page.  `eject`: by a form feed.
  virtual void sSkipPage(bool eject) = 0;

  // Ends the page and prints the header of the next one.
  void sSkipPageAndPrintPageHeader();

  // Whether fewer than that many lines are left on the page.
  // Raises: 6 when the present line and they are more than 255.
  bool fLessOfNLinesAbsentToEndPage(std::uint8_t count);

  // --- Skipping.

  virtual void sSkipNLines(std::uint8_t count) = 0;
  void sSkipNPoints(std::uint8_t count);

  // --- Emphasis: one code of the printer profile each, sent as open text, for a printer only.

  void sWriteBold();
  void sWriteLight();  // its reports carry the name sWriteLine; clients know it by that
  void sWriteExpanded();
  void sWriteCondensed();
  void sWriteNormal();
  void sWriteFont10Points();
  void sWriteFont12Points();
  void sResetPrinter();
  void sPrinterInternationalCharacters();  // an empty code is not sent

  // --- The line that tells when the report was issued.

  void sWriteEmited();
  void sWriteEmitedWithWidth(std::uint8_t width);

  // The width that suits a report with these title columns; 254 for 255 characters and more, 76
  // where the conversion service leaves it open.
  // Raises: 6 when the service's width is no byte.
  std::uint8_t fReportWidthAccordingToTitleColumns(TextView titleColumns);

 protected:
  // `lastLine`: the greatest number that the line counter may have.  Both outlive the writer.
  PageWriter(const ErrorIdentity& report, PageWriterHost& host, std::int16_t lastLine) noexcept;

  PageWriterHost& host() const noexcept { return host_; }
  void beginNextPage();

 private:
  const ErrorIdentity& errorIdentity() const noexcept override { return report_; }

  bool isInRange() const noexcept { return firstPage_ <= page_ && page_ <= lastPage_; }
  bool linesArePrinted() const noexcept { return page_ <= lastPage_ || page_ >= firstPage_; }
  void countLine();
  void warnOfLongLine() const;
  void printLine(TextView text);
  void sendLine(TextView text);
  template <class Send>
  void breakPageAndSend(TextView text, Send send);
  using ProfileText = const Text& (clsUtilImp::*)() const noexcept;
  void writeCode(ProfileText code);
  clsUtilImp* textChannel() const noexcept;

  const ErrorIdentity& report_;
  PageWriterHost& host_;
  Ref<clsARObRep> graphic_;
  std::int16_t page_ = 1;
  std::int16_t line_ = 1;
  std::int16_t firstPage_ = 0;
  std::int16_t lastPage_ = 9999;
  const std::int16_t lastLine_;
  ePrintingDevice device_ = ePD_Printer;
  std::uint8_t firstMargin_ = 1;
  std::uint8_t secondMargin_ = 0;
  std::uint8_t thirdMargin_ = 0;
  std::uint8_t leftMargin_ = 0;
  std::uint8_t reportWidth_ = 0;
  bool linePrinted_ = false;
  bool pointsAllowed_ = true;
};

}  // namespace tarvo
