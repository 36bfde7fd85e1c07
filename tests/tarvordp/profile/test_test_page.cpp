#include <gmock/gmock.h>

#include <string>

#include "equipment/bytes_dump.h"
#include "equipment/golden.h"
#include "equipment/temporary_folder.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/view/command_run.h"

namespace tarvordp {
namespace {

using tarvo::test::bytesDump;
using tarvo::test::matchesGolden;
using testing::EndsWith;
using testing::HasSubstr;

class TestPage : public testing::Test {
 protected:
  CommandRun print(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "testpage");
    return runCommand(&addTestPageCommand, arguments);
  }

  std::string file() const { return "file:" + (folder.path() / "page.prn").string(); }

  tarvo::test::TemporaryFolder folder;
};

TEST_F(TestPage, IsPrintedThroughEachShippedProfile) {
  for (const std::string& name : shippedProfileNames()) {
    const CommandRun run = print({"--profile", name, "--printer", file()});
    EXPECT_EQ(run.status, kDone) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(matchesGolden("tarvordp/profile/golden/test_page_" + name + ".txt",
                              bytesDump(folder.contentOf(u"page.prn"))));
  }
}

TEST_F(TestPage, RulesAreAsLongAsThePaper) {
  EXPECT_EQ(print({"--profile", "ibm-proprinter", "--printer", file(), "--rules"}).status, kDone);
  const std::string bytes = folder.contentOf(u"page.prn");
  EXPECT_THAT(bytes, HasSubstr("\r\n65---- \r\n"));
  EXPECT_THAT(bytes, testing::Not(HasSubstr("66----")));
  EXPECT_THAT(bytes, EndsWith("12         \x12\f"));  // thirteen groups in condensed print
}

TEST_F(TestPage, ThePrinterMayBeTheProfilesOwn) {
  folder.write(u"mine.json", "{\"PrinterName\": \"" + file() + "\", \"ChrFormFeed\": \"\\f\"}");
  EXPECT_EQ(print({"--profile", (folder.path() / "mine.json").string()}).status, kDone);
  EXPECT_THAT(folder.contentOf(u"page.prn"), EndsWith("FIN PAGINA DE PRUEBA\r\n\f"));
}

TEST_F(TestPage, WithoutAPrinterNothingIsPrinted) {
  const CommandRun run = print({"--profile", "plain"});
  EXPECT_EQ(run.status, kWrongInput);
  EXPECT_THAT(run.err, HasSubstr("no printer: the profile names none"));
}

TEST_F(TestPage, AnUnknownPrinterIsTold) {
  const CommandRun run = print({"--profile", "plain", "--printer", "file:/nowhere/page.prn"});
  EXPECT_EQ(run.status, kNotPrinted);
  EXPECT_EQ(run.err, "No se reconoce el nombre de la impresora: file:/nowhere/page.prn\n");
}

TEST_F(TestPage, AFullDiskIsTold) {
  const CommandRun run = print({"--profile", "plain", "--printer", "file:/dev/full"});
  EXPECT_EQ(run.status, kRunTimeError);
  EXPECT_EQ(
      run.err,
      "tarvordp: file:/dev/full: the test page did not arrive whole: No space left on device\n"
      "tarvordp: /dev/full is not whole\n");
}

TEST_F(TestPage, LeavesTheThreadsServicesAsTheyWere) {
  EXPECT_EQ(print({"--profile", "plain", "--printer", file()}).status, kDone);
  EXPECT_FALSE(tarvo::modRDPGlobalValues::ofThisThread().refInsMessage);
  EXPECT_FALSE(tarvo::modRDPGlobalValues::ofThisThread().refInsImp);
}

TEST_F(TestPage, NeedsAProfile) {
  EXPECT_EQ(print({"--printer", file()}).status, kWrongInput);
  EXPECT_EQ(print({"--profile", "nope", "--printer", file()}).status, kWrongInput);
  EXPECT_FALSE(folder.has(u"page.prn"));
}

}  // namespace
}  // namespace tarvordp
