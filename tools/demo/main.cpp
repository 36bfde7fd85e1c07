// Prints the library's test page and both rules into a file, byte for byte as a line printer gets
// them, and shows what a person would read on the paper.
//
//   tarvo-demo [FILE]      Default: demo/test-page.prn beside the program.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "frame/codepage.h"
#include "platform/file/file_spooler.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "tools/demo/watched_spooler.h"

namespace {

using namespace std::string_view_literals;
using namespace tarvo;

struct ControlCode {
  void (clsUtilImp::*set)(TextView);
  TextView code;
};

// The control codes of a 9-pin ESC/P printer.
constexpr ControlCode kProfile[] = {
    {&clsUtilImp::SetChrReset, u"\033@"sv},
    {&clsUtilImp::SetChrFormFeed, u"\f"sv},
    {&clsUtilImp::SetChrNormal, u"\022\033P"sv},
    {&clsUtilImp::SetChrCondensed, u"\017"sv},
    {&clsUtilImp::SetChrInitExpanded, u"\033W\001"sv},
    {&clsUtilImp::SetChrEndExpanded, u"\033W\000"sv},
    {&clsUtilImp::SetChrBold, u"\033E"sv},
    {&clsUtilImp::SetChrLight, u"\033F"sv},
    {&clsUtilImp::SetChrInitUnderlying, u"\033-\001"sv},
    {&clsUtilImp::SetChrEndUnderlying, u"\033-\000"sv},
    {&clsUtilImp::SetChrHighLine1Point, u"\033A\001"sv},
    {&clsUtilImp::SetChrHighLine12Points, u"\0332"sv},
};

void print(clsUtilImp& printer, TextView printerName) {
  printer.sInitializePrinterFileHandle(printerName, u"Página de prueba");
  printer.sPrintTestPage();
  printer.sPrintVerticalRule(2, true);
  printer.sPrintHorizontalRule(true, 8, 13);
  printer.sClosePrinterFileHandle();
}

// The control code at the front of the text, or its first character, which no setter belongs to.
ControlCode frontOf(TextView text) {
  for (const ControlCode& row : kProfile) {
    if (text.starts_with(row.code)) return row;
  }
  return {nullptr, text.substr(0, 1)};
}

// The control codes are left out; so are the empty lines that are one point high.
void showAsRead(TextView text) {
  Text line;
  bool isOnePointHigh = false;
  for (ControlCode front{}; !text.empty(); text.remove_prefix(front.code.size())) {
    front = frontOf(text);
    const bool endsPage = front.set == &clsUtilImp::SetChrFormFeed;
    if (front.set == &clsUtilImp::SetChrHighLine1Point) isOnePointHigh = true;
    if (front.set == &clsUtilImp::SetChrHighLine12Points) isOnePointHigh = false;
    if (front.code == u"\n" || endsPage) {
      const bool isSeen = !line.empty() || !(isOnePointHigh || endsPage);
      if (isSeen) std::printf("  | %s\n", toUtf8(line).c_str());
      if (endsPage) std::printf("  +---- end of the page\n");
      line.clear();
    } else if (front.set == nullptr && front.code != u"\r") {
      line.append(front.code);
    }
  }
}

std::filesystem::path defaultFile() {
  Text folder = applicationFolder();
  std::replace(folder.begin(), folder.end(), u'\\', u'/');
  return std::filesystem::path(folder) / "demo" / "test-page.prn";
}

void printAndShow(const std::filesystem::path& file) {
  std::filesystem::create_directories(file.parent_path());
  const Ref<WatchedSpooler> spooler = make<WatchedSpooler>(makeFileSpooler());
  Ref<clsUtilImp> printer = make<clsUtilImp>(spooler);
  for (const ControlCode& row : kProfile) (*printer.*row.set)(row.code);
  LibTarvoCI::CoreServices().handTo(*make<clsInitLibTarvoRpd>(), printer);
  print(*printer, Text(kFilePrinterPrefix) + file.u16string());

  if (!spooler->failure.empty()) throw std::runtime_error(spooler->failure);
  std::ifstream stream(file, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(stream), {}};
  if (content.size() != spooler->bytes) {
    throw std::runtime_error("the file has " + std::to_string(content.size()) + " bytes, but " +
                             std::to_string(spooler->bytes) + " were printed");
  }
  std::printf("%s\n\n", toUtf8(fDllVersionText()).c_str());
  std::printf("The test page and both rules were printed on a 9-pin ESC/P printer,\n");
  std::printf("which is really a file:  %s\n", file.c_str());
  std::printf("%d job, %zu bytes, ready for such a printer as they are.  On paper:\n\n",
              spooler->jobs, content.size());
  Text text;
  CodePage::ofSystem().decode(content, text);
  showAsRead(text);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
    std::fprintf(stderr, "usage: tarvo-demo [FILE]\n");
    return 2;
  }
  try {
    printAndShow(
        std::filesystem::absolute(argc == 2 ? std::filesystem::path(argv[1]) : defaultFile()));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarvo-demo: nothing to show: %s\n", error.what());
    return 1;
  }
  return 0;
}
