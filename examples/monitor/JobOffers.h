#pragma once

#include "monitor/FarmJob.h"

#include "tolvan/JobTypeInfo.h"

#include <functional>
#include <vector>

/// What can be done with several jobs at once. Without a window.

/// A command and the number of jobs that can take it.
struct JobOffer
{
    CommandInfo command; ///< As the first type declares it that has it.
    size_t      takers = 0;
};

/// The description of the job type with that identifier; null for an unknown one.
using TypeLookup = std::function<boost::shared_ptr<const JobTypeInfo>(const String& type)>;

/// Every command that the type of any of the jobs has and whose kinds share a bit with `mask`.
/// Commands of one name are one.
std::vector<JobOffer> OfferCommands(const std::vector<const FarmJob*>& jobs, int mask,
                                    const TypeLookup& types);
/// Those of the jobs whose type has the command and whose state allows it.
std::vector<const FarmJob*> TakersOf(const std::vector<const FarmJob*>& jobs, const String& command,
                                     const TypeLookup& types);
