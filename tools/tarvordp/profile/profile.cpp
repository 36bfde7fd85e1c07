#include "tarvordp/profile/profile.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "frame/codepage.h"
#include "printer/clsUtilImp.h"
#include "tarvordp/mistake.h"
#include "tarvordp/profile/shipped.h"

namespace tarvordp {
namespace {

using tarvo::clsUtilImp;
using tarvo::Text;
using tarvo::TextView;

struct CodeProperty {
  std::string_view name;
  void (clsUtilImp::*set)(TextView);
};

// In ControlCode's order.
constexpr std::array<CodeProperty, kControlCodes> kCodeProperties{{
    {"ChrFormFeed", &clsUtilImp::SetChrFormFeed},
    {"ChrCondensed", &clsUtilImp::SetChrCondensed},
    {"ChrNormal", &clsUtilImp::SetChrNormal},
    {"ChrInitExpanded", &clsUtilImp::SetChrInitExpanded},
    {"ChrEndExpanded", &clsUtilImp::SetChrEndExpanded},
    {"ChrBold", &clsUtilImp::SetChrBold},
    {"ChrLight", &clsUtilImp::SetChrLight},
    {"ChrReset", &clsUtilImp::SetChrReset},
    {"ChrInitUnderlying", &clsUtilImp::SetChrInitUnderlying},
    {"ChrEndUnderlying", &clsUtilImp::SetChrEndUnderlying},
    {"ChrFont10Points", &clsUtilImp::SetChrFont10Points},
    {"ChrFont12Points", &clsUtilImp::SetChrFont12Points},
    {"ChrInitItalic", &clsUtilImp::SetChrInitItalic},
    {"ChrEndItalic", &clsUtilImp::SetChrEndItalic},
    {"ChrHighLine1Point", &clsUtilImp::SetChrHighLine1Point},
    {"ChrHighLine12Points", &clsUtilImp::SetChrHighLine12Points},
    {"ChrGraphics", &clsUtilImp::SetChrGraphics},
    {"ChrInternationalChars", &clsUtilImp::SetChrInternationalChars},
    {"ChrInitialString1", &clsUtilImp::SetChrInitialString1},
    {"ChrInitialString2", &clsUtilImp::SetChrInitialString2},
    {"ChrInitialString3", &clsUtilImp::SetChrInitialString3},
    {"ChrInitialString4", &clsUtilImp::SetChrInitialString4},
}};

constexpr char16_t kGreatestByte = 0xFF;

Text readControlString(const JsonValue& value) {
  Text code = tarvo::fromUtf8(value.asText());
  const auto wide = std::ranges::find_if(code, [](char16_t c) { return c > kGreatestByte; });
  if (wide != code.end()) {
    char number[16];
    std::snprintf(number, sizeof number, "U+%04X", static_cast<unsigned>(*wide));
    value.mistake("character " + std::to_string(wide - code.begin() + 1) + " is " + number +
                  "; a control string has characters 0 to 255, one for each byte");
  }
  return code;
}

std::uint8_t readByte(KnownKeys& keys, std::string_view name) {
  const JsonValue* value = keys.optional(name);
  return value == nullptr ? 0 : static_cast<std::uint8_t>(value->asWholeNumber(0, 255));
}

std::string shippedNamesInWords() {
  std::string words;
  for (const std::string& name : shippedProfileNames()) words += (words.empty() ? "" : ", ") + name;
  return words;
}

}  // namespace

std::string_view propertyName(ControlCode code) noexcept {
  return kCodeProperties[static_cast<std::size_t>(code)].name;
}

Profile readProfile(const JsonValue& object) {
  KnownKeys keys(object);
  Profile profile;
  if (const JsonValue* name = keys.optional("PrinterName")) {
    profile.printerName = tarvo::fromUtf8(name->asText());
  }
  profile.maxLinPage = readByte(keys, "MaxLinPage");
  profile.maxChrLinCondensed80Columns = readByte(keys, "MaxChrLinCondensed80Columns");
  if (const JsonValue* can = keys.optional("CanPrintInTextMode")) {
    profile.canPrintInTextMode = can->asBoolean();
  }
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const JsonValue* code = keys.optional(kCodeProperties[i].name);
    if (code != nullptr) profile.codes[i] = readControlString(*code);
  }
  keys.nothingElse();
  return profile;
}

