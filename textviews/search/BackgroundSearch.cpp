#include "textviews/search/BackgroundSearch.h"

#include "textviews/search/FinderChoice.h"

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
    m_Lines.WaitForDisk(false);
}

void BackgroundSearch::SetQuery(const SearchQuery& query)
{
    if (query == m_Query)
    {
        return;
    }
    StopSearch();
    Count(false);
    m_Query = query;
    m_Problem = {};
    m_Finder = query.text.empty() ? nullptr : MakeFinder(query, m_Problem);
}

void BackgroundSearch::LookAtShown(bool shown)
{
    if (shown != LooksAtShown())
    {
        StopSearch();
        m_Lines.ReadAsShown(shown);
        Count(HasCount());
    }
}

void BackgroundSearch::Find(bool forward, const SearchPlace& start)
{
    if (m_Finder)
    {
        m_Search.Begin(m_Finder, forward, start, LineSearch::Unit::Hit);
    }
}

bool BackgroundSearch::IsSearching() const
{
    return m_Search.GetState() == LineSearch::State::Running;
}

void BackgroundSearch::Count(bool on)
{
    m_HasNumbersToFind = on && m_Finder;
    if (m_HasNumbersToFind)
    {
        m_Numbers.Begin(m_Finder, m_Lines.Count());
    }
    else
    {
        m_Numbers.Stop();
    }
}

void BackgroundSearch::SetCurrent(const SearchPlace& hit)
{
    m_HasNumbersToFind = (m_Numbers.SetCurrent(hit) && HasCount()) || m_HasNumbersToFind;
}

void BackgroundSearch::Work()
{
    const auto end = std::chrono::steady_clock::now() + kSlice;
    while (Step() && !m_IsWaiting && std::chrono::steady_clock::now() < end)
    {
    }
}

// Whether there is more of the same to do.
bool BackgroundSearch::Step()
{
    if (IsSearching())
    {
        const LineSearch::State state = m_Search.Step(m_Lines, kStepBytes);
        m_IsWaiting = m_Search.IsWaiting();
        return state == LineSearch::State::Running;
    }
    m_HasNumbersToFind = m_HasNumbersToFind && !m_Numbers.Step(m_Lines, kStepBytes);
    m_IsWaiting = m_Numbers.IsWaiting();
    return m_HasNumbersToFind;
}

void BackgroundSearch::LineInserted(int line)
{
    m_Search.LineInserted(line);
    if (HasCount())
    {
        m_Numbers.LineInserted(line);
        CountOn();
    }
}

void BackgroundSearch::LineErased(int line)
{
    m_Search.LineErased(line);
    if (HasCount())
    {
        m_Numbers.LineErased(line);
        CountOn();
    }
}

void BackgroundSearch::LinesCleared()
{
    StopSearch();
    m_Numbers.LinesCleared();
    m_HasNumbersToFind = HasCount();
    m_Changed();
}

void BackgroundSearch::CountOn()
{
    if (!m_HasNumbersToFind)
    {
        m_HasNumbersToFind = true;
        m_Changed();
    }
}
} // namespace textviews
