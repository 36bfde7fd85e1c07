// Reading a text that was read before: nobody is asked again, and nobody sees a difference.
#include <functional>

#include "equipment/forwarding_services.h"
#include "template/parse_test.h"

namespace tarvo::test {
namespace {

class ReadingAgain : public ParseTest {
 protected:
  // What is asked while the line is read; the first three calls look for its place.
  std::vector<std::string> asked(clsObSpecialVar& reader, const Text& line) {
    serviceCalls.clear();
    reader.sExtract(line);
    return serviceCalls.lines();
  }
  bool isReadAnew(clsObSpecialVar& reader, const Text& line) {
    return asked(reader, line).size() > 3;
  }
  bool isReadAnew(const Text& line) { return isReadAnew(*variable, line); }
};

// Lines in which nothing is unknown, with all kinds of attributes.
constexpr TextView kLines[] = {
    u"{}",
    u"{F}",
    u"{Fact.monto,15,DERECHA}",
    u"{Det[1][2].cant[3][4],QR,SC,NC,NB,C0,CP,FILL,VACIO,9,1,PATRONSEPARADOR=2C-B}",
    u"{C.ACTIVO,IIF(\"S\",Activo,,Inactivo),IZQUIERDA,QLR}",
    u"{C.FECHA,DATEFORMAT(dd/mm/yyyy)}",
    u"{@Nombre del cliente,izquierda}",
};

TEST_F(ReadingAgain, AsksForThePlaceAlone) {
  variable->sExtract(u"a {Fact.monto[2],qr,IIF(S,A,B)}");
  EXPECT_EQ(
      asked(*variable, u"ab {Fact.monto[2],qr,IIF(S,A,B)}."),
      (std::vector<std::string>{R"(clsTexto.fPosition "ab {Fact.monto[2],qr,IIF(S,A,B)}.", "{", 1)",
                                R"(clsTexto.fPosition "ab {Fact.monto[2],qr,IIF(S,A,B)}.", "}", 1)",
                                R"(clsTexto.fPart "ab {Fact.monto[2],qr,IIF(S,A,B)}.", 5, 27)"}));
}

TEST_F(ReadingAgain, GivesTheSameWithoutAsking) {
  for (const TextView line : kLines) {
    SCOPED_TRACE(toUtf8(line));
    const Ref<clsObSpecialVar> reader = make<clsObSpecialVar>();
    EXPECT_TRUE(isReadAnew(*reader, Text(line)));
    const std::string dump = dumpOf(*reader);
    const std::string place = placeOf(*reader);
    for (int times = 0; times < 3; ++times) {
      EXPECT_FALSE(isReadAnew(*reader, Text(line)));
      EXPECT_EQ(dumpOf(*reader), dump);
      EXPECT_EQ(placeOf(*reader), place);
    }
  }
}

TEST_F(ReadingAgain, TakesTheirTurnWithOtherTexts) {
  std::vector<std::string> dumps;
  for (const TextView line : kLines) dumps.push_back(dumpOfLine(Text(line)));
  for (int times = 0; times < 3; ++times) {
    for (std::size_t i = 0; i < std::size(kLines); ++i) {
      SCOPED_TRACE(toUtf8(kLines[i]));
      variable->SetIifPossibleValues(Value());
      EXPECT_EQ(isReadAnew(Text(kLines[i])), times == 0);
      EXPECT_EQ(dumpOf(*variable), dumps[i]);
    }
  }
}

TEST_F(ReadingAgain, IsOfTheSameTextToTheLetter) {
  const TextView texts[] = {u"{f,ql}", u"{F,ql}", u"{f,QL}",  u"{f, ql}", u"{ f,ql}",
                            u"{f,qr}", u"{g,ql}", u"{@f,ql}", u"{@f,QL}"};
  for (const TextView text : texts) EXPECT_TRUE(isReadAnew(Text(text))) << toUtf8(text);
  for (const TextView text : texts) EXPECT_FALSE(isReadAnew(Text(text))) << toUtf8(text);
}

TEST_F(ReadingAgain, IsEachVariablesOwn) {
  variable->sExtract(u"{F,12}");
  EXPECT_TRUE(isReadAnew(*make<clsObSpecialVar>(), u"{F,12}"));
}

TEST_F(ReadingAgain, WithoutBracesIsReadOnceToo) {
  EXPECT_EQ(asked(*variable, u"Total").size(), 6U);
  EXPECT_EQ(asked(*variable, u"Total").size(), 2U);
  EXPECT_EQ(asked(*variable, u"another").size(), 2U);
}

// --- What cannot be kept.

TEST_F(ReadingAgain, ShowsEveryMessageEachTime) {
  for (int times = 0; times < 3; ++times) {
    EXPECT_TRUE(isReadAnew(u"{F,XYZ,QR,}"));
    EXPECT_EQ(dumpOf(*variable), "field='F' right");
  }
  const std::string first = messageAbout(u"XYZ", u"F,XYZ,QR,");
  const std::string second = messageAbout(u"", u"F,XYZ,QR,");
  EXPECT_EQ(messagesShown(), (std::vector{first, second, first, second, first, second}));
}

TEST_F(ReadingAgain, FailsAgain) {
  for (int times = 0; times < 3; ++times) {
    EXPECT_EQ(read(*variable, u"{F,QR,256}"), kOverflow);
    EXPECT_EQ(error->trail(), "sReadAttribute sExtractFieldAndCharacteristics sExtract");
    EXPECT_EQ(dumpOf(*variable), "field='F' right");
  }
}

TEST_F(ReadingAgain, KeepsNoTextPastItsLongest) {
  const Text longest = u"{" + Text(ParsedVariables::kLongestText, u'F') + u"}";
  const Text longer = u"{" + Text(ParsedVariables::kLongestText + 1, u'F') + u"}";
  EXPECT_TRUE(isReadAnew(longest));
  EXPECT_FALSE(isReadAnew(longest));
  EXPECT_TRUE(isReadAnew(longer));
  EXPECT_TRUE(isReadAnew(longer));
  EXPECT_EQ(variable->GetFieldName().size(), ParsedVariables::kLongestText + 1);
}

// A message in whose course a program reads something else with the same variable.
class BusyOperator final : public ForwardingMessage {
 public:
  BusyOperator(clsObSpecialVar& reader, TextView line) : reader_(reader), line_(line) {}

