// Whole master-detail reports, from cases/master_detail.case: a template, values and records in,
// printed bytes and calls out.
//
// Sections of a case:
//   settings   KEYWORD and value, a line each, see apply()
//   template   the file; without it there is none
//   values     of every section, see typed_values.h
//   records    a record a line: values between " | "; MONTO is what it adds to the subtotal
//   repeats    NAME=TEXT/TEXT..., one text for each pass of a repeated line
//   jobs       what the spooler got
//   pages      what the page output got
//   calls      of the message service; with the setting "trace" of the client as well
#include <gtest/gtest.h>

#include "equipment/case_file.h"
#include "master_detail_client.h"
#include "report_world.h"
#include "reports/clsObRepMasterDetail.h"

namespace tarvo::test {
namespace {

CaseFile& caseFile() {
  static CaseFile file(
      "reports/cases/master_detail.case",
      {"settings", "template", "values", "records", "repeats", "jobs", "pages", "calls"});
  return file;
}

std::vector<std::string> split(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != std::string::npos;
       end = text.find(separator, begin)) {
    parts.push_back(text.substr(begin, end - begin));
    begin = end + separator.size();
  }
  parts.push_back(text.substr(begin));
  return parts;
}

class MasterDetailCases : public ::testing::TestWithParam<std::size_t> {
 protected:
  const Case& given() const { return caseFile().cases()[GetParam()]; }

  void apply(const std::string& line) {
    const Setting setting(line);
    const std::string& keyword = setting.keyword;
    const std::string& value = setting.value;
    if (setting.applyTo(*world.printer)) return;
    if (keyword == "copies") {
      copies = static_cast<std::int16_t>(std::stoi(value));
    } else if (keyword == "top-margin-lines") {
      report->SetTopMarginLines(setting.byte());
    } else if (keyword == "top-margin-points") {
      report->SetTopMarginPoints(setting.byte());
    } else if (keyword == "refuses") {
      client->canPrint = false;
    } else if (keyword == "refusal") {
      client->showsRefusal = true;
      client->refusal = fromUtf8(value);
    } else if (keyword == "half-letter") {
      report->SetIsHalfLetterPaper(true);
    } else if (keyword == "trace") {
      traces = true;
    } else {
      FAIL() << "unknown setting: " << line;
    }
  }

  void addRecord(const std::string& line) {
    TypedValues record;
    Currency amount;
    for (const std::string& value : split(line, " | ")) {
      record.add(value);
      if (value.starts_with("MONTO=number ")) {
        amount = currencyFromText(fromUtf8(value.substr(std::string("MONTO=number ").size())));
      }
    }
    client->records.push_back(record);
    client->amounts.push_back(amount);
  }

  void addRepeat(const std::string& line) {
    const std::size_t sign = line.find('=');
    client->repeats[line.substr(0, sign)] = split(line.substr(sign + 1), "/");
  }

  void init() {
    Ref<clsImplementIDMD> callbacks = client;
    report->sInit(callbacks, u"Factura", u"", u"", u"FACTURA", u"C:\\Formas\\", copies);
  }

  std::string callsText() const {
    std::string all;
    for (const std::string& line : world.calls.lines()) {
      if (traces || !line.starts_with("client.")) all.append(line).append("\n");
    }
    return all;
  }

  ReportWorld world;
  Ref<MasterDetailClient> client = make<MasterDetailClient>(world.calls);
  Ref<clsObRepMasterDetail> report = make<clsObRepMasterDetail>(world.ports());
  std::int16_t copies = 1;
  bool traces = false;
};

TEST_P(MasterDetailCases, Print) {
  for (const std::string& setting : given().linesOf("settings")) {
    if (setting.starts_with("copies ")) apply(setting);
  }
  init();
  for (const std::string& setting : given().linesOf("settings")) apply(setting);
  for (const std::string& value : given().linesOf("values")) client->values.add(value);
  for (const std::string& record : given().linesOf("records")) addRecord(record);
  for (const std::string& repeat : given().linesOf("repeats")) addRepeat(repeat);
  if (given().has("template")) {
    world.files->write(u"C:\\Formas\\FACTURA.ID", templateBytes(given().textOf("template")));
  }
  report->sPrintReport();
  EXPECT_TRUE(caseFile().matches(GetParam(), "jobs", world.jobsText()));
  EXPECT_TRUE(caseFile().matches(GetParam(), "pages", world.pageCalls.text()));
  EXPECT_TRUE(caseFile().matches(GetParam(), "calls", callsText()));
  EXPECT_EQ(world.files->openStreams(), 0);
  EXPECT_FALSE(report->GetLineToWrite());
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailCases,
                         ::testing::Range<std::size_t>(0, caseFile().cases().size()),
                         [](const auto& row) { return caseFile().testName(row.param); });

}  // namespace
}  // namespace tarvo::test
