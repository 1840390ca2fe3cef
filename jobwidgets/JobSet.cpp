#include "jobwidgets/JobSet.h"

#include "appearance/wxTolvanString.h"
#include "jobwidgets/items/ItemText.h"
#include "tolvan/Job.h"
#include "tolvan/JobFactory.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr size_t kMostText = 300;  // characters
constexpr size_t kMostGone = 1000; // jobs that are kept in the order, beside as many as are there

// What most texts are already.
bool IsPlain(const String& text)
{
    return text.size() <= kMostText &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7f'; });
}

String Line(const String& text)
{
    return IsPlain(text) ? text : wxtFromWx(jobwidgets::OneLine(text, kMostText));
}

// Takes over the value; whether it is another one.
template <class Value> bool Take(Value& place, Value value)
{
    const bool isOther = place != value;
    place = std::move(value);
    return isOther;
}
} // namespace

String JobSet::ProductOf(const String& type)
{
    const auto [place, isNew] = m_Products.emplace(type, String());
    if (isNew)
    {
        const auto info = JobFactory::s_JobFactory->GetTypeInfo(UID(type), true);
        place->second = Line(info ? info->Name() : type);
    }
    return place->second;
}

void JobSet::Put(const boost::shared_ptr<Job>& job)
{
    CALL_ENTRY("JobSet::Put");
    const UID id = job ? UID(job->GetParam(p_Id)) : UID::Null;
    if (id.IsNull())
    {
        LogWarning("A job without an identifier can't be shown");
        return;
    }
    const auto [place, isNew] = m_Jobs.try_emplace(id);
    if (isNew)
    {
        place->second = std::make_shared<JobFacts>();
        place->second->id = id;
        place->second->number = ++m_LastNumber;
        m_Order.push_back(place->second);
        if (m_Order.size() > kMostGone + 2 * m_Jobs.size())
        {
            InOrder();
        }
    }
    JobFacts& facts = *place->second;
    facts.job = job;
    bool isOther = Take(facts.name, Line(job->GetParam(p_Name)));
    isOther |= Take(facts.user, Line(job->GetParam(p_User)));
    isOther |= Take(facts.state, Line(job->GetParam(p_State)));
    isOther |= Take(facts.product, ProductOf(job->GetParam(p_Type)));
    const auto progress = std::clamp(job->GetParam(p_Progress).ToInt(), 0LL, 100LL);
    const bool hasGoneOn = Take(facts.progress, static_cast<int>(progress));
    if (isNew || isOther || hasGoneOn)
    {
        Changed(isNew ? Change::kJobs : isOther ? Change::kTexts : Change::kProgress);
    }
}

void JobSet::Remove(const UID& id)
{
    CALL_ENTRY("JobSet::Remove");
    const auto found = m_Jobs.find(id);
    if (found != m_Jobs.end())
    {
        found->second->isGone = m_HasGone = true;
        m_Jobs.erase(found);
        Changed(Change::kJobs);
    }
}

void JobSet::Clear()
{
    CALL_ENTRY("JobSet::Clear");
    if (!m_Jobs.empty())
    {
        std::for_each(m_Jobs.begin(), m_Jobs.end(), [](auto& job) { job.second->isGone = true; });
        m_Jobs.clear();
        m_HasGone = true;
        Changed(Change::kJobs);
    }
}

JobSet::Facts JobSet::Find(const UID& id) const
{
    const auto found = m_Jobs.find(id);
    return found == m_Jobs.end() ? nullptr : found->second;
}

// Many are looked for in the order in which they came, or the other way round: to look up each
// would take its time.
std::vector<JobSet::Facts> JobSet::Find(const std::vector<UID>& ids) const
{
    CALL_ENTRY("JobSet::Find");
    const std::vector<Facts>& order = InOrder();
    std::vector<Facts>        found;
    found.reserve(ids.size());
    size_t     at = 0;
    const auto is = [&](size_t place, const UID& id)
    { return place < order.size() && order[place]->id == id; };
    for (const UID& id : ids)
    {
        if (is(at + 1, id) || is(at - 1, id))
        {
            at = is(at + 1, id) ? at + 1 : at - 1;
            found.push_back(order[at]);
        }
        else if (Facts facts = Find(id))
        {
            const auto place = std::lower_bound(order.begin(), order.end(), facts->number,
                                                [](const Facts& job, int64_t number)
                                                { return job->number < number; });
            at = static_cast<size_t>(place - order.begin());
            found.push_back(std::move(facts));
        }
    }
    return found;
}

// Those that have gone are left out all at once: one by one, many would take their time.
const std::vector<JobSet::Facts>& JobSet::InOrder() const
{
    if (m_HasGone)
    {
        m_HasGone = false;
        m_Order.erase(std::remove_if(m_Order.begin(), m_Order.end(),
                                     [](const Facts& facts) { return facts->isGone; }),
                      m_Order.end());
    }
    return m_Order;
}
