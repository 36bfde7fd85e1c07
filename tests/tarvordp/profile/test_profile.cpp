#include "tarvordp/profile/profile.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "equipment/recording_spooler.h"
#include "equipment/temporary_folder.h"
#include "frame/codepage.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsTexto.h"
#include "tarvordp/mistake.h"
#include "tarvordp/profile/code_text.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;

std::string mistakeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Mistake& mistake) {
    return mistake.what();
  }
  return "no mistake";
}

Profile profileOf(const std::string& json) { return readProfile(readJsonText(json, "p.json")); }

std::string hexOfCode(const Profile& profile, ControlCode code) {
  return hexOf(bytesSent(profile, code));
}

// --- The shipped profiles, byte for byte.

struct ShippedCode {
  ControlCode code;
  const char* epson9;
  const char* epson24;
  const char* ibm;
  const char* oki;
  const char* plain;
};

constexpr const char* kIbmReset = "1B 46 1B 48 1B 2D 00 1B 57 00 1B 54 12 1B 41 0C 1B 32";

constexpr ShippedCode kShippedCodes[] = {
    {ControlCode::formFeed, "0C", "0C", "0C", "0C", "0C"},
    {ControlCode::condensed, "0F", "0F", "0F", "1D", ""},
    {ControlCode::normal, "12 1B 50", "12 1B 50", "12", "1E", ""},
    {ControlCode::initExpanded, "1B 57 01", "1B 57 01", "1B 57 01", "1F", ""},
    {ControlCode::endExpanded, "1B 57 00", "1B 57 00", "1B 57 00", "1E", ""},
    {ControlCode::bold, "1B 45", "1B 45", "1B 45", "1B 54", ""},
    {ControlCode::light, "1B 46", "1B 46", "1B 46", "1B 49", ""},
    {ControlCode::reset, "1B 40", "1B 40", kIbmReset, "1B 18", ""},
    {ControlCode::initUnderlying, "1B 2D 01", "1B 2D 01", "1B 2D 01", "1B 43", ""},
    {ControlCode::endUnderlying, "1B 2D 00", "1B 2D 00", "1B 2D 00", "1B 44", ""},
    {ControlCode::font10Points, "1B 50", "1B 50", "12", "1E", ""},
    {ControlCode::font12Points, "1B 4D", "1B 4D", "1B 3A", "1C", ""},
    {ControlCode::initItalic, "1B 34", "1B 34", "", "1B 21 2F", ""},
    {ControlCode::endItalic, "1B 35", "1B 35", "", "1B 21 2A", ""},
    {ControlCode::highLine1Point, "1B 41 01", "1B 2B 05", "1B 41 01 1B 32", "1B 25 39 02", ""},
    {ControlCode::highLine12Points, "1B 32", "1B 32", "1B 41 0C 1B 32", "1B 36", ""},
    {ControlCode::graphics, "", "", "", "", ""},
    {ControlCode::internationalChars, "1B 74 01 1B 36", "1B 28 74 03 00 01 01 00 1B 74 01 1B 36",
     "1B 36", "", ""},
    {ControlCode::initialString1, "", "", "", "", ""},
    {ControlCode::initialString2, "", "", "", "", ""},
    {ControlCode::initialString3, "", "", "", "", ""},
    {ControlCode::initialString4, "", "", "", "", ""},
};
static_assert(std::size(kShippedCodes) == kControlCodes);

TEST(ShippedProfiles, AreTheFiveKinds) {
  EXPECT_THAT(shippedProfileNames(),
              testing::ElementsAre("epson-9pin", "epson-24pin", "ibm-proprinter", "oki-microline",
                                   "plain"));
}

TEST(ShippedProfiles, HaveTheCodesOfTheirPrinters) {
  const Profile profiles[] = {findProfile("epson-9pin", ""), findProfile("epson-24pin", ""),
                              findProfile("ibm-proprinter", ""), findProfile("oki-microline", ""),
                              findProfile("plain", "")};
  for (const ShippedCode& row : kShippedCodes) {
    SCOPED_TRACE(propertyName(row.code));
    EXPECT_EQ(hexOfCode(profiles[0], row.code), row.epson9);
    EXPECT_EQ(hexOfCode(profiles[1], row.code), row.epson24);
    EXPECT_EQ(hexOfCode(profiles[2], row.code), row.ibm);
    EXPECT_EQ(hexOfCode(profiles[3], row.code), row.oki);
    EXPECT_EQ(hexOfCode(profiles[4], row.code), row.plain);
  }
}

