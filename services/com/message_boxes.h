// The message service as real message boxes.
//
// Captions: those that come with a message, else the companion's name.  A question has an accept
// and a cancel button in the language of the system; closing it is cancelling.
#pragma once

#include "frame/services.h"

namespace LibTarvoCI {

class MessageBoxes final : public tarvo::clsMessage {
 public:
  void sShowMessage(tarvo::Text& refText) override;
  void sShowMessageWithTitle(tarvo::TextView valText, tarvo::TextView valTitle) override;
  void sWarning(tarvo::Text& refText) override;
  void sWarningWithTitle(tarvo::TextView valText, tarvo::TextView valTitle) override;
  bool fAskAcceptCancel(tarvo::TextView valText, tarvo::TextView valTitle) override;
  bool fWarnLocation(tarvo::TextView valProjectTitle, std::int16_t valLocationCode) override;
};

}  // namespace LibTarvoCI
