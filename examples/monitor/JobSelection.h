#pragma once

#include "monitor/FarmJob.h"

#include <vector>

/// The jobs that are shown when there are more than fit: those that are active, then those that
/// wait, then the others, of each the latest. The latest of them stand first.
std::vector<const FarmJob*> SelectJobs(const std::vector<const FarmJob*>& all, size_t most);
