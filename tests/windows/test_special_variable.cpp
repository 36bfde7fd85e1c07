// The special variable of the server, beside that of this program: every property, every attribute,
// every kind of value.
#include "both_sides.h"

namespace tarvo::com {
namespace {

// Between them the lines have every attribute, every way to name a field, and mistakes.
constexpr const char16_t* kLines[] = {
    u"Total: {FACTURA.MONTO,15,DERECHA}",
    u"{factura.monto}",
    u"{@Nombre del cliente,izquierda}",
    u"{DET.CANT[2][5],3}",
    u"{DET.CANT[255]}",
    u"{F,10,0}",
    u"{F,0,10}",
    u"{F,12,CENTRO,SINCOMAS,NOCERO}",
    u"{F,12,JUSTIFICADO,NOBLANCOS}",
    u"{F,6,CONCEROS,COMASYPUNTO,FILL}",
    u"{F,VACIO}",
    u"{F,8,CONDICION}",
    u"{C.ACTIVO,IIF(\"S\",Activo,Inactivo),IZQUIERDA}",
    u"{C.ACTIVO,QLR,IIF(\"S\",[2]Sí,[1,-1]No)}",
    u"{C.FECHA,DATEFORMAT(dd/mm/yyyy),12,DERECHA}",
    u"{F,3,PATRONSEPARADOR=1C-2b}",
    u"{F,XYZ}",
    u"sin variable",
    u"{}",
    u"",
    u"{F,256}",
    u"{F[x]}",
    u"} {F}",
    u"{F",
    u"{ñandú.año,QL} {otra}",
};

class SpecialVariable : public BothSides {
 protected:
  ComPtr<_clsObSpecialVar> server_ =
      client::create<_clsObSpecialVar>(client::library(), CLSID_clsObSpecialVar);
  Ref<clsObSpecialVar> own_ = make<clsObSpecialVar>();

  void expectSame() {
    const std::string expected = ownProperties(*own_);
    EXPECT_EQ(expected, earlyProperties<clsObSpecialVar>(server_.get()));
    EXPECT_EQ(expected, lateProperties<clsObSpecialVar>(server_.get()));
  }

