#include "monitor/FarmJobs.h"

#include "vesta/CallEntry.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr size_t kLinesUnwatched = 100;
constexpr size_t kLinesWatched = 20000;
} // namespace

FarmJobs::FarmJobs(Job::Sender sender, ProductNames productNames)
    : m_Sender(std::move(sender)), m_ProductNames(std::move(productNames))
{
}

void FarmJobs::Apply(const FarmChanges& changes)
{
    CALL_ENTRY("FarmJobs::Apply");
    News news;
    if (changes.isWelcome)
    {
        Welcome(changes.jobsToCome);
    }
    for (const Message& message : changes.jobs)
    {
        ApplyJob(message, news);
    }
    DropGone(changes, news);
    ApplyOutput(changes, news);
    Changed(news);
}

void FarmJobs::Welcome(size_t jobsToCome)
{
    m_JobsToCome = jobsToCome;
    m_Unconfirmed.clear();
    for (const auto& [id, job] : m_Jobs)
    {
        m_Unconfirmed.insert(id);
    }
}

void FarmJobs::ApplyJob(const Message& message, News& news)
{
    const String id = message.Get(p_Id);
    auto&        job = m_Jobs[id];
    const bool   isNew = !job;
    if (isNew)
    {
        job = std::make_unique<FarmJob>();
        job->job = boost::shared_ptr<Job>(new Job(m_Sender));
        job->id = id;
        job->number = ++m_LastNumber;
        job->type = message.Get(p_Type);
        job->product = ProductOf(job->type);
        job->output.SetLimit(kLinesUnwatched);
        m_Order.push_back(job.get());
    }
    else
    {
        Count(*job, -1);
    }
    const bool hadEnded = isNew || job->CurrentPhase() == FarmJob::kEnded;
    const bool isOther = job->Update(message);
    Count(*job, 1);
    if (!hadEnded && job->CurrentPhase() == FarmJob::kEnded)
    {
        news.ended.push_back(id);
    }
    if (isNew || isOther)
    {
        job->change = ++m_LastChange;
        news.isListChanged = true;
    }
    news.changed.insert(id);
    if (isNew || m_Unconfirmed.erase(id) > 0)
    {
        m_JobsToCome -= m_JobsToCome > 0;
    }
}

void FarmJobs::ApplyOutput(const FarmChanges& changes, News& news)
{
    for (const auto& [id, output] : changes.output)
    {
        m_Summary.outputLines += static_cast<long long>(output.lines.size()) + output.skipped;
        const auto found = m_Jobs.find(id);
        if (found == m_Jobs.end())
        {
            continue;
        }
        JobOutput& kept = found->second->output;
        kept.Skip(output.skipped);
        for (const TimedLine& line : output.lines)
        {
            kept.Add(line);
            found->second->frames.Add(line.text);
        }
        news.changed.insert(id);
    }
}

void FarmJobs::DropGone(const FarmChanges& changes, News& news)
{
    std::set<String> gone(changes.gone.begin(), changes.gone.end());
    if (m_JobsToCome == 0)
    {
        gone.merge(m_Unconfirmed);
        m_Unconfirmed.clear();
    }
    if (gone.empty())
    {
        return;
    }
    m_Order.erase(std::remove_if(m_Order.begin(), m_Order.end(),
                                 [&gone](const FarmJob* job) { return gone.count(job->id) > 0; }),
                  m_Order.end());
    for (const String& id : gone)
    {
        const auto found = m_Jobs.find(id);
        if (found != m_Jobs.end())
        {
            Count(*found->second, -1);
            m_Jobs.erase(found);
            news.isListChanged = true;
            news.isAnyGone = true;
        }
        news.changed.erase(id);
    }
}

void FarmJobs::Count(const FarmJob& job, int by)
{
    const FarmJob::Phase phase = job.CurrentPhase();
    const bool           isDone = job.state == state_Done;
    m_Summary.jobs += by;
    m_Summary.running += phase == FarmJob::kRuns ? by : 0;
    m_Summary.suspended += phase == FarmJob::kSuspended ? by : 0;
    m_Summary.waiting += phase == FarmJob::kWaits ? by : 0;
    m_Summary.done += isDone ? by : 0;
    m_Summary.failed += phase == FarmJob::kEnded && !isDone ? by : 0;
}

const FarmJob* FarmJobs::Find(const String& id) const
{
    const auto found = m_Jobs.find(id);
    return found == m_Jobs.end() ? nullptr : found->second.get();
}

void FarmJobs::Watch(const String& id, bool watched)
{
    const auto found = m_Jobs.find(id);
    if (found != m_Jobs.end())
    {
        found->second->output.SetLimit(watched ? kLinesWatched : kLinesUnwatched);
    }
}

String FarmJobs::ProductOf(const String& type)
{
    const auto [place, isNew] = m_Products.emplace(type, String());
    if (isNew)
    {
        place->second = m_ProductNames(type);
    }
    return place->second;
}
