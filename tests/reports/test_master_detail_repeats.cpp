// Lines that repeat in a master-detail report: who ends them, and long texts of many segments.
#include "master_detail_report.h"
#include "ui/clsLibTarvoRdp.h"

namespace tarvo::test {
namespace {

class MasterDetailRepeats : public MasterDetailReport {
 protected:
  std::string printOf(const std::string& typed) {
    write(typed);
    init();
    return printed();
  }

  int timesAsked(const std::string& name) const {
    return static_cast<int>(
        world.calls.linesOf("client.fTranslateSpecialVarMD " + name + ",").size());
  }
};

// --- An answer of False.

TEST_F(MasterDetailRepeats, AreEndedByAFalseWhateverTheClientSetBefore) {
  client->records.resize(1);
  client->translates = [](Ref<clsObLineCharacts>& line) {
    line->GetSpecialVar()->SetEndOfRepeatPrintLine(false);
    return false;
  };
  EXPECT_EQ(printOf("{CUERPO=1}\n{REPEAT}{NADA}\n{FINCUERPO}\n"), "No se encontr\xA2\r\n");
  EXPECT_EQ(timesAsked("NADA"), 2) << "measured and printed once";
}

TEST_F(MasterDetailRepeats, AreEndedByAFalseInTheMiddle) {
  client->records.resize(1);
  int asked = 0;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    clsObSpecialVar& variable = *line->GetSpecialVar();
    variable.SetEndOfRepeatPrintLine(false);
    variable.SetContentString(u"si");
    return ++asked % 3 != 0;
  };
  EXPECT_EQ(printOf("{CUERPO=3}\n{REPEAT}{NADA}\n{FINCUERPO}\n"),
            "si\r\nsi\r\nNo se encontr\xA2\r\n");
  EXPECT_EQ(timesAsked("NADA"), 6);
}

// --- Long texts.

// A client with a text for each record and one for the insert body.  The library's helper cuts
// them into segments; each pass begins with a clear variable, so which segment is next is the
// client's to keep.
class LongTexts {
 public:
  std::map<std::string, Text> texts;  // by variable and record

  bool answer(Ref<clsObLineCharacts>& line, std::size_t record) {
    Ref<clsObSpecialVar> variable = line->GetSpecialVar();
    const auto found = texts.find(TypedValues::nameOf(*variable) + " " + std::to_string(record));
    if (found == texts.end()) return false;
    variable->SetArrayPosition(next_);
    variable->SetEndOfRepeatPrintLine(false);
    // Of the last line of several the helper uses nothing.
    const Value lines = ValueArray{found->second, Text()};
    variable->SetContentString(helper_->fExtractShortText(variable, lines, false));
    const int following = variable->GetEndOfRepeatPrintLine() ? 1 : next_ + 1;
    next_ = narrow<std::uint8_t>(following);
    return true;
  }

 private:
  Ref<clsLibTarvoRdp> helper_ = make<clsLibTarvoRdp>();
  std::uint8_t next_ = 1;
};

class MasterDetailLongTexts : public MasterDetailRepeats {
 protected:
  MasterDetailLongTexts() {
    client->beforeCall = [this](const std::string& call) {
      if (call == "fReadFirstRecord") present_ = 0;
      if (call == "fReadNextRecord") ++present_;
    };
    client->translates = [this](Ref<clsObLineCharacts>& line) {
      clsObSpecialVar& variable = *line->GetSpecialVar();
      return longTexts.answer(line, present_) || client->records[0].store(variable) ||
             client->values.store(variable);
    };
  }

  LongTexts longTexts;

 private:
  std::size_t present_ = 0;
};

TEST_F(MasterDetailLongTexts, OfARecordThatDoesNotFitAreWholeOnTheNextPage) {
  addRecord("x");
  addRecord("x");
  client->values.add("CAB=text cab");
  client->values.add("PIE=text pie");
  longTexts.texts["TEXTO 0"] = u"uno dos tres seis diez";
  longTexts.texts["TEXTO 1"] = u"cinco seis siete ocho nueve";
  EXPECT_EQ(printOf("{CAB}\n{CUERPO=4}\n{REPEAT}{TEXTO,11}|\n{FINCUERPO}\n{PIE}\n"),
            "cab\r\n"
            "uno dos    |\r\n"
            "tres seis  |\r\n"
            "diez       |\r\n"
            "\r\n"
            "pie\r\n"
            "\fcab\r\n"
            "cinco seis |\r\n"
            "siete ocho |\r\n"
            "nueve      |\r\n"
            "\r\n"
            "pie\r\n");
}

TEST_F(MasterDetailLongTexts, OfTheInsertBodyGoOnBehindThePageBreak) {
  client->values.add("CAB=text cab");
  client->values.add("PIE=text pie");
  longTexts.texts["TEXTO 0"] = u"uno dos tres seis cinco seis siete ocho nueve diez once doce";
  client->records.clear();
  client->translates = [this](Ref<clsObLineCharacts>& line) {
    return longTexts.answer(line, 0) || client->values.store(*line->GetSpecialVar());
  };
  EXPECT_EQ(printOf("{CAB}\n{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\n"
                    "{REPEAT}{TEXTO,11}|\n{FINCUERPO}\n{PIE}\n"),
            "cab\r\n\r\n\r\npie\r\n"
            "\fcab\r\nuno dos    |\r\ntres seis  |\r\ncinco seis |\r\npie\r\n"
            "\fcab\r\nsiete ocho |\r\nnueve diez |\r\nonce doce  |\r\npie\r\n");
}

TEST_F(MasterDetailLongTexts, OfEveryCopyAreTheSame) {
  addRecord("x");
  longTexts.texts["TEXTO 0"] = u"uno dos tres seis diez";
  write("{CUERPO=3}\n{REPEAT}{TEXTO,11}\n{FINCUERPO}\n");
  init(2);
  const std::string copy = "uno dos    \r\ntres seis  \r\ndiez       \r\n";
  EXPECT_EQ(printed(), copy + "\f" + copy);
}

}  // namespace
}  // namespace tarvo::test
