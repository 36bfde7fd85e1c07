// Where pages are saved, and what keeps them from it.
#include "graphic/saved_pages.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "equipment/errors.h"
#include "equipment/temporary_folder.h"
#include "graphic/pdf_writer.h"

namespace tarvo::test {
namespace {

struct Name {
  const char* shows;
  const char* title;
  const char* path;
};

class PathForTitle : public ::testing::TestWithParam<Name> {};

TEST_P(PathForTitle, IsAFileThatEverySystemBears) {
  const Text title = fromUtf8(GetParam().title);
  for (const TextView printer : {u"", u"EPSON LX-300", u"File:x", u" file:x"}) {
    EXPECT_EQ(toUtf8(pathForPages(title, printer)), GetParam().path);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Of, PathForTitle,
    ::testing::Values(
        Name{"Plain", "Ventas", "Ventas.pdf"},
        Name{"Spanish", "Informe Nº 3 del año", "Informe Nº 3 del año.pdf"},
        Name{"Empty", "", "Informe.pdf"}, Name{"Separators", "a/b\\c", "a_b_c.pdf"},
        Name{"Forbidden", "a:b*c?d\"e<f>g|h", "a_b_c_d_e_f_g_h.pdf"},
        Name{"Controls", "a\tb\nc\x7F", "a_b_c_.pdf"}, Name{"UpwardPath", "../x", ".._x.pdf"},
        Name{"Dots", "..", "...pdf"}, Name{"Device", "con", "_con.pdf"},
        Name{"DeviceWithEnding", "NUL.a", "_NUL.a.pdf"},
        Name{"NumberedDevice", "Lpt1", "_Lpt1.pdf"}, Name{"NoDevice", "COMA", "COMA.pdf"},
        Name{"NoDeviceEither", "con1", "con1.pdf"}, Name{"NoNumber", "com", "com.pdf"}),
    [](const auto& row) { return std::string(row.param.shows); });

TEST(PathForPages, IsCutBetweenCharactersWhenTheTitleIsLong) {
  EXPECT_EQ(pathForPages(Text(300, u'x'), u""), Text(240, u'x') + u".pdf");
  EXPECT_EQ(pathForPages(Text(300, u'ñ'), u""), Text(120, u'ñ') + u".pdf");
  EXPECT_EQ(pathForPages(u"x" + Text(300, u'ñ'), u""), u"x" + Text(119, u'ñ') + u".pdf");
  EXPECT_EQ(pathForPages(Text(240, u'x'), u""), Text(240, u'x') + u".pdf");
}

TEST(PathForPages, IsThePrintersWhenItIsAFile) {
  EXPECT_TRUE(isFilePrinter(u"file:"));
  EXPECT_FALSE(isFilePrinter(u"FILE:x"));
  EXPECT_FALSE(isFilePrinter(u"LX-300"));
  EXPECT_EQ(pathForPages(u"Ventas", u"file:/tmp/a:b.prn"), u"/tmp/a:b.prn");
  EXPECT_EQ(pathForPages(u"Ventas", u"file:"), u"");
}

class SavedPages : public ::testing::Test {
 protected:
  SavedPages() {
    pages->addRow(u"Hola");
    setLastSystemError(0);
  }

  std::optional<RunTimeError> save(TextView path) {
    return errorOf([&] { savePages(*pages, u"Ventas", u"file:" + Text(path)); });
  }

  void expectFailure(TextView path, std::int32_t number, const char* description, int reason) {
    const std::optional<RunTimeError> error = save(path);
    ASSERT_TRUE(error.has_value()) << toUtf8(path);
    EXPECT_EQ(error->number(), number) << error->what();
    EXPECT_EQ(toUtf8(error->description()), description + toUtf8(path));
    EXPECT_EQ(error->lastDllError(), reason);
  }

  TemporaryFolder folder;
  Ref<PagedText> pages = make<PagedText>(PageFormat());
};

TEST_F(SavedPages, AreAPdf) {
  EXPECT_FALSE(save(folder.pathOf(u"año.pdf")).has_value());
  EXPECT_EQ(folder.contentOf(u"año.pdf"), pdfOf(*pages, u"Ventas"));
}

TEST_F(SavedPages, ReplaceAnOlderFile) {
  folder.write(u"x", std::string(100'000, 'x'));
  save(folder.pathOf(u"x"));
  EXPECT_EQ(folder.contentOf(u"x"), pdfOf(*pages, u"Ventas"));
}

class UnshownPages : public SavedPages {
 protected:
  UnshownPages() { std::filesystem::current_path(folder.path()); }
  ~UnshownPages() override { std::filesystem::current_path(before_); }

  void saveUnshown(TextView title) const { saveUnshownPages(*pages, title); }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_F(UnshownPages, TakeTheNextNameThatIsFree) {
  folder.write(u"Ventas.pdf", "the client's");
  std::filesystem::create_directory(folder.path() / "Ventas.2.pdf");
  std::filesystem::create_symlink("nowhere", folder.path() / "Ventas.3.pdf");
  saveUnshown(u"Ventas");
  EXPECT_EQ(folder.contentOf(u"Ventas.pdf"), "the client's");
  EXPECT_FALSE(folder.has(u"nowhere"));
  EXPECT_EQ(folder.contentOf(u"Ventas.4.pdf"), pdfOf(*pages, u"Ventas"));
}

TEST_F(UnshownPages, AreAllThere) {
  for (int i = 0; i < 12; ++i) saveUnshown(u"");
  for (const TextView name :
       {u"Informe.pdf", u"Informe.2.pdf", u"Informe.9.pdf", u"Informe.10.pdf", u"Informe.12.pdf"}) {
    EXPECT_EQ(folder.contentOf(name), pdfOf(*pages, u"")) << toUtf8(name);
  }
  EXPECT_FALSE(folder.has(u"Informe.1.pdf"));
  EXPECT_FALSE(folder.has(u"Informe.13.pdf"));
}

TEST_F(UnshownPages, CanHaveALongTitle) {
  const Text title(300, u'x');
  saveUnshown(title);
  saveUnshown(title);
  EXPECT_EQ(folder.contentOf(Text(240, u'x') + u".pdf"), pdfOf(*pages, title));
  EXPECT_EQ(folder.contentOf(Text(240, u'x') + u".2.pdf"), pdfOf(*pages, title));
}

TEST_F(UnshownPages, NeedAFolderThatIsThere) {
  std::filesystem::remove(folder.path());
  const auto error = errorOf([this] { saveUnshown(u"a/b"); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->number(), kPathNotFound);
  EXPECT_EQ(error->description(), u"Path not found: a_b.pdf");
  EXPECT_EQ(error->lastDllError(), ENOENT);
}

TEST_F(SavedPages, NeedAFolder) {
  expectFailure(folder.pathOf(u"no/x.pdf"), kPathNotFound, "Path not found: ", ENOENT);
  folder.write(u"file", "x");
  expectFailure(folder.pathOf(u"file/x.pdf"), kPathNotFound, "Path not found: ", ENOTDIR);
  const std::optional<RunTimeError> error = save(u"");
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->number(), kPathNotFound);
  EXPECT_EQ(save(TextView(u"a\0b", 3))->number(), kPathNotFound);
}

TEST_F(SavedPages, CannotBeAFolder) {
  expectFailure(folder.pathOf(u""), kPermissionDenied, "Permission denied: ", EISDIR);
}

TEST_F(SavedPages, NeedRoom) { expectFailure(u"/dev/full", kDiskFull, "Disk full: ", ENOSPC); }

struct Reason {
  int code;
  std::int32_t number;
};
class SavedPagesTell : public ::testing::TestWithParam<Reason> {};

TEST_P(SavedPagesTell, WhyTheFileWasNotOpened) {
  errno = GetParam().code;
  const auto error = errorOf([] { writeAndClose(platform::kNoFile, "x", u"/some/where"); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->number(), GetParam().number);
  EXPECT_EQ(error->description(), describeErrorNumber(GetParam().number) + u": /some/where");
  EXPECT_EQ(error->lastDllError(), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(
    Every, SavedPagesTell,
    ::testing::Values(Reason{ENOENT, kPathNotFound}, Reason{ENOTDIR, kPathNotFound},
                      Reason{EACCES, kPermissionDenied}, Reason{EPERM, kPermissionDenied},
                      Reason{EROFS, kPermissionDenied}, Reason{EISDIR, kPermissionDenied},
                      Reason{ENOSPC, kDiskFull}, Reason{EFBIG, kDiskFull},
                      Reason{EMFILE, kDeviceError}, Reason{EIO, kDeviceError}),
    [](const auto& row) { return "Errno" + std::to_string(row.param.code); });

TEST_F(SavedPages, AFileIsClosedWhateverHappens) {
  const int good = open((folder.path() / "x").c_str(), O_WRONLY | O_CREAT, 0600);
  writeAndClose(good, "bytes", u"x");
  EXPECT_EQ(fcntl(good, F_GETFD), -1);
  EXPECT_EQ(folder.contentOf(u"x"), "bytes");
  const int full = open("/dev/full", O_WRONLY);
  EXPECT_EQ(errorNumberOf([&] { writeAndClose(full, "bytes", u"x"); }), kDiskFull);
  EXPECT_EQ(fcntl(full, F_GETFD), -1);
}

TEST_F(SavedPages, CanGoToTheStandardOutput) {
  testing::internal::CaptureStdout();
  EXPECT_FALSE(save(u"-").has_value());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), pdfOf(*pages, u"Ventas"));
}

}  // namespace
}  // namespace tarvo::test
