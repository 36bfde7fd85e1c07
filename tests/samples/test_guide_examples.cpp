// The examples of the guides: what is taken from a file of the project stands in it, and the
// callbacks come in the order that the client's guide tells.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "equipment/golden.h"
#include "equipment/temporary_folder.h"
#include "frame/clsImplementIDMD.h"
#include "frame/codepage.h"
#include "frame/run_time_error.h"
#include "guide_blocks.h"
#include "printer/clsUtilImp.h"
#include "reports/clsObRepMasterDetail.h"
#include "services/all.h"
#include "template/clsObLineCharacts.h"

namespace tarvo::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kGuide = "clients-guide.md";

// Files for Windows are in its code page.
bool isInCodePage(const std::string& path) {
  return path.ends_with(".vbs") || path.ends_with(".js") || path.ends_with(".ID");
}

std::string contentOf(const std::string& path) {
  std::ifstream file(TARVO_ROOT "/" + path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  std::erase(content, '\r');
  if (!isInCodePage(path)) return content;
  Text text;
  CodePage::ofSystem().decode(content, text);
  return toUtf8(text);
}

// Gives how many there are.
int expectTakenBlocksToStandInTheirFiles(const std::string& guide) {
  int taken = 0;
  for (const GuideBlock& block : blocksOfGuide(guide)) {
    if (block.file.empty()) continue;
    ++taken;
    EXPECT_THAT("\n" + contentOf(block.file), HasSubstr("\n" + block.text))
        << guide << ":" << block.line;
  }
  return taken;
}

TEST(GuideExamples, StandInTheFilesThatTheyAreTakenFrom) {
  EXPECT_GE(expectTakenBlocksToStandInTheirFiles(kGuide), 6);
  EXPECT_GE(expectTakenBlocksToStandInTheirFiles("architecture.md"), 1);
}

// --- The errors.

// Rows "| 6 | Overflow | ..." of those errors that have a text of the library's.
TEST(GuideExamples, OfErrorsHaveTheirTexts) {
  std::ifstream guide(std::string(TARVO_ROOT "/docs/") + kGuide);
  int rows = 0;
  for (std::string line; std::getline(guide, line);) {
    const int number = line.starts_with("| ") ? std::atoi(line.c_str() + 2) : 0;
    const std::string text = number == 0 ? "" : toUtf8(describeErrorNumber(number));
    if (number == 0 || text.starts_with("Run-time error")) continue;
    ++rows;
    EXPECT_THAT(line, StartsWith("| " + std::to_string(number) + " | " + text + " |"));
  }
  EXPECT_GE(rows, 12);
}

// --- The order of the callbacks.

std::string onlyBlock(const char* language) {
  std::string text;
  int count = 0;
  for (const GuideBlock& block : blocksOfGuide(kGuide)) {
    if (block.language != language) continue;
    text = block.text;
    ++count;
  }
  EXPECT_EQ(count, 1) << language;
  return text;
}

// Without what is explained behind "#", and blanks before it.
std::string withoutRemarks(const std::string& text) {
  std::istringstream lines(text);
  std::string result;
  for (std::string line; std::getline(lines, line);) {
    line.erase(std::min(line.find('#'), line.size()));
    line.erase(line.find_last_not_of(' ') + 1);
    result += line + '\n';
  }
  return result;
}

std::string shown(Currency amount) {
  return std::to_string(amount.tenThousandths / Currency::kUnit);
}

// Two records, of 10 and 20.
class Recorder final : public clsImplementIDMD {
 public:
  const std::string& calls() const { return calls_; }

  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& line, Currency subTotal) override {
    const Text field = line->GetSpecialVar()->GetFieldName();
    record("fTranslateSpecialVarMD " + toUtf8(field) + " " + shown(subTotal));
    line->GetSpecialVar()->SetContentString(u"x");
    return true;
  }
  void sDisplayPauseDialog() override { record("sDisplayPauseDialog"); }
  bool fReadFirstRecord() override {
    record("fReadFirstRecord");
    present_ = 1;
    return true;
  }
  bool fReadNextRecord() override {
    record("fReadNextRecord");
    return ++present_ <= 2;
  }
  void sAccumSubTotal(Currency& subTotal) override {
    record("sAccumSubTotal " + shown(subTotal));
    subTotal += Currency::ofUnits(10 * present_);
  }
  bool fCanExecuteWriteReport(bool&, Text&) override {
    record("fCanExecuteWriteReport");
    return true;
  }
  std::int32_t fDetailRecordCount() override {
    record("fDetailRecordCount");
    return 2;
  }

 private:
  void record(const std::string& call) { calls_ += call + '\n'; }

  std::string calls_;
  int present_ = 0;
};

TEST(GuideExamples, OfTheOrderOfCallbacks) {
  const TemporaryFolder folder;
  folder.write(u"ORDEN.ID", onlyBlock("template"));
  auto printer = make<clsUtilImp>();
  printer->SetPrinterName(u"file:" + folder.pathOf(u"orden.prn"));
  printer->SetCanPrintInTextMode(true);
  LibTarvoCI::CoreServices services;
  services.handTo(*make<clsInitLibTarvoRpd>(), printer);
  const auto recorder = make<Recorder>();
  Ref<clsImplementIDMD> client = recorder;
  const auto report = make<clsObRepMasterDetail>();
  report->sInit(client, u"Orden", u"", u"", u"ORDEN", folder.pathOf(u""), 2);
  report->sPrintReport();
  EXPECT_TRUE(sameLines(kGuide, withoutRemarks(onlyBlock("calls")), recorder->calls()));
  EXPECT_THAT(folder.contentOf(u"orden.prn"), StartsWith("x\r\n")) << "it was printed";
}

TEST(GuideBlocks, AreReadWithWhatStandsBehindTheirMark) {
  std::istringstream guide("```vb a/b.vbs\nx\n\ny\n```\ntext\n```sh\n```\n");
  const auto blocks = blocksIn(guide);
  ASSERT_EQ(blocks.size(), 2u);
  EXPECT_EQ(blocks[0].language + "|" + blocks[0].file + "|" + blocks[0].text,
            "vb|a/b.vbs|x\n\ny\n");
  EXPECT_EQ(blocks[1].language + "|" + blocks[1].file + "|" + blocks[1].text, "sh||");
  EXPECT_EQ(blocks[1].line, 7);
  EXPECT_EQ(withoutRemarks("a  # b\nc\n# d\n"), "a\nc\n\n");
}

}  // namespace
}  // namespace tarvo::test
