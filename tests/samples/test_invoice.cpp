// The native sample, run as its reader runs it.  The samples for Windows print the same bytes and
// say the same (tests/windows/samples).
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "equipment/bytes_dump.h"
#include "equipment/golden.h"
#include "equipment/temporary_folder.h"

namespace tarvo::test {
namespace {

struct Outcome {
  int exitCode = -1;
  std::string said;  // on both streams
};

std::string quoted(const std::string& word) { return "'" + word + "'"; }

Outcome runInvoice(const std::string& arguments) {
  const std::string command = quoted(TARVO_INVOICE) + " " + arguments + " </dev/null 2>&1";
  std::FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {};
  Outcome run;
  char part[256];
  std::size_t size = 0;
  while ((size = std::fread(part, 1, sizeof part, pipe)) > 0) run.said.append(part, size);
  std::erase(run.said, '\r');  // the library's line ends are Windows's
  const int status = pclose(pipe);
  if (WIFEXITED(status)) run.exitCode = WEXITSTATUS(status);
  return run;
}

class Invoice : public ::testing::Test {
 protected:
  Outcome print(const std::string& templates, const std::string& number) {
    return runInvoice(quoted("file:" + toUtf8(folder_.pathOf(u"factura.prn"))) + " " +
                      quoted(templates) + " " + number);
  }
  std::string printed() const { return bytesDump(folder_.contentOf(u"factura.prn")); }

  TemporaryFolder folder_;
};

TEST_F(Invoice, OfTwoPagesIsPrinted) {
  const Outcome run = print(TARVO_ROOT "/samples/templates", "1254");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_TRUE(matchesGolden("samples/golden/printed_says.txt", run.said));
  EXPECT_TRUE(matchesGolden("samples/golden/printed.txt", printed()));
}

TEST_F(Invoice, IsTheOneWithoutANumber) {
  const Outcome run = print(TARVO_ROOT "/samples/templates/", "");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_TRUE(matchesGolden("samples/golden/printed.txt", printed()));
}

TEST_F(Invoice, ThatIsAnnulledIsRefused) {
  const Outcome run = print(TARVO_ROOT "/samples/templates", "1255");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_TRUE(matchesGolden("samples/golden/refused_says.txt", run.said));
  EXPECT_TRUE(matchesGolden("samples/golden/refused.txt", printed()));
}

// What was printed until then is ejected.
TEST_F(Invoice, EndsWithTheTrailOfAnError) {
  const Outcome run = print(TARVO_TESTS_DIR "/samples/broken", "1254");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(matchesGolden("samples/golden/broken_says.txt", run.said));
  EXPECT_TRUE(matchesGolden("samples/golden/broken.txt", printed()));
}

TEST_F(Invoice, WantsItsArguments) {
  EXPECT_EQ(runInvoice("").exitCode, 2);
  EXPECT_EQ(print(TARVO_ROOT "/samples/templates", "7").exitCode, 2);
  EXPECT_THAT(runInvoice("file:x").said, ::testing::StartsWith("usage: "));
}

}  // namespace
}  // namespace tarvo::test
