// A line on its way to the printer takes nothing from the heap once the channel has written one.
#include <gtest/gtest.h>

#include "equipment/allocations.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"

namespace tarvo::test {
namespace {

class Allocations : public ::testing::Test {
 protected:
  Allocations() {
    LibTarvoCI::CoreServices services;
    services.handTo(*make<clsInitLibTarvoRpd>(), channel);
    channel->SetChrReset(u"\x1B@");
    channel->SetChrHighLine1Point(
        u"\x1B"
        u"A\x01");
    channel->SetChrHighLine12Points(
        u"\x1B"
        u"A\x0C");
    channel->sInitializePrinterFileHandle(u"file:/dev/null", u"lines");
  }
  ~Allocations() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  // What the action takes when it runs again, after it has run once.
  template <class Action>
  std::size_t ofSecond(Action action) {
    action();
    const std::size_t before = allocations();
    for (int i = 0; i < 1000; ++i) action();
    return allocations() - before;
  }

  Ref<clsUtilImp> channel = make<clsUtilImp>();
  const Text spanish = Text(60, u'x') + u"a\u00F1o n\u00BA 3, jard\u00EDn \u0416";
};

TEST_F(Allocations, AreCounted) {
  const std::size_t before = allocations();
  ::operator delete(::operator new(1));
  EXPECT_EQ(allocations(), before + 1);
}

TEST_F(Allocations, NoneForALine) {
  EXPECT_EQ(ofSecond([this] { channel->sWriteLn(spanish, 0); }), 0u);
}

TEST_F(Allocations, NoneForALineWithAMargin) {
  EXPECT_EQ(ofSecond([this] { channel->sWriteLn(spanish, 8); }), 0u);
}

TEST_F(Allocations, NoneForAText) {
  EXPECT_EQ(ofSecond([this] { channel->sWrite(spanish, 0); }), 0u);
}

TEST_F(Allocations, NoneForCodesAndSkips) {
  EXPECT_EQ(ofSecond([this] {
              channel->sResetPrinter();
              channel->sSkipNPoints(12);
            }),
            0u);
}

TEST_F(Allocations, NoneForAShorterLineAfterALongOne) {
  channel->sWriteLn(Text(500, u'x'), 0);
  const std::size_t before = allocations();
  channel->sWriteLn(spanish, 8);
  channel->sWriteLn({}, 0);
  channel->sWriteLn(spanish, 0);
  EXPECT_EQ(allocations(), before);
}

}  // namespace
}  // namespace tarvo::test
