#include "monitor/JobNotice.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr size_t kMostName = 80;   // characters
constexpr size_t kMostError = 200; // characters
constexpr size_t kMostNamed = 5;   // jobs

JobNotice NoticeOfOne(const FarmJob& job)
{
    const bool   failed = job.state == state_Failed;
    const String error = OneLine(job.job->GetParam(p_Error), kMostError);
    return {OneLine(job.name, kMostName) + (failed ? " has failed" : " is done"),
            failed && !error.empty() ? error
                                     : String("After " + ElapsedText(job.Elapsed(job.ended))),
            failed};
}
} // namespace

std::optional<JobNotice> NoticeOf(const std::vector<const FarmJob*>& ended, const String& user)
{
    std::vector<const FarmJob*> own;
    std::copy_if(ended.begin(), ended.end(), std::back_inserter(own),
                 [&user](const FarmJob* job) {
                     return job->user == user &&
                            (job->state == state_Done || job->state == state_Failed);
                 });
    if (own.size() < 2)
    {
        return own.empty() ? std::nullopt : std::optional<JobNotice>(NoticeOfOne(*own.front()));
    }
    // Those that failed are named first.
    std::stable_partition(own.begin(), own.end(),
                          [](const FarmJob* job) { return job->state == state_Failed; });
    size_t failed = 0;
    String names;
    for (size_t i = 0; i < own.size(); ++i)
    {
        failed += own[i]->state == state_Failed;
        if (i < kMostNamed)
        {
            names += (i > 0 ? ", " : "") + OneLine(own[i]->name, kMostName);
        }
    }
    names += own.size() > kMostNamed ? SFormat(" and %zu more", own.size() - kMostNamed) : String();
    return JobNotice{SFormat("%zu jobs are done", own.size() - failed) +
                         (failed > 0 ? SFormat(", %zu failed", failed) : String()),
                     names, failed > 0};
}
