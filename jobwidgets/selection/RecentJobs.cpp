#include "jobwidgets/selection/RecentJobs.h"

#include <algorithm>
#include <utility>

namespace jobwidgets
{
namespace
{
const char* const kSeparator = ",";
} // namespace

RecentJobs::RecentJobs(const String& text)
{
    StringTokenizer tokens(text, kSeparator);
    while (tokens.HasMore() && m_Jobs.size() < k_Most)
    {
        Append(UID(tokens.Next().Trim()));
    }
}

void RecentJobs::Append(const UID& job)
{
    if (!job.IsNull() && m_Jobs.size() < k_Most &&
        std::find(m_Jobs.begin(), m_Jobs.end(), job) == m_Jobs.end())
    {
        m_Jobs.push_back(job);
    }
}

void RecentJobs::Add(const std::vector<UID>& picked)
{
    const std::vector<UID> before = std::exchange(m_Jobs, {});
    for (const auto* const jobs : {&picked, &before})
    {
        for (auto job = jobs->begin(); job != jobs->end() && m_Jobs.size() < k_Most; ++job)
        {
            Append(*job);
        }
    }
}

String RecentJobs::ToText() const
{
    String text;
    for (const UID& job : m_Jobs)
    {
        text += (text.empty() ? "" : kSeparator) + job.ToString();
    }
    return text;
}
} // namespace jobwidgets
