// What becomes of a text on its way to the printer: margin, line end, the printers' own letters,
// the code page.
#include <set>

#include "frame/codepage.h"
#include "printer_test.h"

namespace tarvo::test {
namespace {

class PrinterLetters : public PrinterTest {
 protected:
  PrinterLetters() { openJob(); }

  std::string bytesOf(TextView text) {
    const std::size_t before = spooler->bytes().size();
    channel->sWrite(text, 0);
    return spooler->bytes().substr(before);
  }
};

struct Letter {
  char16_t letter;
  unsigned char byte;
};
constexpr Letter kLetters[] = {{u'\u00E1', 160}, {u'\u00E9', 130}, {u'\u00ED', 161},
                               {u'\u00F3', 162}, {u'\u00FA', 163}, {u'\u00F1', 164},
                               {u'\u00D1', 165}, {u'\u00BA', 167}};

TEST_F(PrinterLetters, EightLettersLeaveAsThePrintersBytes) {
  for (const Letter& row : kLetters) {
    const Text text = {u'<', row.letter, row.letter, u'>'};
    const char byte = static_cast<char>(row.byte);
    EXPECT_EQ(bytesDump(bytesOf(text)), bytesDump(std::string({'<', byte, byte, '>'})));
  }
}

TEST_F(PrinterLetters, EveryOtherCharacterOfTheCodePageIsItsByte) {
  std::set<char16_t> replaced;
  for (const Letter& row : kLetters) replaced.insert(row.letter);
  int unchanged = 0;
  for (unsigned byte = 0; byte < 256; ++byte) {
    const char16_t character = CodePage::ofSystem().decode(static_cast<std::uint8_t>(byte));
    if (replaced.contains(character)) continue;
    ++unchanged;
    EXPECT_EQ(bytesOf(TextView(&character, 1)), std::string(1, static_cast<char>(byte))) << byte;
  }
  EXPECT_EQ(unchanged, 248);
}

TEST_F(PrinterLetters, CapitalAccentsAndUmlautsPass) {
  EXPECT_EQ(bytesDump(bytesOf(u"\u00C1\u00C9\u00CD\u00D3\u00DA\u00FC\u00DC\u00AA")),
            "<C1><C9><CD><D3><DA><FC><DC><AA>\n");
}

TEST_F(PrinterLetters, ASpanishSentence) {
  EXPECT_EQ(bytesDump(bytesOf(u"El ping\u00FCino N\u00BA 3 a\u00F1or\u00F3 \u00D1and\u00FA, "
                              u"caf\u00E9, t\u00EDa, \u00C1frica y m\u00E1s")),
            "El ping<FC>ino N<A7> 3 a<A4>or<A2> <A5>and<A3>, caf<82>, t<A1>a, <C1>frica y "
            "m<A0>s\n");
}

TEST_F(PrinterLetters, TheYearWithAMargin) {
  channel->sWriteLn(u"A\u00F1o", 2);
  EXPECT_EQ(spooler->bytes(), std::string({32, 32, 65, '\xA4', 111, 13, 10}));
}

TEST_F(PrinterLetters, WhatTheCodePageLacksIsAQuestionMarkAndShiftsNothing) {
  struct Row {
    const char* shows;
    Text text;
    const char* bytes;
  };
  const Row rows[] = {
      {"another alphabet", u"a\u0416b\u4E2Dc", "a?b?c"},
      {"no similar letter is taken", u"\u0101\u2212\uFF21", "???"},
      {"a surrogate pair is two units", u"a\U0001F5A8b", "a??b"},
      {"half a pair", {u'a', char16_t(0xD83D), u'b'}, "a?b"},
      {"the other half", {u'a', char16_t(0xDDA8), u'b'}, "a?b"},
      {"halves the wrong way round", {char16_t(0xDDA8), char16_t(0xD83D)}, "??"},
      {"a letter and its accent as two characters", u"e\u0301", "e?"},
      {"the last unit of all", u"\uFFFF", "?"},
  };
  for (const Row& row : rows) EXPECT_EQ(bytesOf(row.text), row.bytes) << row.shows;
}

TEST_F(PrinterLetters, TheEuroSignIsInTheCodePage) {
  if (CodePage::ofSystem().decode(0x80) != u'\u20AC')
    GTEST_SKIP() << "the bytes are those of code page 1252";
  EXPECT_EQ(bytesOf(u"\u20AC"), "\x80");
}

TEST_F(PrinterLetters, CharacterZeroIsWritten) {
  channel->SetChrReset(TextView(u"\x1B\0@\0", 4));
  channel->sResetPrinter();
  EXPECT_EQ(spooler->bytes(), std::string("\x1B\0@\0", 4));
  EXPECT_EQ(bytesOf(TextView(u"\0a\0", 3)), std::string("\0a\0", 3));
}

TEST_F(PrinterLetters, ControlCodesPassTheSameReplacement) {
  channel->SetChrReset(u"\x1B\u00E1");
  channel->sResetPrinter();
  EXPECT_EQ(bytesDump(spooler->bytes()), "<1B><A0>\n");
}

// What the text service is asked, in its order.  The new characters are those that the code page
// turns into the printers' bytes.
TEST_F(PrinterLetters, AreReplacedThroughTheTextService) {
  for (const Letter& row : kLetters) {
    if (CodePage::ofSystem().decode(row.byte) != CodePage::windows1252().decode(row.byte)) {
      GTEST_SKIP() << "the bytes are those of code page 1252";
    }
  }
  channel->sWriteLn(u"a\u00F1o \u00E1\u00BA", 0);
  EXPECT_EQ(serviceCalls.text(),
            "clsTexto.fReplaceAll \"año áº<0D><0A>\", \"á\", \"<A0>\"\n"
            "clsTexto.fReplaceAll \"año <A0>º<0D><0A>\", \"é\", \"‚\"\n"
            "clsTexto.fReplaceAll \"año <A0>º<0D><0A>\", \"í\", \"¡\"\n"
            "clsTexto.fReplaceAll \"año <A0>º<0D><0A>\", \"ó\", \"¢\"\n"
            "clsTexto.fReplaceAll \"año <A0>º<0D><0A>\", \"ú\", \"£\"\n"
            "clsTexto.fReplaceAll \"año <A0>º<0D><0A>\", \"ñ\", \"¤\"\n"
            "clsTexto.fReplaceAll \"a¤o <A0>º<0D><0A>\", \"Ñ\", \"¥\"\n"
            "clsTexto.fReplaceAll \"a¤o <A0>º<0D><0A>\", \"º\", \"§\"\n");
}

TEST_F(PrinterLetters, TheMarginComesFromTheTextServiceBeforeTheLineEnd) {
  channel->sWriteLn(
      u"\x1B"
      u"Ex",
      3);
  ASSERT_EQ(serviceCalls.lines().size(), 9u);
  EXPECT_EQ(serviceCalls.lines()[0], "clsTexto.fLeftMargin \"<1B>Ex\", 3");
  EXPECT_EQ(serviceCalls.lines()[1], "clsTexto.fReplaceAll \"   <1B>Ex<0D><0A>\", \"á\", \"<A0>\"");
  EXPECT_EQ(bytesDump(spooler->bytes()), "   <1B>Ex<0D><0A>\n");
}

TEST_F(PrinterLetters, WithoutAMarginTheServiceIsNotAskedForOne) {
  channel->sWriteLn(u"x", 0);
  channel->sWrite(u"x", 0);
  EXPECT_TRUE(serviceCalls.linesOf("clsTexto.fLeftMargin").empty());
}

// The two operations that the channel calls, for services that a test makes up.
class OwnTexto : public clsTexto {
 public:
  explicit OwnTexto(Ref<clsTexto> next) : next_(std::move(next)) {}

  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    next_->fReplaceAll(valText, valOld, valNew, result);
  }
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override {
    next_->fLeftMargin(valText, valMargin, result);
  }

