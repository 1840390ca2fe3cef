#pragma once

#include "jobwidgets/JobGrouping.h"
#include "jobwidgets/JobSet.h"

#include <wx/string.h>

#include <vector>

namespace jobwidgets
{
/// What it is called for the user.
wxString LabelOf(JobGrouping grouping);

/// Where a state stands among the others: what goes on comes first. Those that are not known have
/// the last place.
int RankOf(const String& state);

/// Jobs that have something in common.
struct JobGroup
{
    String                       title; ///< What they have in common; may be empty.
    std::vector<const JobFacts*> jobs;  ///< The latest first.
    std::vector<int64_t> numbers; ///< Theirs: to look into each of very many would take its time.

    void Add(const JobFacts& job);
};

/// Which jobs belong together: states in their order, users and products by their names. Of no
/// grouping there is one group, even without jobs.
std::vector<JobGroup> GroupJobs(const std::vector<JobSet::Facts>& jobs, JobGrouping grouping);
} // namespace jobwidgets
