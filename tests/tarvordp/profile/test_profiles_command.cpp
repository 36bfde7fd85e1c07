#include <gmock/gmock.h>

#include "equipment/golden.h"
#include "equipment/temporary_folder.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/view/command_run.h"

namespace tarvordp {
namespace {

using tarvo::test::matchesGolden;
using testing::HasSubstr;
using testing::StartsWith;

CommandRun profiles(std::vector<std::string> arguments = {}) {
  arguments.insert(arguments.begin(), "profiles");
  return runCommand(&addProfilesCommand, arguments);
}

TEST(ProfilesCommand, ListsTheShippedProfiles) {
  const CommandRun run = profiles();
  EXPECT_EQ(run.status, kDone);
  EXPECT_TRUE(matchesGolden("tarvordp/profile/golden/list.txt", run.out));
}

TEST(ProfilesCommand, ShowsEachAsATable) {
  for (const std::string& name : shippedProfileNames()) {
    const CommandRun run = profiles({name});
    EXPECT_EQ(run.status, kDone);
    EXPECT_TRUE(matchesGolden("tarvordp/profile/golden/" + name + ".txt", run.out));
  }
}

TEST(ProfilesCommand, ShowsAndChecksAFile) {
  const tarvo::test::TemporaryFolder folder;
  folder.write(u"mine.json",
               R"({"PrinterName": "Caja 1", "MaxLinPage": 33, "CanPrintInTextMode": true,)"
               R"( "ChrBold": "\u001bE"})");
  const CommandRun run = profiles({(folder.path() / "mine.json").string()});
  EXPECT_EQ(run.status, kDone);
  EXPECT_THAT(run.out, HasSubstr("PrinterName                  Caja 1"));
  EXPECT_THAT(run.out, HasSubstr("ChrBold                      1B 45   ESC E  starts bold print"));
  EXPECT_THAT(run.out, HasSubstr("warning: ChrBold switches bold print on, but ChrLight is empty"));
}

TEST(ProfilesCommand, AnUnknownNameIsAMistake) {
  const CommandRun run = profiles({"epson"});
  EXPECT_EQ(run.status, kWrongInput);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, StartsWith("\"epson\" is neither a file nor a shipped printer profile"));
}

}  // namespace
}  // namespace tarvordp