  std::int32_t fPosition(TextView, TextView, std::int32_t) override { return notCalled(); }
  void fPart(TextView, std::int32_t, std::int32_t, Text&) override { notCalled(); }
  std::int32_t fLength(TextView) override { return notCalled(); }
  void fTrim(TextView, Text&) override { notCalled(); }
  void fSplit(TextView, TextView, TextList&) override { notCalled(); }
  void fDelete(TextView, std::int32_t, std::int32_t, Text&) override { notCalled(); }
  void fInsert(TextView, TextView, std::int32_t, Text&) override { notCalled(); }
  void fStrip(TextView, TextView, Text&) override { notCalled(); }
  void fRepeat(TextView, std::int32_t, Text&) override { notCalled(); }
  void fAlignLeft(TextView, std::int32_t, Text&) override { notCalled(); }
  void fAlignRight(TextView, std::int32_t, Text&) override { notCalled(); }
  void fAlignCenter(TextView, std::int32_t, Text&) override { notCalled(); }
  void fPadOrCut(TextView, std::int32_t, TextView, Text&) override { notCalled(); }
  void fFitToWidth(TextView, std::uint8_t, Text&) override { notCalled(); }
  bool fHolds(TextView, TextView) override { return notCalled() != 0; }

 private:
  [[noreturn]] static std::int32_t notCalled() { throw RunTimeError(kNoSuchMember); }

