// The spooler that every channel has unless it is given another: it chooses by the printer's name.
#include <gtest/gtest.h>

#include "equipment/temporary_folder.h"
#include "printer/spooler.h"

namespace tarvo::test {
namespace {

class RoutingSpooler : public ::testing::Test {
 protected:
  bool print(std::string_view bytes) {
    return spooler->startDocument(handle, {u"Ventas", {}, {}}) && spooler->startPage(handle) &&
           spooler->write(handle, bytes) && spooler->endPage(handle) &&
           spooler->endDocument(handle);
  }

  TemporaryFolder folder;
  Ref<Spooler> spooler = makeSpooler();
  PrinterHandle handle = 0;
};

TEST_F(RoutingSpooler, AnswersFalseBeforeItsFirstPrinter) {
  EXPECT_EQ(spooler->lastError(), 0);
  EXPECT_FALSE(spooler->startDocument(0, {}));
  EXPECT_FALSE(spooler->startPage(0));
  EXPECT_FALSE(spooler->write(0, "x"));
  EXPECT_FALSE(spooler->endPage(0));
  EXPECT_FALSE(spooler->endDocument(0));
  EXPECT_FALSE(spooler->closePrinter(0));
}

TEST_F(RoutingSpooler, LeadsFileNamesToFiles) {
  ASSERT_TRUE(spooler->openPrinter(u"file:" + folder.pathOf(u"job"), handle));
  EXPECT_TRUE(print("one"));
  EXPECT_TRUE(print("two"));
  EXPECT_TRUE(spooler->closePrinter(handle));
  EXPECT_EQ(folder.contentOf(u"job"), "one");
  EXPECT_EQ(folder.contentOf(u"job.2"), "two");
}

TEST_F(RoutingSpooler, LeadsOtherNamesToTheSystem) {
  EXPECT_FALSE(spooler->openPrinter(u"no such printer, I hope", handle));
  EXPECT_EQ(handle, 0u);
  EXPECT_NE(spooler->lastError(), 0);
  EXPECT_FALSE(print("x"));
}

// A path and a queue's name look alike but for the prefix, which is exact.
TEST_F(RoutingSpooler, KnowsFilesByTheExactPrefix) {
  for (const TextView name : {u"FILE:", u"file", u" file:"}) {
    EXPECT_FALSE(spooler->openPrinter(Text(name) + folder.pathOf(u"job"), handle));
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(RoutingSpooler, KeepsNumberingAFileAfterAnotherPrinter) {
  const Text file = u"file:" + folder.pathOf(u"job");
  ASSERT_TRUE(spooler->openPrinter(file, handle));
  EXPECT_TRUE(print("one"));
  EXPECT_FALSE(spooler->openPrinter(u"no such printer, I hope", handle));
  ASSERT_TRUE(spooler->openPrinter(file, handle));
  EXPECT_TRUE(print("two"));
  EXPECT_EQ(folder.contentOf(u"job"), "one");
  EXPECT_EQ(folder.contentOf(u"job.2"), "two");
}

TEST_F(RoutingSpooler, LosesNothingOfAJobThatIsOpenWhenAnotherPrinterIsOpened) {
  ASSERT_TRUE(spooler->openPrinter(u"file:" + folder.pathOf(u"job"), handle));
  EXPECT_TRUE(spooler->startDocument(handle, {}));
  EXPECT_TRUE(spooler->startPage(handle));
  EXPECT_TRUE(spooler->write(handle, "written"));
  EXPECT_FALSE(spooler->openPrinter(u"no such printer, I hope", handle));
  spooler = nullptr;
  EXPECT_EQ(folder.contentOf(u"job"), "written");
}

}  // namespace
}  // namespace tarvo::test
