// The trapped-error convention: what the error service is told, and what reaches the client.
#include "frame/trapped.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "frame/thread_services.h"
#include "frame/tracked.h"

namespace tarvo {
namespace {

using namespace std::string_literals;

using test::errorOf;
using test::RecordingError;

// Three procedures with a handler inside one another.
class Printing final : public TrappedObject {
 public:
  Printing(ErrorIdentity identity, std::function<void()> innermost)
      : identity_(identity), innermost_(std::move(innermost)) {}

  void sOuter() try { sMiddle(); } catch (...) {
    trap("sOuter");
  }
  void sMiddle() try { sInner(); } catch (...) {
    trap("sMiddle");
  }
  void sInner() try { innermost_(); } catch (...) {
    trap("sInner");
  }

 private:
  const ErrorIdentity& errorIdentity() const noexcept override { return identity_; }

  ErrorIdentity identity_;
  std::function<void()> innermost_;
};

constexpr ErrorIdentity kIdentity{u"clsPrinting", u"Lib. Impresión - Año"};

void raiseTheClientsError() {
  throw RunTimeError(-2147220991, {u"Cliente.clsDatos", u"No hay datos", u"ayuda.hlp", 77});
}

class Trapped : public test::ThreadServices {
 protected:
  Trapped() { services().refInsError = errorService; }

  static Ref<Printing> printing(std::function<void()> innermost) {
    return make<Printing>(kIdentity, std::move(innermost));
  }

