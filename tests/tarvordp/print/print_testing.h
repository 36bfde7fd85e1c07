// A folder with a job, its templates and its data, and the program run on them.
#pragma once

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "equipment/bytes_dump.h"
#include "equipment/temporary_folder.h"
#include "tarvordp/command_line.h"

namespace tarvordp::test {

// What a run of the program left.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

class PrintTest : public testing::Test {
 protected:
  // Nothing is shown on the screen of whoever runs the tests.
  PrintTest() {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
  }

  // Writes a file into the folder.
  void write(const std::string& name, const std::string& content) const {
    folder_.write(tarvo::fromUtf8(name), content);
  }

  // A master-detail job "j.json" and its template; `more` are further keys, each after a comma.
  void writeMasterDetail(const std::string& lines, const std::string& more = "") const {
    write("T.ID", lines);
    write("j.json", R"({"report": "master-detail", "title": "Factura", "directory": ".",
        "template": "T", "profile": {"CanPrintInTextMode": true, "MaxLinPage": 60,
        "ChrFormFeed": "\f", "PrinterName": "file:)" +
                        pathOf("out.prn") + "\"}" + more + "}");
  }

  // A form job "j.json"; its sheets are in UNO.ID, DOS.ID and BORRADOR.ID.
  void writeForm(const std::string& more = "", bool canPrintInTextMode = true) const {
    write("UNO.ID", "uno {A}\n");
    write("DOS.ID", "dos {A}\n");
    write("BORRADOR.ID", "borrador {A}\n");
    write("j.json", R"({"report": "form", "title": "Planilla", "directory": ".",
        "firstSheet": "UNO", "secondSheet": "DOS", "draft": "BORRADOR", "record": {"A": "a"},
        "profile": {"ChrFormFeed": "\f", "PrinterName": "file:)" +
                        pathOf("out.prn") + R"(", "CanPrintInTextMode": )" +
                        (canPrintInTextMode ? "true" : "false") + "}" + more + "}");
  }

  // Runs "tarvordp print j.json ARGUMENT...".
  Outcome print(const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> all{"tarvordp", "print", pathOf("j.json")};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<const char*> pointers;
    for (const std::string& argument : all) pointers.push_back(argument.c_str());
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err, false, errIsTerminal_, inIsTerminal_};
    const int status = run(static_cast<int>(pointers.size()), pointers.data(), console);
    return {status, out.str(), withoutFolder(err.str())};
  }

  // What was printed into a file, as a dump; lines end in "<0D><0A>".
  std::string printed(const std::string& name = "out.prn") const {
    std::string dump = tarvo::test::bytesDump(folder_.contentOf(tarvo::fromUtf8(name)));
    if (dump.ends_with("<0C>\n")) dump.pop_back();  // which the dump alone added
    return dump;
  }

  bool has(const std::string& name) const { return folder_.has(tarvo::fromUtf8(name)); }

  std::string contentOf(const std::string& name) const {
    return folder_.contentOf(tarvo::fromUtf8(name));
  }

  std::string pathOf(const std::string& name) const { return (folder_.path() / name).string(); }

  // Messages with paths of the folder are the same in every run.
  std::string withoutFolder(std::string text) const {
    const std::string head = folder_.path().string() + "/";
    for (auto at = text.find(head); at != std::string::npos; at = text.find(head)) {
      text.erase(at, head.size());
    }
    return text;
  }

  bool errIsTerminal_ = false;
  bool inIsTerminal_ = false;
  tarvo::test::TemporaryFolder folder_;
};

}  // namespace tarvordp::test
