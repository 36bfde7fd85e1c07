// The files that a run of print names: those that it reads, and those that it writes.
#pragma once

#include "tarvordp/job/job_file.h"
#include "tarvordp/print/print_job.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {

// Raises: Mistake when --printer, --save and --trace do not name three different files, or one of
// them would overwrite the job file or its data.  What is no ordinary file, such as /dev/null, may
// be named twice.  Of a report with several spooler jobs only the first one's file is looked at.
void requireSeparateFiles(const PrintOptions& options, const Profile& profile, const Job& job);

}  // namespace tarvordp
