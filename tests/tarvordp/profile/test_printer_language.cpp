#include "tarvordp/profile/printer_language.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvordp {
namespace {

PrinterLanguage languageOf(const std::string& json) {
  return tarvordp::languageOf(readProfile(readJsonText(json, "p.json")));
}

TEST(PrinterLanguage, OfTheShippedProfiles) {
  const auto ofShipped = [](const char* name) {
    return tarvordp::languageOf(findProfile(name, ""));
  };
  EXPECT_EQ(ofShipped("epson-9pin"), PrinterLanguage::epson);
  EXPECT_EQ(ofShipped("epson-24pin"), PrinterLanguage::epson);
  EXPECT_EQ(ofShipped("ibm-proprinter"), PrinterLanguage::proprinter);
  EXPECT_EQ(ofShipped("oki-microline"), PrinterLanguage::microline);
  EXPECT_EQ(ofShipped("plain"), PrinterLanguage::unknown);
}

TEST(PrinterLanguage, IsKnownFromOneCodeThatNoOtherLanguageHas) {
  EXPECT_EQ(languageOf(R"({"ChrReset": "\u001b@"})"), PrinterLanguage::epson);
  EXPECT_EQ(languageOf(R"({"ChrFont12Points": "\u001b:"})"), PrinterLanguage::proprinter);
  EXPECT_EQ(languageOf(R"({"ChrCondensed": "\u001d"})"), PrinterLanguage::microline);
}

TEST(PrinterLanguage, IsUnknownWhereTheCodesDoNotSay) {
  EXPECT_EQ(languageOf("{}"), PrinterLanguage::unknown);
  EXPECT_EQ(languageOf(R"({"ChrCondensed": "\u000f", "ChrBold": "\u001bE"})"),
            PrinterLanguage::unknown);  // several languages'
  EXPECT_EQ(languageOf(R"({"ChrReset": "\u001bX"})"), PrinterLanguage::unknown);  // nobody's
  EXPECT_EQ(languageOf(R"({"ChrReset": "\u001b@", "ChrFont12Points": "\u001b:"})"),
            PrinterLanguage::unknown);  // two at once
}

TEST(PrinterLanguage, IsKnownFromACodeOfOneOfItsPrintersAlone) {
  EXPECT_EQ(languageOf(R"({"ChrHighLine1Point": "\u001b+\u0005"})"), PrinterLanguage::epson);
  EXPECT_EQ(languageOf(R"({"ChrHighLine1Point": "\u001bA\u0001"})"), PrinterLanguage::epson);
}

TEST(PrinterLanguage, OfCodesThatContradictEachOtherBothAreKnown) {
  const LanguageEvidence seen = languageEvidenceIn(readProfile(readJsonText(
      R"({"ChrReset": "\u001b@", "ChrFont12Points": "\u001b:", "ChrCondensed": "\u000f"})", "p")));
  EXPECT_EQ(seen.language, PrinterLanguage::epson);
  EXPECT_EQ(seen.code, ControlCode::reset);
  EXPECT_EQ(seen.otherLanguage, PrinterLanguage::proprinter);
  EXPECT_EQ(seen.otherCode, ControlCode::font12Points);
}

}  // namespace
}  // namespace tarvordp
