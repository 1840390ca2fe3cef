#include "monitor/JobSelection.h"

#include <algorithm>

std::vector<const FarmJob*> SelectJobs(const std::vector<const FarmJob*>& all, size_t most)
{
    const auto isShownBefore = [](const FarmJob* a, const FarmJob* b)
    {
        const FarmJob::Phase phaseA = a->CurrentPhase();
        const FarmJob::Phase phaseB = b->CurrentPhase();
        return phaseA != phaseB ? phaseA < phaseB : a->number > b->number;
    };
    std::vector<const FarmJob*> selected = all;
    if (selected.size() > most)
    {
        const auto end = selected.begin() + static_cast<std::ptrdiff_t>(most);
        std::nth_element(selected.begin(), end, selected.end(), isShownBefore);
        selected.erase(end, selected.end());
    }
    // In the order of their coming, so that a job keeps its place while its state changes.
    std::sort(selected.begin(), selected.end(),
              [](const FarmJob* a, const FarmJob* b) { return a->number > b->number; });
    return selected;
}
