#include "master/farm/Scheduler.h"

namespace master
{
JobRecord* NextToStart(const JobTable& table, int slots)
{
    JobRecord* next = nullptr;
    int        running = 0;
    for (const auto& job : table.Jobs())
    {
        if (job->State() == JobState::kRunning)
        {
            ++running;
        }
        else if (job->State() == JobState::kWaiting && !job->IsHeldUp() &&
                 (!next || job->Priority() > next->Priority()))
        {
            next = job.get();
        }
    }
    return running < slots ? next : nullptr;
}
} // namespace master
