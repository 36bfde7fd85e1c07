#include "tarvordp/profile/profile_check.h"

#include <gmock/gmock.h>

#include <string>

namespace tarvordp {
namespace {

using Kind = ProfileRemark::Kind;

std::string remarksOn(const Profile& profile) {
  std::string all;
  for (const ProfileRemark& remark : checkProfile(profile)) {
    all += (remark.kind == Kind::warning ? "warning: " : "note: ") + remark.text + "\n";
  }
  return all;
}

// A sound profile, with some properties put in.
Profile changed(const std::string& json) {
  const Profile changes = readProfile(readJsonText(json, "p.json"));
  Profile profile = findProfile("epson-9pin", "");
  const JsonValue document = readJsonText(json, "p.json");
  for (const JsonValue::Member& member : document.members()) {
    for (std::size_t i = 0; i < kControlCodes; ++i) {
      if (propertyName(static_cast<ControlCode>(i)) == member.name) {
        profile.codes[i] = changes.codes[i];
      }
    }
  }
  return profile;
}

TEST(ProfileCheck, TheShippedProfilesHaveNoWarning) {
  for (const std::string& name : shippedProfileNames()) {
    for (const ProfileRemark& remark : checkProfile(findProfile(name, ""))) {
      EXPECT_EQ(remark.kind, Kind::note) << name << ": " << remark.text;
    }
  }
  EXPECT_EQ(remarksOn(findProfile("epson-9pin", "")), "");
}

TEST(ProfileCheck, OneCodeForSeveralThingsIsNoted) {
  EXPECT_EQ(remarksOn(findProfile("oki-microline", "")),
            "note: ChrNormal, ChrEndExpanded and ChrFont10Points are the same code (1E): whichever "
            "is sent, the printer does all of it.\n");
}

TEST(ProfileCheck, AnEmptyProfilePrintsNothing) {
  EXPECT_EQ(remarksOn(Profile{}),
            "warning: CanPrintInTextMode is false: reports are drawn as pages, and none of these "
            "codes is sent.\n"
            "warning: MaxLinPage is 0: a report's pages never become full.\n"
            "note: There are no codes for condensed, expanded, bold and underlined print: template "
            "words that ask for it send nothing.\n"
            "note: ChrHighLine1Point is empty: a skip of points moves the paper by as many whole "
            "lines.\n");
}

struct CheckCase {
  const char* shows;
  const char* changes;
  const char* remarks;
};

constexpr CheckCase kCases[] = {
    {"bold without its end", R"({"ChrLight": ""})",
     "warning: ChrBold switches bold print on, but ChrLight is empty: nothing switches it off.\n"},
    {"an end without a beginning", R"({"ChrInitItalic": ""})",
     "note: ChrEndItalic ends italic print, but ChrInitItalic is empty: nothing begins it.\n"},
    {"condensed without normal", R"({"ChrNormal": ""})",
     "warning: ChrCondensed switches condensed print on, but ChrNormal is empty: nothing switches "
     "it off.\n"},
    {"one point without twelve", R"({"ChrHighLine12Points": ""})",
     "warning: ChrHighLine1Point switches the line height of one point on, but "
     "ChrHighLine12Points is empty: nothing switches it off.\n"},
    {"expanded without its end", R"({"ChrEndExpanded": ""})",
     "warning: ChrInitExpanded switches expanded print on, but ChrEndExpanded is empty: nothing "
     "switches it off.\n"},
    {"underlined without its end", R"({"ChrEndUnderlying": ""})",
     "warning: ChrInitUnderlying switches underlined print on, but ChrEndUnderlying is empty: "
     "nothing switches it off.\n"},
    {"the 12-point font without the other", R"({"ChrFont10Points": ""})",
     "warning: ChrFont12Points switches the 12-point font on, but ChrFont10Points is empty: "
     "nothing switches it off.\n"},
    {"the 10-point font alone", R"({"ChrFont12Points": ""})", ""},
    {"on and off alike", R"({"ChrLight": "\u001bE"})",
     "warning: ChrBold and ChrLight are the same code (1B 45): the printer cannot tell them "
     "apart.\n"},
    {"a lost last byte", R"({"ChrEndUnderlying": "\u001b-"})",
     "warning: ChrEndUnderlying (1B 2D) is the beginning of ChrInitUnderlying (1B 2D 01): is its "
     "last part missing?\n"},
    {"a lost escape", R"({"ChrBold": "E"})",
     "warning: ChrBold begins with the character E, which is printed: is \"\\u001b\" missing "
     "before it?\n"},
    {"a blank in the place of an escape", R"({"ChrBold": " E"})",
     "warning: ChrBold begins with the character SP, which is printed: is \"\\u001b\" missing "
     "before it?\n"},
    {"a byte that the channel replaces", R"({"ChrGraphics": "\u001b*á"})",
     "warning: ChrGraphics has the byte E1, which leaves as A0: the channel replaces á é í ó ú ñ Ñ "
     "º in codes too.\n"},
    {"another maker's code", R"({"ChrInitUnderlying": "\u001bC"})",
     "warning: ChrReset is a code of Epson printers, ChrInitUnderlying one of OKI Microline "
     "printers: no printer speaks both at once.\n"},
    {"no code for a mode and its end", R"({"ChrBold": "", "ChrLight": ""})",
     "note: There are no codes for bold print: template words that ask for it send nothing.\n"},
    {"no code for points", R"({"ChrHighLine1Point": "", "ChrHighLine12Points": ""})",
     "note: ChrHighLine1Point is empty: a skip of points moves the paper by as many whole "
     "lines.\n"},
    {"a nation's letters", R"({"ChrInternationalChars": "\u001bt\u0001\u001bR\u0007"})",
     "warning: ChrInternationalChars chooses a nation's letters (1B 52 07): some of # $ @ [ \\ ] ^ "
     "` { | } ~ print as others; 1B 52 00 leaves them.\n"},
    {"the usual letters", R"({"ChrInternationalChars": "\u001bt\u0001\u001bR\u0000"})", ""},
    {"an initial string made of other codes", R"({"ChrInitialString1": "\u001b@\u001b2\u001bC!"})",
     ""},
};

TEST(ProfileCheck, FindsWhatIsWrong) {
  for (const CheckCase& each : kCases) {
    EXPECT_EQ(remarksOn(changed(each.changes)), each.remarks) << each.shows;
  }
}

}  // namespace
}  // namespace tarvordp
