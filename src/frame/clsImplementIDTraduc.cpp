#include "frame/clsImplementIDTraduc.h"

#include "template/clsObLineCharacts.h"

namespace tarvo {

clsImplementIDTraduc::clsImplementIDTraduc() = default;
clsImplementIDTraduc::~clsImplementIDTraduc() = default;

bool clsImplementIDTraduc::fTranslateSpecialVar(Ref<clsObLineCharacts>&) { return false; }
void clsImplementIDTraduc::sDisplayPauseDialog() {}

}  // namespace tarvo
