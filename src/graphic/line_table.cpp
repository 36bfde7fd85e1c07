#include "graphic/line_table.h"

#include "frame/application.h"

namespace tarvo {
namespace {

[[noreturn]] void refuse(std::int32_t number, const char16_t* why) {
  throw RunTimeError(number, {Text(application().title), why, {}, 0});
}

}  // namespace

void refuseClosedTable() { refuse(kTableIsClosed, u"The line table is closed"); }
void refuseWithoutRow() { refuse(kNoPresentRow, u"The line table has no present row"); }
void refuseLongLine() { refuse(kLineIsTooLong, u"The line has more than 7000 characters"); }

}  // namespace tarvo
