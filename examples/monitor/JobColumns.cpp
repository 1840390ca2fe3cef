#include "monitor/JobColumns.h"

#include <iterator>

namespace
{
String FramesText(const FarmJob& job, Time)
{
    return job.frameCount > 0 ? SFormat("%d / %d", job.framesDone, job.frameCount) : String();
}

String ElapsedTextOf(const FarmJob& job, Time now)
{
    return job.started == Time() ? String() : ElapsedText(job.Elapsed(now));
}

const JobColumnInfo kColumns[] = {
    {"Name", 100, [](const FarmJob& job, Time) { return job.name; }, nullptr},
    {"Product", 60, [](const FarmJob& job, Time) { return job.product; }, nullptr},
    {"User", 45, [](const FarmJob& job, Time) { return job.user; }, nullptr},
    {"State", 53, [](const FarmJob& job, Time) { return job.state; },
     [](const FarmJob& job, Time) -> double { return StateRank(job.state); }},
    {"Progress", 65, [](const FarmJob& job, Time) { return SFormat("%d %%", job.progress); },
     [](const FarmJob& job, Time) -> double { return job.progress; }},
    {"Frames Done", 55, FramesText,
     [](const FarmJob& job, Time) -> double { return job.framesDone; }},
    {"Elapsed", 45, ElapsedTextOf,
     [](const FarmJob& job, Time now)
     { return static_cast<double>(job.Elapsed(now).ToMicroseconds()); }},
    {"Host", 60, [](const FarmJob& job, Time) { return job.host; }, nullptr},
};
static_assert(std::size(kColumns) == k_JobColumns);
} // namespace

const JobColumnInfo& InfoOf(int column)
{
    return kColumns[column];
}

int StateRank(const String& state)
{
    const String* const order[] = {&state_Failed,  &state_Running, &state_Suspended,
                                   &state_Waiting, &state_Killed,  &state_Done};
    int                 rank = 0;
    while (rank < static_cast<int>(std::size(order)) && *order[rank] != state)
    {
        ++rank;
    }
    return rank;
}
