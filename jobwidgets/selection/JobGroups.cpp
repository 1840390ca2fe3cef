#include "jobwidgets/selection/JobGroups.h"

#include "tolvan/Job.h"

#include <wx/intl.h>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <unordered_map>

namespace jobwidgets
{
namespace
{
const String& TitleOf(const JobFacts& job, JobGrouping grouping)
{
    static const String s_None;
    switch (grouping)
    {
    case JobGrouping::kUser:
        return job.user;
    case JobGrouping::kProduct:
        return job.product;
    case JobGrouping::kState:
        return job.state;
    default:
        return s_None;
    }
}

// In any case, as people sort; but two names that differ are two.
bool IsBefore(const String& left, const String& right)
{
    const String::ciless isLess;
    return isLess(left, right) || (!isLess(right, left) && left < right);
}
} // namespace

void JobGroup::Add(const JobFacts& job)
{
    jobs.push_back(&job);
    numbers.push_back(job.number);
}

wxString LabelOf(JobGrouping grouping)
{
    switch (grouping)
    {
    case JobGrouping::kUser:
        return wxGetTranslation("By User");
    case JobGrouping::kProduct:
        return wxGetTranslation("By Product");
    case JobGrouping::kState:
        return wxGetTranslation("By State");
    default:
        return wxGetTranslation("No Groups");
    }
}

int RankOf(const String& state)
{
    static const String* const s_Order[] = {&state_Running, &state_Suspended, &state_Waiting,
                                            &state_Failed,  &state_Killed,    &state_Done};
    const auto* const          found = std::find_if(std::begin(s_Order), std::end(s_Order),
                                                    [&](const String* each) { return *each == state; });
    return static_cast<int>(found - std::begin(s_Order));
}

std::vector<JobGroup> GroupJobs(const std::vector<JobSet::Facts>& jobs, JobGrouping grouping)
{
    std::vector<JobGroup>                                      groups;
    std::unordered_map<String, size_t, std::hash<std::string>> places;
    if (grouping == JobGrouping::kNone)
    {
        groups.emplace_back().jobs.reserve(jobs.size());
        places.emplace(String(), 0);
    }
    auto last = places.begin(); // neighbours are often of one kind
    for (auto job = jobs.rbegin(); job != jobs.rend(); ++job)
    {
        const String& title = TitleOf(**job, grouping);
        if (last == places.end() || last->first != title)
        {
            bool isNew = false;
            std::tie(last, isNew) = places.try_emplace(title, groups.size());
            if (isNew)
            {
                groups.push_back({title, {}, {}});
            }
        }
        groups[last->second].Add(**job);
    }
    const auto rank = [grouping](const JobGroup& group)
    { return grouping == JobGrouping::kState ? RankOf(group.title) : 0; };
    std::sort(groups.begin(), groups.end(),
              [&](const JobGroup& left, const JobGroup& right)
              {
                  return rank(left) != rank(right) ? rank(left) < rank(right)
                                                   : IsBefore(left.title, right.title);
              });
    return groups;
}
} // namespace jobwidgets
