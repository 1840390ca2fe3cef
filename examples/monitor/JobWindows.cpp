#include "monitor/JobWindows.h"

#include "monitor/FarmJobs.h"

#include <iterator>
#include <utility>

JobWindows::JobWindows(FarmJobs& jobs, JobWindow::Resubmit resubmit)
    : m_Jobs(jobs), m_Resubmit(std::move(resubmit))
{
}

void JobWindows::Open(const String& id)
{
    DropClosed();
    const FarmJob* const job = m_Jobs.Find(id);
    const auto           found = m_Windows.find(id);
    if (found != m_Windows.end())
    {
        found->second->Iconize(false);
        found->second->Raise();
    }
    else if (job)
    {
        auto* const window = new JobWindow(m_Jobs, *job, m_Resubmit);
        m_Windows.emplace(id, window);
        window->Show();
    }
}

void JobWindows::DropClosed()
{
    for (auto window = m_Windows.begin(); window != m_Windows.end();)
    {
        window = window->second ? std::next(window) : m_Windows.erase(window);
    }
}
