// The services of one operation or none: math, files, the version registry, the two kept for the
// client.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "equipment/temporary_folder.h"
#include "services/clsDefGen.h"
#include "services/clsErrorCodesIG.h"
#include "services/clsUtilFile.h"
#include "services/clsUtilMathOperations.h"
#include "services/clsVersionRegistry.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;
using test::failureOf;
using test::invalidCall;
using test::overflow;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

std::int64_t rounded(std::int64_t tenThousandths, std::int16_t decimals) {
  return tarvo::make<clsUtilMathOperations>()->fRound({tenThousandths}, decimals).tenThousandths;
}

TEST(MathServiceTest, RoundsHalfAwayFromZero) {
  const struct {
    const char* shows;
    std::int64_t value;
    std::int16_t decimals;
    std::int64_t rounded;
  } rows[] = {
      {"half up", 2'5000, 0, 3'0000},
      {"an odd half", 3'5000, 0, 4'0000},
      {"below half", 2'4999, 0, 2'0000},
      {"half down below zero", -2'5000, 0, -3'0000},
      {"below half, below zero", -2'4999, 0, -2'0000},
      {"to one decimal", 1'2500, 1, 1'3000},
      {"to two decimals", 1'2250, 2, 1'2300},
      {"to three decimals", 1'2345, 3, 1'2350},
      {"four decimals are all", 1'2345, 4, 1'2345},
      {"more than four", 1'2345, 32767, 1'2345},
      {"zero", 0, 0, 0},
      {"to zero", -4999, 0, 0},
      {"the greatest amount as it is", kMost, 4, kMost},
      {"the least amount as it is", kLeast, 4, kLeast},
      {"the greatest that still rounds", 922337203685477'4999, 0, 922337203685477'0000},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(rounded(row.value, row.decimals), row.rounded);
  }
}

TEST(MathServiceTest, ErrorsAreTheServicesOwn) {
  EXPECT_EQ(failureOf([] { rounded(1, -1); }), invalidCall("valDecimals"));
  EXPECT_EQ(failureOf([] { rounded(kMost, 0); }), overflow("valValue"));
  EXPECT_EQ(failureOf([] { rounded(kLeast, 0); }), overflow("valValue"));
  EXPECT_EQ(failureOf([] { rounded(kLeast, 3); }), overflow("valValue"));
}

TEST(FileServiceTest, FindsFilesAndNothingElse) {
  const tarvo::test::TemporaryFolder folder;
  folder.write(u"plantilla.ID", "x");
  folder.write(u"año.ID", "");
  const Ref<clsUtilFile> files = tarvo::make<clsUtilFile>();
  EXPECT_TRUE(files->fFileExists(folder.pathOf(u"plantilla.ID")));
  EXPECT_TRUE(files->fFileExists(folder.pathOf(u"año.ID")));
  EXPECT_FALSE(files->fFileExists(folder.pathOf(u"other.ID")));
  EXPECT_FALSE(files->fFileExists(folder.path().u16string()));
  EXPECT_FALSE(files->fFileExists(folder.pathOf(u"plantilla.ID") + u"\0x"s));
  EXPECT_FALSE(files->fFileExists(u""));
}

TEST(VersionRegistryTest, AnyInstanceReadsBackWhatWasRegisteredLast) {
  Text first = u"LibUno.dll  Versión: 1.0.25";
  Text second = u"LibDos.dll\0  Versión: 2.0.1"s;
  tarvo::make<clsVersionRegistry>()->sRegisterVersion(first);
  Text last;
  tarvo::make<clsVersionRegistry>()->GetRegisteredVersion(last);
  EXPECT_EQ(last, first);
  tarvo::make<clsVersionRegistry>()->sRegisterVersion(second);
  tarvo::make<clsVersionRegistry>()->GetRegisteredVersion(last);
  EXPECT_EQ(last, second);
  EXPECT_EQ(first, u"LibUno.dll  Versión: 1.0.25");
}

TEST(VersionRegistryTest, EveryDifferentVersionIsKeptOnce) {
  const Ref<clsVersionRegistry> registry = tarvo::make<clsVersionRegistry>();
  TextList before;
  registry->GetRegisteredVersions(before);
  Text a = u"EveryDifferentVersion A";
  Text b = u"EveryDifferentVersion B";
  for (Text* version : {&b, &a, &b, &a, &b}) registry->sRegisterVersion(*version);

  TextList expected = before;
  expected.push_back(b);
  expected.push_back(a);
  TextList after{u"left from an earlier call"};
  tarvo::make<clsVersionRegistry>()->GetRegisteredVersions(after);
  EXPECT_EQ(after, expected);
  Text last;
  registry->GetRegisteredVersion(last);
  EXPECT_EQ(last, b);
}

TEST(ServicesForTheClientTest, AreObjectsThatTheContractsKnow) {
  const Ref<tarvo::clsDefGen> definitions = tarvo::make<clsDefGen>();
  const Ref<tarvo::clsErrorCodesIG> codes = tarvo::make<clsErrorCodesIG>();
  EXPECT_TRUE(definitions);
  EXPECT_TRUE(codes);
}

}  // namespace
}  // namespace LibTarvoCI
