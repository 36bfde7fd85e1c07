// The start-up location check: which folders it recognises, what it asks, and that its answer is
// False for all of them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "frame/silent_services.h"
#include "frame/thread_services.h"
#include "frame/tracked.h"

namespace tarvo {
namespace {

using test::errorOf;

using Calls = std::vector<std::string>;

class LocationCheck : public test::ThreadServices {
 protected:
  LocationCheck() {
    services().refInsError = errorService;
    services().refInsMessage = messageService;
  }
  ~LocationCheck() override { setApplicationFolder(u""); }

  static bool check() {
    return make<clsInitLibTarvoRpd>()->fCheckDllPathSendMsgAndReturnFalseIfCantExecute();
  }

  test::CallLog log;
  const Ref<test::RecordingError> errorService = make<test::RecordingError>(log);
  const Ref<test::RecordingMessage> messageService = make<test::RecordingMessage>(log);
};

struct FolderCase {
  TextView folder;
  int code;  // 0: nothing is asked
};

constexpr FolderCase kFolders[] = {
    {u"C:\\Programas\\Ventas", 0},
    {u"C:\\backup\\Ventas", 2},
    {u"C:\\Programas\\backup", 2},
    {u"C:\\Programas\\backup\\Ventas\\bin", 2},
    {u"\\backup", 2},
    {u"\\\\servidor\\backup", 2},
    {u"C:\\prueba\\Ventas", 1},
    {u"C:\\Programas\\prueba", 1},
    {u"\\prueba", 1},
    {u"C:\\backup\\prueba", 2},
    {u"C:\\prueba\\backup", 2},
    {u"C:\\prueba\\Backup", 1},
    {u"C:\\Prueba\\backup", 2},
    {u"C:\\Backup\\Ventas", 0},
    {u"C:\\BACKUP\\Ventas", 0},
    {u"C:\\backuP\\Ventas", 0},
    {u"C:\\Prueba\\Ventas", 0},
    {u"C:\\PRUEBA", 0},
    {u"C:\\backups\\Ventas", 0},
    {u"C:\\mybackup\\Ventas", 0},
    {u"C:\\backup 2", 0},
    {u"C:\\backup ", 0},
    {u"C:\\pruebas", 0},
    {u"C:\\la prueba", 0},
    {u"backup", 0},
    {u"backup\\Ventas", 0},
    {u"prueba\\Ventas", 0},
    {u"C:/backup/Ventas", 0},
    {u"C:/prueba/Ventas", 0},
    {u"D:", 0},
    {u"C:\\Añejo\\backup", 2},
};

Calls expectedCalls(int code) {
  if (code == 0) return {};
  return {"clsMessage.fWarnLocation \"LibTarvoRdpCI\", " + std::to_string(code)};
}

TEST_F(LocationCheck, AsksTheOperatorAboutABackupOrTestFolderOnly) {
  for (const FolderCase& row : kFolders) {
    SCOPED_TRACE(toUtf8(row.folder));
    log.clear();
    setApplicationFolder(row.folder);
    check();
    EXPECT_EQ(log.lines(), expectedCalls(row.code));
  }
}

TEST_F(LocationCheck, IsFalseForEveryFolderWhateverTheOperatorAnswers) {
  for (const FolderCase& row : kFolders) {
    SCOPED_TRACE(toUtf8(row.folder));
    setApplicationFolder(row.folder);
    for (const bool accepts : {true, false}) {
      messageService->accepts = accepts;
      EXPECT_FALSE(check()) << accepts;
    }
  }
}

TEST_F(LocationCheck, LooksAtTheFolderThatTheLibraryWasLoadedFrom) {
  const bool isInSuchAFolder = (applicationFolder() + u"\\").find(u"\\backup\\") != Text::npos ||
                               (applicationFolder() + u"\\").find(u"\\prueba\\") != Text::npos;
  EXPECT_FALSE(check());
  EXPECT_EQ(log.lines().size(), isInSuchAFolder ? 1u : 0u);
}

TEST_F(LocationCheck, NeedsNoServiceElsewhere) {
  services().refInsMessage = nullptr;
  services().refInsError = nullptr;
  setApplicationFolder(u"C:\\Programas\\Ventas");
  EXPECT_FALSE(check());
}

TEST_F(LocationCheck, AnErrorOfTheMessageServiceReachesTheCallerAsItIs) {
  setApplicationFolder(u"C:\\backup");
  messageService->fault.raiseAt(1, 1000);
  const auto error = errorOf(check);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 1000);
  EXPECT_EQ(error->source(), u"fault");
  EXPECT_EQ(error->description(), u"made to fail");
  EXPECT_EQ(error->helpFile(), u"help.hlp");
  EXPECT_EQ(error->helpContext(), 77);
  EXPECT_EQ(errorService->trail(), "");
}

// Takes itself out of its place while it is asked.
class SelfRemoving : public test::SilentMessage {
 public:
  SelfRemoving(const test::LifeCount& life, int& aliveAfterwards)
      : life_(life), aliveAfterwards_(aliveAfterwards) {}

  bool fWarnLocation(TextView, std::int16_t) override {
    const test::LifeCount life = life_;
    int& afterwards = aliveAfterwards_;
    modRDPGlobalValues::ofThisThread().refInsMessage = nullptr;
    afterwards = life.alive();
    return true;
  }

 private:
  test::LifeCount life_;
  int& aliveAfterwards_;
};

TEST_F(LocationCheck, AMessageServiceMayBeReplacedWhileItIsAsked) {
  setApplicationFolder(u"C:\\backup");
  const test::LifeCount life{};
  int aliveAfterwards = -1;
  services().refInsMessage = make<test::Tracked<SelfRemoving>>(life, life, aliveAfterwards);
  EXPECT_FALSE(check());
  EXPECT_EQ(aliveAfterwards, 1);
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(LocationCheck, WithoutAMessageServiceIsError91WithoutATrail) {
  setApplicationFolder(u"C:\\prueba");
  services().refInsMessage = nullptr;
  const auto error = errorOf(check);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 91);
  EXPECT_EQ(error->description(), u"Object variable not set");
  EXPECT_EQ(errorService->trail(), "");
}

}  // namespace
}  // namespace tarvo
