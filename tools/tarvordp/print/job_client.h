// The clients of a printed job: they answer the reports' questions from the job's data.
//
// A callback raises an error to end the report when its output does not arrive (the library does
// not look), when the report is given up at a pause, and when the data can be read no more.
#pragma once

#include "frame/clsImplementIDMD.h"
#include "frame/clsImplementIDTraduc.h"
#include "tarvordp/print/job_run.h"

namespace tarvordp {

// REQUIRES, of both: `run` outlives the calls.
tarvo::Ref<tarvo::clsImplementIDTraduc> makeFormClient(JobRun& run);
tarvo::Ref<tarvo::clsImplementIDMD> makeMasterDetailClient(JobRun& run);

}  // namespace tarvordp
