// Whether a job's CSV file is one in which other characters than commas stand between the cells, as
// spreadsheets write it where the comma belongs to the numbers.
#pragma once

#include <string>

#include "tarvordp/job/job_file.h"

namespace tarvordp {

// A sentence that tells so; empty when it is not, and for a job without a CSV file.
std::string separatorHint(const Job& job);

}  // namespace tarvordp
