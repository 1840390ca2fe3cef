#pragma once

#include "monitor/FarmJob.h"

#include <functional>
#include <vector>

/// The jobs that are shown when there are more than fit: those that `isKept` names, then those that
/// run, then those whose state has changed last. The latest that came stand first.
std::vector<const FarmJob*> SelectJobs(const std::vector<const FarmJob*>& all, size_t most,
                                       const std::function<bool(const FarmJob&)>& isKept);
