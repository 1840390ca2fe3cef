#include "textviews/search/LineSearch.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr size_t kAsciiRun = 4096; // bytes that are looked at as a whole

bool IsLong(const LineStore::Block& block)
{
    return block.bytes.size() > kPieceBytes;
}

// Empty lines take time too.
size_t CostOf(const LineStore::Block& block)
{
    return block.bytes.size() + static_cast<size_t>(block.lineCount);
}

void Pay(size_t& budget, size_t cost)
{
    budget -= std::min(budget, std::max<size_t>(cost, 1));
}

// Goes on to that byte, as far as the budget goes; whether it is there.
bool Advance(std::string_view text, TextPlace& place, size_t byte, size_t& budget)
{
    constexpr TextPlace kFar{INT64_MAX, INT64_MAX, INT64_MAX};
    while (static_cast<size_t>(place.byte) < byte && budget > 0)
    {
        const auto   at = static_cast<size_t>(place.byte);
        const size_t size = std::min(byte - at, kAsciiRun);
        TextPlace    limit = kFar;
        limit.byte = static_cast<int64_t>(at + size);
        if (IsAscii(text.substr(at, size)))
        {
            place.byte += static_cast<int64_t>(size);
            place.column += static_cast<int64_t>(size);
        }
        else
        {
            AdvancePlace(text, place, limit);
        }
        if (static_cast<size_t>(place.byte) == at)
        {
            return true; // the byte lies within a character
        }
        Pay(budget, size);
    }
    return static_cast<size_t>(place.byte) >= byte;
}
} // namespace

void LineSearch::Begin(std::shared_ptr<HitFinder> finder, bool forward, const SearchPlace& start,
                       Unit unit)
{
    m_Finder = std::move(finder);
    m_State = State::Running;
    m_Unit = unit;
    m_Forward = forward;
    m_Wrapped = false;
    m_Start = start;
    GoTo(start.line);
}

void LineSearch::GoTo(int line)
{
    m_Next = line;
    m_InLine = false;
    m_Located = false;
    m_Last = {};
    m_Place = {};
    m_Match = {};
}

// Goes on from the other end once; false when the way round is complete, which ends with the other
// part of the line that it began in.
bool LineSearch::WrapIfAtEnd(int count)
{
    if (!m_Wrapped && (m_Forward ? m_Next >= count : m_Next < 0))
    {
        m_Wrapped = true;
        GoTo(m_Forward ? 0 : count - 1);
    }
    if (m_Next < 0 || m_Next >= count)
    {
        return false;
    }
    const bool hasRest = m_Forward ? m_Start.byte > 0 : m_Start.byte != SearchPlace::k_End;
    return !m_Wrapped || (m_Next == m_Start.line ? hasRest
                          : m_Forward            ? m_Next < m_Start.line
                                                 : m_Next > m_Start.line);
}

// The bytes of the line that hits may begin in.
ByteSpan LineSearch::LimitsOf(int line) const
{
    if (line != m_Start.line)
    {
        return {0, SearchPlace::k_End};
    }
    return m_Forward == m_Wrapped ? ByteSpan{0, m_Start.byte}
                                  : ByteSpan{m_Start.byte, SearchPlace::k_End};
}

LineSearch::State LineSearch::Step(const SearchedLines& lines, size_t budget)
{
    size_t left = budget;
    m_IsWaiting = false;
    while (m_State == State::Running && !m_IsWaiting && left > 0)
    {
        const int count = lines.Count();
        m_Next = m_Forward ? std::max(m_Next, 0) : std::min(m_Next, count - 1);
        if (!WrapIfAtEnd(count))
        {
            m_State = State::NotFound;
            break;
        }
        LookThrough(lines, left);
    }
    return m_State;
}

// The lines of the block that the search is due to look through, but for the rest of the line that
// it began in.
LineSearch::Range LineSearch::RangeIn(const LineStore::Block& block) const
{
    const int end = block.firstLine + block.lineCount;
    if (m_Forward)
    {
        return {m_Next, m_Wrapped ? std::min(end, m_Start.line) : end};
    }
    return {m_Wrapped ? std::max(block.firstLine, m_Start.line + 1) : block.firstLine, m_Next + 1};
}

void LineSearch::LookThrough(const SearchedLines& lines, size_t& budget)
{
    const std::optional<LineStore::Block> found = lines.BlockOf(m_Next);
    m_IsWaiting = !found;
    if (!found)
    {
        return;
    }
    const LineStore::Block& block = *found;
    if (m_InLine || IsLong(block) || m_Next == m_Start.line)
    {
        m_InLine = LookThroughLine(block.Line(m_Next - block.firstLine), budget);
        if (!m_InLine && m_State == State::Running)
        {
            GoTo(m_Next + (m_Forward ? 1 : -1));
        }
        return;
    }
    LookThroughShort(block, budget);
}

