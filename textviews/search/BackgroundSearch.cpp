#include "textviews/search/BackgroundSearch.h"

#include <chrono>

namespace textviews
{
namespace
{
constexpr auto   kSlice = std::chrono::milliseconds(5);
constexpr size_t kStepBytes = 128 * 1024; // looked at between two looks at the clock
} // namespace

BackgroundSearch::BackgroundSearch(const LineStore& lines, std::function<void()> changed)
    : m_Lines(lines), m_Changed(std::move(changed))
{
}

void BackgroundSearch::Find(const String& text, bool forward, bool matchCase, int start)
{
    m_Search.Begin(text, forward, matchCase, start);
}

bool BackgroundSearch::IsSearching() const
{
    return m_Search.GetState() == LineSearch::State::Running;
}

void BackgroundSearch::Count(const String& text, bool matchCase)
{
    m_IsCounting = !text.empty();
    if (m_IsCounting)
    {
        m_Counter.Begin(text, matchCase);
    }
    else
    {
        m_Counter.Stop();
    }
}

void BackgroundSearch::Work()
{
    const auto end = std::chrono::steady_clock::now() + kSlice;
    while (Step() && std::chrono::steady_clock::now() < end)
    {
    }
}

// Whether there is more of the same to do.
bool BackgroundSearch::Step()
{
    if (IsSearching())
    {
        return m_Search.Step(m_Lines, kStepBytes) == LineSearch::State::Running;
    }
    m_IsCounting = m_IsCounting && !m_Counter.Step(m_Lines, kStepBytes);
    return m_IsCounting;
}

void BackgroundSearch::LineInserted(int line)
{
    m_Search.LineInserted(line);
    if (HasCount())
    {
        m_Counter.LineInserted(m_Lines, line);
        CountOn();
    }
}

void BackgroundSearch::LineErased(int line)
{
    m_Search.LineErased(line);
    if (HasCount())
    {
        m_Counter.LineErased(m_Lines, line);
        CountOn();
    }
}

void BackgroundSearch::LinesCleared()
{
    StopSearch();
    m_Counter.LinesCleared();
    m_IsCounting = HasCount();
    m_Changed();
}

void BackgroundSearch::CountOn()
{
    if (!m_IsCounting)
    {
        m_IsCounting = true;
        m_Changed();
    }
}
} // namespace textviews
