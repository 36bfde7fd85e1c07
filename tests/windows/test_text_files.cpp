// Template files by the scripting runtime.
#include <gmock/gmock.h>

#include "equipment/errors.h"
#include "equipment/temporary_folder.h"
#include "equipment/text_file_cases.h"

namespace tarvo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextFilesOfWindows : public testing::Test {
 protected:
  Text write(TextView name, const std::string& bytes) const {
    folder_.write(name, bytes);
    return folder_.pathOf(name);
  }

  TemporaryFolder folder_;
  Ref<TextFiles> files_ = platform::makeTextFiles();
};

TEST_F(TextFilesOfWindows, LinesAreThoseOfEveryPlatform) {
  for (const TextFileCase& row : textFileCases()) {
    SCOPED_TRACE(row.shows);
    const Text path = write(u"plantilla.ID", row.bytes);
    const std::vector<Text> lines = readLines(*files_, path);
    // Not by a matcher: it would print a megabyte.
    EXPECT_EQ(lines.size(), row.lines.size());
    for (std::size_t i = 0; i < std::min(lines.size(), row.lines.size()); ++i) {
      EXPECT_TRUE(lines[i] == row.lines[i])
          << "line " << i << ": " << lines[i].size() << " characters, "
          << toUtf8(lines[i].substr(0, 80)) << " for " << row.lines[i].size() << ", "
          << toUtf8(row.lines[i].substr(0, 80));
    }
  }
}

TEST_F(TextFilesOfWindows, NamesOfFilesMayHaveAnyLetter) {
  const Text path = write(u"Año nuevo \u0416.ID", "a\n");
  EXPECT_THAT(readLines(*files_, path), ElementsAre(u"a"));
}

TEST_F(TextFilesOfWindows, StreamsOnOneFileAreApart) {
  const Text path = write(u"a.ID", "uno\ndos\n");
  const Ref<TextStream> first = files_->OpenTextFile(path);
  Text line;
  first->ReadLine(line);
  EXPECT_EQ(line, u"uno");
  const Ref<TextStream> second = files_->OpenTextFile(path);
  second->ReadLine(line);
  EXPECT_EQ(line, u"uno");
  first->ReadLine(line);
  EXPECT_EQ(line, u"dos");
  EXPECT_TRUE(first->AtEndOfStream());
  EXPECT_FALSE(second->AtEndOfStream());
  first->Close();
  second->ReadLine(line);
  EXPECT_EQ(line, u"dos");
  second->Close();
}

TEST_F(TextFilesOfWindows, AClosedFileCanBeRemoved) {
  const Text path = write(u"a.ID", "uno\n");
  files_->OpenTextFile(path)->Close();
  EXPECT_NE(DeleteFileW(reinterpret_cast<const wchar_t*>(path.c_str())), 0);
}

TEST_F(TextFilesOfWindows, AStreamThatIsLetGoLetsTheFileGo) {
  const Text path = write(u"a.ID", "uno\n");
  files_->OpenTextFile(path);
  EXPECT_NE(DeleteFileW(reinterpret_cast<const wchar_t*>(path.c_str())), 0);
}

TEST_F(TextFilesOfWindows, ErrorsHaveTheClassicNumbers) {
  const auto errorOfOpening = [this](TextView path) {
    return errorNumberOf([&] { files_->OpenTextFile(path); });
  };
  EXPECT_EQ(errorOfOpening(folder_.pathOf(u"falta.ID")), kFileNotFound);
  EXPECT_EQ(errorOfOpening(folder_.pathOf(u"falta\\a.ID")), kPathNotFound);
  EXPECT_EQ(errorOfOpening(folder_.path().u16string()), kPermissionDenied) << "a folder";
  const Text path = write(u"a.ID", "uno\n");
  EXPECT_EQ(errorOfOpening(path + Text(u"\0b", 2)), kFileNotFound) << "character 0 in the name";
  const Ref<TextStream> stream = files_->OpenTextFile(path);
  Text line;
  stream->ReadLine(line);
  EXPECT_EQ(errorNumberOf([&] { stream->ReadLine(line); }), kInputPastEndOfFile);
  stream->Close();
  EXPECT_THAT(readLines(*files_, path), ElementsAre(u"uno")) << "after all that";
}

TEST_F(TextFilesOfWindows, AnEmptyNameIsNoFile) {
  EXPECT_NE(errorNumberOf([&] { files_->OpenTextFile(u""); }), 0);
}

}  // namespace
}  // namespace tarvo::test
