#include "monitor/JobSelection.h"

#include <algorithm>

namespace
{
struct Candidate
{
    const FarmJob* job;
    int            rank; ///< 0 is shown first.
};

bool IsShownBefore(const Candidate& a, const Candidate& b)
{
    return a.rank != b.rank ? a.rank < b.rank : a.job->change > b.job->change;
}
} // namespace

std::vector<const FarmJob*> SelectJobs(const std::vector<const FarmJob*>& all, size_t most,
                                       const std::function<bool(const FarmJob&)>& isKept)
{
    std::vector<Candidate> candidates;
    candidates.reserve(all.size());
    for (const FarmJob* const job : all)
    {
        const int rank = job->CurrentPhase() == FarmJob::kRuns ? 1 : 2;
        candidates.push_back({job, isKept(*job) ? 0 : rank});
    }
    if (candidates.size() > most)
    {
        const auto end = candidates.begin() + static_cast<std::ptrdiff_t>(most);
        std::nth_element(candidates.begin(), end, candidates.end(), IsShownBefore);
        candidates.erase(end, candidates.end());
    }
    std::vector<const FarmJob*> selected;
    selected.reserve(candidates.size());
    for (const Candidate& candidate : candidates)
    {
        selected.push_back(candidate.job);
    }
    // In the order of their coming, so that a job keeps its place while its state changes.
    std::sort(selected.begin(), selected.end(),
              [](const FarmJob* a, const FarmJob* b) { return a->number > b->number; });
    return selected;
}
