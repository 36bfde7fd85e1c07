// Stand-in of the platform-call service.
//
// It knows forms, buttons and list controls only by the names of their members (see
// frame/late_object.h), so it serves controls of any kind.
//
// Raises, where it needs the object: 91 for an empty reference, 438 for an object that cannot be
// reached by name; what the object raises passes as it is.  No reference is changed.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsApi final : public tarvo::clsApi {
 public:
  // The width of a list control, in twips: so much for each character of its longest item, as wide
  // as a capital of the usual 8-point form font, and so much for the button that drops the list.
  static constexpr std::int32_t kTwipsPerCharacter = 105;
  static constexpr std::int32_t kTwipsForButton = 375;

  // Never: no key means anything to this service.
  bool fFormKey(Ref<Object>& refForm, std::int16_t valKeyCode, std::int16_t valShift) override;

  // Calls the button's "Click".  A button that has none (438) is pressed by setting its property
  // "Value" to True, which raises its click.
  void sPressButton(Ref<Object>& refButton) override;

  // kTwipsPerCharacter * length of the longest item + kTwipsForButton; the items are the control's
  // property "List", index from 0, and their number its "ListCount".  No items count as length 0.
  // Raises: 13 for a count that is no number or an item that is no text; 6.
  std::int32_t fWidthForItems(Ref<Object>& refControl) override;

  // Nothing.
  void sAdjustDropDown(Ref<Object>& refControl) override;
};

}  // namespace LibTarvoCI
