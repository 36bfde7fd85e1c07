// Start-up: the ten services and the print library, each in its place and counted.
#include <gtest/gtest.h>

#include <vector>

#include "frame/clsInitLibTarvoRpd.h"
#include "frame/silent_services.h"
#include "frame/thread_services.h"
#include "frame/tracked.h"

namespace tarvo {
namespace {

// One tracked object of each kind, as a client holds them.
struct Services {
  test::LifeCount error, message, texto, defGen, convert, api, utilFile, utilDate, errorCodes, math;

  Ref<clsError> refError = make<test::Tracked<test::SilentError>>(error);
  Ref<clsMessage> refMessage = make<test::Tracked<test::SilentMessage>>(message);
  Ref<clsTexto> refTexto = make<test::Tracked<test::SilentTexto>>(texto);
  Ref<clsDefGen> refDefGen = make<test::Tracked<clsDefGen>>(defGen);
  Ref<clsConvert> refConvert = make<test::Tracked<test::SilentConvert>>(convert);
  Ref<clsApi> refApi = make<test::Tracked<test::SilentApi>>(api);
  Ref<clsUtilFile> refUtilFile = make<test::Tracked<test::SilentUtilFile>>(utilFile);
  Ref<clsUtilDate> refUtilDate = make<test::Tracked<test::SilentUtilDate>>(utilDate);
  Ref<clsErrorCodesIG> refErrorCodes = make<test::Tracked<clsErrorCodesIG>>(errorCodes);
  Ref<clsUtilMathOperations> refMath = make<test::Tracked<test::SilentUtilMathOperations>>(math);

  void handOver() {
    make<clsInitLibTarvoRpd>()->sInitializeInternalGlobalClasses(
        refError, refMessage, refTexto, refDefGen, refConvert, refApi, refUtilFile, refUtilDate,
        refErrorCodes, refMath);
  }

  void letGo() {
    refError = nullptr;
    refMessage = nullptr;
    refTexto = nullptr;
    refDefGen = nullptr;
    refConvert = nullptr;
    refApi = nullptr;
    refUtilFile = nullptr;
    refUtilDate = nullptr;
    refErrorCodes = nullptr;
    refMath = nullptr;
  }

