#include "tarvordp/print/job_report.h"

#include "reports/clsObRepMasterDetail.h"
#include "reports/clsObRepPlanilla.h"
#include "tarvordp/print/job_client.h"

namespace tarvordp {
namespace {

using tarvo::make;
using tarvo::Ref;

void printForm(JobRun& run, const tarvo::ReportPorts& ports) {
  const Job& job = run.job;
  const auto report = make<tarvo::clsObRepPlanilla>(ports);
  Ref<tarvo::clsImplementIDTraduc> client = makeFormClient(run);
  report->sInit(client, job.title, job.textFile, job.user, {}, job.directory, job.output,
                job.sheets);
  report->SetFileNameIDFirstSheet(job.firstSheet);
  report->SetFileNameIDSecondSheet(job.secondSheet);
  report->SetFileNameIDDraft(job.draft);
  report->sPrintReport();
}

void printMasterDetail(JobRun& run, const tarvo::ReportPorts& ports) {
  const Job& job = run.job;
  const auto report = make<tarvo::clsObRepMasterDetail>(ports);
  Ref<tarvo::clsImplementIDMD> client = makeMasterDetailClient(run);
  report->sInit(client, job.title, job.textFile, job.user, job.templateName, job.directory,
                job.copies);
  report->SetTopMarginLines(job.topMarginLines);
  report->SetTopMarginPoints(job.topMarginPoints);
  report->sPrintReport();
}

}  // namespace

void printReport(JobRun& run, const tarvo::ReportPorts& ports) {
  if (run.job.kind == ReportKind::form) {
    printForm(run, ports);
  } else {
    printMasterDetail(run, ports);
  }
}

}  // namespace tarvordp
