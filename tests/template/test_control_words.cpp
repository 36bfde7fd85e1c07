// The words that steer the printer: in a variable's place, and in a comment.
#include <cctype>

#include "template/line_dump.h"
#include "template/template_test.h"
#include "template/variable_dump.h"

namespace tarvo::test {
namespace {

constexpr std::int32_t kRaised = -2147220991;  // a client's own error, as a service may raise it

class ControlWords : public TemplateTest {
 protected:
  ControlWords() {
    printer->SetChrCondensed(u"[condensed]");
    printer->SetChrInitExpanded(u"[expanded]");
    printer->SetChrEndExpanded(u"[end expanded]");
    printer->SetChrNormal(u"[normal]");
    printer->SetChrBold(u"[bold]");
    printer->SetChrLight(u"[light]");
    printer->SetChrInitUnderlying(u"[underlined]");
    printer->SetChrEndUnderlying(u"[end underlined]");
    line->sClrRecord();
  }

  // Clears the line, and has the variable read the text.
  void read(TextView text) {
    line->sClrRecord();
    line->sExtractSpecialVar(text);
    serviceCalls.clear();
  }

  // The opposite of what any word asks for.
  void turnEverythingRound() {
    line->SetTextToWrite(u"text");
    line->SetAlignment(eAT_Center);
    line->SetHasTab(true);
    line->SetTabPos(3);
    line->SetSkipLine(false);
    line->SetSkipNPoints(true);
    line->SetNumberOfSkips(77);
    line->SetPrintLine(false);
    line->SetSkipPageWasRead(true);
    line->SetPauseWasRead(true);
    line->SetLineToWriteEmpty(true);
  }