  Ref<clsTexto> next_;
};

class DottedTexto final : public OwnTexto {
 public:
  using OwnTexto::OwnTexto;
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override {
    result = Text(valMargin, u'.').append(valText);
  }
};

// Writes on the same channel in the middle of a write.
class ReentrantTexto final : public OwnTexto {
 public:
  ReentrantTexto(clsUtilImp& channel, Ref<clsTexto> next)
      : OwnTexto(std::move(next)), channel_(channel) {}

  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    comeBack();
    OwnTexto::fReplaceAll(valText, valOld, valNew, result);
  }
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override {
    comeBack();
    OwnTexto::fLeftMargin(valText, valMargin, result);
  }
  void replaceEach(TextView text, std::span<const Replacement> replacements,
                   Text& result) override {
    comeBack();
    OwnTexto::replaceEach(text, replacements, result);
  }

 private:
  void comeBack() {
    if (isBack_) return;
    isBack_ = true;
    channel_.sWrite(u"(inner, long enough for a storage of its own)", 1);
    isBack_ = false;
  }

  clsUtilImp& channel_;
  bool isBack_ = false;
};

// Hands over another service in its place, and goes on using what is its own.
class SelfReplacingTexto final : public OwnTexto {
 public:
  using OwnTexto::OwnTexto;

  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    modRDPGlobalValues::ofThisThread().refInsTexto = make<LibTarvoCI::clsTexto>();
    OwnTexto::fReplaceAll(valText, valOld, valNew, result);
  }
};

class SelfReplacingError final : public clsError {
 public:
  void fDescribeError(TextView, TextView, TextView, TextView, std::int16_t, std::int32_t, TextView,
                      std::int32_t, std::int32_t, Text& result) override {
    modRDPGlobalValues::ofThisThread().refInsError = nullptr;
    result = answer_;
  }

 private:
  Text answer_ = u"described by a service that is no longer there";
};

TEST_F(PrinterLetters, ATextServiceMayReplaceItselfInTheMiddleOfAWrite) {
  modRDPGlobalValues::ofThisThread().refInsTexto = make<SelfReplacingTexto>(texto);
  EXPECT_EQ(printed([this] { channel->sWrite(u"a\u00F1o", 0); }), "a<A4>o\n");
}

TEST_F(PrinterLetters, AnErrorServiceMayReplaceItselfWhileItDescribes) {
  modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
  values.refInsTexto = nullptr;
  values.refInsError = make<SelfReplacingError>();
  try {
    channel->sWrite(u"x", 0);
    FAIL() << "no error";
  } catch (const RunTimeError& failure) {
    // The next level finds no error service any more.
    EXPECT_EQ(failure.number(), kObjectNotSet);
  }
}

TEST_F(PrinterLetters, TheMarginIsWhatTheServiceSaysItIs) {
  modRDPGlobalValues::ofThisThread().refInsTexto = make<DottedTexto>(texto);
  EXPECT_EQ(printed([this] { channel->sWrite(u"x", 255); }), std::string(255, '.') + "x\n");
}

TEST_F(PrinterLetters, ATextOfTheProfileMayBeWrittenThroughItself) {
  channel->SetChrBold(
      u"\x1B"
      u"E");
  channel->sWrite(channel->GetChrBold(), 1);
  EXPECT_EQ(bytesDump(spooler->bytes()), " <1B>E\n");
}

TEST_F(PrinterLetters, AServiceMayComeBackInTheMiddleOfAWrite) {
  modRDPGlobalValues::ofThisThread().refInsTexto = make<ReentrantTexto>(*channel, texto);
  calls.clear();
  channel->sWriteLn(u"outer text, long enough for a storage of its own: a\u00F1o", 2);
  std::string expected;
  for (int i = 0; i < 10; ++i) {  // for the margin, for all replacements, and for each of the eight
    expected += "write 1  (inner, long enough for a storage of its own)\n";
  }
  expected += "write 1   outer text, long enough for a storage of its own: a<A4>o<0D><0A>\n";
  EXPECT_EQ(calls.text(), expected);
}

}  // namespace
}  // namespace tarvo::test
