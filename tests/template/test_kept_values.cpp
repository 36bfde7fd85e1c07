// Values whose text is known from the translation before: nobody can see that they are not
// formatted again.
#include <random>

#include "template/two_worlds.h"

namespace tarvo::test {
namespace {

using KeptValues = BypassedTextService;
using Choice = std::minstd_rand::result_type;

// A record's values, and what the client does besides giving them; the same for each pass over the
// same record.
class Records {
 public:
  explicit Records(std::uint32_t seed) : seed_(seed) {}

  SourceAction pass(int record, int pass) const {
    return [this, record, pass](Ref<clsObLineCharacts>& line, int call, TranslationWorld& world) {
      std::minstd_rand random(seed_ + static_cast<std::uint32_t>(record * 64 + call));
      random.discard(3);
      const auto oneIn = [&random](Choice n) { return random() % n == 0; };
      clsObSpecialVar& variable = *line->GetSpecialVar();
      const bool isKnown = !oneIn(9);
      if (isKnown) giveValue(variable, random());
      if (oneIn(12)) giveValue(variable, random());  // the last one counts
      if (oneIn(4)) changeAttribute(variable, random());
      // What only one of the passes does.
      std::minstd_rand other(seed_ + static_cast<std::uint32_t>(record * 64 + call * 8 + pass));
      other.discard(3);
      if (other() % 6 == 0) changeAttribute(variable, other());
      if (other() % 8 == 0) lookAt(*line, world, other());
      if (other() % 30 == 0) meddle(line, other());
      return isKnown;
    };
  }

