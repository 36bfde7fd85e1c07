// What belongs to one run of a job: what it prints from, what it prints to, and who watches.
#pragma once

#include <cstdint>
#include <string>

#include "tarvordp/job/job_file.h"
#include "tarvordp/print/asked_names.h"
#include "tarvordp/print/operator.h"
#include "tarvordp/print/output_spooler.h"
#include "tarvordp/print/progress.h"
#include "tarvordp/print/trace.h"

namespace tarvordp {

struct JobRun {
  const Job& job;
  const JobData& data;
  Trace& trace;
  Progress& progress;
  Operator& op;
  OutputSpooler& output;

  AskedNames asked{};
  std::string templateFile{};   // that was opened last, in UTF-8
  tarvo::Text lastName{};       // that it asked for; empty: none so far
  std::uint64_t callbacks = 0;  // so far
  std::int64_t values = 0;      // asked for so far
  std::int64_t records = 0;     // printed so far, of all copies
  bool wasGivenUpAtPause = false;
};

}  // namespace tarvordp