  int shown = 0;

  void sShowMessageWithTitle(TextView, TextView) override {
    ++shown;
    reader_.sExtract(line_);
  }

 private:
  clsObSpecialVar& reader_;
  Text line_;
};

TEST_F(ReadingAgain, KeepsNothingOfAMessageThatLedBackHere) {
  const Ref<BusyOperator> busy = make<BusyOperator>(*variable, u"{g,3}");
  modRDPGlobalValues::ofThisThread().refInsMessage = busy;
  variable->sExtract(u"{F,XYZ,QR}");
  variable->sExtract(u"{F,XYZ,QR}");
  EXPECT_EQ(busy->shown, 2);
  modRDPGlobalValues::ofThisThread().refInsMessage = message;
  EXPECT_TRUE(isReadAnew(u"{F,XYZ,QR}"));
  EXPECT_EQ(dumpOf(*variable), "field='F' right");
  EXPECT_FALSE(isReadAnew(u"{g,3}"));
  EXPECT_EQ(dumpOf(*variable), "field='G' length=3");
}

// --- Other services.

TEST_F(ReadingAgain, AsksAnotherTextService) {
  variable->sExtract(u"{F,12}");
  CallLog others;
  modRDPGlobalValues::ofThisThread().refInsTexto =
      make<RecordingTexto>(others, make<LibTarvoCI::clsTexto>());
  variable->sExtract(u"{F,12}");
  EXPECT_GT(others.lines().size(), 3U);
  others.clear();
  variable->sExtract(u"{F,12}");
  EXPECT_EQ(others.lines().size(), 3U);

  modRDPGlobalValues::ofThisThread().refInsTexto = texto;
  EXPECT_TRUE(isReadAnew(u"{F,12}"));
  EXPECT_FALSE(isReadAnew(u"{F,12}"));
}

TEST_F(ReadingAgain, AsksAnotherConversionService) {
  variable->sExtract(u"{F,12}");
  CallLog others;
  modRDPGlobalValues::ofThisThread().refInsConvert =
      make<RecordingConvert>(others, make<LibTarvoCI::clsConvert>());
  variable->sExtract(u"{F,12}");
  EXPECT_EQ(others.text(), "clsConvert.fIsNumeric \"12\"\nclsConvert.fTextToByte \"12\"\n");
  others.clear();
  variable->sExtract(u"{F,12}");
  EXPECT_EQ(others.text(), "");

  modRDPGlobalValues::ofThisThread().refInsConvert = convert;
  EXPECT_TRUE(isReadAnew(u"{F,12}"));
}

TEST_F(ReadingAgain, KeepsNothingThatTwoServicesHaveRead) {
  ParsedVariables parsed;
  EXPECT_EQ(parsed.find(u"F"), nullptr);
  modRDPGlobalValues::ofThisThread().refInsConvert = make<LibTarvoCI::clsConvert>();
  parsed.keep(u"F", make<ParsedVariable>());
  EXPECT_EQ(parsed.find(u"F"), nullptr);
  parsed.keep(u"F", make<ParsedVariable>());
  EXPECT_NE(parsed.find(u"F"), nullptr);
}

TEST_F(ReadingAgain, DoesNotMindThatTheSameServicesAreGivenAgain) {
  variable->sExtract(u"{F,12}");
  modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
  services.refInsTexto = texto;
  services.refInsConvert = convert;
  EXPECT_FALSE(isReadAnew(u"{F,12}"));
}

TEST_F(ReadingAgain, DoesNotMindAnotherOperator) {
  variable->sExtract(u"{F,12}");
  modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
  services.refInsMessage = make<RecordingMessage>(calls);
  services.refInsError = make<RecordingError>(calls);
  EXPECT_FALSE(isReadAnew(u"{F,12}"));
}

// --- What is done to a variable stays its own.

using Change = std::function<void(clsObSpecialVar& reader)>;
using V = clsObSpecialVar;

const Change kChanges[] = {
    [](V& v) { v.SetReadText(u"changed"); },
    [](V& v) { v.SetTextToWrite(u"changed"); },
    [](V& v) { v.SetRecordName(u"changed"); },
    [](V& v) { v.SetFieldName(u"changed"); },
    [](V& v) { v.SetIsFieldOfArray(!v.GetIsFieldOfArray()); },
    [](V& v) { v.SetArrayPosition(77); },
    [](V& v) { v.SetAlignmentWasRead(!v.GetAlignmentWasRead()); },
    [](V& v) { v.SetAlignmentType(eAT_Center); },
    [](V& v) { v.SetLength(77); },
    [](V& v) { v.SetDecimalPlaces(77); },
    [](V& v) { v.SetPrintComa(!v.GetPrintComa()); },
    [](V& v) { v.SetPrintZero(!v.GetPrintZero()); },
    [](V& v) { v.SetNotSpacesToTheSides(!v.GetNotSpacesToTheSides()); },
    [](V& v) { v.SetFillWithZero(!v.GetFillWithZero()); },
    [](V& v) { v.SetSeparatorOfCommasAndDot(!v.GetSeparatorOfCommasAndDot()); },
    [](V& v) { v.SetRepeatCharsUntilFill(!v.GetRepeatCharsUntilFill()); },
    [](V& v) { v.SetVariableToWriteEmpty(!v.GetVariableToWriteEmpty()); },
    [](V& v) { v.SetVariableToApplyCondition(!v.GetVariableToApplyCondition()); },
    [](V& v) { v.SetPosEnd(77); },
    [](V& v) { v.SetPosBegin(77); },
    [](V& v) { v.SetSize(77); },
    [](V& v) { v.SetValueComesInAttrib(!v.GetValueComesInAttrib()); },
    [](V& v) {
      v.SetFieldOfArrayHasPositionInsideTheArray(!v.GetFieldOfArrayHasPositionInsideTheArray());
    },
    [](V& v) { v.SetPrintLine(false); },
    [](V& v) { v.SetLineOfRepeatToPrint(true); },
    [](V& v) { v.SetEndOfRepeatPrintLine(false); },
    // The parts of the parse, and what follows it.
    [](V& v) { v.sClrObject(); },
    [](V& v) { v.sReadAttribute(u"QC"); },
    [](V& v) { v.sReadAttribute(u"QLR"); },
    [](V& v) { v.sReadAttribute(u"DF"); },
    [](V& v) { v.sReadAttribute(u"PATRONSEPARADOR=B"); },
    [](V& v) { v.SetReadText(u"x.y[7][7],7,QR,IIF(T,C)"), v.sExtractFieldAndCharacteristics(); },
    [](V& v) {
      Text name = u"F[7][7]";
      v.sExtractIfHasNumberArrayElement(name);
    },
    [](V& v) {
      Text function = u"(dd)";
      v.sExtractIfHasDateFormat(function);
    },
    [](V& v) { v.SetContentString(u"text"), v.sFormatSpecialVar(); },
    [](V& v) { v.SetContentNumeric(Currency{10000}, true), v.sFormatSpecialVar(); },
};

TEST_F(ReadingAgain, SeesNoChangeThatWasMadeSince) {
  for (const TextView line : kLines) {
    SCOPED_TRACE(toUtf8(line));
    for (std::size_t i = 0; i < std::size(kChanges); ++i) {
      SCOPED_TRACE(i);
      const Ref<clsObSpecialVar> reader = make<clsObSpecialVar>();
      reader->sExtract(line);
      const std::string dump = dumpOf(*reader);
      const std::string place = placeOf(*reader);
      // Changed after it was read, and after it was taken again.
      for (int times = 0; times < 2; ++times) {
        kChanges[i](*reader);
        reader->SetIifPossibleValues(Value());
        reader->sExtract(line);
        EXPECT_EQ(dumpOf(*reader), dump);
        EXPECT_EQ(placeOf(*reader), place);
        EXPECT_EQ(reader->GetTextToWrite(), u"");
        EXPECT_EQ(reader->GetContentString(), u"");
        EXPECT_EQ(reader->GetTypeField(), TFR_String);
      }
    }
  }
}

TEST_F(ReadingAgain, LeavesTheValuesOfAnEarlierIif) {
  const auto valuesAfter = [this](TextView line) {
    variable->sExtract(line);
    detail::Words words;
    detail::addValues(words, variable->GetIifPossibleValues());
    return words.all();
  };
  EXPECT_EQ(valuesAfter(u"{F,12}"), "");
  EXPECT_EQ(valuesAfter(u"{F,IIF(S,A,B)}"), "values=['A','B']");
  for (int times = 0; times < 2; ++times) {  // read, then taken again
    EXPECT_EQ(valuesAfter(u"{F,12}"), "values=['A','B']");
    EXPECT_EQ(valuesAfter(u"{F,IIF}"), "values=['A','B']");
    EXPECT_EQ(valuesAfter(u"no variable"), "values=['A','B']");
    EXPECT_EQ(valuesAfter(u"{G,IIF(S)}"), "values=[]");
    EXPECT_EQ(valuesAfter(u"{F,12}"), "values=[]");
    EXPECT_EQ(valuesAfter(u"{F,IIF(S,A,B)}"), "values=['A','B']");
    EXPECT_EQ(valuesAfter(u"{F,12}"), "values=['A','B']");
  }
  variable->SetIifPossibleValues(Value(Text(u"a client's")));
  EXPECT_EQ(valuesAfter(u"{F,12}"), "values='a client's'");
  EXPECT_EQ(valuesAfter(u"{F,IIF(S,A,B)}"), "values=['A','B']");
}

TEST_F(ReadingAgain, GivesTheValuesOfTheSameIif) {
  variable->sExtract(u"{F,IIF(S,A,B)}");
  variable->SetIifPossibleValues(Value(Text(u"a client's")));
  EXPECT_FALSE(isReadAnew(u"{F,IIF(S,A,B)}"));
  EXPECT_EQ(dumpOf(*variable), "field='F' iif values=['A','B'] condition='S,'");
}

// --- How much is kept.

constexpr std::size_t kMost = ParsedVariables::kMostVariables;

Text numbered(std::size_t number) { return u"{F" + fromAscii(std::to_string(number)) + u",12}"; }

TEST_F(ReadingAgain, KnowsAsManyTextsAsItKeeps) {
  for (std::size_t i = 0; i < kMost; ++i) EXPECT_TRUE(isReadAnew(numbered(i)));
  for (std::size_t i = 0; i < kMost; ++i) EXPECT_FALSE(isReadAnew(numbered(i))) << i;
  EXPECT_TRUE(isReadAnew(numbered(kMost)));
  EXPECT_FALSE(isReadAnew(numbered(kMost)));
  EXPECT_EQ(dumpOf(*variable), "field='F" + std::to_string(kMost) + "' length=12 decimals=2");
}

TEST_F(ReadingAgain, KeepsABoundedNumberOfTexts) {
  ParsedVariables parsed;
  for (std::size_t i = 0; i < 5 * kMost; ++i) {
    EXPECT_EQ(parsed.find(numbered(i)), nullptr);
    parsed.keep(numbered(i), make<ParsedVariable>());
    EXPECT_NE(parsed.find(numbered(i)), nullptr);
  }
  std::size_t known = 0;
  for (std::size_t i = 0; i < 5 * kMost; ++i) {
    if (parsed.find(numbered(i)) != nullptr) ++known;
  }
  EXPECT_LE(known, kMost);
}

TEST_F(ReadingAgain, GivesTheSameHoweverManyThereAre) {
  for (int times = 0; times < 2; ++times) {
    for (std::size_t i = 0; i < 2000; ++i) {
      variable->sExtract(numbered(i));
      ASSERT_EQ(dumpOf(*variable), "field='F" + std::to_string(i) + "' length=12 decimals=2");
    }
  }
}

// --- For the line.

TEST_F(ReadingAgain, LastParsedIsWhatCanBeTakenAgain) {
  EXPECT_FALSE(variable->lastParsed());
  variable->sExtract(u"{F,12}");
  const Ref<const ParsedVariable> first = variable->lastParsed();
  ASSERT_TRUE(first);
  variable->sExtract(u"{F,XYZ}");
  EXPECT_FALSE(variable->lastParsed());
  EXPECT_EQ(read(*variable, u"{F,256}"), kOverflow);
  EXPECT_FALSE(variable->lastParsed());
  variable->sExtract(u"{F,12}");
  EXPECT_EQ(variable->lastParsed(), first);
}

// What the variable prints for some values; the error where it has none for one.
std::string printedFor(clsObSpecialVar& reader) {
  const Change contents[] = {
      [](V& v) { v.SetContentString(u"text"); },
      [](V& v) { v.SetContentNumeric(Currency{-12345678}, true); },
      [](V& v) { v.SetContentDate(dateOf({.year = 2024, .month = 3, .day = 15})); },
      [](V& v) { v.SetContentEnum(u"S"); },
      [](V& v) { v.SetContentBoolean(false); },
      [](V& v) { v.SetContentArray(u"abcdefgh", 8, -1, false, true, -1); },
  };
  std::string all;
  for (const Change& set : contents) {
    set(reader);
    const std::int32_t number = errorNumberOf([&] { reader.sFormatSpecialVar(); });
    all += number == 0 ? detail::inTicks(reader.GetTextToWrite()) : std::to_string(number);
  }
  return all;
}

TEST_F(ReadingAgain, TakingWhatWasParsedIsAsGoodAsReading) {
  for (const TextView line : kLines) {
    SCOPED_TRACE(toUtf8(line));
    const Ref<clsObSpecialVar> reader = make<clsObSpecialVar>();
    reader->sExtract(u"ab" + Text(line));
    variable->sExtract(u"{Other[7][7],77,QC,PATRONSEPARADOR=B,IIF(T,C),QLR,DF}");
    variable->SetContentString(u"left");
    variable->sFormatSpecialVar();
    variable->SetIifPossibleValues(Value());
    serviceCalls.clear();
    variable->takeParsed(*reader->lastParsed(), 3);
    EXPECT_EQ(serviceCalls.text(), "");
    EXPECT_EQ(placeOf(*variable), placeOf(*reader));
    EXPECT_EQ(propertiesOf(*variable), propertiesOf(*reader));
    EXPECT_EQ(variable->GetTextToWrite(), u"");
    EXPECT_EQ(variable->GetContentString(), u"");
    EXPECT_EQ(printedFor(*variable), printedFor(*reader));
  }
}

TEST_F(ReadingAgain, ATakenVariableStandsWhereItIsPut) {
  variable->sExtract(u"{F,12}");
  const Ref<const ParsedVariable> parsed = variable->lastParsed();
  variable->takeParsed(*parsed, 32762);
  EXPECT_EQ(placeOf(*variable), "32762-32767 size=4 reads 'F,12'");
  variable->takeParsed(*parsed, 1);
  EXPECT_EQ(placeOf(*variable), "1-6 size=4 reads 'F,12'");
}

// A text between braces may be the empty one that a line without a variable has.
TEST_F(ReadingAgain, AnEmptyTextIsKeptWithItsOwnSize) {
  variable->sExtract(u"a}b");
  variable->sExtract(u"{}");
  EXPECT_EQ(variable->lastParsed()->size, 0);
  variable->takeParsed(*variable->lastParsed(), 6);
  EXPECT_EQ(placeOf(*variable), "6-7 size=0 reads ''");
}

TEST_F(ReadingAgain, NothingWasReadByAnExtractionThatFails) {
  variable->sExtract(u"{F}");
  EXPECT_EQ(errorNumberOf([this] { variable->sExtract(u"{F"); }), 5);
  EXPECT_FALSE(variable->lastParsed());
}

}  // namespace
}  // namespace tarvo::test
