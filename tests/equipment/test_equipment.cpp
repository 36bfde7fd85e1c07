// The tests' own equipment: what it shows must be what happened.
#include <gtest/gtest.h>

#include <set>

#include "equipment/bytes_dump.h"
#include "equipment/errors.h"
#include "equipment/golden.h"
#include "equipment/recording_services.h"
#include "equipment/recording_spooler.h"
#include "equipment/show_arguments.h"

namespace tarvo::test {
namespace {

using namespace std::string_literals;

TEST(BytesDump, ShowsEachByteInItsOwnWay) {
  EXPECT_EQ(bytesDump("\x1B"
                      "E Total \r\n"),
            "<1B>E Total <0D><0A>\n");
  EXPECT_EQ(bytesDump("a\n\nb"), "a<0A>\n<0A>\nb\n");
  EXPECT_EQ(bytesDump("\0\x7F\x80\xFF<>"s), "<00><7F><80><FF><3C>>\n");
  EXPECT_EQ(bytesDump("  a  "), "  a <20>\n");
  EXPECT_EQ(bytesDump(""), "");
}

TEST(BytesDump, ShowsDifferentBytesDifferently) {
  std::set<std::string> dumps;
  for (int byte = 0; byte < 256; ++byte)
    dumps.insert(bytesDump(std::string{static_cast<char>(byte), 'x'}));
  EXPECT_EQ(dumps.size(), 256u);
}

TEST(InQuotes, ShowsWhatCannotBeSeen) {
  EXPECT_EQ(inQuotes(u"A\u00F1o"), "\"A\u00F1o\""s);
  EXPECT_EQ(inQuotes(Text(u"\0\r\n\u0082\u00A0\u00AD<\"", 8)),
            "\"<00><0D><0A><82><A0><AD><3C><22>\"");
  EXPECT_EQ(inQuotes(u"\U0001F5A8"), "\"\U0001F5A8\""s);
  EXPECT_EQ(inQuotes(Text{char16_t(0xD83D), u'a'}), "\"<D83D>a\"");
  EXPECT_EQ(inQuotes(Text{char16_t(0xDDA8), char16_t(0xD83D)}), "\"<DDA8><D83D>\"");
}

TEST(ShowArguments, NamesAValuesKind) {
  EXPECT_EQ(showArguments(TextView(u"a"), std::int16_t{-2}, true, std::uint8_t{65}, 2.5),
            "\"a\", -2, true, 65, 2.5");
  EXPECT_EQ(show(Value(std::int16_t{7})), "int16 7");
  EXPECT_EQ(show(Value(7.0)), "double 7");
  EXPECT_EQ(show(Value(Text(u"7"))), "text \"7\"");
  EXPECT_EQ(show(Value(ValueArray{Value(true), Value()})), "array(boolean true, empty)");
}

TEST(SameLines, NamesTheFirstDifference) {
  EXPECT_TRUE(sameLines("f", "a\nb\n", "a\nb\n"));
  EXPECT_STREQ(sameLines("f", "a\nb\nc\n", "a\nX\nc\n").message(),
               "f:2: the first line that differs\n  expected: b\n  actual:   X");
  EXPECT_STREQ(sameLines("f", "a\nb\n", "a\n").message(),
               "f:2: the first line that differs\n  expected: b\n  actual:   (end)");
  EXPECT_STREQ(sameLines("f", "", "a").message(),
               "f:1: the first line that differs\n  expected: (end)\n  actual:   a");
  EXPECT_FALSE(sameLines("f", "a\n", "a"));
}

TEST(Golden, ThatIsMissingFails) { EXPECT_FALSE(matchesGolden("equipment/no such file", "")); }

TEST(RecordingSpooler, KeepsJobsAndCalls) {
  CallLog log;
  const Ref<RecordingSpooler> spooler = make<RecordingSpooler>(log);
  spooler->forgetPrinter(u"B");
  PrinterHandle handle = 5;
  EXPECT_FALSE(spooler->openPrinter(u"B", handle));
  EXPECT_EQ(handle, 0u);
  EXPECT_FALSE(spooler->write(handle, "lost"));
  EXPECT_TRUE(spooler->openPrinter(u"A", handle));
  EXPECT_TRUE(spooler->startDocument(handle, {u"Doc", u"out", u"RAW"}));
  EXPECT_TRUE(spooler->write(handle, "a\nb"));
  EXPECT_TRUE(spooler->endDocument(handle));
  EXPECT_TRUE(spooler->write(handle, "late"));
  EXPECT_EQ(spooler->bytes(), "a\nb");
  EXPECT_EQ(log.text(),
            "openPrinter \"B\"\n"
            "write 0 lost\n"
            "openPrinter \"A\"\n"
            "startDocument 1 \"Doc\" output \"out\" type \"RAW\"\n"
            "write 1 a<0A>b\n"
            "endDocument 1\n"
            "write 1 late\n");
}

TEST(FailingSpooler, FailsOnceAndHandsOnTheRest) {
  CallLog log;
  const Ref<FailingSpooler> spooler = make<FailingSpooler>(2, make<RecordingSpooler>(log));
  PrinterHandle handle = 0;
  EXPECT_TRUE(spooler->openPrinter(u"A", handle));
  EXPECT_FALSE(spooler->hasFailed());
  EXPECT_FALSE(spooler->startDocument(handle, {}));
  EXPECT_EQ(spooler->lastError(), FailingSpooler::kError);
  EXPECT_TRUE(spooler->hasFailed());
  EXPECT_TRUE(spooler->startPage(handle));
  EXPECT_EQ(spooler->lastError(), 0);
  EXPECT_EQ(log.text(), "openPrinter \"A\"\nstartPage 1\n");
}

TEST(Fault, RaisesAtItsCallAlone) {
  CallLog log;
  const Ref<RecordingMessage> message = make<RecordingMessage>(log);
  message->fault.raiseAt(2, 1234);
  Text text = u"x";
  EXPECT_EQ(errorNumberOf([&] { message->sShowMessage(text); }), 0);
  EXPECT_TRUE(message->fault.isPending());
  EXPECT_EQ(errorNumberOf([&] { message->sShowMessage(text); }), 1234);
  EXPECT_FALSE(message->fault.isPending());
  EXPECT_EQ(errorNumberOf([&] { message->sShowMessage(text); }), 0);
  EXPECT_EQ(log.lines().size(), 3u);
}

}  // namespace
}  // namespace tarvo::test