  std::vector<int> alive() const {
    std::vector<int> counts;
    for (const test::LifeCount* life : {&error, &message, &texto, &defGen, &convert, &api,
                                        &utilFile, &utilDate, &errorCodes, &math}) {
      counts.push_back(life->alive());
    }
    return counts;
  }
};

const std::vector<int> kAllAlive(10, 1);
const std::vector<int> kAllGone(10, 0);

class InitializeInternalGlobalClasses : public test::ThreadServices {
 protected:
  static void expectKept(const Services& given) {
    const modRDPGlobalValues& kept = services();
    EXPECT_EQ(kept.refInsError, given.refError);
    EXPECT_EQ(kept.refInsMessage, given.refMessage);
    EXPECT_EQ(kept.refInsTexto, given.refTexto);
    EXPECT_EQ(kept.refInsDefGen, given.refDefGen);
    EXPECT_EQ(kept.refInsConvert, given.refConvert);
    EXPECT_EQ(kept.refInsApi, given.refApi);
    EXPECT_EQ(kept.refInsUtilFile, given.refUtilFile);
    EXPECT_EQ(kept.refInsUtilDate, given.refUtilDate);
    EXPECT_EQ(kept.refInsErrorCodesIG, given.refErrorCodes);
    EXPECT_EQ(kept.refInsUtilMathOperations, given.refMath);
  }
};

TEST_F(InitializeInternalGlobalClasses, KeepsEachServiceInItsPlace) {
  Services given;
  given.handOver();
  ASSERT_TRUE(given.refError);
  ASSERT_TRUE(given.refMath);
  expectKept(given);
  EXPECT_FALSE(services().refInsImp);
  EXPECT_FALSE(services().refInsUtReport);
}

TEST_F(InitializeInternalGlobalClasses, KeepsTheServicesWhenTheClientLetsGo) {
  Services given;
  given.handOver();
  given.letGo();
  EXPECT_EQ(given.alive(), kAllAlive);
}

TEST_F(InitializeInternalGlobalClasses, KeepsOneReferenceOfEach) {
  Services given;
  given.handOver();
  given.letGo();
  test::emptyServices(services());
  EXPECT_EQ(given.alive(), kAllGone);
}

TEST_F(InitializeInternalGlobalClasses, ALaterSetReplacesTheEarlierOneAndReleasesIt) {
  Services first;
  first.handOver();
  first.letGo();
  Services second;
  second.handOver();
  EXPECT_EQ(first.alive(), kAllGone);
  EXPECT_EQ(second.alive(), kAllAlive);
  expectKept(second);
}

TEST_F(InitializeInternalGlobalClasses, TheSameSetTwiceIsStillCountedOnce) {
  Services given;
  given.handOver();
  given.handOver();
  expectKept(given);
  given.letGo();
  EXPECT_EQ(given.alive(), kAllAlive);
  test::emptyServices(services());
  EXPECT_EQ(given.alive(), kAllGone);
}

TEST_F(InitializeInternalGlobalClasses, EmptyReferencesAreTakenAsTheyAre) {
  Services given;
  given.handOver();
  Services none;
  none.letGo();
  none.handOver();
  EXPECT_FALSE(services().holdsAny());
  given.letGo();
  EXPECT_EQ(given.alive(), kAllGone);
}

TEST_F(InitializeInternalGlobalClasses, OneEmptyReferenceDoesNotKeepTheOthersOut) {
  Services given;
  given.refTexto = nullptr;
  given.handOver();
  expectKept(given);
  EXPECT_TRUE(services().refInsUtilMathOperations);
}

class InitializePrintLibrary : public test::ThreadServices {
 protected:
  static void handOver(Ref<clsUtilImp> channel, Ref<clsUtReport> report) {
    make<clsInitLibTarvoRpd>()->sInitializePrintLibrary(channel, report);
  }
};

TEST_F(InitializePrintLibrary, KeepsTheChannelAndTheReportUtility) {
  const Ref<clsUtilImp> channel = make<clsUtilImp>();
  const Ref<clsUtReport> report = make<test::SilentUtReport>();
  handOver(channel, report);
  EXPECT_EQ(services().refInsImp, channel);
  EXPECT_EQ(services().refInsUtReport, report);
}

TEST_F(InitializePrintLibrary, LeavesTheOtherServicesAlone) {
  Services given;
  given.handOver();
  handOver(make<clsUtilImp>(), make<test::SilentUtReport>());
  EXPECT_EQ(services().refInsError, given.refError);
  EXPECT_EQ(services().refInsUtilMathOperations, given.refMath);
  given.handOver();
  EXPECT_TRUE(services().refInsImp);
  EXPECT_TRUE(services().refInsUtReport);
}

TEST_F(InitializePrintLibrary, KeepsOneReferenceUntilALaterCallReplacesIt) {
  test::LifeCount first;
  test::LifeCount second;
  handOver(nullptr, make<test::Tracked<test::SilentUtReport>>(first));
  EXPECT_EQ(first.alive(), 1);
  handOver(nullptr, make<test::Tracked<test::SilentUtReport>>(second));
  EXPECT_EQ(first.alive(), 0);
  EXPECT_EQ(second.alive(), 1);
}

TEST_F(InitializePrintLibrary, EmptyReferencesAreTakenAsTheyAre) {
  handOver(make<clsUtilImp>(), make<test::SilentUtReport>());
  handOver(nullptr, nullptr);
  EXPECT_FALSE(services().holdsAny());
}

TEST_F(InitializePrintLibrary, TheChannelIsTheClientsObjectAndNotACopy) {
  const Ref<clsUtilImp> channel = make<clsUtilImp>();
  handOver(channel, nullptr);
  channel->SetMaxLinPage(66);
  EXPECT_EQ(services().refInsImp->GetMaxLinPage(), 66);
}

}  // namespace
}  // namespace tarvo
