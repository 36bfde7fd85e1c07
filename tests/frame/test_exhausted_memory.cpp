// What happens when memory runs out while errors are handled: nothing may end the process, and the
// client gets an error that it can read.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <stdexcept>

#include "frame/clsInitLibTarvoRpd.h"
#include "frame/silent_services.h"
#include "frame/thread_services.h"

namespace {

enum class Failing { kNever, kOnce, kFromThenOn };

thread_local Failing failing = Failing::kNever;
thread_local int allocationsLeft = 0;

void* allocate(std::size_t size) noexcept {
  if (failing != Failing::kNever && --allocationsLeft <= 0) {
    if (failing == Failing::kOnce) failing = Failing::kNever;
    return nullptr;
  }
  return std::malloc(size != 0 ? size : 1);
}

void* allocateOrThrow(std::size_t size) {
  void* memory = allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

// The whole test program allocates through these.
void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace tarvo {
namespace {

// Lets the nth allocation fail while it lives, or that and all that follow.
class MemoryFails {
 public:
  MemoryFails(Failing how, int nth) {
    allocationsLeft = nth;
    failing = how;
  }
  MemoryFails(const MemoryFails&) = delete;
  MemoryFails& operator=(const MemoryFails&) = delete;
  ~MemoryFails() { failing = Failing::kNever; }

  static bool hasHappened() { return allocationsLeft <= 0; }
};

// What handlers make of an exception when no memory is to be had at all.
template <class Action>
RunTimeError handledWithoutMemory(Action action) {
  try {
    action();
  } catch (...) {
    const MemoryFails from(Failing::kFromThenOn, 1);
    return currentRunTimeError();
  }
  throw std::logic_error("nothing was thrown");
}

TEST(ExhaustedMemory, StaysARunTimeErrorThatIsOne) {
  const RunTimeError error = handledWithoutMemory([] { throw RunTimeError(kTypeMismatch, u"x"); });
  EXPECT_EQ(error.number(), 13);
  EXPECT_EQ(error.description(), u"Type mismatch: x");
  EXPECT_STREQ(error.what(), "13 Type mismatch: x");
}

TEST(ExhaustedMemory, IsError7WhenItIsTheErrorItself) {
  const RunTimeError error = handledWithoutMemory([] { throw std::bad_alloc(); });
  EXPECT_EQ(error.number(), 7);
  EXPECT_EQ(error.description(), u"Out of memory");
  EXPECT_EQ(error.source(), u"LibTarvoRdpCI");
  EXPECT_EQ(error.helpFile(), u"");
  EXPECT_STREQ(error.what(), "7 Out of memory");
}

TEST(ExhaustedMemory, IsError7WhenAnotherErrorCannotBeDescribed) {
  const std::string text(100, 'x');
  EXPECT_EQ(handledWithoutMemory([&] { throw std::runtime_error(text); }).number(), 7);
  EXPECT_EQ(handledWithoutMemory([] { throw 42; }).number(), 7);
}

// Lets an action run with the nth allocation failing, for n = 1, 2 ... until none failed.  Whatever
// came out, `check` looks at it: the error's number, 7 for exhausted memory in any form, 0 for
// none.
template <class Action, class Check>
void forEveryAllocation(Failing how, Action action, Check check) {
  for (int nth = 1;; ++nth) {
    ASSERT_LT(nth, 1'000) << "no end of allocations";
    std::int32_t number = 0;
    bool hasHappened = false;
    {
      const MemoryFails fails(how, nth);
      try {
        action();
      } catch (const RunTimeError& error) {
        number = error.number();
      } catch (const std::bad_alloc&) {
        number = 7;
      }
      hasHappened = MemoryFails::hasHappened();
    }
    SCOPED_TRACE(nth);
    check(number, hasHappened);
    if (!hasHappened) {
      EXPECT_GT(nth, 3) << "hardly an allocation was seen";
      return;
    }
  }
}

class Appending final : public clsError {
 public:
  void fDescribeError(TextView valDescription, TextView, TextView valProcedureName, TextView,
                      std::int16_t, std::int32_t, TextView, std::int32_t, std::int32_t,
                      Text& result) override {
    result.assign(valDescription).append(u" < ").append(valProcedureName);
  }
};

class ExhaustedMemoryWithServices : public test::ThreadServices {};

constexpr ErrorIdentity kIdentity{u"clsPrinting", u"Lib. Impresión Texto"};

void fInner() try { throw RunTimeError(kSubscriptOutOfRange); } catch (...) {
  trapAs(kIdentity, "fInnerWithANameThatIsLong");
}
void fOuter() try { fInner(); } catch (...) {
  trapAs(kIdentity, "fOuterWithANameThatIsLong");
}

TEST_F(ExhaustedMemoryWithServices, AnywhereInATrailEndsInTheErrorItselfOrInError7) {
  services().refInsError = make<Appending>();
  for (const Failing how : {Failing::kOnce, Failing::kFromThenOn}) {
    forEveryAllocation(how, fOuter, [](std::int32_t number, bool hasHappened) {
      if (hasHappened) {
        EXPECT_EQ(number, 7);
      } else {
        EXPECT_EQ(number, 9);
      }
    });
  }
}

class Registry final : public clsVersionRegistry {
 public:
  static inline int alive = 0;
  Registry() { ++alive; }
  ~Registry() override { --alive; }
  void sRegisterVersion(Text& refVersion) override { refVersion += u", known by now to all"; }
};

TEST_F(ExhaustedMemoryWithServices, AnywhereInTheAnnouncementLeavesNoRegistryBehind) {
  services().refInsError = make<Appending>();
  setVersionRegistryMaker([]() -> Ref<clsVersionRegistry> { return make<Registry>(); });
  const Ref<clsInitLibTarvoRpd> library = make<clsInitLibTarvoRpd>();
  for (const Failing how : {Failing::kOnce, Failing::kFromThenOn}) {
    forEveryAllocation(
        how, [&library] { library->sSendDllVersionToLibTarvoCI(); },
        [](std::int32_t number, bool hasHappened) {
          EXPECT_EQ(number, hasHappened ? 7 : 0);
          EXPECT_EQ(Registry::alive, 0);
        });
  }
  setVersionRegistryMaker(nullptr);
}

}  // namespace
}  // namespace tarvo
