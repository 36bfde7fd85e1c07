// The translation of whole lines: what is asked of whom in which order.
#include "template/line_translator.h"
#include "template/template_test.h"

namespace tarvo::test {
namespace {

class TranslationSteps : public TemplateTest {
 protected:
  class Source final : public VariableSource {
   public:
    explicit Source(CallLog& log) : log_(log) {}
    bool answer(Ref<clsObLineCharacts>& line) override {
      log_.add("source.answer " + toUtf8(line->GetField()));
      if (line->GetField() == u"UNKNOWN") return false;
      line->GetSpecialVar()->SetContentString(u"v");
      return true;
    }
    void notFound(clsObLineCharacts& line) override {
      log_.add("source.notFound " + toUtf8(line.GetField()));
    }

   private:
    CallLog& log_;
  };

  // With every variable read before, so that only the steps are left.
  std::string stepsOf(TextView templateLine) {
    for (int pass = 1; pass <= 2; ++pass) {
      line->sClrRecord();
      serviceCalls.clear();
      Source source(serviceCalls);
      translator.translate(line, templateLine, source);
    }
    return callsMade();
  }

  LineTranslator translator;
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
};

struct StepsCase {
  const char* shows;
  TextView line;
  const char* steps;
};

constexpr StepsCase kStepsCases[] = {
    {"an empty line asks for nothing", u"", ""},
    {"text is looked through once", u"ab", "fTrim \"ab\"; fPosition \"ab\", \"{\", 1"},
    {"a comment is looked at for its word", u" ...{A}",
     "fTrim \" ...{A}\"; fStrip \" ...{A}\", \".\"; fTrim \" {A}\""},
    {"a client's variable", u"x{A,3}",
     "fTrim \"x{A,3}\"; fPosition \"x{A,3}\", \"{\", 1; "
     "fPosition \"x{A,3}\", \"{\", 1; fPosition \"x{A,3}\", \"}\", 1; fPart \"x{A,3}\", 3, 3; "
     "fTrim \"A\"; answer A; fPadOrCut \"v\", 3, \" \"; fAlignLeft \"v  \", 3; "
     "fDelete \"x{A,3}\", 2, 4; fInsert \"x\", \"v  \", 2; fPosition \"xv  \", \"{\", 1"},
    {"a control word is not asked for", u"{tab}",
     "fTrim \"{tab}\"; fPosition \"{tab}\", \"{\", 1; "
     "fPosition \"{tab}\", \"{\", 1; fPosition \"{tab}\", \"}\", 1; fPart \"{tab}\", 2, 3; "
     "fTrim \"TAB\"; fDelete \"{tab}\", 1, 4; fInsert \"\", \"\", 1"},
    {"a constant is tried as a control word first", u"{@c}",
     "fTrim \"{@c}\"; fPosition \"{@c}\", \"{\", 1; "
     "fPosition \"{@c}\", \"{\", 1; fPosition \"{@c}\", \"}\", 1; fPart \"{@c}\", 2, 2; "
     "fTrim \"@c\"; fPart \"@c\", 2, 255; fDelete \"{@c}\", 1, 3; fInsert \"\", \"c\", 1; "
     "fPosition \"c\", \"{\", 1"},
    {"what nobody knows", u"{UNKNOWN}",
     "fTrim \"{UNKNOWN}\"; fPosition \"{UNKNOWN}\", \"{\", 1; "
     "fPosition \"{UNKNOWN}\", \"{\", 1; fPosition \"{UNKNOWN}\", \"}\", 1; "
     "fPart \"{UNKNOWN}\", 2, 7; fTrim \"UNKNOWN\"; answer UNKNOWN; notFound UNKNOWN; "
     "fDelete \"{UNKNOWN}\", 1, 8; fInsert \"\", \"No se encontró\", 1; "
     "fPosition \"No se encontró\", \"{\", 1"},
    {"from left to right in the text as it has become", u"{A}{B}",
     "fTrim \"{A}{B}\"; fPosition \"{A}{B}\", \"{\", 1; "
     "fPosition \"{A}{B}\", \"{\", 1; fPosition \"{A}{B}\", \"}\", 1; fPart \"{A}{B}\", 2, 1; "
     "fTrim \"A\"; answer A; fDelete \"{A}{B}\", 1, 2; fInsert \"{B}\", \"v\", 1; "
     "fPosition \"v{B}\", \"{\", 1; "
     "fPosition \"v{B}\", \"{\", 1; fPosition \"v{B}\", \"}\", 1; fPart \"v{B}\", 3, 1; "
     "fTrim \"B\"; answer B; fDelete \"v{B}\", 2, 2; fInsert \"v\", \"v\", 2; "
     "fPosition \"vv\", \"{\", 1"},
};

TEST_F(TranslationSteps, ComeInTheirOrder) {
  for (const StepsCase& row : kStepsCases) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(stepsOf(row.line), row.steps);
  }
}

TEST_F(TranslationSteps, AskNothingOfAServiceThatMayBeBypassed) {
  useUnwatchedTexto();
  for (const StepsCase& row : kStepsCases) {
    std::string asked;
    for (std::string rest = row.steps; !rest.empty();) {
      const std::string step = rest.substr(0, rest.find("; "));
      rest.erase(0, step.size() + 2);
      if (step[0] != 'f') asked += (asked.empty() ? "" : "; ") + step;
    }
    EXPECT_EQ(stepsOf(row.line), asked) << row.shows;
  }
}

}  // namespace
}  // namespace tarvo::test
