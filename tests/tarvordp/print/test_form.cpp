// Form reports: sheets, drafts, and what is told when a sheet is not printed.
#include "graphic/saved_pages.h"
#include "print_testing.h"

namespace tarvordp {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class FormTest : public test::PrintTest {};

TEST_F(FormTest, BothSheetsAreJobsOfTheirOwn) {
  writeForm();
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(printed("out.prn"), "uno a<0D><0A>\n<0C>");
  EXPECT_EQ(printed("out.prn.2"), "dos a<0D><0A>\n<0C>");
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, StartsWith("[Voltear Planilla] Coloque la segunda hoja"))
      << "the question is shown, and accepted";
}

TEST_F(FormTest, OneSheetAsksNothing) {
  writeForm(R"(, "sheets": "first")");
  test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(printed(), "uno a<0D><0A>\n<0C>");
  EXPECT_FALSE(has("out.prn.2"));

  writeForm(R"(, "sheets": "second")");
  outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(printed(), "dos a<0D><0A>\n<0C>");
}

TEST_F(FormTest, TheJobAnswersWhetherTheSheetWasTurned) {
  writeForm(R"(, "answers": {"turnSheet": false})");
  test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted) << "a sheet less is printed";
  EXPECT_EQ(printed(), "uno a<0D><0A>\n<0C>");
  EXPECT_FALSE(has("out.prn.2"));

  writeForm(R"(, "answers": {"turnSheet": true})");
  outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_TRUE(has("out.prn.2"));
}

TEST_F(FormTest, TheJobsAnswerCountsEvenWithYes) {
  writeForm(R"(, "answers": {"turnSheet": false})");
  EXPECT_EQ(print({"--yes"}).status, kNotPrinted);
}

TEST_F(FormTest, ADraftIsSavedWhereSaveSays) {
  writeForm(R"(, "output": "draft")");
  const test::Outcome outcome = print({"--save", pathOf("draft.pdf")});
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "tarvordp: the pages are in draft.pdf\n");
  EXPECT_THAT(contentOf("draft.pdf"), StartsWith("%PDF-"));
  EXPECT_FALSE(has("out.prn"));
}

// Back in its folder when it goes.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::filesystem::path& folder)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~WorkingFolder() { std::filesystem::current_path(before_); }

 private:
  std::filesystem::path before_;
};

TEST_F(FormTest, ADraftWithoutAScreenIsSavedUnderItsTitleAndNoFileIsLost) {
  writeForm(R"(, "output": "draft")");
  const WorkingFolder folder(folder_.path());
  EXPECT_EQ(print().err, "tarvordp: the pages are in Planilla.pdf\n");
  EXPECT_THAT(contentOf("Planilla.pdf"), StartsWith("%PDF-"));
  EXPECT_EQ(print().err, "tarvordp: the pages are in Planilla.2.pdf\n");
  EXPECT_THAT(contentOf("Planilla.2.pdf"), StartsWith("%PDF-"));
}

TEST_F(FormTest, ADraftWithoutATemplateLeavesWhatWasSavedBefore) {
  writeForm(R"(, "output": "draft")");
  write("j.json", R"({"report": "form", "title": "Planilla", "directory": ".", "draft": "NADA",
                      "output": "draft", "profile": {"PrinterName": "file:x"}})");
  write("draft.pdf", "an older one");
  EXPECT_EQ(print({"--save", pathOf("draft.pdf")}).status, kNotPrinted);
  EXPECT_EQ(contentOf("draft.pdf"), "an older one");
}

TEST_F(FormTest, ADraftThatDoesNotArriveIsARunTimeError) {
  writeForm(R"(, "output": "draft")");
  const test::Outcome outcome = print({"--save", "/dev/full"});
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err, StartsWith("tarvordp: run-time error 61: Disk full: /dev/full\n   en "));
}

TEST_F(FormTest, SaveHasNothingToDoWhereTextIsPrinted) {
  writeForm(R"(, "sheets": "first")");
  const test::Outcome outcome = print({"--save", pathOf("x.pdf")});
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err,
            "tarvordp: nothing was saved in x.pdf: the report went to the printer as text\n");
  EXPECT_FALSE(has("x.pdf"));
}

TEST_F(FormTest, APrinterWithoutTextModePrintsNothing) {
  writeForm("", false);
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_EQ(outcome.err,
            "[Proceso Cancelado] La impresora que usted tiene seleccionada 'file:out.prn', no "
            "admite impresión en Modo Texto.\n");
  EXPECT_FALSE(has("out.prn"));
}

TEST_F(FormTest, WithoutAProfileThereIsNoPrinter) {
  writeForm();
  write("j.json", R"({"report": "form", "title": "Planilla", "directory": ".",
                      "firstSheet": "UNO"})");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_THAT(outcome.err, StartsWith("[Imprimir Planilla] Aún no ha sido escogida la impresora."));
  EXPECT_THAT(outcome.err,
              EndsWith("tarvordp: give a printer's name with --printer, or in the profile\n"));
}

TEST_F(FormTest, AMissingTemplateIsASheetLess) {
  writeForm();
  std::filesystem::remove(pathOf("DOS.ID"));
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_THAT(outcome.err, HasSubstr("[Archivo no encontrado] La plantilla de impresión "));
  EXPECT_EQ(printed(), "uno a<0D><0A>\n<0C>");
}

TEST_F(FormTest, AJobThatNamesNoSheetPrintsNothingAndSaysSo) {
  write("j.json", R"({"report": "form", "title": "Planilla", "directory": ".", "draft": "BORRADOR",
                      "profile": {"PrinterName": "file:x", "CanPrintInTextMode": true}})");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_EQ(outcome.err,
            "tarvordp: nothing was printed: the job names no template for these sheets\n");
}

TEST_F(FormTest, APauseGoesOnWithoutATerminal) {
  writeForm(R"(, "sheets": "first")");
  write("UNO.ID", "uno\n...PAUSA...\ndos\n");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(printed(), "uno<0D><0A>\ndos<0D><0A>\n<0C>");
}

TEST_F(FormTest, ThePrinterOfTheCommandLineReplacesTheProfiles) {
  writeForm();
  EXPECT_EQ(print({"--printer", "file:" + pathOf("other")}).status, kDone);
  EXPECT_FALSE(has("out.prn"));
  EXPECT_EQ(printed("other"), "uno a<0D><0A>\n<0C>");
  EXPECT_EQ(printed("other.2"), "dos a<0D><0A>\n<0C>");
}

}  // namespace
}  // namespace tarvordp
