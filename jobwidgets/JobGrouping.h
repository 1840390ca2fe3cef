#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

namespace jobwidgets
{
/// What jobs that are shown together have in common.
enum class JobGrouping
{
    kNone, ///< Nothing: there are no groups.
    kUser,
    kProduct,
    kState
};
constexpr int k_JobGroupings = 4;

/// The word by which the options file knows it.
TOLVAN_API const char* NameOf(JobGrouping grouping);
/// The one of that name, in any case; `otherwise` for a name that makes no sense.
TOLVAN_API JobGrouping GroupingNamed(const String& name, JobGrouping otherwise);
/// What a group is known by among those of all groupings. `title`: what its jobs have in common.
TOLVAN_API String GroupKey(JobGrouping grouping, const String& title);
} // namespace jobwidgets
