// The question for the printing mode on a terminal.
#include <unistd.h>

#include <cstdio>
#include <string>

#include "ui/printing_mode_window.h"

namespace tarvo::platform {
namespace {

// A text for the terminal, without the mark of its key.
std::string shown(TextView text) {
  std::string utf8 = toUtf8(text);
  std::erase(utf8, '&');
  return utf8;
}

// The next line without its end; false at the end of the input.
bool readLine(std::string& line) {
  line.clear();
  int c = std::fgetc(stdin);
  for (; c != '\n' && c != EOF; c = std::fgetc(stdin)) line += static_cast<char>(c);
  if (c == EOF) std::clearerr(stdin);  // a terminal goes on after its end key
  return c != EOF || !line.empty();
}

void say(const std::string& text) {
  // A stream that takes nothing must not stop the report.
  static_cast<void>(std::fputs(text.c_str(), stderr));
  static_cast<void>(std::fflush(stderr));
}

class TerminalQuestion final : public PrintingModeWindow {
 public:
  void choose(PrintingModeControl option) override { chosen_ = option; }
  void close() override { isClosed_ = true; }

  void showModal(PrintingModeEvents& events) override {
    if (isatty(STDIN_FILENO) == 0) {
      events.clicked(PrintingModeControl::kContinue);
      return;
    }
    say("[" + shown(kPrintingModeCaption) + "] " + shown(kPrintingModeTitle) + "\n" + "  1 " +
        shown(captionOf(PrintingModeControl::kGraphic)) + "\n" + "  2 " +
        shown(captionOf(PrintingModeControl::kText)) + "\n" + "  0 " +
        shown(captionOf(PrintingModeControl::kCancel)) + "\n");
    std::string answer;
    while (!isClosed_) {
      say(chosen_ == PrintingModeControl::kGraphic ? "1, 2, 0 [1]: " : "1, 2, 0 [2]: ");
      if (!readLine(answer)) return;
      act(answer, events);
    }
  }

 private:
  // What is none of the answers is asked again.
  static void act(const std::string& answer, PrintingModeEvents& events) {
    if (answer == "0") return events.clicked(PrintingModeControl::kCancel);
    if (answer == "1") events.clicked(PrintingModeControl::kGraphic);
    if (answer == "2") events.clicked(PrintingModeControl::kText);
    if (answer.empty() || answer == "1" || answer == "2") {
      events.clicked(PrintingModeControl::kContinue);
    }
  }

  PrintingModeControl chosen_ = PrintingModeControl::kGraphic;
  bool isClosed_ = false;
};

}  // namespace

std::unique_ptr<PrintingModeWindow> makePrintingModeWindow() {
  return std::make_unique<TerminalQuestion>();
}

}  // namespace tarvo::platform
