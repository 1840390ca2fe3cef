#include "monitor/JobOffers.h"

#include <algorithm>
#include <map>
#include <utility>

namespace
{
using TypeInfo = boost::shared_ptr<const JobTypeInfo>;

// Jobs of one type in one state are offered the same: thousands are looked at as a few.
struct Group
{
    const FarmJob* sample;
    size_t         count;
};

std::vector<Group> GroupsOf(const std::vector<const FarmJob*>& jobs)
{
    std::map<std::pair<String, String>, size_t> places;
    std::vector<Group>                          groups;
    for (const FarmJob* const job : jobs)
    {
        const auto [place, isNew] = places.emplace(std::pair(job->type, job->state), groups.size());
        if (isNew)
        {
            groups.push_back({job, 0});
        }
        ++groups[place->second].count;
    }
    return groups;
}

void AddOffer(std::vector<JobOffer>& offers, const CommandInfo& command, const Group& group)
{
    const auto found =
        std::find_if(offers.begin(), offers.end(),
                     [&](const JobOffer& offer) { return offer.command.name == command.name; });
    const size_t takers = command.IsAllowed(*group.sample->job) ? group.count : 0;
    if (found == offers.end())
    {
        offers.push_back({command, takers});
    }
    else
    {
        found->takers += takers;
    }
}

const CommandInfo* FindCommand(const JobTypeInfo& type, const String& name)
{
    const auto& commands = type.Commands();
    const auto  found = std::find_if(commands.begin(), commands.end(),
                                     [&](const CommandInfo& one) { return one.name == name; });
    return found == commands.end() ? nullptr : &*found;
}
} // namespace

std::vector<JobOffer> OfferCommands(const std::vector<const FarmJob*>& jobs, int mask,
                                    const TypeLookup& types)
{
    std::vector<JobOffer> offers;
    for (const Group& group : GroupsOf(jobs))
    {
        const TypeInfo type = types(group.sample->type);
        for (const CommandInfo& command : type ? type->Commands() : std::vector<CommandInfo>())
        {
            if (command.flags & mask)
            {
                AddOffer(offers, command, group);
            }
        }
    }
    return offers;
}

std::vector<const FarmJob*> TakersOf(const std::vector<const FarmJob*>& jobs, const String& command,
                                     const TypeLookup& types)
{
    std::map<String, TypeInfo>  known;
    std::vector<const FarmJob*> takers;
    for (const FarmJob* const job : jobs)
    {
        const auto [place, isNew] = known.emplace(job->type, nullptr);
        if (isNew)
        {
            place->second = types(job->type);
        }
        const CommandInfo* const info =
            place->second ? FindCommand(*place->second, command) : nullptr;
        if (info && info->IsAllowed(*job->job))
        {
            takers.push_back(job);
        }
    }
    return takers;
}
