// The checks of the guides can fail: a guide that leaves something out is found out.
#include <gmock/gmock.h>

#include "guide.h"
#include "on_paper.h"
#include "printing.h"
#include "skeleton.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const BlockWords kWords{"template", "printed", "message"};

// Blocks as "word: line", between headings "# ...".
std::string markdown(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) {
    const std::size_t colon = part.find(": ");
    text += part.starts_with('#')
                ? part + "\n"
                : "```" + part.substr(0, colon) + "\n" + part.substr(colon + 2) + "\n```\n";
  }
  return text;
}

std::vector<std::string> mistakesIn(const std::vector<std::string>& parts) {
  return guideFrom(markdown(parts), kWords).mistakes;
}

TEST(GuideReader, TakesBlocksThatFollowOneAnotherAsAnExample) {
  const Guide guide =
      guideFrom(markdown({"# One", "template A: x", "template B: y", "json: {}", "printed: 1",
                          "printed: 2", "message: no", "## Two", "sh: ls", "template: z",
                          "printed: z", "template: w", "printed: w"}),
                kWords);
  EXPECT_THAT(guide.mistakes, IsEmpty());
  ASSERT_EQ(guide.examples.size(), 3u);
  const Example& first = guide.examples[0];
  EXPECT_EQ(first.line, 2u);
  EXPECT_EQ(first.heading, "One");
  ASSERT_EQ(first.templates.size(), 2u);
  EXPECT_EQ(first.templates[0].name, "A");
  EXPECT_THAT(first.templates[1].lines, ElementsAre("y"));
  EXPECT_EQ(first.json, "{}\n");
  EXPECT_THAT(first.printed, ElementsAre("1\n", "2\n"));
  EXPECT_EQ(first.message, "no\n");
  EXPECT_THAT(guide.commands, ElementsAre("ls"));
  EXPECT_EQ(guide.examples[1].heading, "Two");
  EXPECT_EQ(guide.examples[1].json, "{}");
  EXPECT_EQ(skeletonOf(guide.headings), "# ##");
}

TEST(GuideReader, TellsATemplateThatPrintsNothing) {
  EXPECT_THAT(mistakesIn({"template: x"}), ElementsAre("line 3: the example above does not say "
                                                       "what it prints"));
  EXPECT_THAT(mistakesIn({"template: x", "# Next", "printed: x"}),
              ElementsAre("line 4: the example above does not say what it prints",
                          "line 5: a printed page that follows no template"));
}

TEST(GuideReader, TellsBlocksThatAreNotInTheirPlace) {
  EXPECT_THAT(mistakesIn({"printed: x"}),
              ElementsAre("line 1: a printed page that follows no template"));
  EXPECT_THAT(mistakesIn({"json: {}"}), ElementsAre("line 1: values that follow no template"));
  EXPECT_THAT(mistakesIn({"template: x", "message: y", "printed: x"}),
              ElementsAre("line 4: a message that follows no printed page"));
  EXPECT_THAT(mistakesIn({"template: x", "json: {}", "template: y", "printed: x"}),
              ElementsAre("line 7: a template after the values"));
  EXPECT_THAT(guideFrom("```printed\n", kWords).mistakes, ElementsAre("a block without an end"));
}

TEST(Skeleton, KeepsTheWordsOfTheLanguageAndHidesTheAuthors) {
  EXPECT_EQ(skeletonOf("Total: {FACTURA.MONTO,12,derecha}"), "~{~,12,DERECHA}");
  EXPECT_EQ(skeletonOf("|{ X , 12 }|{@Sum, 3,QR}"), "~{~,12}~{@~,3,QR}");
  EXPECT_EQ(skeletonOf("{NEGRA}{X[2][3]}{SNL,3}{VAN,12}"), "{NEGRA}{~[2][3]}{SNL,3}{VAN,12}");
  EXPECT_EQ(skeletonOf("{X,IIF(\"S\",yes,no),10,RIGHT}"), "{~,IIF(~),10,?}");
  EXPECT_EQ(skeletonOf("{X,20,PATRONSEPARADOR=2B-C}"), "{~,20,PATRONSEPARADOR=2B-C}");
  EXPECT_EQ(skeletonOf("  ... a note"), "...~");
  EXPECT_EQ(skeletonOf("...NMAXLINPAGINA=12"), "...NMAXLINPAGINA=12");
}

TEST(OnPaper, ShowsCodesAsTheirWords) {
  EXPECT_EQ(onPaper("\x1B@\x12\x1BPa\x1B"
                    "Eb\x1B"
                    "F  \r\n\xA0\xC9<\r\n\x12\x1BP\f",
                    ReportEnd::kOfForm),
            "a<NEGRA>b<BLANCA>··\ná<C9><3C>\n");
}

TEST(OnPaper, TellsAReportWithoutItsEnds) {
  EXPECT_EQ(onPaper("\x1B@\x12\x1BPa\r\n\x12\x1BP\f", ReportEnd::kOfPages),
            "not a whole report:\n<RESET><NORMAL>a\n<NORMAL><FF><OPEN>\n");
  EXPECT_EQ(onPaper("", ReportEnd::kOfForm), "not a whole report:\n");
}

TEST(PrintingAnExample, SeesWhatIsPrintedAndWhatTheOperatorIsTold) {
  const Guide guide = guideFrom(markdown({"template: {X,3,OH}|", "json: {\"record\": {\"X\": 5}}",
                                          "printed: something else"}),
                                kWords);
  const Printing printing = print(guide.examples.at(0));
  EXPECT_EQ(printing.status, 0);
  EXPECT_THAT(printing.jobs, ElementsAre("  5|\n"));
  EXPECT_EQ(printing.messages,
            "[Impresión de Plantilla] No se encontró el tipo de atributo OH en la línea X,3,OH\n");
}

TEST(PrintingAnExample, SeesAReportThatFails) {
  const Guide guide = guideFrom(markdown({"template: {X,300}", "printed: x"}), kWords);
  const Printing printing = print(guide.examples.at(0));
  EXPECT_EQ(printing.status, 3);
}

}  // namespace
}  // namespace tarvo::test
