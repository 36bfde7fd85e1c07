// The version text, and its announcement to the core library's registry.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "frame/thread_services.h"
#include "frame/version.h"

namespace tarvo {
namespace {

using test::errorOf;

TEST(Version, IsTheBuilds) {
  EXPECT_EQ(application().title, u"LibTarvoRdpCI");
  EXPECT_EQ(application().major, kVersionMajor);
  EXPECT_EQ(application().minor, kVersionMinor);
  EXPECT_EQ(application().revision, kVersionRevision);
}

TEST(VersionText, IsTheTitleTwoBlanksTheWordAndTheNumbers) {
  const struct {
    Application library;
    TextView text;
  } rows[] = {
      {{u"LibTarvoRdpCI", 1, 0, 25}, u"LibTarvoRdpCI.dll  Versión: 1.0.25"},
      {{u"LibTarvoRdpCI", 2, 10, 0}, u"LibTarvoRdpCI.dll  Versión: 2.10.0"},
      {{u"LibTarvoRdpCI", 0, 0, 0}, u"LibTarvoRdpCI.dll  Versión: 0.0.0"},
      {{u"LibTarvoRdpCI", 1, 2, 3}, u"LibTarvoRdpCI.dll  Versión: 1.2.3"},
      {{u"LibTarvoRdpCI", 65535, 40000, 9999}, u"LibTarvoRdpCI.dll  Versión: 65535.40000.9999"},
      {{u"Otra", 1, 0, 0}, u"Otra.dll  Versión: 1.0.0"},
  };
  for (const auto& row : rows) EXPECT_EQ(fDllVersionText(row.library), row.text);
}

TEST(VersionText, IsThisLibrarysWithoutAnArgument) {
  const std::string numbers = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) +
                              "." + std::to_string(kVersionRevision);
  EXPECT_EQ(fDllVersionText(), u"LibTarvoRdpCI.dll  Versión: " + fromAscii(numbers));
}

// What happens to the registries, in its order.  A maker is a plain function, so this is global.
std::vector<std::string> events;
int made = 0;
int failingMake = 0;  // the nth one, 0 never
bool registerFails = false;

class Registry final : public clsVersionRegistry {
 public:
  Registry() : number_(std::to_string(++made)) { events.push_back("make " + number_); }
  ~Registry() override { events.push_back("release " + number_); }

  void sRegisterVersion(Text& refVersion) override {
    events.push_back("register " + number_ + " " + toUtf8(refVersion));
    if (registerFails) throw RunTimeError(1000, {u"registro", u"lleno", u"", 0});
    refVersion = u"changed";
  }

 private:
  std::string number_;
};

Ref<clsVersionRegistry> makeRegistry() {
  if (made + 1 == failingMake) throw RunTimeError(kCannotCreateObject);
  return make<Registry>();
}

class SendDllVersion : public test::ThreadServices {
 protected:
  SendDllVersion() {
    events.clear();
    made = 0;
    failingMake = 0;
    registerFails = false;
    services().refInsError = errorService;
    setVersionRegistryMaker(&makeRegistry);
  }
  ~SendDllVersion() override { setVersionRegistryMaker(nullptr); }

  static void send() { make<clsInitLibTarvoRpd>()->sSendDllVersionToLibTarvoCI(); }

  test::CallLog log;
  const Ref<test::RecordingError> errorService = make<test::RecordingError>(log);
  const std::string text = toUtf8(fDllVersionText());
};

TEST_F(SendDllVersion, RegistersWithTheFirstOfTwoInstancesAndReleasesBoth) {
  send();
  EXPECT_EQ(events, (std::vector<std::string>{"make 1", "register 1 " + text, "make 2", "release 1",
                                              "release 2"}));
  EXPECT_EQ(errorService->trail(), "");
}

TEST_F(SendDllVersion, AnnouncesTheSameTextEveryTime) {
  send();
  events.clear();
  send();
  EXPECT_EQ(events, (std::vector<std::string>{"make 3", "register 3 " + text, "make 4", "release 3",
                                              "release 4"}));
}

TEST_F(SendDllVersion, WithoutAWayToMakeARegistryFailsWithError429AndItsTrail) {
  setVersionRegistryMaker(nullptr);
  const auto error = errorOf(send);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 429);
  EXPECT_EQ(error->source(), u"LibTarvoRdpCI");
  EXPECT_EQ(error->description(), u"Component can't create object < sSendDllVersionToLibTarvoCI");
  ASSERT_EQ(errorService->reports.size(), 1u);
  EXPECT_EQ(errorService->reports[0].className, u"clsInitLibTarvoRpd");
  EXPECT_EQ(errorService->reports[0].procedure, u"sSendDllVersionToLibTarvoCI");
  EXPECT_EQ(errorService->reports[0].module, u"clsInitLibTarvoRpd");
  EXPECT_EQ(errorService->reports[0].kind, 2);
  EXPECT_EQ(events, std::vector<std::string>());
}

TEST_F(SendDllVersion, AnErrorOfTheRegistryEndsItWithItsTrail) {
  registerFails = true;
  const auto error = errorOf(send);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 1000);
  EXPECT_EQ(error->source(), u"registro");
  EXPECT_EQ(error->description(), u"lleno < sSendDllVersionToLibTarvoCI");
  EXPECT_EQ(events, (std::vector<std::string>{"make 1", "register 1 " + text, "release 1"}));
}

TEST_F(SendDllVersion, AFailureToMakeTheSecondInstanceIsAFailure) {
  failingMake = 2;
  const auto error = errorOf(send);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 429);
  EXPECT_EQ(errorService->trail(), "sSendDllVersionToLibTarvoCI");
  EXPECT_EQ(events, (std::vector<std::string>{"make 1", "register 1 " + text, "release 1"}));
}

TEST_F(SendDllVersion, AMakerThatGivesNothingIsError91) {
  setVersionRegistryMaker([] { return Ref<clsVersionRegistry>(); });
  const auto error = errorOf(send);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 91);
  EXPECT_EQ(errorService->trail(), "sSendDllVersionToLibTarvoCI");
}

TEST_F(SendDllVersion, NeedsNoServiceWhenNothingFails) {
  services().refInsError = nullptr;
  send();
  EXPECT_EQ(made, 2);
}

}  // namespace
}  // namespace tarvo
