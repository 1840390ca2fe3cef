#include "monitor/FarmFeed.h"

#include <algorithm>
#include <iterator>
#include <utility>

FarmFeed::FarmFeed(std::function<void()> wake) : m_Wake(std::move(wake))
{
}

void FarmFeed::OnMessage(const Message& message)
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    const bool                   changes = message.Type() == msg_Job;
    std::vector<String>          lines = m_Text.LinesFor(message, Time::CurrentTime());
    // A job's change may show in the summary alone.
    if (lines.empty() && !changes)
    {
        return;
    }
    Add(std::move(lines));
}

void FarmFeed::OnConnection(bool connected)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    Add(m_Text.LinesForConnection(connected, Time::CurrentTime()));
}

void FarmFeed::Add(std::vector<String> lines)
{
    std::move(lines.begin(), lines.end(), std::back_inserter(m_Lines));
    if (!std::exchange(m_Awake, true))
    {
        m_Wake();
    }
}

std::deque<String> FarmFeed::Take(size_t limit, bool& more)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    std::deque<String>                taken;
    if (m_Lines.size() <= limit)
    {
        taken.swap(m_Lines);
    }
    else
    {
        const auto end = m_Lines.begin() + static_cast<std::ptrdiff_t>(limit);
        taken.assign(std::make_move_iterator(m_Lines.begin()), std::make_move_iterator(end));
        m_Lines.erase(m_Lines.begin(), end);
    }
    more = !m_Lines.empty();
    m_Awake = more;
    return taken;
}

FarmText::Summary FarmFeed::Summarize() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Text.Summarize();
}
