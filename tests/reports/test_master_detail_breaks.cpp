// Page breaks that lead to themselves: they end in an error before the stack does.
//
// Every report runs in a thread with the stack of a small program.  Sanitizers take several times
// as much of it and get more.
#include <pthread.h>

#include <functional>

#include "master_detail_report.h"

namespace tarvo::test {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kStack = 16u << 20;
#else
constexpr std::size_t kStack = 1u << 20;
#endif

constexpr int kMostPagesWithinPages = 200;

// The action in a thread with the small stack.
void onSmallStack(const std::function<void()>& action) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
  pthread_t thread{};
  const auto run = [](void* given) -> void* {
    (*static_cast<const std::function<void()>*>(given))();
    return nullptr;
  };
  std::function<void()> copy = action;
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &copy), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

// An error service that keeps the procedures alone: a thousand descriptions of a thousand words
// each would be all that the time goes into.
class TrailKeeper final : public clsError {
 public:
  std::string trail;

  void fDescribeError(TextView valDescription, TextView, TextView valProcedureName, TextView,
                      std::int16_t, std::int32_t, TextView, std::int32_t, std::int32_t,
                      Text& result) override {
    trail += toUtf8(valProcedureName) + " ";
    result = valDescription;
  }
};

// A world of the thread's own: the services are its.
struct Scene {
  Scene() { modRDPGlobalValues::ofThisThread().refInsError = error; }

  ReportWorld world;
  Ref<TrailKeeper> error = make<TrailKeeper>();
  Ref<MasterDetailClient> client = make<MasterDetailClient>(world.calls);
  Ref<clsImplementIDMD> callbacks = client;
  Ref<clsObRepMasterDetail> report = make<clsObRepMasterDetail>(world.ports());

  void begin(const std::string& typed) {
    world.files->write(u"F/FACTURA.ID", templateBytes(typed));
    report->sInit(callbacks, u"Factura", u"", u"", u"FACTURA", u"F/", 1);
  }
};

struct EndlessBreak {
  const char* shows;
  const char* typed;
  int topMarginLines;
  const char* trail;  // its beginning
};

void PrintTo(const EndlessBreak& row, std::ostream* out) { *out << row.shows; }

// Every header asks the client once.
constexpr EndlessBreak kEndlessBreaks[] = {
    {"TheWordInTheHeader", "{A}{SALTAPAGINA}\n", 0,
     "sPrintPageHeader sWriteLine sPrintLine sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader sWriteLine "},
    {"TheWordInAHeadersOpenText", "{A}{SALTAPAGINA}{SNP,2}x\n", 0,
     "sPrintPageHeader sOBWrite sPrintLine sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader sOBWrite "},
    {"TheWordInAHeaderOfHalfLetterPaper", "...MEDIACARTA\n{A}\n{SALTAPAGINA}\n", 0,
     "sPrintPageHeader sWriteLine sPrintLine "},
    {"TheWordOfAHeaderThatRepeats", "{SALTAPAGINA}{REPEAT}{A}\n", 0,
     "sPrintPageHeader sWriteLine sPrintLine "},
    {"TheWordOfAHeaderThatBreaksManyPages", "{A}{SALTAPAGINA}{SNL,255}\n", 0,
     "sPrintPageHeader sWriteLine sPrintLine "},
    {"TheWordInTheBodyUnderATopMarginWhichIsCheckedForItToo", "{A}\n{CUERPO=5}\n{SALTAPAGINA}x\n",
     1, "sPrintPageHeader sWriteLine sSkipNLines sPrintPageHeader sWriteLine sSkipNLines "},
    {"ATopMarginAsLongAsThePage", "...NMAXLINPAGINA=3\n{A}\n", 3,
     "sPrintPageHeader sWriteLine sSkipNLines sPrintPageHeader sWriteLine sSkipNLines "},
    {"ATopMarginLongerThanThePage", "...NMAXLINPAGINA=2\n{A}\n", 255,
     "sPrintPageHeader sWriteLine sSkipNLines sPrintPageHeader sWriteLine sSkipNLines "},
    {"ATopMarginOnAPageWithoutLines", "...NMAXLINPAGINA=1\n{A}\n", 1,
     "sPrintPageHeader sWriteLine sSkipNLines sPrintPageHeader sWriteLine sSkipNLines "},
};

