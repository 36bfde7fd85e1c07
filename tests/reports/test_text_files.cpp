// Template files on this platform.
#include <gmock/gmock.h>

#include "equipment/errors.h"
#include "equipment/temporary_folder.h"
#include "equipment/text_file_cases.h"
#include "equipment/without_privileges.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;

class TextFilesOfPosix : public ::testing::Test {
 protected:
  Text write(TextView name, const std::string& bytes) const {
    folder.write(name, bytes);
    return folder.pathOf(name);
  }

  TemporaryFolder folder;
  Ref<TextFiles> files = platform::makeTextFiles();
};

TEST_F(TextFilesOfPosix, LinesAreThoseOfEveryPlatform) {
  for (const TextFileCase& row : textFileCases()) {
    SCOPED_TRACE(row.shows);
    EXPECT_TRUE(readLines(*files, write(u"plantilla.ID", row.bytes)) == row.lines);
  }
}

TEST_F(TextFilesOfPosix, NamesOfFilesMayHaveAnyLetter) {
  EXPECT_THAT(readLines(*files, write(u"Año nuevo \u0416.ID", "a\n")), ElementsAre(u"a"));
}

TEST_F(TextFilesOfPosix, StreamsOnOneFileAreApart) {
  const Text path = write(u"a.ID", "uno\ndos\n");
  const Ref<TextStream> first = files->OpenTextFile(path);
  const Ref<TextStream> second = files->OpenTextFile(path);
  Text line;
  first->ReadLine(line);
  EXPECT_EQ(line, u"uno");
  second->ReadLine(line);
  EXPECT_EQ(line, u"uno");
  first->ReadLine(line);
  EXPECT_EQ(line, u"dos");
  EXPECT_TRUE(first->AtEndOfStream());
  EXPECT_FALSE(second->AtEndOfStream());
  first->Close();
  second->Close();
}

TEST_F(TextFilesOfPosix, AClosedStreamServesTheNextFileFromItsBeginning) {
  const Text one = write(u"a.ID", "uno\ndos\n");
  const Text other = write(u"b.ID", "tres\n");
  Text line;
  for (int i = 0; i < 3; ++i) {
    const Ref<TextStream> stream = files->OpenTextFile(one);
    stream->ReadLine(line);
    stream->Close();
    EXPECT_THAT(readLines(*files, other), ElementsAre(u"tres"));
  }
}

TEST_F(TextFilesOfPosix, ReadingPastTheEndIsError62) {
  const Ref<TextStream> stream = files->OpenTextFile(write(u"a.ID", "uno\n"));
  Text line;
  stream->ReadLine(line);
  EXPECT_EQ(errorNumberOf([&] { stream->ReadLine(line); }), kInputPastEndOfFile);
  stream->Close();
}

TEST_F(TextFilesOfPosix, AMissingFileIsError53WithItsPath) {
  for (const Text& path :
       {folder.pathOf(u"nada.ID"), folder.pathOf(u"nada/nada.ID"), Text(u"a\0b", 3), Text()}) {
    const auto error = errorOf([&] { files->OpenTextFile(path); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), kFileNotFound);
    EXPECT_EQ(error->description(), u"File not found" + (path.empty() ? Text() : u": " + path));
  }
}

TEST_F(TextFilesOfPosix, AFolderIsError70) {
  EXPECT_EQ(errorNumberOf([&] { files->OpenTextFile(folder.pathOf(u".")); }), kPermissionDenied);
}

TEST_F(TextFilesOfPosix, AFileThatMayNotBeReadIsError70) {
  const Text path = write(u"a.ID", "uno\n");
  std::filesystem::permissions(folder.path() / "a.ID", std::filesystem::perms::none);
  const WithoutPrivileges somebodyElse;
  EXPECT_EQ(errorNumberOf([&] { files->OpenTextFile(path); }), kPermissionDenied);
}

// The system calls hold descriptors: a report opens its template thousands of times.
TEST_F(TextFilesOfPosix, FailuresAndClosingLeaveNoFileOpen) {
  const Text path = write(u"a.ID", "uno\n");
  const int before = dup(0);
  close(before);
  for (int i = 0; i < 20; ++i) {
    readLines(*files, path);
    errorNumberOf([&] { files->OpenTextFile(folder.pathOf(u".")); });
    errorNumberOf([&] { files->OpenTextFile(folder.pathOf(u"nada")); });
  }
  const int after = dup(0);
  close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace tarvo::test
