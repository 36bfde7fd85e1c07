// Whether the services are asked for every step is not seen: neither in what is printed nor by the
// client, the operator and the error service.
#include <optional>

#include "equipment/forwarding_services.h"
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

constexpr TextView kPath = u"F/FACTURA.ID";

// A ledger of several pages: header and footer with the subtotals, records of three lines.
constexpr const char* kLedger =
    "...NMAXLINPAGINA=20\n"
    "FERRETERÍA {EMPRESA}\n"
    "Vienen: {VIENEN,18} {FECHA,10} {FECHA,DF(d/m/yy)}\n"
    "{CUERPO=12}\n"
    "{NEGRA}{NUMERAR,4,0} {ART.CODIGO,10} {ART.NOMBRE,12} {CANTIDAD,8,0} {MONTO,15}{BLANCA}\n"
    "{FECHA,10,QR} {LOTE,10,QC}{LOTE,CONDICION} {TIPO,IIF(\"C\",Contado,Crédito),8} {@fijo,6}\n"
    "{NADIE,20}{SNL,2}\n"
    "{FINCUERPO}\n"
    "Van: {VAN,18} {FINRENGLONESDOCUMENTOS,1,0} {MONTO,12,CP} {MONTO,12,C0}\n";

// Lines that repeat, braces in values, an insert body, points and comments.
constexpr const char* kInvoice =
    "...NMAXLINPAGINA=24\n"
    "{EMPRESA,30,QR}|{COMP}\n"
    "{CUERPO=14}\n"
    "{REPEAT}{SERIE,6}\n"
    "{LLAVE,12} {MONTO,NC,9}{MONTO,SC,9,0} á{LOTE,FILL,5}\n"
    "... PAUSA\n"
    "{SNP,3}{ART.NOMBRE,12,NB}\n"
    "{UNINSERTOCUERPO}\n"
    "Total: {MONTO,14} {LOTE,PATRONSEPARADOR=2C-B}\n"
    "{FINCUERPO}\n"
    "{MONTO,15} {FECHA}\n";

struct Account {
  std::string calls;
  std::string spoolerCalls;
  std::string jobs;
};

// The same report with services that must be asked, or with those that need not be.
class Printing {
 public:
  Printing(const std::string& typed, bool isAsked) {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    if (isAsked) {
      services.refInsTexto = make<ForwardingTexto>();
      services.refInsConvert = make<ForwardingConvert>();
      services.refInsUtilMathOperations =
          make<RecordingMath>(mathCalls_, make<LibTarvoCI::clsUtilMathOperations>());
    } else {
      services.refInsUtilDate = make<LibTarvoCI::clsUtilDate>(&StoppedClock::today);
    }
    world.files->write(Text(kPath), templateBytes(typed));
    client->values.add("EMPRESA=text El Tornillo C.A.");
    client->values.add("FECHA=date 2026-03-15");
    client->values.add("MONTO=number 77.5");
    client->values.add("LOTE=text -");
    client->repeats["SERIE"] = {"uno", "dos", "dos"};
    for (int i = 0; i < 9; ++i) addRecord(i);
  }

  Account print() {
    Ref<clsImplementIDMD> callbacks = client;
    report->sInit(callbacks, u"Factura", u"", u"", u"FACTURA", u"F/", 2);
    error = errorOf([this] { report->sPrintReport(); });
    std::string calls = world.calls.text();
    if (error) calls += "error " + toUtf8(error->description()) + "\n";
    return {calls, world.spoolerCalls.text(), world.jobsText()};
  }

  ReportWorld world;
  Ref<MasterDetailClient> client = make<MasterDetailClient>(world.calls);
  Ref<clsObRepMasterDetail> report = make<clsObRepMasterDetail>(world.ports());
  std::optional<RunTimeError> error;

 private:
  void addRecord(int i) {
    TypedValues record;
    record.add("ART.CODIGO=text A-" + std::to_string(i));
    record.add(i % 3 == 0 ? "ART.NOMBRE=text Peña, tornillo y más" : "ART.NOMBRE=text Llave");
    record.add("CANTIDAD=number " + std::to_string(i * i));
    record.add("MONTO=paren " + std::to_string((i - 2) * 1234) + ".5");
    if (i % 2 == 0) record.add("LOTE=text L-" + std::to_string(i / 4));
    if (i == 5) record.add("LOTE=text");
    record.add(i % 4 == 0 ? "TIPO=enum C" : "TIPO=enum R");
    record.add(i % 4 == 1 ? "LLAVE=text {LOTE,4}" : "LLAVE=text fija");
    client->records.push_back(record);
    client->amounts.push_back(Currency::ofUnits(i));
  }

  CallLog mathCalls_;
};

// Happens to both reports before they are printed.
using Preparation = std::function<void(Printing&)>;

Account run(const char* typed, bool isAsked, const Preparation& prepare) {
  Printing printing(typed, isAsked);
  if (prepare) prepare(printing);
  return printing.print();
}

// Gives what both did.
Account expectSame(const char* typed, const Preparation& prepare = {}) {
  const Account asked = run(typed, true, prepare);
  const Account bypassed = run(typed, false, prepare);
  EXPECT_EQ(bypassed.calls, asked.calls);
  EXPECT_EQ(bypassed.spoolerCalls, asked.spoolerCalls);
  EXPECT_EQ(bypassed.jobs, asked.jobs);
  return asked;
}