  std::string extract(const char16_t* line) {
    const std::string expected = ownOutcome([&] { own_->sExtract(line); });
    EXPECT_EQ(expected, outcomeOf(server_->sExtract(Bstr(line).get())));
    EXPECT_EQ(takeOwnMessages(), takeMessages());
    return expected;
  }
};

TEST_F(SpecialVariable, IsNewWithItsDefaults) {
  EXPECT_THAT(ownProperties(*own_), testing::StartsWith("GetReadText \"\"\nGetTextToWrite \"\"\n"));
  EXPECT_THAT(ownProperties(*own_), testing::HasSubstr("\nGetContentDate day 2.000000\n"));
  expectSame();
}

TEST_F(SpecialVariable, HasAfterReadingALineTheSameProperties) {
  std::string outcomes;
  for (const char16_t* line : kLines) {
    SCOPED_TRACE(toUtf8(line));
    outcomes += extract(line).substr(0, 2) + " ";
    expectSame();
  }
  EXPECT_EQ("ok ok ok ok ok ok ok ok ok ok ok ok ok ok ok ok ok ok ok ok 6  13 5  5  ok ",
            outcomes);
}

TEST_F(SpecialVariable, TellsTheErrorsOfAttributesWithTheirTrail) {
  EXPECT_EQ(
      "6 LibTarvoCI|Overflow: valText"
      "\r\n   en clsObSpecialVar.sReadAttribute (Lib. Impresión Texto - Ob Special Var)"
      "\r\n   en clsObSpecialVar.sExtractFieldAndCharacteristics"
      " (Lib. Impresión Texto - Ob Special Var)"
      "\r\n   en clsObSpecialVar.sExtract (Lib. Impresión Texto - Ob Special Var)",
      outcomeOf(server_->sExtract(Bstr(u"{F,-1}").get())));
}

TEST_F(SpecialVariable, ShowsUnknownAttributesThroughTheClientsMessageService) {
  EXPECT_EQ(S_OK, server_->sExtract(Bstr(u"{F,xyz}").get()));
  EXPECT_EQ("[Impresión de Plantilla] No se encontró el tipo de atributo XYZ en la línea F,xyz\n",
            takeMessages());
}

TEST_F(SpecialVariable, KeepsWhatItsSettersAreGiven) {
  std::string last = ownProperties(*own_);
  for (int which = 0; which < 4; ++which) {
    setAllEnds(*own_, server_.get(), which);
    expectSame();
    const std::string now = ownProperties(*own_);
    EXPECT_NE(last, now);
    last = now;
  }
}

// --- Values of every kind, in every layout.

struct Content {
  const char* kind;
  void (*giveOwn)(clsObSpecialVar& variable);
  HRESULT (*give)(_clsObSpecialVar* variable);
};

CY amount(LONGLONG tenThousandths) {
  CY result;
  result.int64 = tenThousandths;
  return result;
}

// clang-format off
const Content kContents[] = {
    {"none", [](clsObSpecialVar&) {}, [](_clsObSpecialVar*) { return S_OK; }},
    {"text", [](clsObSpecialVar& v) { v.SetContentString(u"Ñandú y Cía."); },
     [](_clsObSpecialVar* v) { return v->SetContentString(Bstr(u"Ñandú y Cía.").get()); }},
    {"one character", [](clsObSpecialVar& v) { v.SetContentString(u"-"); },
     [](_clsObSpecialVar* v) { return v->SetContentString(Bstr(u"-").get()); }},
    {"empty text", [](clsObSpecialVar& v) { v.SetContentString(u""); },
     [](_clsObSpecialVar* v) { return v->SetContentString(nullptr); }},
    {"number", [](clsObSpecialVar& v) { v.SetContentNumeric(Currency{-12'345'678}, false); },
     [](_clsObSpecialVar* v) { return v->SetContentNumeric(amount(-12'345'678), VARIANT_FALSE); }},
    {"number in parentheses", [](clsObSpecialVar& v) { v.SetContentNumeric(Currency{-50'000}, true); },
     [](_clsObSpecialVar* v) { return v->SetContentNumeric(amount(-50'000), VARIANT_TRUE); }},
    {"zero", [](clsObSpecialVar& v) { v.SetContentNumeric(Currency{}, false); },
     [](_clsObSpecialVar* v) { return v->SetContentNumeric(amount(0), VARIANT_FALSE); }},
    {"date", [](clsObSpecialVar& v) { v.SetContentDate(Date{45366.75}); },
     [](_clsObSpecialVar* v) { return v->SetContentDate(45366.75); }},
    {"early date", [](clsObSpecialVar& v) { v.SetContentDate(Date{35504}); },
     [](_clsObSpecialVar* v) { return v->SetContentDate(35504); }},
    {"true", [](clsObSpecialVar& v) { v.SetContentBoolean(true); },
     [](_clsObSpecialVar* v) { return v->SetContentBoolean(VARIANT_TRUE); }},
    {"false", [](clsObSpecialVar& v) { v.SetContentBoolean(false); },
     [](_clsObSpecialVar* v) { return v->SetContentBoolean(VARIANT_FALSE); }},
    {"enumeration", [](clsObSpecialVar& v) { v.SetContentEnum(u"S"); },
     [](_clsObSpecialVar* v) { return v->SetContentEnum(Bstr(u"S").get()); }},
    {"character of an array",
     [](clsObSpecialVar& v) { v.SetContentArray(u"SNxyNS", 8, -1, true, false, -1); },
     [](_clsObSpecialVar* v) {
       return v->SetContentArray(Bstr(u"SNxyNS").get(), 8, -1, VARIANT_TRUE, VARIANT_FALSE, -1);
     }},
};
// clang-format on

TEST_F(SpecialVariable, FormatsEveryKindOfValueInEveryLayout) {
  std::vector<std::string> printed;
  for (const char16_t* line : kLines) {
    for (const Content& content : kContents) {
      SCOPED_TRACE(toUtf8(line) + std::string(" with ") + content.kind);
      extract(line);
      content.giveOwn(*own_);
      EXPECT_EQ(S_OK, content.give(server_.get()));
      EXPECT_EQ(ownOutcome([&] { own_->sFormatSpecialVar(); }),
                outcomeOf(server_->sFormatSpecialVar()));
      expectSame();
      VARIANT_BOOL isEmpty = VARIANT_FALSE;
      EXPECT_EQ(S_OK, server_->fIsEmpty(&isEmpty));
      EXPECT_EQ(own_->fIsEmpty(), isEmpty != VARIANT_FALSE);
      printed.push_back(toUtf8(own_->GetTextToWrite()));
    }
  }
  // That something was compared: some of them, known by heart.
  EXPECT_THAT(printed,
              testing::IsSupersetOf({"   Ñandú y Cía.", "      -1.234,57", "         (5,00)",
                                     "  15/03/2024", "Activo", "Inactivo", "000.00"}));
}

TEST_F(SpecialVariable, AlignsWhatItIsTold) {
  server_->SetTextToWrite(Bstr(u"ab").get());
  server_->SetLength(5);
  server_->SetAlignmentType(::eAT_Center);
  EXPECT_EQ(S_OK, server_->sAlignTextToWrite());
  Bstr text;
  server_->GetTextToWrite(text.out());
  EXPECT_EQ(u" ab  ", text.view());
}

// --- Texts by reference.

using ServerReader = HRESULT (STDMETHODCALLTYPE _clsObSpecialVar::*)(BSTR*);
using OwnReader = void (clsObSpecialVar::*)(Text&);

struct Reader {
  OwnReader own;
  ServerReader server;
};

TEST_F(SpecialVariable, GivesTextsByReferenceBack) {
  const Reader readers[] = {
      {&clsObSpecialVar::sExtractIfHasNumberArrayElement,
       &_clsObSpecialVar::sExtractIfHasNumberArrayElement},
      {&clsObSpecialVar::sExtractIfHasIndexOfValueInArrayElement,
       &_clsObSpecialVar::sExtractIfHasIndexOfValueInArrayElement},
      {&clsObSpecialVar::sExtractIfHasFunction, &_clsObSpecialVar::sExtractIfHasFunction},
      {&clsObSpecialVar::sExtractIfHasDateFormat, &_clsObSpecialVar::sExtractIfHasDateFormat}};
  int changed = 0;
  for (const Reader& reader : readers) {
    for (const char16_t* given : {u"CANT[3]", u"CANT[3][12]", u"[7]", u"CANT", u"", u"CANT[x]",
                                  u"IIF(\"S\",Sí,No),QL", u"(dd/mm),12", u"IIF"}) {
      SCOPED_TRACE(toUtf8(given));
      Text ownText = given;
      Bstr text(ownText);
      EXPECT_EQ(ownOutcome([&] { (*own_.*reader.own)(ownText); }),
                outcomeOf((server_.get()->*reader.server)(text.out())));
      EXPECT_EQ(toUtf8(ownText), toUtf8(text.view()));
      changed += ownText != given ? 1 : 0;
      expectSame();
    }
  }
  EXPECT_GE(changed, 4);
}

}  // namespace
}  // namespace tarvo::com
