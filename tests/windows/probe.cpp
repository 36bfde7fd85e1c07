#include "probe.h"

#include "frame/com/public_com_classes.h"
#include "frame/com/server.h"

namespace tarvo {
namespace {

void failWhen(bool asked) {
  if (asked) throw RunTimeError(kInvalidProcedureCall);
}

}  // namespace

void clsProbe::sChangeNumbers(std::uint8_t& refByte, std::int16_t& refInteger,
                              std::int32_t& refLong, double& refDouble, bool valFail) {
  refByte = static_cast<std::uint8_t>(refByte + 1);
  refInteger = static_cast<std::int16_t>(refInteger + 1);
  ++refLong;
  refDouble += 1;
  failWhen(valFail);
}

void clsProbe::sChangeOthers(bool& refTruth, Currency& refAmount, Date& refDate, Text& refText,
                             Value& refValue, bool valFail) {
  refTruth = !refTruth;
  refAmount += Currency::ofUnits(1);
  refDate.serial += 1;
  refText += u"!";
  refValue = Text(u"changed");
  failWhen(valFail);
}

void clsProbe::sDropObject(Ref<Object>& refObject) { refObject = nullptr; }

void clsProbe::sChangeEnum(eAlignmentType& refAlignment) { refAlignment = eAT_Justify; }

namespace com {

const ServerDescription& serverDescription() {
  static const auto classes = comClasses(ClassList<clsProbe>{});
  static const ServerDescription description{&kProbeLibrary, classes};
  return description;
}

}  // namespace com
}  // namespace tarvo
