#include "textviews/search/LineSearch.h"

#include <algorithm>

namespace textviews
{
namespace
{
// A line from this many bytes on is looked through in pieces. Longer than any block of short lines.
constexpr size_t kLongLine = 64 * 1024;

bool IsLong(std::string_view bytes)
{
    return bytes.size() > kLongLine;
}

bool IsLong(const LineStore::Block& block)
{
    return IsLong(block.bytes);
}

// Whether it was there.
bool Remove(std::vector<int>& lines, int line)
{
    const auto place = std::find(lines.begin(), lines.end(), line);
    const bool isThere = place != lines.end();
    if (isThere)
    {
        lines.erase(place);
    }
    return isThere;
}

// Empty lines take time too.
size_t CostOf(const LineStore::Block& block)
{
    return block.bytes.size() + static_cast<size_t>(block.lineCount);
}
} // namespace

void LineSearch::Begin(const String& text, bool forward, bool matchCase, int start)
{
    m_Matcher = std::make_unique<LineMatcher>(text, matchCase);
    m_Progress = {};
    m_State = State::Running;
    m_Forward = forward;
    m_Wrapped = false;
    m_Next = m_Start = start;
    m_Match = {};
}

// Goes on from the other end once; false when the way round is complete.
bool LineSearch::WrapIfAtEnd(int count)
{
    if (!m_Wrapped && (m_Forward ? m_Next >= count : m_Next < 0))
    {
        m_Wrapped = true;
        m_Next = m_Forward ? 0 : count - 1;
        m_Progress = {};
    }
    if (m_Forward)
    {
        return m_Next < (m_Wrapped ? std::min(m_Start, count) : count);
    }
    return m_Next > (m_Wrapped ? std::max(m_Start, -1) : -1);
}

LineSearch::State LineSearch::Step(const LineStore& lines, size_t budget)
{
    size_t left = budget;
    while (m_State == State::Running && left > 0)
    {
        const int count = lines.Count();
        m_Next = m_Forward ? std::max(m_Next, 0) : std::min(m_Next, count - 1);
        if (!WrapIfAtEnd(count))
        {
            m_State = State::NotFound;
            break;
        }
        const size_t used = LookThrough(lines.BlockOf(m_Next), left);
        left -= std::min(left, std::max<size_t>(used, 1));
    }
    return m_State;
}

// The lines of the block that the search is due to look through.
LineSearch::Range LineSearch::RangeIn(const LineStore::Block& block) const
{
    const int end = block.firstLine + block.lineCount;
    if (m_Forward)
    {
        return {m_Next, m_Wrapped ? std::min(end, m_Start) : end};
    }
    return {m_Wrapped ? std::max(block.firstLine, m_Start + 1) : block.firstLine, m_Next + 1};
}

void LineSearch::MoveBeyond(const Range& range)
{
    m_Next = m_Forward ? range.end : range.first - 1;
    m_Progress = {};
}

void LineSearch::TakeMatch(int line, const LineMatch& match)
{
    m_Match = match;
    m_Match.line = line;
    m_State = State::Found;
}

// Gives the number of bytes that were looked at.
size_t LineSearch::LookThrough(const LineStore::Block& block, size_t budget)
{
    const Range range = RangeIn(block);
    if (IsLong(block))
    {
        const size_t before = m_Progress.byte;
        const bool   found = m_Matcher->Continue(block.bytes, m_Progress, budget);
        const size_t used = m_Progress.byte - before;
        if (found)
        {
            const int length = m_Matcher->Length();
            TakeMatch(m_Next, {m_Next, static_cast<int>(m_Progress.column) - length, length});
        }
        else if (m_Progress.byte >= block.bytes.size())
        {
            MoveBeyond(range);
        }
        return used;
    }
    // Backwards the last one counts.
    const std::vector<int>& hits = m_Matcher->HitsIn(block, range.first - block.firstLine,
                                                     range.end - block.firstLine, m_Forward);
    LineMatch               match;
    if (!hits.empty() && m_Matcher->Find(block.Line(hits.back()), match))
    {
        TakeMatch(block.firstLine + hits.back(), match);
    }
    else
    {
        MoveBeyond(range);
    }
    return CostOf(block);
}

void LineSearch::LineInserted(int line)
{
    m_Next += line <= m_Next ? 1 : 0;
    m_Start += line <= m_Start ? 1 : 0;
}

void LineSearch::LineErased(int line)
{
    if (line == m_Next)
    {
        m_Progress = {};
        m_Next -= m_Forward ? 0 : 1;
    }
    else if (line < m_Next)
    {
        --m_Next;
    }
    // Backwards the lines behind the start are still due: the next of them moves into its place.
    m_Start -= line < m_Start || (!m_Forward && line == m_Start) ? 1 : 0;
}

void HitCounter::Begin(const String& text, bool matchCase)
{
    m_Matcher = std::make_unique<LineMatcher>(text, matchCase);
    LinesCleared();
}

void HitCounter::LinesCleared()
{
    m_Progress = m_LateProgress = {};
    m_Next = 0;
    m_Hits = 0;
    m_LongHits.clear();
    m_Late.clear();
}

bool HitCounter::Step(const LineStore& lines, size_t budget)
{
    size_t     left = budget;
    const auto isCounted = [&] { return m_Next >= lines.Count() && m_Late.empty(); };
    while (m_Matcher && !isCounted() && left > 0)
    {
        const size_t used =
            m_Late.empty() ? CountIn(lines.BlockOf(m_Next), left) : CountLate(lines, left);
        left -= std::min(left, std::max<size_t>(used, 1));
    }
    return !m_Matcher || isCounted();
}

// Gives the number of bytes that were looked at, as the next one does.
size_t HitCounter::CountIn(const LineStore::Block& block, size_t budget)
{
    if (IsLong(block))
    {
        const size_t before = m_Progress.byte;
        const bool   found = m_Matcher->Continue(block.bytes, m_Progress, budget);
        const size_t used = m_Progress.byte - before;
        if (found)
        {
            ++m_Hits;
            m_LongHits.push_back(m_Next);
        }
        if (found || m_Progress.byte >= block.bytes.size())
        {
            m_Progress = {};
            ++m_Next;
        }
        return used;
    }
    const int from = m_Next - block.firstLine;
    m_Hits += static_cast<int>(m_Matcher->HitsIn(block, from, block.lineCount, false).size());
    m_Next = block.firstLine + block.lineCount;
    return CostOf(block);
}

size_t HitCounter::CountLate(const LineStore& lines, size_t budget)
{
    const int              number = m_Late.front();
    const std::string_view line = lines.Line(number);
    const size_t           before = m_LateProgress.byte;
    const bool             found = m_Matcher->Continue(line, m_LateProgress, budget);
    const size_t           used = m_LateProgress.byte - before;
    if (found)
    {
        ++m_Hits;
        m_LongHits.push_back(number);
    }
    if (found || m_LateProgress.byte >= line.size())
    {
        m_LateProgress = {};
        m_Late.erase(m_Late.begin());
    }
    return used;
}

// The numbers of the lines from that one on have changed.
void HitCounter::Shift(int line, int by)
{
    m_Next += by;
    for (std::vector<int>* const numbers : {&m_LongHits, &m_Late})
    {
        for (int& number : *numbers)
        {
            number += number >= line ? by : 0;
        }
    }
}

void HitCounter::LineInserted(const LineStore& lines, int line)
{
    LineMatch ignored;
    if (line == m_Next)
    {
        m_Progress = {}; // it was another line's
    }
    if (!m_Matcher || line >= m_Next)
    {
        return;
    }
    Shift(line, 1);
    if (IsLong(lines.Line(line)))
    {
        m_Late.push_back(line);
    }
    else
    {
        m_Hits += m_Matcher->Find(lines.Line(line), ignored) ? 1 : 0;
    }
}

void HitCounter::LineErased(const LineStore& lines, int line)
{
    LineMatch ignored;
    if (!m_Matcher || line > m_Next)
    {
        return;
    }
    if (line == m_Next)
    {
        m_Progress = {};
        return;
    }
    if (IsLong(lines.Line(line)))
    {
        m_LateProgress =
            !m_Late.empty() && m_Late.front() == line ? LineMatcher::Progress() : m_LateProgress;
        m_Hits -= Remove(m_LongHits, line) ? 1 : 0;
        Remove(m_Late, line);
    }
    else
    {
        m_Hits -= m_Matcher->Find(lines.Line(line), ignored) ? 1 : 0;
    }
    Shift(line, -1);
}
} // namespace textviews
