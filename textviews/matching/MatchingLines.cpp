#include "textviews/matching/MatchingLines.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr size_t kCallCost = 64; // bytes that could be looked through in the time of a call

void Pay(size_t& budget, size_t cost)
{
    budget -= std::min(budget, std::max<size_t>(cost, 1));
}
} // namespace

void MatchingLines::Begin(std::shared_ptr<HitFinder> finder, int lineCount,
                          const LinesAround& around)
{
    m_Finder = std::move(finder);
    m_Around = {std::clamp(around.before, 0, k_MostAround),
                std::clamp(around.after, 0, k_MostAround)};
    m_Matches.Reset(lineCount, false);
    m_Shown.Reset(lineCount, false);
    m_Due.Reset(lineCount, m_Finder != nullptr);
    m_Next = 0;
    m_From = 0;
}

bool MatchingLines::HasGapBefore(int row) const
{
    return row > 0 && HasContext() && LineOf(row) != LineOf(row - 1) + 1;
}

bool MatchingLines::Step(const SearchedLines& lines, size_t budget)
{
    m_IsWaiting = false;
    while (m_Finder && !IsComplete() && budget > 0)
    {
        const int next = m_Due.Next(m_Next);
        m_From = next == m_Next ? m_From : 0;
        m_Next = next;
        const std::optional<LineStore::Block> block = lines.BlockOf(m_Next);
        if (!block)
        {
            m_IsWaiting = true;
            break;
        }
        LookThrough(*block, budget);
    }
    return !m_Finder || IsComplete();
}

// From the next line on.
void MatchingLines::LookThrough(const LineStore::Block& block, size_t& budget)
{
    const int first = m_Next - block.firstLine;
    if (m_From > 0 || block.bytes.size() > kPieceBytes)
    {
        const int line = m_Next;
        if (LookThroughLine(block.Line(first), budget))
        {
            Done(line, line + 1);
        }
        return;
    }
    Pay(budget,
        block.bytes.size() - block.StartOf(first) + static_cast<size_t>(block.lineCount - first));
    for (const int index : m_Finder->LinesIn(block, first, block.lineCount, false))
    {
        const int line = block.firstLine + index;
        m_HasHit = m_Finder->IsSureOfLines();
        size_t left = std::max<size_t>(budget, 1); // something has to come of every step
        if (!m_HasHit)
        {
            m_From = 0;
            m_Next = line;
            const bool done = LookThroughLine(block.Line(index), left);
            budget = std::min(budget, left);
            if (!done)
            {
                m_Due.SetRange(block.firstLine + first, line, false);
                return;
            }
        }
        if (m_HasHit)
        {
            Match(line);
        }
    }
    m_HasHit = false;
    Done(block.firstLine + first, block.firstLine + block.lineCount);
}

// True when it is known whether the next line has a hit.
bool MatchingLines::LookThroughLine(std::string_view line, size_t& budget)
{
    m_HasHit = false;
    while (m_From < line.size() && budget > 0)
    {
        m_Found.clear();
        const size_t from = m_From;
        size_t       least = 1; // as little as it can: one hit is enough
        m_Finder->HitsIn(line, PieceAt(line, m_From, m_Finder->Reach()), m_From, least, m_Found);
        Pay(budget, m_From - from + kCallCost);
        if (!m_Found.empty())
        {
            m_HasHit = true;
            return true;
        }
    }
    return m_From >= line.size();
}

void MatchingLines::Done(int first, int end)
{
    if (m_HasHit)
    {
        Match(first);
        m_HasHit = false;
    }
    m_Due.SetRange(first, end, false);
    m_Next = end;
    m_From = 0;
}

void MatchingLines::Match(int line)
{
    m_Matches.Set(line, true);
    m_Shown.SetRange(line - m_Around.before, line + m_Around.after + 1, true);
}

// What is around matches, after lines have come or gone there.
void MatchingLines::ShowAnew(int first, int end)
{
    first = std::max(first, 0);
    end = std::min(end, m_Shown.Lines());
    for (int line = first; line < end && HasContext(); ++line)
    {
        m_Shown.Set(line, m_Matches.Next(line - m_Around.after) <=
                              std::min(line + m_Around.before, m_Matches.Lines() - 1));
    }
}

void MatchingLines::LineInserted(int line)
{
    const bool isLast = line >= m_Matches.Lines();
    m_Matches.Insert(line, false);
    m_Shown.Insert(line, false);
    m_Due.Insert(line, m_Finder != nullptr);
    if (line <= m_Next)
    {
        m_Next = line;
        m_From = 0;
    }
    if (m_Matches.Size() > 0)
    {
        isLast ? ShowAnew(line, line + 1)
               : ShowAnew(line - m_Around.before, line + m_Around.after + 1);
    }
}

void MatchingLines::LineErased(int line)
{
    m_Matches.Erase(line);
    m_Shown.Erase(line);
    m_Due.Erase(line);
    if (line <= m_Next)
    {
        m_From = line == m_Next ? 0 : m_From;
        m_Next -= line < m_Next ? 1 : 0;
    }
    ShowAnew(line - m_Around.before, line + m_Around.after);
}

void MatchingLines::LinesCleared()
{
    Begin(m_Finder, 0, m_Around);
}
} // namespace textviews
