// What is printed through the library with a shipped profile is read back as the lines that were
// printed.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "command_run.h"
#include "equipment/golden.h"
#include "equipment/temporary_folder.h"
#include "platform/file/file_spooler.h"
#include "reports/master_detail_report.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::test::matchesGolden;

constexpr const char* kTemplate =
    "...NMAXLINPAGINA=20\n"
    "{EXPANDIDO}Ferretería el Ñandú{FINEXPANDIDO}   {NEGRA}Nº 0001{BLANCA}\n"
    "{SUBRAYADO}Código{FINSUBRAYADO}      {COMP}descripción condensada{NORM}        Monto\n"
    "\n"
    "{CUERPO=12}\n"
    "{CODIGO,10} {COMP}áéíóúñÑº ¿qué? <1B> \\ {NORM} {NEGRA}{MONTO,15}{BLANCA}\n"
    "{FINCUERPO}\n"
    "   {NEGRA}{SUBRAYADO}Van{FINSUBRAYADO}{BLANCA} {VAN,15}\n";

class RoundTrip : public tarvo::test::MasterDetailReport,
                  public testing::WithParamInterface<std::string> {
 protected:
  // A channel that prints into a file through the profile.
  tarvo::Ref<tarvo::clsUtilImp> channelFor(const Profile& profile) {
    const auto channel = tarvo::make<tarvo::clsUtilImp>(tarvo::makeFileSpooler());
    apply(profile, *channel);
    channel->SetPrinterName(Text(tarvo::kFilePrinterPrefix) + folder.pathOf(u"job.prn"));
    tarvo::modRDPGlobalValues::ofThisThread().refInsImp = channel;
    return channel;
  }

  std::string printReport(const Profile& profile) {
    channelFor(profile);
    init();
    report->sPrintReport();
    return folder.contentOf(u"job.prn");
  }

  std::string readBack() {
    const CommandRun run = runCommand(
        &addViewCommand,
        {"view", (folder.path() / "job.prn").string(), "--profile", GetParam(), "--text"});
    EXPECT_EQ(run.status, kDone) << run.err;
    return run.out;
  }

  tarvo::test::TemporaryFolder folder;
};

// The bytes of a job without control codes, as text.
std::string plainText(const std::string& bytes) {
  struct Letter {
    unsigned char byte;
    const char* text;
  };
  static constexpr Letter kLetters[] = {{0xA0, "á"},
                                        {0x82, "é"},
                                        {0xA1, "í"},
                                        {0xA2, "ó"},
                                        {0xA3, "ú"},
                                        {0xA4, "ñ"},
                                        {0xA5, "Ñ"},
                                        {0xA7, "º"},
                                        // as its byte of the system's code page
                                        {0xBF, "┐"}};
  std::string text;
  for (const char byte : bytes) {
    const Letter* known = nullptr;
    for (const Letter& letter : kLetters) {
      if (letter.byte == static_cast<unsigned char>(byte)) known = &letter;
    }
    if (known != nullptr) {
      text += known->text;
    } else if (byte != '\r') {
      text += byte;
    }
  }
  return text;
}

TEST_P(RoundTrip, OfAReport) {
  write(kTemplate);
  for (int i = 1; i <= 50; ++i) addRecord("Z" + std::to_string(i), std::to_string(i) + ".5");
  Profile codeless;
  codeless.canPrintInTextMode = true;
  codeless.codes[0] = u"\f";
  const std::string codelessBytes = printReport(codeless);
  const std::string expected = plainText(codelessBytes);
  ASSERT_EQ(tarvo::test::countOf(expected, "Ferretería el Ñandú   Nº 0001\n"), 5);
  ASSERT_EQ(tarvo::test::countOf(expected, "\f"), 5);
  ASSERT_THAT(expected, testing::HasSubstr("\nZ50        áéíóúñÑº"));

  const std::string bytes = printReport(findProfile(GetParam(), ""));
  if (GetParam() != "plain") {
    ASSERT_GT(bytes.size(), codelessBytes.size() + 300);
  }
  EXPECT_TRUE(tarvo::test::sameLines("what was printed", expected, readBack()));
}

TEST_P(RoundTrip, OfLinesInEveryMode) {
  const auto channel = channelFor(findProfile(GetParam(), ""));
  channel->sInitializePrinterFileHandle(channel->GetPrinterName(), u"Modos");
  channel->sResetPrinter();
  channel->sWrite(channel->GetChrInternationalChars(), 0);
  using Code = const Text& (tarvo::clsUtilImp::*)() const noexcept;
  constexpr Code kModes[][2] = {
      {&tarvo::clsUtilImp::GetChrBold, &tarvo::clsUtilImp::GetChrLight},
      {&tarvo::clsUtilImp::GetChrCondensed, &tarvo::clsUtilImp::GetChrNormal},
      {&tarvo::clsUtilImp::GetChrInitExpanded, &tarvo::clsUtilImp::GetChrEndExpanded},
      {&tarvo::clsUtilImp::GetChrInitUnderlying, &tarvo::clsUtilImp::GetChrEndUnderlying},
      {&tarvo::clsUtilImp::GetChrInitItalic, &tarvo::clsUtilImp::GetChrEndItalic},
      {&tarvo::clsUtilImp::GetChrFont12Points, &tarvo::clsUtilImp::GetChrFont10Points}};
  std::string expected;
  for (const auto& mode : kModes) {
    channel->sWriteLn(u"uno " + ((*channel).*mode[0])() + u"dos á", 3);
    channel->sWriteLn(u"tres" + ((*channel).*mode[1])() + u" cuatro ", 0);
    expected += "   uno dos á\ntres cuatro \n";
  }
  channel->sWrite(channel->GetChrFormFeed(), 0);
  channel->sClosePrinterFileHandle();
  EXPECT_EQ(readBack(), expected + "\f");
}

TEST_P(RoundTrip, OfTheTestPage) {
  const auto channel = channelFor(findProfile(GetParam(), ""));
  channel->sInitializePrinterFileHandle(channel->GetPrinterName(), u"Prueba");
  channel->sPrintTestPage();
  channel->sClosePrinterFileHandle();
  // Without codes for it a skip of points is lines.
  EXPECT_TRUE(matchesGolden(GetParam() == "plain" ? "tarvordp/view/golden/test_page_plain.txt"
                                                  : "tarvordp/view/golden/test_page.txt",
                            readBack()));
}

INSTANTIATE_TEST_SUITE_P(, RoundTrip, testing::ValuesIn(shippedProfileNames()),
                         [](const auto& each) {
                           std::string name = each.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace tarvordp
