// All stand-ins together: handed to the library, they are the ones that it uses.
#include <gtest/gtest.h>

#include "equipment/recording_services.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using tarvo::clsInitLibTarvoRpd;
using tarvo::make;
using tarvo::modRDPGlobalValues;

class CoreServicesTest : public ::testing::Test {
 protected:
  ~CoreServicesTest() override {
    modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
    tarvo::setVersionRegistryMaker(nullptr);
  }

  Ref<clsInitLibTarvoRpd> library_ = make<clsInitLibTarvoRpd>();
};

TEST_F(CoreServicesTest, AreTheStandIns) {
  const CoreServices services;
  const auto is = []<class StandIn>(const auto& reference, StandIn*) {
    return dynamic_cast<StandIn*>(reference.get()) != nullptr;
  };
  EXPECT_TRUE(is(services.refInsError, static_cast<clsError*>(nullptr)));
  EXPECT_TRUE(is(services.refInsMessage, static_cast<clsMessage*>(nullptr)));
  EXPECT_TRUE(is(services.refInsTexto, static_cast<clsTexto*>(nullptr)));
  EXPECT_TRUE(is(services.refInsDefGen, static_cast<clsDefGen*>(nullptr)));
  EXPECT_TRUE(is(services.refInsConvert, static_cast<clsConvert*>(nullptr)));
  EXPECT_TRUE(is(services.refInsApi, static_cast<clsApi*>(nullptr)));
  EXPECT_TRUE(is(services.refInsUtilFile, static_cast<clsUtilFile*>(nullptr)));
  EXPECT_TRUE(is(services.refInsUtilDate, static_cast<clsUtilDate*>(nullptr)));
  EXPECT_TRUE(is(services.refInsErrorCodesIG, static_cast<clsErrorCodesIG*>(nullptr)));
  EXPECT_TRUE(is(services.refInsUtilMathOperations, static_cast<clsUtilMathOperations*>(nullptr)));
  EXPECT_TRUE(is(services.refInsUtReport, static_cast<clsUtReport*>(nullptr)));
}

TEST_F(CoreServicesTest, ReachTheLibrary) {
  CoreServices services;
  services.handTo(*library_);
  const modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
  EXPECT_EQ(values.refInsError, services.refInsError);
  EXPECT_EQ(values.refInsMessage, services.refInsMessage);
  EXPECT_EQ(values.refInsTexto, services.refInsTexto);
  EXPECT_EQ(values.refInsDefGen, services.refInsDefGen);
  EXPECT_EQ(values.refInsConvert, services.refInsConvert);
  EXPECT_EQ(values.refInsApi, services.refInsApi);
  EXPECT_EQ(values.refInsUtilFile, services.refInsUtilFile);
  EXPECT_EQ(values.refInsUtilDate, services.refInsUtilDate);
  EXPECT_EQ(values.refInsErrorCodesIG, services.refInsErrorCodesIG);
  EXPECT_EQ(values.refInsUtilMathOperations, services.refInsUtilMathOperations);
  EXPECT_FALSE(values.refInsImp);
  EXPECT_FALSE(values.refInsUtReport);
}

TEST_F(CoreServicesTest, ReachTheLibraryWithThePrinterChannel) {
  Ref<tarvo::clsUtilImp> printer = make<tarvo::clsUtilImp>(Ref<tarvo::Spooler>());
  CoreServices services;
  services.handTo(*library_, printer);
  const modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
  EXPECT_EQ(values.refInsTexto, services.refInsTexto);
  EXPECT_EQ(values.refInsImp, printer);
  EXPECT_EQ(values.refInsUtReport, services.refInsUtReport);
}

TEST_F(CoreServicesTest, LiveOnWithTheLibrary) {
  CoreServices().handTo(*library_);
  Text result;
  modRDPGlobalValues::ofThisThread().refInsTexto->fRepeat(u"-", 3, result);
  EXPECT_EQ(result, u"---");
}

TEST_F(CoreServicesTest, CanBeReplacedBeforeTheyAreHandedOver) {
  tarvo::test::CallLog log;
  CoreServices services;
  const auto messages = make<tarvo::test::RecordingMessage>(log);
  services.refInsMessage = messages;
  services.handTo(*library_);
  EXPECT_EQ(modRDPGlobalValues::ofThisThread().refInsMessage, messages);
}

TEST_F(CoreServicesTest, KeepTheVersionThatTheLibraryAnnounces) {
  CoreServices services;
  services.handTo(*library_);
  useOwnVersionRegistry();
  library_->sSendDllVersionToLibTarvoCI();
  Text version;
  make<clsVersionRegistry>()->GetRegisteredVersion(version);
  EXPECT_EQ(version, tarvo::fDllVersionText());
}

// The library's own procedures add their lines to an error that a stand-in raises; its source stays
// the stand-in's.
TEST_F(CoreServicesTest, ErrorsOfStandInsReachTheClientWithTheirSource) {
  CoreServices services;
  services.handTo(*library_);
  const auto error = tarvo::test::errorOf([] {
    Text result;
    modRDPGlobalValues::ofThisThread().refInsTexto->fRepeat(u"", 1, result);
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->source(), kProjectTitle);
  EXPECT_EQ(error->helpFile(), u"");
  EXPECT_EQ(error->helpContext(), 0);
}

TEST(FailTest, DescribesTheNumberAndWhatItIsAbout) {
  EXPECT_EQ(test::failureOf([] { fail(tarvo::kOverflow, u"valText"); }),
            "6 LibTarvoCI: Overflow: valText");
  EXPECT_EQ(test::failureOf([] { fail(tarvo::kTypeMismatch, {}); }),
            "13 LibTarvoCI: Type mismatch");
}

}  // namespace
}  // namespace LibTarvoCI
