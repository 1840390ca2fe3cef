#include "master/protocol/SendQueue.h"

namespace master
{
void SendQueue::Push(const Frame& frame)
{
    m_Frames.push_back(frame);
    m_Bytes += frame->size();
    CheckLimit();
}

void SendQueue::PushJob(const String& job)
{
    if (!m_Lags)
    {
        if (const Frame frame = m_MakeJob(job))
        {
            Push(frame);
        }
    }
    else if (m_ChangedSet.insert(job).second)
    {
        m_Changed.push_back(job);
    }
}

void SendQueue::PushOutput(const String& job, const MakeFrame& frame)
{
    if (m_Lags)
    {
        ++m_Skipped[job];
        return;
    }
    Push(frame());
}

std::vector<Frame> SendQueue::Next(size_t most)
{
    std::vector<Frame> frames;
    m_SendingBytes = 0;
    while (!m_Frames.empty() && m_SendingBytes < most)
    {
        m_SendingBytes += m_Frames.front()->size();
        frames.push_back(std::move(m_Frames.front()));
        m_Frames.pop_front();
    }
    return frames;
}

void SendQueue::Sent()
{
    m_Bytes -= m_SendingBytes;
    m_SendingBytes = 0;
    if (m_Lags && m_Bytes <= m_Limit / 2)
    {
        CatchUp();
    }
}

void SendQueue::CatchUp()
{
    m_Lags = false;
    const auto skipped = std::move(m_Skipped);
    m_Skipped.clear();
    for (const auto& [job, count] : skipped)
    {
        Push(m_MakeSkipped(job, count));
    }
    // Very many jobs may be more than fits: the rest waits for the next time.
    const auto changed = std::move(m_Changed);
    m_Changed.clear();
    m_ChangedSet.clear();
    for (const String& job : changed)
    {
        PushJob(job);
    }
}
} // namespace master
