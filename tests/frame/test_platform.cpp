// What every platform has to answer.
#include "frame/platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "equipment/temporary_folder.h"

namespace tarvo {
namespace {

using namespace std::string_literals;

Date dateOfClock(std::time_t clock) {
  const std::tm* parts = std::localtime(&clock);
  return dateOf({parts->tm_year + 1900, parts->tm_mon + 1, parts->tm_mday, parts->tm_hour,
                 parts->tm_min, std::min(parts->tm_sec, 59)});
}

TEST(Platform, TheTimeIsTheLocalOneToTheSecond) {
  const std::time_t before = std::time(nullptr);
  const Date now = platform::localTime();
  const std::time_t after = std::time(nullptr);
  // The clocks of a system may disagree by their resolution.
  EXPECT_GE(now.serial, dateOfClock(before - 1).serial);
  EXPECT_LE(now.serial, dateOfClock(after + 1).serial);
  EXPECT_EQ(dateOf(civilTimeOf(now)), now);
}

TEST(Platform, TheLibrarysFolderIsOneAndHasNoSeparatorAtItsEnd) {
  const Text folder = platform::libraryFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_NE(folder.back(), u'\\');
  EXPECT_EQ(folder.find(u'/'), Text::npos);
  Text native = folder;
  const auto separator = static_cast<char16_t>(std::filesystem::path::preferred_separator);
  std::replace(native.begin(), native.end(), u'\\', separator);
  EXPECT_TRUE(std::filesystem::is_directory(std::filesystem::path(native))) << toUtf8(folder);
}

TEST(Platform, AFileExistsWhenItsPathNamesOneThatIsNoFolder) {
  const test::TemporaryFolder folder;
  folder.write(u"uno.id", "x");
  folder.write(u"vacío ñ.id", "");
  std::filesystem::create_directory(folder.path() / "carpeta");
  const struct {
    const char* shows;
    Text path;
    bool exists;
  } rows[] = {
      {"a file", folder.pathOf(u"uno.id"), true},
      {"an empty file with letters beyond the plain ones", folder.pathOf(u"vacío ñ.id"), true},
      {"a folder", folder.pathOf(u"carpeta"), false},
      {"none of that name", folder.pathOf(u"dos.id"), false},
      {"none of that folder", folder.pathOf(u"otra/uno.id"), false},
      {"below a file", folder.pathOf(u"uno.id/dos.id"), false},
      {"the empty path", u"", false},
      {"a path that would be one if it were cut at character 0",
       folder.pathOf(u"uno.id") + u"\0.bak"s, false},
      {"the same with nothing after it", folder.pathOf(u"uno.id") + u"\0"s, false},
  };
  for (const auto& row : rows) EXPECT_EQ(platform::fileExists(row.path), row.exists) << row.shows;
}

}  // namespace
}  // namespace tarvo