TEST(ReportBypass, IsNotSeenInALedger) {
  const Account ledger = expectSame(kLedger);
  EXPECT_EQ(countOf(ledger.calls, "fReadNextRecord"), 18);
  EXPECT_GT(countOf(ledger.jobs, "FERRETER"), 4);
  EXPECT_EQ(ledger.calls.find("\nerror "), std::string::npos);
}

TEST(ReportBypass, IsNotSeenInAnInvoice) {
  const Account invoice = expectSame(kInvoice);
  EXPECT_GT(countOf(invoice.calls, "SERIE"), 100);
  EXPECT_EQ(invoice.calls.find("\nerror "), std::string::npos)
      << invoice.calls.substr(invoice.calls.find("\nerror "));
}

// The client's nth call raises an error, for n = 1, 2, ... until none does.
TEST(ReportBypass, IsNotSeenWhenTheClientFails) {
  for (const char* typed : {kLedger, kInvoice}) {
    int failures = 0;
    for (int call = 1;; call += 7) {
      SCOPED_TRACE(call);
      const Account failing = expectSame(
          typed, [call](Printing& p) { p.client->fault.raiseAt(call, kInvalidProcedureCall); });
      if (failing.calls.find("\nerror ") == std::string::npos) break;
      ++failures;
    }
    EXPECT_GT(failures, 20);
  }
}

TEST(ReportBypass, IsNotSeenWhenTheSpoolerRaises) {
  for (const int call : {1, 4, 5, 9, 30}) {
    SCOPED_TRACE(call);
    const Account failing = expectSame(
        kLedger, [call](Printing& p) { p.world.spooler->fault.raiseAt(call, kOutOfMemory); });
    EXPECT_NE(failing.calls.find("\nerror "), std::string::npos);
  }
}

// What a client can do while it is asked: look, change the layout, give another kind of value, ask
// the report to translate the same line.
TEST(ReportBypass, IsNotSeenByAClientThatActs) {
  using Act = void (*)(Printing&, clsObLineCharacts&, int);
  constexpr Act kActs[] = {
      [](Printing& p, clsObLineCharacts& line, int) {
        p.world.calls.add("sees " + inQuotes(line.GetTextToWrite()) + " " +
                          inQuotes(line.GetSpecialVar()->GetTextToWrite()) + " " +
                          std::to_string(line.GetSpecialVar()->GetPosBegin()));
      },
      [](Printing&, clsObLineCharacts& line, int call) {
        line.GetSpecialVar()->SetLength(static_cast<std::uint8_t>(call % 11));
      },
      [](Printing&, clsObLineCharacts& line, int call) {
        line.GetSpecialVar()->SetContentNumeric(Currency::ofUnits(call % 5), false);
      },
      [](Printing&, clsObLineCharacts& line, int call) {
        if (call % 9 == 0) line.GetSpecialVar()->SetPrintLine(false);
        if (call % 5 == 0) line.GetSpecialVar()->SetVariableToWriteEmpty(true);
      },
      [](Printing& p, clsObLineCharacts&, int call) {
        if (call % 40 == 0)
          p.world.printer->SetChrBold(u"[" + fromAscii(std::to_string(call / 40 % 3)) + u"]");
      },
      [](Printing& p, clsObLineCharacts&, int call) {
        if (call % 10 == 0) p.world.printer->SetChrLight(u"{LOTE,3}");
        if (call % 10 == 5) p.world.printer->SetChrLight(u"");
      },
  };
  for (const char* typed : {kLedger, kInvoice}) {
    for (const Act& act : kActs) {
      SCOPED_TRACE(&act - kActs);
      expectSame(typed, [act](Printing& p) {
        p.client->beforeCall = [&p, act, call = 0](const std::string& what) mutable {
          const Ref<clsObLineCharacts> line = p.report->GetLineToWrite();
          if (what.starts_with("fTranslateSpecialVarMD") && line) act(p, *line, ++call);
        };
      });
    }
  }
}

// A record that is measured with other values than it is printed with; a text is a variable itself
// in some passes only.
TEST(ReportBypass, IsNotSeenWhenEachPassIsAnsweredAnew) {
  for (int period = 2; period < 9; ++period) {
    SCOPED_TRACE(period);
    const Account changing = expectSame(kLedger, [period](Printing& p) {
      p.client->translates = [period, call = 0](Ref<clsObLineCharacts>& line) mutable {
        clsObSpecialVar& variable = *line->GetSpecialVar();
        const bool isNumber =
            variable.GetFieldName() == u"MONTO" || variable.GetFieldName() == u"CANTIDAD";
        ++call;
        if (isNumber) {
          variable.SetContentNumeric(Currency::ofUnits(call % period * 1111), call % 2 == 0);
        } else if (call % (period * 5) == 0) {
          variable.SetContentString(u"{MONTO,6}");
        } else {
          variable.SetContentString(call % period == 0 ? u"Llave" : u" con blancos ");
        }
        return true;
      };
    });
    EXPECT_GT(countOf(changing.calls, "ART.CODIGO"), 18);
    EXPECT_EQ(changing.calls.find("\nerror "), std::string::npos);
  }
}

// The left margin's blanks, and letters that leave the code page.
TEST(ReportBypass, IsNotSeenInLettersAndMargins) {
  for (const char* typed : {kLedger, kInvoice}) {
    expectSame(typed, [](Printing& p) {
      p.client->values.add("LOTE=text áéíóúñÑº € ŁĀ \u0152 日本, y más letras: ÁÉÍÓÚ ¡¢£¤¥§");
      p.client->records[3].add("ART.NOMBRE=text ñandú €uro — “comillas”");
    });
  }
}

}  // namespace
}  // namespace tarvo::test
