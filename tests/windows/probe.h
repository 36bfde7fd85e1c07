// A public class of the tests' own: what the frame makes of a table and one line.
//
// Its operations change every argument that they get by reference, which no class of the library
// does, and fail when they are told to.
#pragma once

#include "frame/class_info.h"
#include "frame/enums_members.h"
#include "frame/member_table.h"

namespace tarvo {

class clsProbe final : public Object {
 public:
  // Each number grows by one, a truth value turns, a text gets a "!", a value becomes its text, an
  // object is replaced by none.  Raises: 5 afterwards, when `valFail`.
  void sChangeNumbers(std::uint8_t& refByte, std::int16_t& refInteger, std::int32_t& refLong,
                      double& refDouble, bool valFail);
  void sChangeOthers(bool& refTruth, Currency& refAmount, Date& refDate, Text& refText,
                     Value& refValue, bool valFail);
  void sDropObject(Ref<Object>& refObject);
  void sChangeEnum(eAlignmentType& refAlignment);

  // What the class was last given as a value of any kind.
  void SetValue(const Value& valNewValue) { value_ = valNewValue; }
  Value GetValue() const { return value_; }

 private:
  Value value_;
};

inline constexpr LibraryInfo kProbeLibrary{
    "Probe", "Probe", "The tests' own library", {0x1A2B3C00, 1, 2, {1, 2, 3, 4, 5, 6, 7, 8}}, 1, 0};

template <>
struct Members<clsProbe> {
  static constexpr const LibraryInfo& library = kProbeLibrary;
  static constexpr std::uint16_t number = 1;
  static constexpr const char* name = "clsProbe";
  static constexpr const char* help = "Changes what it gets";
  static constexpr auto table = memberTable(
      method<&clsProbe::sChangeNumbers>("sChangeNumbers", "changes numbers", "refByte",
                                        "refInteger", "refLong", "refDouble", "valFail"),
      method<&clsProbe::sChangeOthers>("sChangeOthers", "changes other kinds", "refTruth",
                                       "refAmount", "refDate", "refText", "refValue", "valFail"),
      method<&clsProbe::sDropObject>("sDropObject", "drops an object", "refObject"),
      method<&clsProbe::sChangeEnum>("sChangeEnum", "changes an enumeration", "refAlignment"),
      property<&clsProbe::GetValue, &clsProbe::SetValue>("Value", "a value of any kind"));
};

}  // namespace tarvo
