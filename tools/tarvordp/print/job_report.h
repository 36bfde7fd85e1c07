// The report of a job: the library's engine of its kind, made, filled and run.
#pragma once

#include "reports/report_ports.h"
#include "tarvordp/print/job_run.h"

namespace tarvordp {

// REQUIRES: the library has its services, on this thread.
// Raises: the run-time errors of the engine.
void printReport(JobRun& run, const tarvo::ReportPorts& ports);

}  // namespace tarvordp
