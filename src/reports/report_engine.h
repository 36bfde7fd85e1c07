// What the two report engines have in common: the template, the line that is being worked on, the
// output it goes to, and what the operator is told.
//
// Not an engine by itself: it holds the pieces, and each engine calls them in its own order.  How
// lines become pages is the page writer's (page_writer.h), how a line is resolved the translator's
// (template/line_translator.h).
//
// Errors: the operations follow the convention of trapped.h, under the engine's class.
//
// Threads: the client's.
#pragma once

#include "frame/date.h"
#include "frame/trapped.h"
#include "reports/page_writer.h"
#include "reports/report_names.h"
#include "reports/report_ports.h"
#include "template/clsObLineCharacts.h"
#include "template/line_translator.h"

namespace tarvo {

class ReportEngine : public TrappedObject, protected PageWriterHost, protected VariableSource {
 public:
  // The line that is being worked on; empty while there is none.
  const Ref<clsObLineCharacts>& GetLineToWrite() const noexcept { return line_; }

 protected:
  explicit ReportEngine(ReportPorts ports);
  ~ReportEngine() override;

  // --- The template.

  // Directory, name and ".ID", with nothing between.  Valid until the next call.
  const Text& fFileName() const;

  // As the file service says.
  bool templateExists() const;

  // Tells the operator that the template is missing.
  void sSendAlertIDNotFound() const;

  // A template that is being read; closes it whatever happens.
  class Reading {
   public:
    // Raises: what the port raises.
    Reading(TextFiles& files, TextView path) : stream_(files.OpenTextFile(path)) {}
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading();

    TextStream* operator->() const { return stream_.operator->(); }

    // Raises: what closing raises.
    void close();

   private:
    Ref<TextStream> stream_;
  };

  TextFiles& files() const { return *ports_.files; }

  // --- The printer.

  // Whether a printer is chosen; says so if not.
  bool fCurrentPrinterAlreadySelected(bool showMessages) const;

  // Begins and ends what is written as one job or one page report.
  void openOutput();
  void closeOutput();

  // --- Lines.

  // Resolves the template line into the line object.  Raises: 91 without one.
  void translate(TextView templateLine);

  // Writes the line object as its flags say.
  void sPrintLine();

  // What the engine does for this class.
  virtual PageWriter& writer() noexcept = 0;
  virtual void displayPause() = 0;

  ReportNames names_;
  Date issueDate_{};  // kept; no step reads it
  Ref<clsObLineCharacts> line_;

 private:
  bool skipPageWasRead() const noexcept final;
  void setText(clsObLineCharacts& line, TextView text) final;
  void writeLineAsAsked(TextView text);
  void writeLines();
  void writeOpenText();

  ReportPorts ports_;
  LineTranslator translator_;
  mutable Text path_;  // storage of fFileName
};

}  // namespace tarvo