void LineSearch::LookThroughShort(const LineStore::Block& block, size_t& budget)
{
    const Range range = RangeIn(block);
    Pay(budget, CostOf(block));
    std::vector<int> lines =
        m_Finder->LinesIn(block, range.first - block.firstLine, range.end - block.firstLine,
                          m_Forward && m_Finder->IsSureOfLines());
    if (!m_Forward)
    {
        std::reverse(lines.begin(), lines.end());
    }
    for (const int line : lines)
    {
        GoTo(block.firstLine + line);
        m_InLine = LookThroughLine(block.Line(line), budget);
        if (m_InLine || m_State != State::Running)
        {
            return;
        }
    }
    GoTo(m_Forward ? range.end : range.first - 1);
}

// Whether there is more of the line to look at.
bool LineSearch::LookThroughLine(std::string_view text, size_t& budget)
{
    const ByteSpan limits = LimitsOf(m_Next);
    const bool     fromItsEnd = !m_Forward && m_Unit == Unit::Hit;
    if (!m_InLine)
    {
        const size_t end = std::min(limits.end, text.size());
        m_Piece = fromItsEnd && end > 0 ? (end - 1) / kPieceBytes * kPieceBytes : 0;
        m_Byte = std::max(m_Piece, limits.begin);
    }
    if (!m_Located)
    {
        const bool more =
            fromItsEnd ? LookForLast(text, limits, budget) : LookForFirst(text, limits, budget);
        if (!m_Located)
        {
            return more;
        }
    }
    Locate(text, budget);
    return m_State == State::Running;
}

bool LineSearch::LookForFirst(std::string_view text, const ByteSpan& limits, size_t& budget)
{
    const size_t end = std::min(limits.end, text.size());
    while (m_Byte < end)
    {
        if (budget == 0)
        {
            return true;
        }
        m_Hits.clear();
        m_Finder->HitsIn(text, PieceAt(text, m_Byte, m_Finder->Reach()), m_Byte, budget, m_Hits);
        if (!m_Hits.empty())
        {
            m_Located = m_Hits.front().begin < end;
            m_Last = m_Hits.front();
            return false;
        }
    }
    return false;
}

// From the last piece back to the first one.
bool LineSearch::LookForLast(std::string_view text, const ByteSpan& limits, size_t& budget)
{
    const size_t end = std::min(limits.end, text.size());
    while (m_Byte < end)
    {
        if (budget == 0)
        {
            return true;
        }
        const LinePiece piece = PieceAt(text, m_Piece, m_Finder->Reach());
        m_Hits.clear();
        m_Finder->HitsIn(text, piece, m_Byte, budget, m_Hits);
        for (const ByteSpan& hit : m_Hits)
        {
            m_Last = hit.begin < end ? hit : m_Last;
        }
        if (m_Byte < piece.end && m_Byte < end)
        {
            continue;
        }
        if (m_Last.end > 0)
        {
            m_Located = true;
            return false;
        }
        if (piece.begin <= limits.begin)
        {
            return false;
        }
        m_Piece = piece.begin - kPieceBytes;
        m_Byte = std::max(m_Piece, limits.begin);
    }
    return false;
}

void LineSearch::Locate(std::string_view text, size_t& budget)
{
    const auto column = [this]
    { return static_cast<int>(std::min<int64_t>(m_Place.column, INT32_MAX)); };
    if (m_Match.column < 0)
    {
        if (!Advance(text, m_Place, m_Last.begin, budget))
        {
            return;
        }
        m_Match.column = column();
    }
    if (Advance(text, m_Place, m_Last.end, budget))
    {
        m_Match.line = m_Next;
        m_Match.length = column() - m_Match.column;
        m_Match.bytes = m_Last;
        m_State = State::Found;
    }
}

void LineSearch::LineInserted(int line)
{
    m_Next += line <= m_Next ? 1 : 0;
    m_Start.line += line <= m_Start.line ? 1 : 0;
}

void LineSearch::LineErased(int line)
{
    if (line == m_Next)
    {
        GoTo(m_Next - (m_Forward ? 0 : 1));
    }
    else if (line < m_Next)
    {
        --m_Next;
    }
    // Of the line that it began in nothing is left to look at. Backwards the lines behind it are
    // still due: the next of them moves into its place.
    if (line == m_Start.line)
    {
        m_Start.line -= m_Forward ? 0 : 1;
        m_Start.byte = m_Forward ? 0 : SearchPlace::k_End;
    }
    else if (line < m_Start.line)
    {
        --m_Start.line;
    }
}
} // namespace textviews
