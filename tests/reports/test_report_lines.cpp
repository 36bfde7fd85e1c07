// What both report engines do with a line that they print: whether open text is blank, and when the
// operator is warned of a long line.
#include "equipment/forwarding_services.h"
#include "form_client.h"
#include "master_detail_report.h"
#include "reports/clsObRepPlanilla.h"

namespace tarvo::test {
namespace {

// The lines of one report, printed by either engine.
class ReportLines : public ::testing::TestWithParam<bool> {
 protected:
  std::string printOf(const std::string& typed) {
    if (isForm()) {
      printForm(typed);
    } else {
      printMasterDetail(typed);
    }
    std::string bytes = world.spooler->jobs().back().bytes;
    const std::string begin = "\x1B@\x12";
    EXPECT_TRUE(bytes.starts_with(begin));
    bytes.erase(0, begin.size());
    return bytes.substr(0, bytes.rfind('\x12'));
  }

  ReportWorld world;

 private:
  static bool isForm() { return GetParam(); }

  void printForm(const std::string& typed) {
    world.files->write(u"F/FACTURA.ID", templateBytes(typed));
    const auto form = make<clsObRepPlanilla>(world.ports());
    Ref<clsImplementIDTraduc> callbacks = make<FormClient>(world.calls);
    form->sInit(callbacks, u"Factura", u"", u"", u"", u"F/", ePOD_Definitiva, eHP_PrimeraHoja);
    form->SetFileNameIDFirstSheet(u"FACTURA");
    form->sPrintReport();
  }

  // The lines are the page header, and there is no more of the report.
  void printMasterDetail(const std::string& typed) {
    world.files->write(u"F/FACTURA.ID", templateBytes(typed + "{CUERPO=0}\n{FINCUERPO}\n"));
    const auto report = make<clsObRepMasterDetail>(world.ports());
    Ref<clsImplementIDMD> callbacks = make<MasterDetailClient>(world.calls);
    report->sInit(callbacks, u"Factura", u"", u"", u"FACTURA", u"F/", 1);
    report->sPrintReport();
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, ReportLines, ::testing::Values(true, false), [](const auto& row) {
  return std::string(row.param ? "Form" : "MasterDetail");
});

// --- Open text.

constexpr const char* kTwoPoints =
    "\x1B"
    "A1\r\n\r\n\x1B"
    "A2";

TEST_P(ReportLines, OpenTextOfBlanksIsNotSentAndItsPointsAreSkipped) {
  EXPECT_EQ(printOf("{SNP,2}\n"), kTwoPoints);
  EXPECT_EQ(printOf("{SNP,2}   \n"), kTwoPoints);
}

TEST_P(ReportLines, OpenTextIsSentWithTheBlanksAroundIt) {
  EXPECT_EQ(printOf("{SNP,2} x \n"), " x " + std::string(kTwoPoints));
}

// A text service of another mind about one text.
class OpinionatedTexto final : public ForwardingTexto {
 public:
  explicit OpinionatedTexto(Text about) : about_(std::move(about)) {}

  Text stripped;  // without blanks, it says
  Text trimmed;
  int timesStripped = 0;

  void fStrip(TextView valText, TextView valCharacter, Text& result) override {
    ForwardingTexto::fStrip(valText, valCharacter, result);
    if (valText != about_ || valCharacter != u" ") return;
    ++timesStripped;
    result = stripped;
  }
  void fTrim(TextView valText, Text& result) override {
    ForwardingTexto::fTrim(valText, result);
    if (valText == about_) result = trimmed;
  }

 private:
  Text about_;
};

TEST_P(ReportLines, OpenTextIsBlankWhenTheTextServiceStripsItOfBlanksToNothing) {
  const auto texto = make<OpinionatedTexto>(u"--");
  texto->trimmed = u"--";
  modRDPGlobalValues::ofThisThread().refInsTexto = texto;
  EXPECT_EQ(printOf("{SNP,2}--\n"), kTwoPoints);
  EXPECT_EQ(texto->timesStripped, 1);
}

TEST_P(ReportLines, OpenTextIsNotBlankBecauseTheTextServiceTrimsItToNothing) {
  const auto texto = make<OpinionatedTexto>(u"--");
  texto->stripped = u"--";
  modRDPGlobalValues::ofThisThread().refInsTexto = texto;
  EXPECT_EQ(printOf("{SNP,2}--\n"), "--" + std::string(kTwoPoints));
}

// --- Long lines.

// What was sent to the printer when each warning came.
class TimedWarnings final : public ForwardingMessage {
 public:
  explicit TimedWarnings(const RecordingSpooler& spooler) : spooler_(spooler) {}

  std::vector<std::string> sentBefore;

  void sWarning(Text&) override { sentBefore.push_back(spooler_.bytes()); }

 private:
  const RecordingSpooler& spooler_;
};

TEST_P(ReportLines, TheWarningOfALongLineComesBeforeTheLine) {
  const auto warnings = make<TimedWarnings>(*world.spooler);
  modRDPGlobalValues::ofThisThread().refInsMessage = warnings;
  const std::string longLine(255, 'x');
  EXPECT_EQ(printOf("uno\n" + longLine + "\ntres\n"), "uno\r\n" + longLine + "\r\ntres\r\n");
  EXPECT_EQ(warnings->sentBefore, std::vector<std::string>{"\x1B@\x12uno\r\n"});
}

}  // namespace
}  // namespace tarvo::test
