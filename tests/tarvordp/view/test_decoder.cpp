#include "tarvordp/view/decoder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "equipment/processor_time.h"
#include "page_dump.h"
#include "tarvordp/profile/code_text.h"

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
      return "<" + hexOf(event.bytes) + (event.extent.endIsKnown ? ">" : " ?>");
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
    {"an unknown code of unknown length takes control bytes", "plain", "a\x1Bk\x01\x02z\x07\x08"sv,
     "\"a\" <1B 6B 01 02 ?> \"z\" <07 08>"},
    {"an escape takes no line end", "epson-9pin", "\x1B\r\n\x1B\n"sv, "<1B ?> CR LF <1B ?> LF"},
    {"an escape takes no code", "epson-9pin", "\x1B\x0F\x1Bv\x0F"sv,
     "<1B ?> ChrCondensed <1B 76 ?> ChrCondensed"},
    {"an escape at the end", "epson-9pin", "\x1B\x1B"sv, "<1B ?> <1B ?>"},
    {"the page length's number is no text", "epson-9pin", "\x1B\x43!x"sv, "<1B 43 21> \"x\""},
    {"the page length in inches", "ibm-proprinter", "\x1B\x43\x00\x0Bx"sv, "<1B 43 00 0B> \"x\""},
    {"an argument like a line end", "epson-9pin", "\x1B\x33\x0Ax"sv, "<1B 33 0A> \"x\""},
    {"an argument like a code", "epson-9pin", "\x1BJ\x0Fx"sv, "<1B 4A 0F> \"x\""},
    {"an argument that the profile's codes do not have", "epson-9pin", "\x1BW1\x1B-1x"sv,
     "<1B 57 31> <1B 2D 31> \"x\""},
    {"the same letter in another language", "oki-microline", "\x1B\x46\x33\x33\x1BHx"sv,
     "<1B 46 33 33> <1B 48> \"x\""},
    {"a letter that a language does not have", "oki-microline", "\x1B@x"sv, "<1B 40 ?> \"x\""},
    {"tabulator stops", "epson-24pin", "\x1B\x44\x0A\x1B\x1E\x00x"sv, "<1B 44 0A 1B 1E 00> \"x\""},
    {"tabulator stops without an end", "epson-24pin", "\x1B\x44\x08x"sv, "<1B 44 08 ?> \"x\""},
    {"counted data", "epson-24pin", "\x1B(U\x01\x00\x0Ax"sv, "<1B 28 55 01 00 0A> \"x\""},
    {"counted data, IBM", "ibm-proprinter", "\x1B[@\x04\x00\x00\x00\x21\x01x"sv,
     "<1B 5B 40 04 00 00 00 21 01> \"x\""},
    {"graphics", "epson-9pin", "\x1BK\x03\x00\x1B\x45\x0Cx"sv, "<1B 4B 03 00 1B 45 0C> \"x\""},
    {"graphics of 24 pins", "epson-24pin", "\x1B*\x27\x01\x00\x41\x42\x43\x44"sv,
     "<1B 2A 27 01 00 41 42 43> \"D\""},
    {"graphics of an unknown mode", "epson-24pin", "\x1B*\x7B\x01\x00\x41"sv,
     "<1B 2A 7B 01 00 ?> \"A\""},
    {"graphics that are cut off", "epson-9pin", "\x1BK\x00\x01\x41\x42"sv, "<1B 4B 00 01 41 42>"},
    {"a code that is cut off in its arguments", "epson-9pin", "\x1BK\x08"sv, "<1B 4B 08>"},
    {"other codes of more than a byte", "plain", "\x1DV0\x07\x1C"sv, "<1D ?> \"V0\" <07> <1C ?>"},
    {"a tab, a deletion", "plain", "\t\x7F\x80"sv, "TAB <7F> \"\x80\""},
    {"every code that plain lacks", "plain",
     "\x1B"
     "E\x0F\x1B@"sv,
     "<1B 45 0F ?> <1B 40 ?>"},
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

// What is known of the languages and what the profiles say of them, held against each other.
TEST(EscapeSequences, AreAsLongAsTheProfilesHaveThem) {
  for (const std::string& name : shippedProfileNames()) {
    const Profile profile = findProfile(name, "");
    const PrinterLanguage language = languageOf(profile);
    for (std::size_t i = 0; i < kControlCodes; ++i) {
      const std::string bytes = bytesSent(profile, static_cast<ControlCode>(i));
      std::size_t at = 0;
      while (at < bytes.size()) {
        const CodeExtent extent = extentOf(language, std::string_view(bytes).substr(at));
        EXPECT_TRUE(extent.endIsKnown) << name << ": " << hexOf(bytes) << " at " << at;
        at += extent.size + extent.data;
        EXPECT_EQ(extent.data, extent.announced) << name << ": " << hexOf(bytes) << " at " << at;
      }
      EXPECT_EQ(at, bytes.size()) << name << ": " << hexOf(bytes);
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

TEST(EscapeSequences, AListOfTabulatorStopsIsShort) {
  const auto extentWith = [](std::size_t stops) {
    return extentOf(PrinterLanguage::epson,
                    "\x1B"
                    "D" +
                        std::string(stops, '\x08') + std::string("\0x", 2));
  };
  EXPECT_EQ(extentWith(0).size, 3U);
  EXPECT_EQ(extentWith(32).size, 2U + 32U + 1U);
  EXPECT_TRUE(extentWith(32).endIsKnown);
  EXPECT_EQ(extentWith(33).size, 2U);
  EXPECT_FALSE(extentWith(33).endIsKnown);
}

TEST(EscapeSequences, ListsWithoutAnEndTakeNoLongerThanOthers) {
  std::string bytes;
  while (bytes.size() < 2'000'000)
    bytes +=
        "\x1B"
        "B";
  std::size_t codes = 0;
  const double seconds = tarvo::test::processorSecondsOf([&] {
    const Decoder decoder(findProfile("epson-9pin", ""));
    for (std::string_view rest = bytes; !rest.empty(); ++codes) {
      rest.remove_prefix(decoder.next(rest).bytes.size());
    }
  });
  EXPECT_EQ(codes, 1'000'000U);
  EXPECT_LT(seconds, 5) << "to the end of the file for each it is many more";
}

}  // namespace
}  // namespace tarvordp
