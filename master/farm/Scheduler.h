#pragma once

#include "master/jobs/JobTable.h"

namespace master
{
/// The waiting job that starts next: the one of the highest priority, of several the one that came
/// first; one that is held up lets others pass. Null when none waits or `slots` jobs run already. A
/// suspended job takes no slot; once it goes on there may be more running jobs than slots, and no
/// other starts until there is room.
JobRecord* NextToStart(const JobTable& table, int slots);
} // namespace master
