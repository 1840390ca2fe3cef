#include "jobwidgets/JobGrouping.h"

#include "vesta/CallEntry.h"

#include <algorithm>
#include <iterator>

namespace jobwidgets
{
namespace
{
const char* const kNames[k_JobGroupings] = {"None", "User", "Product", "State"};
} // namespace

const char* NameOf(JobGrouping grouping)
{
    return kNames[static_cast<int>(grouping)];
}

JobGrouping GroupingNamed(const String& name, JobGrouping otherwise)
{
    CALL_ENTRY("GroupingNamed");
    const auto* const found =
        std::find_if(std::begin(kNames), std::end(kNames),
                     [&name](const char* each) { return name.EqualsNoCase(each); });
    return found == std::end(kNames) ? otherwise : static_cast<JobGrouping>(found - kNames);
}

String GroupKey(JobGrouping grouping, const String& title)
{
    return NameOf(grouping) + ("=" + title); // no group is taken for another one
}
} // namespace jobwidgets
