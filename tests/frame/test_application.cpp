// Where the library was loaded from, and how a program that carries it says otherwise.
#include "frame/application.h"

#include <gtest/gtest.h>

#include "frame/platform.h"

namespace tarvo {
namespace {

class ApplicationFolder : public ::testing::Test {
 protected:
  ~ApplicationFolder() override { setApplicationFolder(u""); }
};

TEST_F(ApplicationFolder, IsTheLibrarysOwnAtFirst) {
  EXPECT_EQ(applicationFolder(), platform::libraryFolder());
}

TEST_F(ApplicationFolder, IsTheGivenOneUntilItIsTakenBack) {
  setApplicationFolder(u"C:\\Programas\\Ventas");
  EXPECT_EQ(applicationFolder(), u"C:\\Programas\\Ventas");
  setApplicationFolder(u"D:\\Otra");
  EXPECT_EQ(applicationFolder(), u"D:\\Otra");
  setApplicationFolder(u"");
  EXPECT_EQ(applicationFolder(), platform::libraryFolder());
}

TEST_F(ApplicationFolder, DoesNotDependOnTheTextThatItWasGiven) {
  Text folder = u"C:\\Programas\\Ventas";
  setApplicationFolder(folder);
  folder.assign(folder.size(), u'x');
  EXPECT_EQ(applicationFolder(), u"C:\\Programas\\Ventas");
}

}  // namespace
}  // namespace tarvo