TEST(ShippedProfiles, AreForElevenInchPaperAndNoPrinterInParticular) {
  for (const std::string& name : shippedProfileNames()) {
    SCOPED_TRACE(name);
    const Profile profile = findProfile(name, "");
    EXPECT_EQ(profile.printerName, u"");
    EXPECT_EQ(profile.maxLinPage, 66);
    EXPECT_EQ(profile.maxChrLinCondensed80Columns, name == "plain" ? 80 : 137);
    EXPECT_TRUE(profile.canPrintInTextMode);
    EXPECT_FALSE(notesOn(name).about.empty());
  }
}

// --- Reading.

TEST(ProfileFile, MissingPropertiesAreEmpty) {
  const Profile profile = profileOf("{}");
  EXPECT_EQ(profile.maxLinPage, 0);
  EXPECT_FALSE(profile.canPrintInTextMode);
  for (const tarvo::Text& code : profile.codes) EXPECT_EQ(code, u"");
}

TEST(ProfileFile, EveryByteMayStandInAControlString) {
  const Profile profile =
      profileOf(R"({"PrinterName": "Peña", "ChrGraphics": "\u0000\u001b\u0080ÿ\n"})");
  EXPECT_EQ(profile.printerName, u"Peña");
  EXPECT_EQ(profile.code(ControlCode::graphics), tarvo::Text(u"\0\x1B\x80\xFF\n", 5));
}

TEST(ProfileFile, MistakesNameTheirPlace) {
  EXPECT_EQ(mistakeOf([] { profileOf(R"({"ChrBold": "\u001b→"})"); }),
            "p.json: /ChrBold: character 2 is U+2192; a control string has characters 0 to 255, "
            "one for each byte");
  EXPECT_EQ(mistakeOf([] { profileOf(R"({"ChrBolt": ""})"); }),
            "p.json: /ChrBolt: unknown key \"ChrBolt\"");
  EXPECT_EQ(mistakeOf([] { profileOf(R"({"ChrBold": 27})"); }),
            "p.json: /ChrBold: must be a text, not a number");
  EXPECT_EQ(mistakeOf([] { profileOf(R"({"MaxLinPage": 256})"); }),
            "p.json: /MaxLinPage: must be a whole number from 0 to 255, not 256");
  EXPECT_EQ(mistakeOf([] { profileOf(R"({"CanPrintInTextMode": "yes"})"); }),
            "p.json: /CanPrintInTextMode: must be true or false, not a text");
  EXPECT_EQ(mistakeOf([] { profileOf("[]"); }),
            "p.json: the document: must be an object, not an array");
}

TEST(FindProfile, TakesAFileOfTheFolder) {
  const tarvo::test::TemporaryFolder folder;
  folder.write(u"mine.json", R"({"MaxLinPage": 33})");
  EXPECT_EQ(findProfile("mine.json", folder.path().string()).maxLinPage, 33);
  EXPECT_EQ(findProfile((folder.path() / "mine.json").string(), "").maxLinPage, 33);
}

TEST(FindProfile, ANameThatIsNeitherTellsTheShippedOnes) {
  EXPECT_EQ(mistakeOf([] { findProfile("epson", ""); }),
            "\"epson\" is neither a file nor a shipped printer profile (epson-9pin, epson-24pin, "
            "ibm-proprinter, oki-microline, plain)");
  EXPECT_THAT(mistakeOf([] { findProfile("", "/tmp"); }), HasSubstr("is neither a file"));
  EXPECT_EQ(mistakeOf([] { findProfile("tmp", "/"); }), "/tmp: cannot be read: Is a directory");
}

// --- Through the printer channel.

