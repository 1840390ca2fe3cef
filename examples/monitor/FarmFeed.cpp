#include "monitor/FarmFeed.h"

#include <algorithm>
#include <iterator>
#include <utility>

FarmFeed::FarmFeed(std::function<void()> wake) : m_Wake(std::move(wake))
{
}

void FarmFeed::OnMessage(const Message& message)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (m_Text.IsRepeated(message))
    {
        return;
    }
    const bool          changes = m_Changes.Add(message);
    const Time          now = Time::CurrentTime();
    std::vector<String> lines = m_Text.LinesFor(message, now);
    // A job's change may show in its details alone.
    if (changes || !lines.empty())
    {
        const Time came(message.GetInt("Time"));
        Add(std::move(lines), message.Type() == msg_Output && came != Time() ? came : now);
    }
}

void FarmFeed::OnConnection(bool connected)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    const Time                        now = Time::CurrentTime();
    Add(m_Text.LinesForConnection(connected, now), now);
}

void FarmFeed::Add(std::vector<String> lines, Time came)
{
    for (String& line : lines)
    {
        m_Lines.push_back({std::move(line), came});
    }
    if (!std::exchange(m_Awake, true))
    {
        m_Wake();
    }
}

FarmFeed::Batch FarmFeed::Take(size_t limit)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    Batch                             batch;
    batch.changes = std::exchange(m_Changes, FarmChanges());
    if (m_Lines.size() <= limit)
    {
        batch.lines.swap(m_Lines);
    }
    else
    {
        const auto end = m_Lines.begin() + static_cast<std::ptrdiff_t>(limit);
        batch.lines.assign(std::make_move_iterator(m_Lines.begin()), std::make_move_iterator(end));
        m_Lines.erase(m_Lines.begin(), end);
    }
    batch.more = !m_Lines.empty();
    m_Awake = batch.more;
    return batch;
}
