#include "monitor/FarmChanges.h"

#include "tolvan/Job.h"

#include <algorithm>
#include <utility>

bool FarmChanges::Add(const Message& message)
{
    const String& type = message.Type();
    if (type == msg_Welcome)
    {
        Welcome(message);
    }
    else if (type == msg_Job)
    {
        AddJob(message);
    }
    else if (type == msg_JobGone)
    {
        gone.push_back(message.Get(p_Id));
    }
    else if (type == msg_Output)
    {
        AddLine(message);
    }
    else if (type == msg_Skipped)
    {
        Output& job = output[message.Get(p_Id)];
        job.skipped += static_cast<long long>(job.lines.size()) + message.GetInt("Count");
        job.lines.clear();
    }
    else
    {
        return false;
    }
    return true;
}

void FarmChanges::Welcome(const Message& message)
{
    // Every job is told anew; of the output only what was not told before.
    FarmChanges fresh;
    fresh.output = std::move(output);
    *this = std::move(fresh);
    isWelcome = true;
    jobsToCome = static_cast<size_t>(std::max(0LL, message.GetInt("jobs")));
}

void FarmChanges::AddJob(const Message& message)
{
    const auto [place, isNew] = m_IndexOf.emplace(message.Get(p_Id), jobs.size());
    if (isNew)
    {
        jobs.push_back(message);
    }
    else
    {
        jobs[place->second] = message;
    }
}

void FarmChanges::AddLine(const Message& message)
{
    Output& job = output[message.Get(p_Id)];
    job.lines.push_back({message.Get("Line"), Time(message.GetInt("Time"))});
    if (job.lines.size() > k_MostLines)
    {
        job.lines.pop_front();
        ++job.skipped;
    }
}
