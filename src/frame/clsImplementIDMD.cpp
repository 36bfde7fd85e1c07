#include "frame/clsImplementIDMD.h"

#include "template/clsObLineCharacts.h"

namespace tarvo {

clsImplementIDMD::clsImplementIDMD() = default;
clsImplementIDMD::~clsImplementIDMD() = default;

bool clsImplementIDMD::fTranslateSpecialVarMD(Ref<clsObLineCharacts>&, Currency) { return false; }
void clsImplementIDMD::sDisplayPauseDialog() {}
bool clsImplementIDMD::fReadFirstRecord() { return false; }
bool clsImplementIDMD::fReadNextRecord() { return false; }
void clsImplementIDMD::sAccumSubTotal(Currency&) {}
bool clsImplementIDMD::fCanExecuteWriteReport(bool&, Text&) { return false; }
std::int32_t clsImplementIDMD::fDetailRecordCount() { return 0; }

}  // namespace tarvo
