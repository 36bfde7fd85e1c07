// What a line of the graphic channel takes from the heap: only the table's growth.
#include <gtest/gtest.h>

#include "equipment/allocations.h"
#include "equipment/call_log.h"
#include "equipment/recording_page_output.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "graphic/clsARObRep.h"
#include "graphic/memory_line_table.h"
#include "graphic/paged_text.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"

namespace tarvo::test {
namespace {

class GraphicAllocations : public ::testing::Test {
 protected:
  GraphicAllocations() {
    LibTarvoCI::CoreServices services;
    Ref<clsUtilImp> printer = make<clsUtilImp>();
    printer->SetChrBold(
        u"\x1B"
        u"E");
    services.handTo(*make<clsInitLibTarvoRpd>(), printer);
    channel->sInit(u"", u"Ventas", ePD_Screen);
  }
  ~GraphicAllocations() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  CallLog log;
  Ref<clsARObRep> channel = make<clsARObRep>(make<RecordingPageOutput>(log), makeMemoryLineTable);
};

TEST_F(GraphicAllocations, GrowWithTheLogarithmOfTheLines) {
  const Text line =
      u"\x1B"
      u"E" +
      Text(100, u'x');
  const std::size_t before = allocations();
  for (int i = 0; i < 10'000; ++i) channel->sWriteLn(line, 5);
  // The characters and the rows' ends each double from a small beginning to a million and ten
  // thousand; the rest is what the channel keeps between writes.
  EXPECT_LT(allocations() - before, 60u);
}

TEST_F(GraphicAllocations, OfPagesGrowLikewise) {
  const Ref<PagedText> pages = make<PagedText>(PageFormat());
  const Text line(100, u'x');
  const std::size_t before = allocations();
  for (int i = 0; i < 10'000; ++i) pages->addRow(line);
  EXPECT_LT(allocations() - before, 40u);
}

}  // namespace
}  // namespace tarvo::test
