// What is kept per thread: every thread has its own set, and all sets are known together.
#include "frame/thread_values.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "frame/silent_services.h"
#include "frame/thread_services.h"
#include "frame/tracked.h"

namespace tarvo {
namespace {

void onAnotherThread(const std::function<void()>& work) { std::thread(work).join(); }

class PerThread : public test::ThreadServices {};

TEST_F(PerThread, TheSetIsTheSameOneEveryTime) {
  EXPECT_EQ(&modRDPGlobalValues::ofThisThread(), &modRDPGlobalValues::ofThisThread());
  EXPECT_EQ(&ThreadValues::ofThisThread().services, &modRDPGlobalValues::ofThisThread());
}

TEST_F(PerThread, ASecondThreadFindsItsOwnSetEmpty) {
  services().refInsError = make<test::SilentError>();
  services().refInsImp = make<clsUtilImp>();
  const modRDPGlobalValues* others = nullptr;
  bool errorIsEmpty = false;
  bool othersHoldAny = true;
  onAnotherThread([&] {
    others = &modRDPGlobalValues::ofThisThread();
    errorIsEmpty = !others->refInsError;
    othersHoldAny = others->holdsAny();
  });
  EXPECT_NE(others, &services());
  EXPECT_TRUE(errorIsEmpty);
  EXPECT_FALSE(othersHoldAny);
}

TEST_F(PerThread, WhatASecondThreadSetsDoesNotShowInTheFirst) {
  const Ref<clsError> ours = make<test::SilentError>();
  services().refInsError = ours;
  onAnotherThread([] {
    modRDPGlobalValues& others = modRDPGlobalValues::ofThisThread();
    others.refInsError = make<test::SilentError>();
    others.refInsMessage = make<test::SilentMessage>();
    test::emptyServices(others);
  });
  EXPECT_EQ(services().refInsError, ours);
  EXPECT_FALSE(services().refInsMessage);
}

TEST_F(PerThread, EveryThreadHasItsOwnLastSystemError) {
  setLastSystemError(1801);
  std::int32_t atFirst = -1;
  std::int32_t afterwards = -1;
  onAnotherThread([&] {
    atFirst = lastSystemError();
    setLastSystemError(5);
    afterwards = lastSystemError();
  });
  EXPECT_EQ(atFirst, 0);
  EXPECT_EQ(afterwards, 5);
  EXPECT_EQ(lastSystemError(), 1801);
}

TEST_F(PerThread, ASetHoldsSomethingWhenAnyOfItsReferencesIsSet) {
  using Set = void (*)(modRDPGlobalValues&);
  const struct {
    const char* shows;
    Set set;
  } rows[] = {
      {"refInsError", [](auto& set) { set.refInsError = make<test::SilentError>(); }},
      {"refInsMessage", [](auto& set) { set.refInsMessage = make<test::SilentMessage>(); }},
      {"refInsTexto", [](auto& set) { set.refInsTexto = make<test::SilentTexto>(); }},
      {"refInsDefGen", [](auto& set) { set.refInsDefGen = make<clsDefGen>(); }},
      {"refInsConvert", [](auto& set) { set.refInsConvert = make<test::SilentConvert>(); }},
      {"refInsApi", [](auto& set) { set.refInsApi = make<test::SilentApi>(); }},
      {"refInsUtilFile", [](auto& set) { set.refInsUtilFile = make<test::SilentUtilFile>(); }},
      {"refInsUtilDate", [](auto& set) { set.refInsUtilDate = make<test::SilentUtilDate>(); }},
      {"refInsErrorCodesIG", [](auto& set) { set.refInsErrorCodesIG = make<clsErrorCodesIG>(); }},
      {"refInsUtilMathOperations",
       [](auto& set) { set.refInsUtilMathOperations = make<test::SilentUtilMathOperations>(); }},
      {"refInsImp", [](auto& set) { set.refInsImp = make<clsUtilImp>(); }},
      {"refInsUtReport", [](auto& set) { set.refInsUtReport = make<test::SilentUtReport>(); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_FALSE(services().holdsAny());
    EXPECT_FALSE(anyThreadHoldsServices());
    row.set(services());
    EXPECT_TRUE(services().holdsAny());
    EXPECT_TRUE(anyThreadHoldsServices());
    test::emptyServices(services());
  }
}

TEST_F(PerThread, ServicesOfAnEndedThreadAreStillHeld) {
  test::LifeCount life;
  modRDPGlobalValues* others = nullptr;
  onAnotherThread([&] {
    others = &modRDPGlobalValues::ofThisThread();
    others->refInsError = make<test::Tracked<test::SilentError>>(life);
  });
  EXPECT_EQ(life.alive(), 1);
  EXPECT_TRUE(anyThreadHoldsServices());
  EXPECT_FALSE(services().holdsAny());
  test::emptyServices(*others);
  EXPECT_EQ(life.alive(), 0);
  EXPECT_FALSE(anyThreadHoldsServices());
}

TEST_F(PerThread, ThreadsThatHoldNothingDoNotHideOneThatDoes) {
  modRDPGlobalValues* holding = nullptr;
  onAnotherThread([&] {
    holding = &modRDPGlobalValues::ofThisThread();
    holding->refInsUtReport = make<test::SilentUtReport>();
  });
  // The newest set is the first one that is looked at.
  onAnotherThread([] { modRDPGlobalValues::ofThisThread(); });
  EXPECT_TRUE(anyThreadHoldsServices());
  test::emptyServices(*holding);
  EXPECT_FALSE(anyThreadHoldsServices());
}

}  // namespace
}  // namespace tarvo