Profile findProfile(const std::string& nameOrPath, const std::string& folder) {
  const auto& shipped = shippedFiles();
  const auto found = std::ranges::find(shipped, nameOrPath, &ShippedFile::name);
  if (found != shipped.end()) {
    return readProfile(readJsonText(found->text, std::string(found->name) + ".json"));
  }
  const std::string path = (std::filesystem::path(folder) / nameOrPath).string();
  std::error_code ignored;
  if (nameOrPath.empty() || !std::filesystem::exists(path, ignored)) {
    throw Mistake("\"" + nameOrPath + "\" is neither a file nor a shipped printer profile (" +
                  shippedNamesInWords() + ")");
  }
  return readProfile(readJsonFile(path));
}

const std::vector<std::string>& shippedProfileNames() {
  static const std::vector<std::string> kNames = [] {
    std::vector<std::string> names;
    for (const ShippedFile& file : shippedFiles()) names.emplace_back(file.name);
    return names;
  }();
  return kNames;
}

ProfileNotes notesOn(std::string_view shippedName) noexcept {
  struct Row {
    std::string_view name;
    ProfileNotes notes;
  };
  static constexpr Row kRows[] = {
      {"epson-9pin", {"Epson ESC/P with 9 pins (FX, LX and what speaks like them)", ""}},
      {"epson-24pin", {"Epson ESC/P2 with 24 pins (LQ)", ""}},
      {"ibm-proprinter",
       {"IBM Proprinter and what speaks like it",
        "The base set has no reset; ChrReset switches everything back one by one."}},
      {"oki-microline",
       {"OKI Microline in its own language",
        "ChrReset and ChrEndExpanded are not confirmed for every model, and italics are for newer "
        "ones: print a test page first."}},
      {"plain", {"text and form feeds, no other code: for any printer", ""}},
  };
  const auto* row = std::ranges::find(kRows, shippedName, &Row::name);
  return row == std::end(kRows) ? ProfileNotes{} : row->notes;
}

void apply(const Profile& profile, clsUtilImp& printer) {
  printer.SetPrinterName(profile.printerName);
  printer.SetMaxLinPage(profile.maxLinPage);
  printer.SetMaxChrLinCondensed80Columns(profile.maxChrLinCondensed80Columns);
  printer.SetCanPrintInTextMode(profile.canPrintInTextMode);
  // The channel takes characters of the system's code page.
  const tarvo::CodePage& codePage = tarvo::CodePage::ofSystem();
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    Text characters;
    for (const char16_t byte : profile.codes[i]) {
      characters.push_back(codePage.decode(static_cast<std::uint8_t>(byte)));
    }
    (printer.*kCodeProperties[i].set)(characters);
  }
}

std::string bytesSent(const Profile& profile, ControlCode code) {
  struct Replaced {
    unsigned char byte;
    unsigned char sent;
  };
  // á é í ó ú ñ Ñ º, as the channel has them (clsUtilImp.h)
  static constexpr Replaced kReplaced[] = {{0xE1, 0xA0}, {0xE9, 0x82}, {0xED, 0xA1}, {0xF3, 0xA2},
                                           {0xFA, 0xA3}, {0xF1, 0xA4}, {0xD1, 0xA5}, {0xBA, 0xA7}};
  std::string bytes;
  for (const char16_t character : profile.code(code)) {
    const auto* row = std::ranges::find(kReplaced, character, &Replaced::byte);
    bytes.push_back(static_cast<char>(row == std::end(kReplaced) ? character : row->sent));
  }
  return bytes;
}

}  // namespace tarvordp