 private:
  static void giveValue(clsObSpecialVar& variable, Choice choice) {
    static constexpr TextView kTexts[] = {
        u"",      u"Tornillo", u"  x",   u"x  ", u"una palabra y otra",
        u"Norte", u"{B}",      u"a}b{c", u"-",   u" fin "};
    static constexpr std::int64_t kNumbers[] = {0, 10'000, -25'000, 12'345'678, 4, -4};
    static constexpr double kDates[] = {0, 36'000, 45'000.75, 35'000, 1e9, -1.25};
    const Choice index = choice / 16;
    switch (choice % 16) {
      case 0:
        return variable.SetContentDate(Date{kDates[index % std::size(kDates)]});
      case 1:
        return variable.SetContentBoolean(index % 2 == 0);
      case 2:
        return variable.SetContentEnum(index % 2 == 0 ? u"S" : u"N");
      case 3:
        return variable.SetContentArray(u"abcdef", 4, -1, index % 2 == 0, index % 3 == 0, 2);
      case 4:
      case 5:
      case 6:
        return variable.SetContentNumeric(Currency{kNumbers[index % std::size(kNumbers)]},
                                          index % 4 == 0);
      default:
        return variable.SetContentString(kTexts[index % std::size(kTexts)]);
    }
  }

  static void changeAttribute(clsObSpecialVar& variable, Choice choice) {
    switch (choice % 12) {
      case 0:
        return variable.SetLength(static_cast<std::uint8_t>(choice / 16 % 20));
      case 1:
        return variable.SetAlignmentType(static_cast<eAlignmentType>(choice / 16 % 3));
      case 2:
        return variable.SetDecimalPlaces(static_cast<std::uint8_t>(choice / 16 % 6));
      case 3:
        return variable.SetPrintComa(false);
      case 4:
        return variable.SetPrintZero(false);
      case 5:
        return variable.SetNotSpacesToTheSides(true);
      case 6:
        return variable.SetFillWithZero(true);
      case 7:
        return variable.SetVariableToApplyCondition(choice / 16 % 2 == 0);
      case 8:
        return variable.SetVariableToWriteEmpty(choice / 16 % 2 == 0);
      case 9:
        return variable.SetPrintLine(choice / 16 % 2 == 0);
      case 10:
        return variable.SetTextToWrite(u"written");
      default:
        return variable.SetRepeatCharsUntilFill(true);
    }
  }

  static void lookAt(const clsObLineCharacts& line, TranslationWorld& world, Choice choice) {
    world.seen.add(choice % 2 == 0 ? dumpOf(line) : wholeDumpOf(*line.GetSpecialVar()));
  }

  static void meddle(Ref<clsObLineCharacts>& line, Choice choice) {
    clsObSpecialVar& variable = *line->GetSpecialVar();
    switch (choice % 7) {
      case 0:
        return variable.SetPosBegin(1);
      case 1:
        return variable.SetSize(0);
      case 2:
        return variable.SetFieldName(u"NEGRA");
      case 3:
        return line->SetTextToWrite(u"another {Z,4} line");
      case 4:
        return line->sFormatSpecialVar();
      case 5:
        return line->sReplaceVarInTextToWrite();
      default:
        return variable.sExtract(u"{Q,3,QR}");
    }
  }

  std::uint32_t seed_;
};

constexpr TextView kLines[] = {
    u"{NEGRA}{A.CODIGO,10} {A.NOMBRE,30} {CANTIDAD,8,0} {PRECIO,12}{BLANCA}",
    u"{FECHA,10} {LOTE,10} {ALMACEN,10,QR} {DESCUENTO,9} {IMPUESTO,8}",
    u"{A}{B}{C}",
    u"x{A,5}y{NEGRA}z",
    u"{NEGRA,IIF(\"S\",a,b)}{A}{@constante,12}{B,IIF(\"S\",si,no)}{C}",
    u"{A,VACIO}{B,9,QC}{C,CONDICION}",
    u"{A,FILL,6}{B,C0,7}{C,NC,5}{D,SC,9}{E,CP,9}",
    u"{A,PATRONSEPARADOR=2C-B,4}{B,DF(dd/mm)}{C,DF(d)}",
    u"{NEGRA}{BLANCA}",
    u"{@a}{@b}{A}{@c}",
    u"{SNL,2}{A,4}{COMP}{REPEAT}{NB,3}{B}",
    u"{A,XYZ}{B,5}",
    u"{A}",
};

// Each record's lines are translated to be measured, and again to be printed.
TEST_F(KeptValues, AreNotSeenWhateverTheClientDoes) {
  for (std::uint32_t seed = 0; seed < 12; ++seed) {
    SCOPED_TRACE(seed);
    Worlds worlds;
    const Records records(seed * 7919);
    for (int record = 0; record < 12; ++record) {
      SCOPED_TRACE(record);
      for (const int pass : {0, 1}) {
        for (const TextView line : kLines) {
          SCOPED_TRACE(toUtf8(line));
          worlds.expectSame(line, records.pass(record / 2, pass));
        }
      }
      if (HasFailure()) return;
    }
  }
}

// The next translations with the same value give the same line, and one with another value its own.
TEST_F(KeptValues, AreThoseOfTheLatestTranslation) {
  TranslationWorld world(TranslationWorld::kAllBypassed);
  for (const TextView value : {u"a", u"a", u"bcd", u"bcd", u"", u"a", u"a"}) {
    world.translate(u"<{V}|{W,2}>", [value](Ref<clsObLineCharacts>& line, int, auto&) {
      line->GetSpecialVar()->SetContentString(value);
      return true;
    });
    Text second(value.substr(0, 2));
    second.resize(2, u' ');
    EXPECT_EQ(toUtf8(world.line->GetTextToWrite()),
              toUtf8(u"<" + Text(value) + u"|" + second + u">"));
  }
}

// A value is not formatted again, and it is when it or its attributes have changed.
TEST_F(KeptValues, AreNotFormattedAgain) {
  class CountingConvert final : public ForwardingConvert {
   public:
    int formats = 0;
    bool mayBeBypassed() const noexcept override { return true; }

   private:
    clsConvert& next() override {
      ++formats;
      return ForwardingConvert::next();
    }
  };
  TranslationWorld world(TranslationWorld::kAllBypassed);
  const auto convert = make<CountingConvert>();
  world.usePlain(convert);
  std::uint8_t length = 9;
  std::int64_t number = 0;
  const auto formatsOfNext = [&] {
    const int before = convert->formats;
    world.translate(u"{A,9}", [&](Ref<clsObLineCharacts>& line, int, auto&) {
      line->GetSpecialVar()->SetContentNumeric(Currency{number}, false);
      line->GetSpecialVar()->SetLength(length);
      return true;
    });
    return convert->formats - before;
  };
  formatsOfNext();
  formatsOfNext();
  EXPECT_EQ(formatsOfNext(), 0);
  number = 10'000;
  EXPECT_EQ(formatsOfNext(), 1);
  EXPECT_EQ(formatsOfNext(), 0);
  length = 8;
  EXPECT_EQ(formatsOfNext(), 1);
  EXPECT_EQ(formatsOfNext(), 0);
  world.useServices();
  world.usePlain(make<CountingConvert>());
  EXPECT_EQ(formatsOfNext(), 0) << "the former service is not asked";
  EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), "    1,00");
}

// Two lines that are translated within one another share the template line, not its values.
TEST_F(KeptValues, AreNotSeenFromLineToLine) {
  Worlds worlds;
  for (int turn = 0; turn < 4; ++turn) {
    const SourceAction outer = [turn](Ref<clsObLineCharacts>& line, int call,
                                      TranslationWorld& world) {
      line->GetSpecialVar()->SetContentString(call == 1 ? u"outer" : u"o");
      if (call != 2) return true;
      const SourceAction inner = [turn](Ref<clsObLineCharacts>& other, int innerCall, auto&) {
        other->GetSpecialVar()->SetContentNumeric(Currency::ofUnits(innerCall + turn / 2), false);
        return true;
      };
      RecordingSource source(world, world.seen, inner);
      world.translator.translate(world.other, u"<{A}|{B,4}|{C}>", source);
      return true;
    };
    worlds.expectSame(u"<{A}|{B,4}|{C}>", outer);
  }
}

}  // namespace
}  // namespace tarvo::test
