// A printer profile as data: what one model of printer understands, and which printer it is.
//
// A profile file is a JSON object whose keys are names of clsUtilImp's properties.  Control strings
// are texts of characters 0 to 255, one for each byte ("\u001bE").
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/text.h"
#include "tarvordp/json/json_value.h"

namespace tarvo {
class clsUtilImp;
}

namespace tarvordp {

// The control strings of a profile, in clsUtilImp's order of properties.
enum class ControlCode : std::uint8_t {
  formFeed,
  condensed,
  normal,
  initExpanded,
  endExpanded,
  bold,
  light,
  reset,
  initUnderlying,
  endUnderlying,
  font10Points,
  font12Points,
  initItalic,
  endItalic,
  highLine1Point,
  highLine12Points,
  graphics,
  internationalChars,
  initialString1,
  initialString2,
  initialString3,
  initialString4,
};
inline constexpr std::size_t kControlCodes = 22;

struct Profile {
  tarvo::Text printerName;
  std::uint8_t maxLinPage = 0;
  std::uint8_t maxChrLinCondensed80Columns = 0;
  bool canPrintInTextMode = false;
  std::array<tarvo::Text, kControlCodes> codes;

  const tarvo::Text& code(ControlCode which) const {
    return codes[static_cast<std::size_t>(which)];
  }
};

// The property's name: "ChrBold".
std::string_view propertyName(ControlCode code) noexcept;

// The profile that the object describes.  Raises: Mistake with its place for an unknown property,
// a wrong kind, a number outside 0 to 255, a character above 255 in a control string.
Profile readProfile(const JsonValue& object);

// The profile that a job file or an argument names: a shipped profile's name, or a file's path,
// relative to the folder ("" the current one).  Raises: Mistake that names the shipped ones when it
// is neither.
Profile findProfile(const std::string& nameOrPath, const std::string& folder);

// Names of the shipped profiles, in the order in which they are shown.
const std::vector<std::string>& shippedProfileNames();

// What the shipped profile of that name is for, and what is not sure about it; empty texts for any
// other name.
struct ProfileNotes {
  std::string_view about;   // "Epson ESC/P, 9 pins (FX, LX)"
  std::string_view unsure;  // "" when nothing is
};
ProfileNotes notesOn(std::string_view shippedName) noexcept;

// Gives the printer channel every property of the profile.
void apply(const Profile& profile, tarvo::clsUtilImp& printer);

// The bytes that the printer gets when the channel sends the code.  Not always those of the
// profile: the channel replaces eight Spanish letters in codes as well (byte E1 leaves as A0).
std::string bytesSent(const Profile& profile, ControlCode code);

}  // namespace tarvordp
