// The contracts that clients of the reports implement, as the library's own classes fulfil them:
// they answer nothing and change nothing.
#include <gtest/gtest.h>

#include "frame/clsImplementIDMD.h"
#include "frame/clsImplementIDTraduc.h"
#include "template/clsObLineCharacts.h"

namespace tarvo {
namespace {

TEST(CallbackContracts, TheFormsClientKnowsNoVariable) {
  const Ref<clsImplementIDTraduc> client = make<clsImplementIDTraduc>();
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
  const Ref<clsObLineCharacts> before = line;
  EXPECT_FALSE(client->fTranslateSpecialVar(line));
  EXPECT_EQ(line, before);
  client->sDisplayPauseDialog();
}

TEST(CallbackContracts, TheMasterDetailsClientHasNoRecordsAndForbidsTheReport) {
  const Ref<clsImplementIDMD> client = make<clsImplementIDMD>();
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
  const Ref<clsObLineCharacts> before = line;
  EXPECT_FALSE(client->fTranslateSpecialVarMD(line, Currency::ofUnits(7)));
  EXPECT_EQ(line, before);
  client->sDisplayPauseDialog();
  EXPECT_FALSE(client->fReadFirstRecord());
  EXPECT_FALSE(client->fReadNextRecord());
  Currency subtotal = Currency::ofUnits(7);
  client->sAccumSubTotal(subtotal);
  EXPECT_EQ(subtotal, Currency::ofUnits(7));
  for (const bool wasSet : {false, true}) {
    bool mustShow = wasSet;
    Text message = u"as it was";
    EXPECT_FALSE(client->fCanExecuteWriteReport(mustShow, message));
    EXPECT_EQ(mustShow, wasSet);
    EXPECT_EQ(message, u"as it was");
  }
  EXPECT_EQ(client->fDetailRecordCount(), 0);
}

}  // namespace
}  // namespace tarvo
