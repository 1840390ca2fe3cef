#include "monitor/JobColumns.h"

#include <strings.h>

#include <iterator>

namespace
{
template <class Value> int Compare(const Value& a, const Value& b)
{
    return a < b ? -1 : b < a ? 1 : 0;
}

int CompareTexts(const String& a, const String& b)
{
    return strcasecmp(a.c_str(), b.c_str());
}

// From what a user must look at to what is over.
int RankOf(const FarmJob& job)
{
    const String* const order[] = {&state_Failed,  &state_Running, &state_Suspended,
                                   &state_Waiting, &state_Killed,  &state_Done};
    int                 rank = 0;
    while (rank < static_cast<int>(std::size(order)) && *order[rank] != job.state)
    {
        ++rank;
    }
    return rank;
}

String FramesText(const FarmJob& job, Time)
{
    return job.frameCount > 0 ? SFormat("%d / %d", job.framesDone, job.frameCount) : String();
}

String ElapsedTextOf(const FarmJob& job, Time now)
{
    return job.started == Time() ? String() : ElapsedText(job.Elapsed(now));
}

const JobColumnInfo kColumns[] = {
    {"Name", 200, [](const FarmJob& job, Time) { return job.name; },
     [](const FarmJob& a, const FarmJob& b, Time) { return CompareTexts(a.name, b.name); }},
    {"Product", 120, [](const FarmJob& job, Time) { return job.product; },
     [](const FarmJob& a, const FarmJob& b, Time) { return CompareTexts(a.product, b.product); }},
    {"User", 90, [](const FarmJob& job, Time) { return job.user; },
     [](const FarmJob& a, const FarmJob& b, Time) { return CompareTexts(a.user, b.user); }},
    {"State", 90, [](const FarmJob& job, Time) { return job.state; },
     [](const FarmJob& a, const FarmJob& b, Time) { return Compare(RankOf(a), RankOf(b)); }},
    {"Progress", 130, [](const FarmJob& job, Time) { return SFormat("%d %%", job.progress); },
     [](const FarmJob& a, const FarmJob& b, Time) { return Compare(a.progress, b.progress); }},
    {"Frames Done", 100, FramesText,
     [](const FarmJob& a, const FarmJob& b, Time) { return Compare(a.framesDone, b.framesDone); }},
    {"Elapsed", 90, ElapsedTextOf,
     [](const FarmJob& a, const FarmJob& b, Time now)
     { return Compare(a.Elapsed(now).ToMicroseconds(), b.Elapsed(now).ToMicroseconds()); }},
    {"Host", 120, [](const FarmJob& job, Time) { return job.host; },
     [](const FarmJob& a, const FarmJob& b, Time) { return CompareTexts(a.host, b.host); }},
};
static_assert(std::size(kColumns) == k_JobColumns);
} // namespace

const JobColumnInfo& InfoOf(int column)
{
    return kColumns[column];
}
