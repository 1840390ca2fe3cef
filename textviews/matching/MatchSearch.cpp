#include "textviews/matching/MatchSearch.h"

#include <chrono>

namespace textviews
{
namespace
{
constexpr auto   kSlice = std::chrono::milliseconds(4); // with what is left of a step: five
constexpr size_t kStepBytes = 128 * 1024;               // looked at between two looks at the clock
} // namespace

void MatchSearch::SetFinder(std::shared_ptr<HitFinder> finder)
{
    m_Finder = std::move(finder);
    BeginAnew();
}

void MatchSearch::SetAround(const LinesAround& around)
{
    if (!(around == m_Around))
    {
        m_Around = around;
        BeginAnew();
    }
}

void MatchSearch::LookAtShown(bool shown)
{
    if (shown != m_Lines.AreAsShown())
    {
        m_Lines.ReadAsShown(shown);
        BeginAnew();
    }
}

void MatchSearch::BeginAnew()
{
    m_Next.Begin(m_Finder, m_Lines.Count(), m_Around);
    m_HasNext = m_Finder && m_Found.Rows() > 0;
    if (!m_HasNext)
    {
        std::swap(m_Found, m_Next);
    }
}

void MatchSearch::Work()
{
    const auto end = std::chrono::steady_clock::now() + kSlice;
    do
    {
        Step();
    } while (HasWork() && !IsWaiting() && std::chrono::steady_clock::now() < end);
}

void MatchSearch::Step()
{
    const bool isDone = (m_HasNext ? m_Next : m_Found).Step(m_Lines, kStepBytes);
    if (m_HasNext && (isDone || m_Next.Rows() > 0))
    {
        std::swap(m_Found, m_Next);
        m_Next.Begin(nullptr, 0, {});
        m_HasNext = false;
    }
}

void MatchSearch::LineInserted(int line)
{
    m_Found.LineInserted(line);
    if (m_HasNext)
    {
        m_Next.LineInserted(line);
    }
}

void MatchSearch::LineErased(int line)
{
    m_Found.LineErased(line);
    if (m_HasNext)
    {
        m_Next.LineErased(line);
    }
}

void MatchSearch::LinesCleared()
{
    m_HasNext = false;
    m_Found.Begin(m_Finder, 0, m_Around);
}
} // namespace textviews