class MasterDetailEndlessBreak : public ::testing::TestWithParam<EndlessBreak> {};

TEST_P(MasterDetailEndlessBreak, EndsInError28BeforeTheStackDoes) {
  onSmallStack([] {
    Scene scene;
    scene.client->records.resize(1);
    scene.client->translates = [](Ref<clsObLineCharacts>& line) {
      line->GetSpecialVar()->SetContentString(u"x");
      return true;
    };
    scene.begin(GetParam().typed);
    scene.report->SetTopMarginLines(narrow<std::uint8_t>(GetParam().topMarginLines));
    EXPECT_EQ(errorNumberOf([&] { scene.report->sPrintReport(); }), kOutOfStackSpace);
    const std::string& trail = scene.error->trail;
    EXPECT_TRUE(trail.starts_with(GetParam().trail)) << trail.substr(0, 400);
    EXPECT_TRUE(trail.ends_with(" sWriteReport sWriteNCopiesOfReport sPrintReport "));
    EXPECT_EQ(countOf(trail, "sPrintPageHeader "), kMostPagesWithinPages + 1);
    EXPECT_EQ(scene.world.files->openStreams(), 0);
  });
}

TEST_P(MasterDetailEndlessBreak, LeavesNothingBehindForTheNextReport) {
  onSmallStack([] {
    Scene scene;
    scene.client->records.resize(1);
    scene.begin(GetParam().typed);
    scene.report->SetTopMarginLines(narrow<std::uint8_t>(GetParam().topMarginLines));
    EXPECT_EQ(errorNumberOf([&] { scene.report->sPrintReport(); }), kOutOfStackSpace);
    scene.begin("...NMAXLINPAGINA=66\ncab\n{CUERPO=1}\n{FINCUERPO}\npie\n");
    scene.client->records.clear();
    scene.report->sPrintReport();
    EXPECT_EQ(scene.world.spooler->jobs().back().bytes,
              "\x1B@\x12"
              "cab\r\n\r\npie\r\n\x12\f\x1B@");
  });
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailEndlessBreak, ::testing::ValuesIn(kEndlessBreaks),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST(MasterDetailNesting, TwoHundredPagesWithinOneAnotherAreBorne) {
  onSmallStack([] {
    Scene scene;
    int headers = 0;
    scene.client->translates = [&](Ref<clsObLineCharacts>& line) {
      // The word stands in the value, and the last header does without it.
      const bool isLast = ++headers == kMostPagesWithinPages;
      line->GetSpecialVar()->SetContentString(isLast ? u"fin" : u"{SALTAPAGINA}");
      return true;
    };
    scene.begin("...NMAXLINPAGINA=255\n{A}\n{CUERPO=1}\n{FINCUERPO}\n");
    EXPECT_EQ(errorNumberOf([&] { scene.report->sPrintReport(); }), 0);
    EXPECT_EQ(headers, kMostPagesWithinPages);
    EXPECT_EQ(countOf(scene.world.spooler->bytes(), "\f"), kMostPagesWithinPages);
  });
}

// --- Reports that lead to themselves.

struct EndlessReport {
  const char* shows;
  const char* callback;  // in which the client prints the report
};

void PrintTo(const EndlessReport& row, std::ostream* out) { *out << row.shows; }

constexpr EndlessReport kEndlessReports[] = {
    {"Permission", "fCanExecuteWriteReport"}, {"Header", "fTranslateSpecialVarMD CAB"},
    {"FirstRecord", "fReadFirstRecord"},      {"Body", "fTranslateSpecialVarMD CODIGO"},
    {"NextRecord", "fReadNextRecord"},        {"Footer", "fTranslateSpecialVarMD PIE"},
    {"Pause", "sDisplayPauseDialog"},
};

class MasterDetailEndlessReport : public ::testing::TestWithParam<EndlessReport> {};

TEST_P(MasterDetailEndlessReport, EndsInError28BeforeTheStackDoes) {
  onSmallStack([] {
    Scene scene;
    scene.client->records.resize(1);
    scene.client->beforeCall = [&scene](const std::string& call) {
      if (call.starts_with(GetParam().callback)) scene.report->sPrintReport();
    };
    scene.begin("{CAB}\n{CUERPO=2}\n{CODIGO}\n{FINCUERPO}\n{PIE}\n...PAUSA\n");
    EXPECT_EQ(errorNumberOf([&] { scene.report->sPrintReport(); }), kOutOfStackSpace);
    EXPECT_EQ(scene.world.files->openStreams(), 0);
    scene.client->beforeCall = nullptr;
    scene.begin("...NMAXLINPAGINA=66\ncab\n{CUERPO=1}\n{FINCUERPO}\npie\n");
    scene.report->sPrintReport();
    EXPECT_EQ(scene.world.spooler->jobs().back().bytes,
              "\x1B@\x12"
              "cab\r\n\r\npie\r\n\x12\f\x1B@");
  });
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailEndlessReport, ::testing::ValuesIn(kEndlessReports),
                         [](const auto& row) { return std::string(row.param.shows); });

// --- Breaks that look as if they did.

class MasterDetailBreaks : public MasterDetailReport {
 protected:
  std::string printOf(const std::string& typed, int topMarginLines = 0) {
    write(typed);
    init();
    report->SetTopMarginLines(narrow<std::uint8_t>(topMarginLines));
    return printed();
  }
};

TEST_F(MasterDetailBreaks, AHeaderAsLongAsItsPageBreaksItBeforeEveryFillingLine) {
  EXPECT_EQ(printOf("...NMAXLINPAGINA=3\na\nb\n{CUERPO=2}\n{FINCUERPO}\npie\n"),
            "a\r\nb\r\n\fa\r\nb\r\n\r\n\fa\r\nb\r\n\r\npie\r\n");
}

TEST_F(MasterDetailBreaks, AHeaderLongerThanItsPageIsPrintedWhole) {
  EXPECT_EQ(printOf("...NMAXLINPAGINA=3\n" + repeated(9, "h\n") + "{CUERPO=1}\n{FINCUERPO}\n"),
            repeated(9, "h\r\n") + "\f" + repeated(9, "h\r\n") + "\r\n");
}

TEST_F(MasterDetailBreaks, AFooterLongerThanItsPageIsPrintedWhole) {
  EXPECT_EQ(printOf("...NMAXLINPAGINA=3\n{CUERPO=1}\n{FINCUERPO}\n" + repeated(9, "p\n")),
            "\r\n" + repeated(9, "p\r\n"));
}

TEST_F(MasterDetailBreaks, TheWordInAFooterBreaksThePageOnceForEachFooter) {
  addRecord("A");
  addRecord("B");
  EXPECT_EQ(printOf("cab\n{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n{SALTAPAGINA}pie\n"),
            "cab\r\nA\r\n\fcab\r\npie\r\n\fcab\r\nB\r\n\fcab\r\npie\r\n");
}

TEST_F(MasterDetailBreaks, ATopMarginThatJustFitsBreaksNothing) {
  EXPECT_EQ(printOf("...NMAXLINPAGINA=3\na\n{CUERPO=0}\n{FINCUERPO}\n", 2), "\r\n\r\na\r\n");
}

TEST_F(MasterDetailBreaks, ARecordThatNeedsMoreThanABodyBreaksThePageOnceAndIsPrinted) {
  addRecord("A");
  EXPECT_EQ(printOf("cab\n{CUERPO=1}\n{CODIGO}\n{CODIGO}\n{FINCUERPO}\npie\n"),
            "cab\r\n\r\npie\r\n\fcab\r\nA\r\nA\r\npie\r\n");
}

}  // namespace
}  // namespace tarvo::test