using Getter = const tarvo::Text& (tarvo::clsUtilImp::*)() const noexcept;
constexpr Getter kGetters[] = {
    &tarvo::clsUtilImp::GetChrFormFeed,       &tarvo::clsUtilImp::GetChrCondensed,
    &tarvo::clsUtilImp::GetChrNormal,         &tarvo::clsUtilImp::GetChrInitExpanded,
    &tarvo::clsUtilImp::GetChrEndExpanded,    &tarvo::clsUtilImp::GetChrBold,
    &tarvo::clsUtilImp::GetChrLight,          &tarvo::clsUtilImp::GetChrReset,
    &tarvo::clsUtilImp::GetChrInitUnderlying, &tarvo::clsUtilImp::GetChrEndUnderlying,
    &tarvo::clsUtilImp::GetChrFont10Points,   &tarvo::clsUtilImp::GetChrFont12Points,
    &tarvo::clsUtilImp::GetChrInitItalic,     &tarvo::clsUtilImp::GetChrEndItalic,
    &tarvo::clsUtilImp::GetChrHighLine1Point, &tarvo::clsUtilImp::GetChrHighLine12Points,
    &tarvo::clsUtilImp::GetChrGraphics,       &tarvo::clsUtilImp::GetChrInternationalChars,
    &tarvo::clsUtilImp::GetChrInitialString1, &tarvo::clsUtilImp::GetChrInitialString2,
    &tarvo::clsUtilImp::GetChrInitialString3, &tarvo::clsUtilImp::GetChrInitialString4,
};

TEST(ApplyProfile, SetsEachPropertyToItsOwn) {
  Profile profile;
  profile.printerName = u"LX";
  profile.maxLinPage = 33;
  profile.maxChrLinCondensed80Columns = 137;
  profile.canPrintInTextMode = true;
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    profile.codes[i] = tarvo::Text(1, static_cast<char16_t>(u'A' + i));
  }
  const auto printer = tarvo::make<tarvo::clsUtilImp>();
  apply(profile, *printer);
  EXPECT_EQ(printer->GetPrinterName(), u"LX");
  EXPECT_EQ(printer->GetMaxLinPage(), 33);
  EXPECT_EQ(printer->GetMaxChrLinCondensed80Columns(), 137);
  EXPECT_TRUE(printer->GetCanPrintInTextMode());
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    EXPECT_EQ(((*printer).*kGetters[i])(), profile.codes[i]);
  }
}

// Every byte, alone, as a code of the profile.
TEST(ApplyProfile, ThePrinterGetsTheBytesThatBytesSentTells) {
  tarvo::modRDPGlobalValues::ofThisThread().refInsTexto = tarvo::make<LibTarvoCI::clsTexto>();
  tarvo::test::CallLog log;
  for (char16_t byte = 0; byte <= 0xFF; ++byte) {
    Profile profile;
    profile.codes[static_cast<std::size_t>(ControlCode::reset)] = tarvo::Text(1, byte);
    const auto spooler = tarvo::make<tarvo::test::RecordingSpooler>(log);
    const auto printer = tarvo::make<tarvo::clsUtilImp>(spooler);
    apply(profile, *printer);
    printer->sInitializePrinterFileHandle(u"LX", u"");
    printer->sResetPrinter();
    EXPECT_EQ(hexOf(spooler->bytes()), hexOfCode(profile, ControlCode::reset));
  }
  tarvo::modRDPGlobalValues::ofThisThread() = tarvo::modRDPGlobalValues();
}

TEST(BytesSent, AreTheProfilesButForSpanishLetters) {
  Profile profile;
  profile.codes[static_cast<std::size_t>(ControlCode::reset)] = u"\x1B\x80áéíóúñÑº\xFF";
  EXPECT_EQ(hexOfCode(profile, ControlCode::reset), "1B 80 A0 82 A1 A2 A3 A4 A5 A7 FF");
}

TEST(CodeText, NamesControlCharacters) {
  EXPECT_EQ(readableOf(std::string("\x1B"
                                   "E \0\x0F\x7F\x80",
                                   7)),
            "ESC E SP NUL SI DEL 80");
  EXPECT_EQ(readableOf(""), "");
  EXPECT_EQ(hexOf("\x1B"
                  "E"),
            "1B 45");
}

}  // namespace
}  // namespace tarvordp
