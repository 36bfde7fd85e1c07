// The templates that a report reads: those of another port, and which one was opened last.
#pragma once

#include "reports/text_files.h"
#include "tarvordp/print/job_run.h"

namespace tarvordp {

class OpenedTemplates final : public tarvo::TextFiles {
 public:
  // REQUIRES: `run` outlives the calls.
  OpenedTemplates(tarvo::Ref<tarvo::TextFiles> files, JobRun& run);

  tarvo::Ref<tarvo::TextStream> OpenTextFile(tarvo::TextView path) override;

 private:
  tarvo::Ref<tarvo::TextFiles> files_;
  JobRun& run_;
};

// Where a report was when an error ended it, and how to look for the reason, a sentence; empty when
// it had not read a template.
std::string whereItEnded(const JobRun& run);

}  // namespace tarvordp
