#include "tarvordp/view/decoder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "page_dump.h"

namespace tarvordp {
namespace {

using namespace std::string_view_literals;
using Kind = PrinterEvent::Kind;

std::string namesOf(CodeSet codes) {
  std::string names;
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const auto code = static_cast<ControlCode>(i);
    if (codes.has(code)) names += (names.empty() ? "" : "=") + std::string(propertyName(code));
  }
  return names;
}

std::string dump(const PrinterEvent& event) {
  switch (event.kind) {
    case Kind::text:
      return "\"" + std::string(event.bytes) + "\"";
    case Kind::code:
      return namesOf(event.codes);
    case Kind::carriageReturn:
      return "CR";
    case Kind::lineFeed:
      return "LF";
    case Kind::formFeed:
      return "FF";
    case Kind::tab:
      return "TAB";
    case Kind::unknown:
      return "<" + hexOf(event.bytes) + ">";
  }
  return "";
}

std::string eventsOf(std::string_view bytes, const Profile& profile) {
  const Decoder decoder(profile);
  std::string all;
  while (!bytes.empty()) {
    const PrinterEvent event = decoder.next(bytes);
    EXPECT_FALSE(event.bytes.empty());
    all += (all.empty() ? "" : " ") + dump(event);
    bytes.remove_prefix(event.bytes.size());
  }
  return all;
}

struct DecodeCase {
  const char* shows;
  const char* profile;
  std::string_view bytes;
  const char* events;
};

constexpr DecodeCase kCases[] = {
    {"text and line ends", "plain", "A b\r\n\xA4\xFF\n"sv, "\"A b\" CR LF \"\xA4\xFF\" LF"},
    {"the longest code", "epson-9pin", "\x12\x1BPx\x1BP"sv, "ChrNormal \"x\" ChrFont10Points"},
    {"a code's first part is not the code", "epson-9pin", "\x12x\x12"sv, "<12> \"x\" <12>"},
    {"one code for two things", "ibm-proprinter", "\x12"sv, "ChrNormal=ChrFont10Points"},
    {"one code for three things", "oki-microline", "\x1E"sv,
     "ChrNormal=ChrEndExpanded=ChrFont10Points"},
    {"a code that begins like another", "ibm-proprinter",
     "\x1B\x46\x1B\x48\x1B\x2D\x00\x1B\x57\x00\x1B\x54\x12\x1B\x41\x0C\x1B\x32\x1B\x46"sv,
     "ChrReset ChrLight"},
    {"a code that is cut off", "ibm-proprinter", "\x1B\x46\x1B\x48\x1B\x2D"sv,
     "ChrLight <1B 48> <1B 2D>"},
    {"codes with zero bytes", "epson-9pin", "\x1BW\x01\x1BW\x00\x1B-\x00"sv,
     "ChrInitExpanded ChrEndExpanded ChrEndUnderlying"},
    {"a code that is in a text", "oki-microline", "ab\x1D\x63"sv, "\"ab\" ChrCondensed \"c\""},
    {"the profile's form feed", "plain", "\f"sv, "ChrFormFeed"},
    {"an escape takes a byte, and control bytes", "epson-9pin", "a\x1Bk\x01\x02z\x07\x08"sv,
     "\"a\" <1B 6B 01 02> \"z\" <07 08>"},
    {"an escape takes no line end", "epson-9pin", "\x1B\r\n\x1B\n"sv, "<1B> CR LF <1B> LF"},
    {"an escape takes no code", "epson-9pin", "\x1B\x0F\x1Bk\x0F"sv,
     "<1B> ChrCondensed <1B 6B> ChrCondensed"},
    {"an escape at the end", "epson-9pin", "\x1B\x1B"sv, "<1B> <1B>"},
    {"a tab, a deletion", "plain", "\t\x7F\x80"sv, "TAB <7F> \"\x80\""},
    {"every code that plain lacks", "plain",
     "\x1B"
     "E\x0F\x1B@"sv,
     "<1B 45 0F> <1B 40>"},
};

TEST(Decoder, TakesBytesApart) {
  for (const DecodeCase& each : kCases) {
    EXPECT_EQ(eventsOf(each.bytes, findProfile(each.profile, "")), each.events) << each.shows;
  }
}

TEST(Decoder, KnowsEveryCodeOfEveryShippedProfile) {
  for (const std::string& name : shippedProfileNames()) {
    const Profile profile = findProfile(name, "");
    for (std::size_t i = 0; i < kControlCodes; ++i) {
      const auto code = static_cast<ControlCode>(i);
      const std::string bytes = bytesSent(profile, code);
      if (bytes.empty()) continue;
      const PrinterEvent event = Decoder(profile).next(bytes);
      EXPECT_EQ(event.bytes, bytes);
      EXPECT_TRUE(event.codes.has(code)) << name << " " << propertyName(code);
    }
  }
}

TEST(Decoder, AnEmptyProfileStillMovesThePaper) {
  EXPECT_EQ(eventsOf("a\f\r\n", Profile{}), "\"a\" FF CR LF");
}

TEST(Decoder, ACodeMayBeginWithALetterOrALineEnd) {
  const Profile profile = profileFrom(R"({"ChrBold": "*b", "ChrFormFeed": "\n\n\n"})");
  EXPECT_EQ(eventsOf("a*bc*\n\n\n\n", profile), "\"a\" ChrBold \"c*\" ChrFormFeed LF");
}

TEST(Decoder, KnowsCodesAsTheChannelSendsThem) {
  const Profile profile = profileFrom(R"({"ChrBold": "\u001bá"})");
  EXPECT_EQ(eventsOf("\x1B\xA0", profile), "ChrBold");
}

}  // namespace
}  // namespace tarvordp