  test::CallLog log;
  const Ref<RecordingError> errorService = make<RecordingError>(log);
};

TEST_F(Trapped, TheErrorServiceIsToldNineThingsInTheirOrder) {
  setLastSystemError(1801);
  errorOf([] { printing(raiseTheClientsError)->sInner(); });
  ASSERT_EQ(errorService->reports.size(), 1u);
  const RecordingError::Report& report = errorService->reports[0];
  EXPECT_EQ(report.description, u"No hay datos");
  EXPECT_EQ(report.className, u"clsPrinting");
  EXPECT_EQ(report.procedure, u"sInner");
  EXPECT_EQ(report.module, u"Lib. Impresión - Año");
  EXPECT_EQ(report.kind, 2);
  EXPECT_EQ(report.helpContext, 77);
  EXPECT_EQ(report.helpFile, u"ayuda.hlp");
  EXPECT_EQ(report.lastDllError, 1801);
  EXPECT_EQ(report.reserved, 0);
}

TEST_F(Trapped, AFormSaysThatItIsOne) {
  constexpr ErrorIdentity kForm{u"frmPrinting", u"Formulario", 1};
  errorOf([&] { make<Printing>(kForm, raiseTheClientsError)->sInner(); });
  ASSERT_EQ(errorService->reports.size(), 1u);
  EXPECT_EQ(errorService->reports[0].kind, 1);
  EXPECT_EQ(errorService->reports[0].className, u"frmPrinting");
  EXPECT_EQ(errorService->reports[0].module, u"Formulario");
}

TEST_F(Trapped, NumberAndSourceStayAndTheDescriptionIsTheServices) {
  const auto error = errorOf([] { printing(raiseTheClientsError)->sInner(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), -2147220991);
  EXPECT_EQ(error->source(), u"Cliente.clsDatos");
  EXPECT_EQ(error->description(), u"No hay datos < sInner");
}

TEST_F(Trapped, TheHelpIsToldToTheServiceAndGoneAfterwards) {
  const auto error = errorOf([] { printing(raiseTheClientsError)->sInner(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->helpFile(), u"");
  EXPECT_EQ(error->helpContext(), 0);
}

TEST_F(Trapped, EachLevelAddsItselfInnermostFirst) {
  setLastSystemError(1801);
  const auto error = errorOf([] { printing(raiseTheClientsError)->sOuter(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->description(), u"No hay datos < sInner < sMiddle < sOuter");
  EXPECT_EQ(error->number(), -2147220991);
  EXPECT_EQ(error->source(), u"Cliente.clsDatos");
  ASSERT_EQ(errorService->trail(), "sInner sMiddle sOuter");
  EXPECT_EQ(errorService->reports[1].description, u"No hay datos < sInner");
  EXPECT_EQ(errorService->reports[2].description, u"No hay datos < sInner < sMiddle");
  for (const std::size_t outer : {1u, 2u}) {
    EXPECT_EQ(errorService->reports[outer].helpFile, u"");
    EXPECT_EQ(errorService->reports[outer].helpContext, 0);
    EXPECT_EQ(errorService->reports[outer].lastDllError, 1801);
    EXPECT_EQ(errorService->reports[outer].reserved, 0);
  }
}

TEST_F(Trapped, NothingIsReportedWhenNothingFails) {
  EXPECT_FALSE(errorOf([] { printing([] {})->sOuter(); }));
  EXPECT_EQ(errorService->trail(), "");
}

TEST_F(Trapped, TheLastSystemErrorIsTheOneOfWhenTheErrorWasRaised) {
  errorOf([] {
    printing([] {
      setLastSystemError(1801);
      const RunTimeError error(kOverflow);
      setLastSystemError(5);
      throw error;
    })->sInner();
  });
  ASSERT_EQ(errorService->reports.size(), 1u);
  EXPECT_EQ(errorService->reports[0].lastDllError, 1801);
}

TEST_F(Trapped, ExhaustedMemoryIsReportedAsError7) {
  const auto error = errorOf([] { printing([] { throw std::bad_alloc(); })->sInner(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 7);
  EXPECT_EQ(error->source(), u"LibTarvoRdpCI");
  EXPECT_EQ(error->description(), u"Out of memory < sInner");
}

TEST_F(Trapped, AnyOtherExceptionIsReportedAsError51) {
  const auto error = errorOf([] { printing([] { throw std::logic_error("roto"); })->sMiddle(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 51);
  EXPECT_EQ(error->description(), u"Internal error: roto < sInner < sMiddle");
}

TEST_F(Trapped, ADescriptionIsNotCutAtCharacter0) {
  const auto error = errorOf([] {
    printing([] { throw RunTimeError(1000, {u"a\0b"s, u"c\0d"s, {}, 0}); })->sInner();
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->source(), u"a\0b"s);
  EXPECT_EQ(error->description(), u"c\0d < sInner"s);
}

// Answers every description with the text of its own; none of it is the old one.
class Forgetful final : public clsError {
 public:
  void fDescribeError(TextView, TextView, TextView, TextView, std::int16_t, std::int32_t, TextView,
                      std::int32_t, std::int32_t, Text& result) override {
    result.clear();
  }
};

TEST_F(Trapped, AnEmptyTextOfTheServiceIsTheDescription) {
  services().refInsError = make<Forgetful>();
  const auto error = errorOf([] { printing(raiseTheClientsError)->sInner(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), -2147220991);
  EXPECT_EQ(error->description(), u"");
}

TEST_F(Trapped, WithoutAnErrorServiceError91ReachesTheClient) {
  services().refInsError = nullptr;
  for (const auto procedure : {&Printing::sInner, &Printing::sOuter}) {
    const auto error = errorOf([&] { (*printing(raiseTheClientsError).*procedure)(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 91);
    EXPECT_EQ(error->source(), u"LibTarvoRdpCI");
    EXPECT_EQ(error->description(), u"Object variable not set");
  }
}

TEST_F(Trapped, AnErrorOfTheErrorServiceGoesOnInstead) {
  errorService->fault.raiseAt(1, 1000);
  const auto error = errorOf([] { printing(raiseTheClientsError)->sInner(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 1000);
  EXPECT_EQ(error->source(), u"fault");
  EXPECT_EQ(error->description(), u"made to fail");
  EXPECT_EQ(error->helpFile(), u"help.hlp");
  EXPECT_EQ(error->helpContext(), 77);
}

TEST_F(Trapped, AnErrorOfTheErrorServiceIsReportedByTheLevelsAround) {
  errorService->fault.raiseAt(2, 1000);
  const auto error = errorOf([] { printing(raiseTheClientsError)->sOuter(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 1000);
  EXPECT_EQ(error->source(), u"fault");
  EXPECT_EQ(error->description(), u"made to fail < sOuter");
  ASSERT_EQ(errorService->trail(), "sInner sMiddle sOuter");
  EXPECT_EQ(errorService->reports[2].helpFile, u"help.hlp");
  EXPECT_EQ(errorService->reports[2].helpContext, 77);
}

// Puts another service in its own place while it is asked, and then still uses itself.
class SelfReplacing : public clsError {
 public:
  SelfReplacing(const test::LifeCount& life, Ref<clsError> next)
      : life_(life), next_(std::move(next)) {}

  void fDescribeError(TextView, TextView, TextView, TextView, std::int16_t, std::int32_t, TextView,
                      std::int32_t, std::int32_t, Text& result) override {
    const test::LifeCount life = life_;
    modRDPGlobalValues::ofThisThread().refInsError = next_;
    result = life.alive() == 1 ? u"alive" : u"gone";
  }

 private:
  test::LifeCount life_;
  Ref<clsError> next_;
};

TEST_F(Trapped, AnErrorServiceMayBeReplacedWhileItIsAsked) {
  const test::LifeCount life{};
  services().refInsError = make<test::Tracked<SelfReplacing>>(life, life, errorService);
  const auto error = errorOf([] { printing(raiseTheClientsError)->sMiddle(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->description(), u"alive < sMiddle");
  EXPECT_EQ(errorService->trail(), "sMiddle");
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(Trapped, AProcedureOfNoObjectReportsTheSameWay) {
  const auto error = errorOf([] {
    try {
      raiseTheClientsError();
    } catch (...) {
      trapAs(kIdentity, "fMinInt");
    }
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), -2147220991);
  EXPECT_EQ(error->description(), u"No hay datos < fMinInt");
  ASSERT_EQ(errorService->reports.size(), 1u);
  EXPECT_EQ(errorService->reports[0].className, u"clsPrinting");
  EXPECT_EQ(errorService->reports[0].procedure, u"fMinInt");
}

}  // namespace
}  // namespace tarvo
