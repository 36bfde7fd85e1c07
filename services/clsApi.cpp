#include "services/clsApi.h"

#include <algorithm>
#include <array>
#include <limits>

#include "services/late_bound.h"

namespace LibTarvoCI {
namespace {

std::size_t longestItem(tarvo::LateObject& control) {
  const std::int32_t count = integerOf(control.get(u"ListCount", {}), u"ListCount");
  std::size_t longest = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    const std::array<Value, 1> index{Value(i)};
    longest = std::max(longest, textOf(control.get(u"List", index), u"List").size());
  }
  return longest;
}

}  // namespace

bool clsApi::fFormKey(Ref<Object>&, std::int16_t, std::int16_t) { return false; }

void clsApi::sPressButton(Ref<Object>& refButton) {
  tarvo::LateObject& button = lateObject(refButton, u"refButton");
  try {
    button.call(u"Click", {});
  } catch (const tarvo::RunTimeError& error) {
    if (error.number() != tarvo::kNoSuchMember) throw;
    button.put(u"Value", {}, true);
  }
}

std::int32_t clsApi::fWidthForItems(Ref<Object>& refControl) {
  constexpr auto kMostCharacters = static_cast<std::size_t>(
      (std::numeric_limits<std::int32_t>::max() - kTwipsForButton) / kTwipsPerCharacter);
  const std::size_t longest = longestItem(lateObject(refControl, u"refControl"));
  if (longest > kMostCharacters) fail(tarvo::kOverflow, u"List");
  return static_cast<std::int32_t>(longest) * kTwipsPerCharacter + kTwipsForButton;
}

void clsApi::sAdjustDropDown(Ref<Object>&) {}

}  // namespace LibTarvoCI