  // What is left in `content` is shown even when the word is none.
  std::string answerTo(TextView word) {
    Text content = u"left over";
    const bool isWord = line->fSpecialVarIsAnyControlChar(word, content);
    return std::string(isWord ? "" : "no word ") + inQuotes(content);
  }

  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
};

struct WordCase {
  std::vector<TextView> words;
  const char* content;
  const char* onClearedLine;  // with a variable whose length is 5
  const char* onTurnedLine;   // everything the other way round before
  const char* variable;       // what it changes in the variable
  const char* calls = "";     // after the blanks around the word
};

constexpr const char* kNothing = "\"\"";
constexpr const char* kTurned =
    "\"text\" alignment=2 tab tabPos=3 open points skips=77 suppressed page pause writtenEmpty";

const std::vector<WordCase>& wordCases() {
  static const std::vector<WordCase> kCases = {
      {{u"SNP", u"SALTANPUNTOS"},
       kNothing,
       "open points skips=5",
       "\"text\" alignment=2 tab tabPos=3 open points skips=5 suppressed page pause "
       "writtenEmpty",
       " noSpaces"},
      {{u"SNL", u"SALTANLINEAS"},
       kNothing,
       "skips=5",
       "\"text\" alignment=2 tab tabPos=3 skips=5 suppressed page pause writtenEmpty",
       ""},
      {{u"COMP", u"COMPRIMIDO"}, "\"[condensed]\"", "", kTurned, ""},
      {{u"EXPANDIDO"}, "\"[expanded]\"", "", kTurned, ""},
      {{u"FINEXPANDIDO"}, "\"[end expanded]\"", "", kTurned, ""},
      {{u"NORM", u"NORMAL"}, "\"[normal]\"", "", kTurned, ""},
      {{u"NEGRA", u"BOLD"}, "\"[bold]\"", "", kTurned, ""},
      {{u"BLANCA", u"LIGHT"}, "\"[light]\"", "", kTurned, ""},
      {{u"NB", u"NBLANCOS"}, "\"     \"", "", kTurned, "", "; fRepeat \" \", 5"},
      {{u"SALTAPAGINA"}, kNothing, "page", kTurned, ""},
      {{u"TAB"}, kNothing, "tab", kTurned, ""},
      {{u"REPEAT"}, kNothing, "", kTurned, " repeats repeatGoesOn"},
      {{u"SUBRAYADO"}, "\"[underlined]\"", "", kTurned, ""},
      {{u"FINSUBRAYADO"}, "\"[end underlined]\"", "", kTurned, ""},
  };
  return kCases;
}

Text inSmallLetters(TextView word) {
  Text small(word);
  for (char16_t& c : small) c = static_cast<char16_t>(std::tolower(c));
  return small;
}

// In every way in which it may be written.
std::vector<Text> waysToWrite(TextView word) {
  Text mixed = inSmallLetters(word);
  mixed[0] = word[0];
  return {Text(word),
          inSmallLetters(word),
          mixed,
          u" " + Text(word) + u"   ",
          u"  " + inSmallLetters(word),
          Text(word) + u" "};
}

TEST_F(ControlWords, SetWhatTheyAskFor) {
  for (const WordCase& row : wordCases()) {
    for (const TextView word : row.words) {
      for (const Text& written : waysToWrite(word)) {
        SCOPED_TRACE(inQuotes(written));
        read(u"{X,5,0}");
        EXPECT_EQ(answerTo(written), row.content);
        EXPECT_EQ(dumpOf(*line), row.onClearedLine);
        EXPECT_EQ(dumpOf(*line->GetSpecialVar()), std::string("field='X' length=5") + row.variable);
        EXPECT_EQ(callsMade(), "fTrim " + inQuotes(written) + row.calls);
      }
    }
  }
}

TEST_F(ControlWords, ChangeNothingElse) {
  for (const WordCase& row : wordCases()) {
    for (const TextView word : row.words) {
      SCOPED_TRACE(toUtf8(word));
      read(u"{X,5,0}");
      turnEverythingRound();
      EXPECT_EQ(answerTo(word), row.content);
      EXPECT_EQ(dumpOf(*line), row.onTurnedLine);
    }
  }
}

TEST_F(ControlWords, AreAllInTheTable) {
  std::vector<TextView> known;
  for (const ControlWord& word : kControlWords) {
    known.push_back(word.word);
    if (!word.otherWord.empty()) known.push_back(word.otherWord);
  }
  std::vector<TextView> tested;
  for (const WordCase& row : wordCases()) {
    tested.insert(tested.end(), row.words.begin(), row.words.end());
  }
  EXPECT_EQ(known, tested);
}

// --- What is nearly a word.

TEST_F(ControlWords, OneCharacterMoreOrLessIsNoWord) {
  const auto isWord = [](const Text& text) {
    for (const WordCase& row : wordCases()) {
      if (std::find(row.words.begin(), row.words.end(), text) != row.words.end()) return true;
    }
    return false;
  };
  for (const WordCase& row : wordCases()) {
    for (const TextView view : row.words) {
      const Text word(view);
      std::vector<Text> near = {word + u"X", u"X" + word,  word + u".",   u"@" + word,
                                word + word, u"\t" + word, word + u"\r",  word + u"\u00A0",
                                u"{" + word, word + u"}",  word + u"[1]", word + u'\0'};
      for (std::size_t i = 0; i < word.size(); ++i) {
        near.push_back(Text(word).erase(i, 1));
        near.push_back(Text(word).replace(i, 1, u"#"));
        if (i > 0) near.push_back(Text(word).insert(i, u" "));
      }
      for (const Text& text : near) {
        if (isWord(text)) continue;  // less than one word may be another
        SCOPED_TRACE(inQuotes(text));
        read(u"{X,5,0}");
        turnEverythingRound();
        EXPECT_EQ(answerTo(text), "no word \"\"");
        EXPECT_EQ(dumpOf(*line), kTurned);
        EXPECT_EQ(dumpOf(*line->GetSpecialVar()), "field='X' length=5");
        EXPECT_EQ(callsMade(), "fTrim " + inQuotes(text));
      }
    }
  }
}

TEST_F(ControlWords, OtherWordsAreNone) {
  for (const TextView text :
       {u"", u"   ", u"Negrita", u"ITALICA", u"CURSIVA", u"PAUSA", u"LIGHT BOLD", u"FIN",
        u"SUBRAYADÓ", u"ﬁnexpandido", u"bold{", u"NEGRA,BLANCA", u"R.NEGRA"}) {
    EXPECT_EQ(answerTo(text), "no word \"\"") << toUtf8(text);
  }
  EXPECT_EQ(dumpOf(*line), "");
}

TEST_F(ControlWords, BoldInSmallLettersBetweenBlanks) {
  EXPECT_EQ(answerTo(u" bold "), "\"[bold]\"");
  EXPECT_EQ(answerTo(u"Negrita"), "no word \"\"");
}

TEST_F(ControlWords, TheAnswerMayStandWhereTheWordStood) {
  Text both = u" negra ";
  EXPECT_TRUE(line->fSpecialVarIsAnyControlChar(both, both));
  EXPECT_EQ(both, u"[bold]");
}

// --- Lengths.

TEST_F(ControlWords, CountWithTheVariablesLength) {
  for (int length = 0; length <= 255; ++length) {
    SCOPED_TRACE(length);
    read(u"{SNL," + fromUtf8(std::to_string(length)) + u"}");
    answerTo(u"SNL");
    EXPECT_EQ(line->GetNumberOfSkips(), length);
    EXPECT_EQ(line->fNumberOfPrintedLinesThatWillFill(), length == 0 ? 1 : length);
    answerTo(u"SNP");
    EXPECT_EQ(line->GetNumberOfSkips(), length);
    EXPECT_EQ(line->fNumberOfPrintedLinesThatWillFill(), 0);
    EXPECT_EQ(answerTo(u"NB"), inQuotes(Text(static_cast<std::size_t>(length), u' ')));
  }
}

TEST_F(ControlWords, OfTwoSkipsTheLastCounts) {
  read(u"{X,5}");
  answerTo(u"SNP");
  answerTo(u"SNL");
  EXPECT_EQ(dumpOf(*line), "skips=5");
  answerTo(u"SALTANPUNTOS");
  EXPECT_EQ(dumpOf(*line), "open points skips=5");
}

TEST_F(ControlWords, RepeatTurnsThePassRoundAndKeepsTheLineGoing) {
  read(u"{REPEAT}");
  for (const bool isRepeated : {true, false, true, false}) {
    EXPECT_EQ(answerTo(u"REPEAT"), kNothing);
    EXPECT_EQ(line->GetSpecialVar()->GetLineOfRepeatToPrint(), isRepeated);
    EXPECT_FALSE(line->GetSpecialVar()->GetEndOfRepeatPrintLine());
  }
}

// --- The printer.

TEST_F(ControlWords, ThePrintersCodesAreThoseOfTheMoment) {
  EXPECT_EQ(answerTo(u"NEGRA"), "\"[bold]\"");
  printer->SetChrBold(TextView(u"\0{X}\u001B", 5));
  Text content;
  EXPECT_TRUE(line->fSpecialVarIsAnyControlChar(u"NEGRA", content));
  EXPECT_EQ(content, TextView(u"\0{X}\u001B", 5));
  const Ref<clsUtilImp> other = make<clsUtilImp>();
  modRDPGlobalValues::ofThisThread().refInsImp = other;
  EXPECT_EQ(answerTo(u"NEGRA"), kNothing);
}

TEST_F(ControlWords, OnlyThePrintersCodesNeedThePrinter) {
  modRDPGlobalValues::ofThisThread().refInsImp = {};
  for (const WordCase& row : wordCases()) {
    SCOPED_TRACE(toUtf8(row.words.front()));
    read(u"{X,5}");
    error->reports.clear();
    const bool isCode = std::string_view(row.content).starts_with("\"[");
    Text content;
    const auto ask = [&] { line->fSpecialVarIsAnyControlChar(row.words.front(), content); };
    EXPECT_EQ(errorNumberOf(ask), isCode ? kObjectNotSet : 0);
    EXPECT_EQ(error->trail(), isCode ? "fSpecialVarIsAnyControlChar" : "");
  }
}

// --- Comments.

struct CommentCase {
  const char* shows;
  TextView line;
  TextView text;
};

constexpr CommentCase kComments[] = {
    {"every full stop goes", u"...PAUSA", u"PAUSA"},
    {"those behind go too", u"...a.b...", u"ab"},
    {"blanks stay", u"   ... PAUSA  ", u"    PAUSA  "},
    {"no full stop", u"PAUSA", u"PAUSA"},
    {"nothing else", u"...", u""},
    {"nothing at all", u"", u""},
    {"braces stay", u"...{F}", u"{F}"},
};

TEST_F(ControlWords, ACommentsTextIsTheLineWithoutFullStops) {
  for (const CommentCase& row : kComments) {
    SCOPED_TRACE(row.shows);
    line->sClrRecord();
    serviceCalls.clear();
    Text given(row.line);
    line->sExtractComment(given);
    EXPECT_EQ(line->GetTextToWrite(), row.text);
    EXPECT_EQ(flagsOf(*line), "");
    EXPECT_EQ(given, row.line);
    EXPECT_EQ(callsMade(), "fStrip " + inQuotes(row.line) + ", \".\"");
  }
}

struct PauseCase {
  const char* shows;
  TextView text;
  bool isPause;
};

constexpr PauseCase kPauses[] = {
    {"the word", u"PAUSA", true},
    {"in small letters", u"pausa", true},
    {"in both", u"pAuSa", true},
    {"blanks around it", u"   PAUSA  ", true},
    {"nothing", u"", false},
    {"blanks", u"   ", false},
    {"another word", u"NOTA", false},
    {"a control word", u"NEGRA", false},
    {"more than the word", u"PAUSAS", false},
    {"less than the word", u"PAUS", false},
    {"two words", u"PAUSA PAUSA", false},
    {"a blank within", u"PAU SA", false},
    {"full stops", u"...PAUSA", false},
    {"a tab before it", u"\tPAUSA", false},
    {"a line end", u"PAUSA\r", false},
    {"an accent", u"PÁUSA", false},
};

TEST_F(ControlWords, APauseIsOneWord) {
  for (const PauseCase& row : kPauses) {
    SCOPED_TRACE(row.shows);
    line->sClrRecord();
    serviceCalls.clear();
    EXPECT_EQ(line->fCheckAnyPrintingControlVarInCommentary(row.text), row.isPause);
    EXPECT_EQ(dumpOf(*line), row.isPause ? "pause" : "");
    EXPECT_EQ(callsMade(), "fTrim " + inQuotes(row.text));
  }
}

TEST_F(ControlWords, OtherCommentsChangeNothing) {
  for (const PauseCase& row : kPauses) {
    turnEverythingRound();
    line->fCheckAnyPrintingControlVarInCommentary(row.text);
    EXPECT_EQ(dumpOf(*line), kTurned) << row.shows;
    if (row.isPause) continue;
    line->SetPauseWasRead(false);
    line->fCheckAnyPrintingControlVarInCommentary(row.text);
    EXPECT_FALSE(line->GetPauseWasRead()) << row.shows;
  }
}

// --- Errors.

struct ErrorCase {
  const char* procedure;
  int call;  // of the text service: the one that fails
  void (*action)(clsObLineCharacts& line);
};

constexpr ErrorCase kErrors[] = {
    {"fSpecialVarIsAnyControlChar", 1,
     [](clsObLineCharacts& line) {
       Text content;
       line.fSpecialVarIsAnyControlChar(u"TAB", content);
     }},
    {"fSpecialVarIsAnyControlChar", 2,
     [](clsObLineCharacts& line) {
       Text content;
       line.fSpecialVarIsAnyControlChar(u"NB", content);
     }},
    {"fCheckAnyPrintingControlVarInCommentary", 1,
     [](clsObLineCharacts& line) { line.fCheckAnyPrintingControlVarInCommentary(u"PAUSA"); }},
};

TEST_F(ControlWords, FailuresOfTheTextServiceAreReported) {
  for (const ErrorCase& row : kErrors) {
    SCOPED_TRACE(row.procedure);
    read(u"{X,5}");
    error->reports.clear();
    texto->fault.raiseAt(row.call, kRaised);
    const std::optional<RunTimeError> raised = errorOf([&] { row.action(*line); });
    ASSERT_TRUE(raised);
    EXPECT_EQ(raised->number(), kRaised);
    EXPECT_EQ(raised->source(), u"fault");
    ASSERT_EQ(error->trail(), row.procedure);
    EXPECT_EQ(toUtf8(error->reports[0].className), "clsObLineCharacteristic");
    EXPECT_EQ(toUtf8(error->reports[0].module), "Lib. Impresión Texto - Ob Line");
    EXPECT_EQ(error->reports[0].kind, 2);
    EXPECT_EQ(dumpOf(*line), "");
  }
}

TEST_F(ControlWords, WithoutAVariableThoseThatNeedItFail) {
  for (const WordCase& row : wordCases()) {
    line->sClrRecord();
    const Ref<clsObSpecialVar> kept = line->GetSpecialVar();
    line->SetSpecialVar(nullptr);
    error->reports.clear();
    Text content;
    const auto ask = [&] { line->fSpecialVarIsAnyControlChar(row.words.front(), content); };
    const TextView word = row.words.front();
    const bool needsIt = word == u"SNP" || word == u"SNL" || word == u"NB" || word == u"REPEAT";
    EXPECT_EQ(errorNumberOf(ask), needsIt ? kObjectNotSet : 0) << toUtf8(word);
    EXPECT_EQ(error->trail(), needsIt ? "fSpecialVarIsAnyControlChar" : "") << toUtf8(word);
    line->SetSpecialVar(kept);
  }
}

}  // namespace
}  // namespace tarvo::test
