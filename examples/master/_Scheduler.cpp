#include "examples/master/_Scheduler.h"

_JobRecord* NextToStart(const _JobTable& table, int slots)
{
    _JobRecord* next = nullptr;
    int         running = 0;
    for (const auto& job : table.Jobs())
    {
        if (job->State() == _JobState::kRunning)
        {
            ++running;
        }
        else if (job->State() == _JobState::kWaiting && !job->IsHeldUp() &&
                 (!next || job->Priority() > next->Priority()))
        {
            next = job.get();
        }
    }
    return running < slots ? next : nullptr;
}
