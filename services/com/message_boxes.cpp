#include "services/com/message_boxes.h"

#include <windows.h>

#include "services/location_warning.h"

namespace LibTarvoCI {
namespace {

using tarvo::Text;
using tarvo::TextView;

constexpr TextView kCaption = u"LibTarvoCI";

// The platform's texts end at character 0; a message that holds one goes on after a blank.
Text shown(TextView text) {
  Text result(text);
  for (char16_t& character : result) {
    if (character == 0) character = u' ';
  }
  return result;
}

int show(TextView text, TextView caption, UINT style) {
  return MessageBoxW(GetActiveWindow(), reinterpret_cast<const wchar_t*>(shown(text).c_str()),
                     reinterpret_cast<const wchar_t*>(shown(caption).c_str()),
                     style | MB_TASKMODAL | MB_SETFOREGROUND);
}

}  // namespace

void MessageBoxes::sShowMessage(Text& refText) { show(refText, kCaption, MB_ICONINFORMATION); }

void MessageBoxes::sShowMessageWithTitle(TextView valText, TextView valTitle) {
  show(valText, valTitle, MB_ICONINFORMATION);
}

void MessageBoxes::sWarning(Text& refText) { show(refText, kCaption, MB_ICONWARNING); }

void MessageBoxes::sWarningWithTitle(TextView valText, TextView valTitle) {
  show(valText, valTitle, MB_ICONWARNING);
}

bool MessageBoxes::fAskAcceptCancel(TextView valText, TextView valTitle) {
  return show(valText, valTitle, MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

bool MessageBoxes::fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) {
  const Text text = locationWarning(valProjectTitle, valLocationCode);
  return show(text, valProjectTitle, MB_OKCANCEL | MB_ICONWARNING) == IDOK;
}

}  // namespace LibTarvoCI
