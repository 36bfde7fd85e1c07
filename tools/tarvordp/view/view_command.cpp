// tarvordp view
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tarvordp/command_line.h"
#include "tarvordp/interruption.h"
#include "tarvordp/profile/code_text.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/view/character_set.h"
#include "tarvordp/view/page_files.h"
#include "tarvordp/view/page_model.h"
#include "tarvordp/view/terminal_form.h"
#include "tarvordp/view/text_form.h"
#include "tarvordp/whole_file.h"

namespace tarvordp {
namespace {

struct ViewOptions {
  std::string file;
  std::string profile;
  std::string pictures;
  std::string pdf;
  bool text = false;
  bool greenBars = false;
  int lines = 0;
};

// What must be known before the first page is shown.
struct Survey {
  std::size_t pages = 0;
  int pageHeight = 0;
  int widestLine = 0;
  int lowestInk = 0;  // points below the page's top
};

Survey survey(const std::string& bytes, const Profile& profile) {
  Survey found;
  makePages(bytes, profile, [&](const Page& page) {
    ++found.pages;
    found.pageHeight = page.height;
    for (const Line& line : page.lines) {
      const int width = widthOf(line);
      found.widestLine = std::max(found.widestLine, width);
      if (width > 0) found.lowestInk = std::max(found.lowestInk, line.top + kPointsPerLine);
    }
  });
  return found;
}

class Viewing {
 public:
  Viewing(const ViewOptions& options, Console& console)
      : options_(options), console_(console), profile_(findProfile(options.profile, {})) {
    if (options.lines > 0) profile_.maxLinPage = static_cast<std::uint8_t>(options.lines);
    bytes_ = readWholeFile(options.file);
    found_ = survey(bytes_, profile_);
    tellUnknownSet();
  }

  int show() {
    const bool drawn = !options_.pictures.empty() || !options_.pdf.empty();
    if (found_.pages == 0) {
      console_.err << "tarvordp: " << options_.file
                   << ": nothing was printed, so there is no page\n";
      return drawn ? kNotPrinted : kDone;
    }
    if (options_.text) {
      makePages(bytes_, profile_, [&](const Page& page) { writeText(console_.out, page); });
    } else if (!drawn) {
      showOnTerminal();
    }
    if (drawn) drawFiles();
    return kDone;
  }

 private:
  void tellUnknownSet() {
    const std::string code = bytesSent(profile_, ControlCode::internationalChars);
    const SetSelection selection = selectedBy(code);
    if (selection.unknown.empty()) return;
    console_.err << "tarvordp: the profile's character set (ChrInternationalChars, "
                 << hexOf(selection.unknown)
                 << ") is not known here: letters beyond ASCII are shown "
                 << "as those of " << nameOf(selection.set) << '\n';
  }

  void showOnTerminal() {
    std::size_t number = 0;
    makePages(bytes_, profile_, [&](const Page& page) {
      writeForTerminal(console_.out, page, ++number, found_.pages, console_.outIsTerminal);
    });
  }

  void drawFiles() {
    Paper paper = paperFor(found_.widestLine, found_.pageHeight);
    paper.greenBars = options_.greenBars;
    paper.printedTop = printedTopFor(found_.lowestInk, found_.pageHeight);
    std::vector<std::unique_ptr<PageFiles>> files;
    if (!options_.pictures.empty()) files.push_back(makePictures(options_.pictures, paper));
    if (!options_.pdf.empty()) files.push_back(makePdf(options_.pdf, paper));
    std::size_t number = 0;
    const Interruption interruption;
    makePages(bytes_, profile_, [&](const Page& page) {
      if (Interruption::isAskedFor())
        throw CannotWrite("interrupted: what was not whole is removed");
      showProgress(++number);
      for (const auto& each : files) each->add(page);
    });
    for (const auto& each : files) each->finish();
    if (console_.errIsTerminal) console_.err << "\r\033[K";
    tellFiles();
  }

  void showProgress(std::size_t number) {
    if (!console_.errIsTerminal) return;
    console_.err << "\rpage " << number << " of " << found_.pages << std::flush;
  }

  void tellFiles() {
    if (!options_.pictures.empty()) {
      console_.err << options_.pictures << "-1.png";
      if (found_.pages > 1)
        console_.err << " to " << options_.pictures << '-' << found_.pages << ".png";
      console_.err << " written\n";
    }
    if (!options_.pdf.empty()) {
      console_.err << options_.pdf << " written, " << found_.pages
                   << (found_.pages == 1 ? " page\n" : " pages\n");
    }
  }

  const ViewOptions& options_;
  Console& console_;
  Profile profile_;
  std::string bytes_;
  Survey found_;
};

int view(const ViewOptions& options, Console& console) {
  try {
    return Viewing(options, console).show();
  } catch (const CannotWrite& failure) {
    console.err << "tarvordp: " << failure.what() << '\n';
    return kNotPrinted;
  }
}

}  // namespace

void addViewCommand(CLI::App& program, Console& console, int& status) {
  CLI::App* command =
      program.add_subcommand("view", "Show printed bytes as the pages that leave the printer");
  command->footer(
      "Without --png, --pdf and --text the pages are shown here.  Codes that the profile does not\n"
      "know are shown as bytes with their arguments, <1B 43 21>, graphics by their size, and as\n"
      "<1B 6B ?> where the language of the profile's printer does not tell how long the code is:\n"
      "what follows may belong to it.\n\n"
      "Exit status:\n"
      "  0  shown\n"
      "  1  a file could not be written, or there is no page to write, or it was interrupted\n"
      "  2  wrong arguments, profile or file\n"
      "  3  the standard output was not written whole\n\n"
      "Examples:\n"
      "  tarvordp view invoice.prn --profile epson-9pin\n"
      "  tarvordp view invoice.prn --profile epson-9pin --png invoice\n"
      "  tarvordp view - --profile ibm-proprinter --text < ledger.prn | grep Total");
  auto options = std::make_shared<ViewOptions>();
  command
      ->add_option("FILE", options->file,
                   "Bytes as the printer gets them; - reads the standard input")
      ->required();
  command
      ->add_option("--profile", options->profile,
                   "The profile that printed them: a shipped one's name, or a file's path")
      ->required()
      ->type_name("PROFILE");
  command->add_option("--png", options->pictures, "Draw each page: PREFIX-1.png, PREFIX-2.png ...")
      ->type_name("PREFIX");
  command->add_option("--pdf", options->pdf, "Draw the pages into a PDF file")->type_name("FILE");
  command->add_flag("--text", options->text,
                    "Only the lines that were printed, as plain text (UTF-8)");
  command
      ->add_option("--lines", options->lines,
                   "Lines on a page; for half-letter paper (MEDIACARTA) the template's "
                   "NMAXLINPAGINA, or 29 if it has none; default: the profile's MaxLinPage")
      ->check(CLI::Range(1, 255))
      ->type_name("N");
  command->add_flag("--green-bars", options->greenBars, "Draw on paper with green bars");
  command->callback([options, &console, &status] { status = view(*options, console); });
}

}  // namespace tarvordp
