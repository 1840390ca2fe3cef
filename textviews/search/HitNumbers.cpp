#include "textviews/search/HitNumbers.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr int    kChunkLines = 1024;
constexpr size_t kChunkBytes = 128 * 1024;

void Pay(size_t& budget, size_t cost)
{
    budget -= std::min(budget, std::max<size_t>(cost, 1));
}
} // namespace

void HitNumbers::Begin(std::shared_ptr<HitFinder> finder, int lineCount)
{
    m_Finder = std::move(finder);
    m_Hits = 0;
    m_Open = {};
    m_Lines = lineCount;
    m_Chunks.clear();
    if (lineCount > 0)
    {
        m_Chunks.push_back({lineCount});
    }
    m_Rank = {};
    m_Number = 0;
}

void HitNumbers::Stop()
{
    Begin(nullptr, 0);
    m_Current = {-1, 0};
}

void HitNumbers::LinesCleared()
{
    Begin(m_Finder, 0);
    m_Current = {-1, 0};
}

bool HitNumbers::IsCounted() const
{
    return m_Open.chunk >= m_Chunks.size();
}

bool HitNumbers::SetCurrent(const SearchPlace& hit)
{
    const bool isOther =
        hit.line != m_Current.line || (hit.line >= 0 && hit.byte != m_Current.byte);
    if (isOther)
    {
        m_Current = hit;
        m_Rank = {};
        m_Number = 0;
    }
    return isOther;
}

bool HitNumbers::Step(const SearchedLines& lines, size_t budget)
{
    size_t     left = budget;
    const auto hasRank = [this] { return m_Current.line < 0 || m_Rank.done; };
    m_IsWaiting = false;
    while (m_Finder && left > 0 && !m_IsWaiting && !(IsCounted() && hasRank()))
    {
        if (IsCounted())
        {
            RankOn(lines, left);
        }
        else
        {
            CountOn(lines, left);
        }
    }
    return !m_Finder || (IsCounted() && hasRank());
}

HitNumbers::ChunkPlace HitNumbers::ChunkOf(int line) const
{
    ChunkPlace place;
    while (place.chunk < m_Chunks.size() && place.firstLine + m_Chunks[place.chunk].lines <= line)
    {
        place.firstLine += m_Chunks[place.chunk].lines;
        ++place.chunk;
    }
    return place;
}

// Forgets what it knows of the chunk.
void HitNumbers::Uncount(size_t chunk)
{
    Chunk& lines = m_Chunks[chunk];
    m_Hits -= lines.hits;
    lines = {lines.lines};
}

void HitNumbers::Reopen(const ChunkPlace& place)
{
    if (place.chunk <= m_Open.chunk)
    {
        m_Open = place;
    }
}

void HitNumbers::LineInserted(int line)
{
    if (!m_Finder)
    {
        return;
    }
    if (line <= m_Current.line)
    {
        ++m_Current.line;
        m_Rank = {};
    }
    const bool isLast = line >= m_Lines++;
    ChunkPlace place = isLast ? ChunkPlace{m_Chunks.size(), m_Lines - 1} : ChunkOf(line);
    const bool isBetween = isLast || place.firstLine == line;
    // Many may come before any of them is counted: they are one with what is not counted yet.
    if (isBetween && place.chunk > 0 && !m_Chunks[place.chunk - 1].counted)
    {
        ++m_Chunks[place.chunk - 1].lines;
        return;
    }
    if (isBetween && (isLast || m_Chunks[place.chunk].counted || m_Chunks[place.chunk].from > 0))
    {
        m_Chunks.insert(m_Chunks.begin() + static_cast<std::ptrdiff_t>(place.chunk), {1});
    }
    else
    {
        if (m_Chunks[place.chunk].counted)
        {
            Uncount(place.chunk);
        }
        ++m_Chunks[place.chunk].lines;
    }
    Reopen(place);
}

void HitNumbers::LineErased(int line)
{
    if (!m_Finder || line < 0 || line >= m_Lines)
    {
        return;
    }
    if (line <= m_Current.line)
    {
        m_Rank = {};
        m_Number = line == m_Current.line ? 0 : m_Number;
        m_Current = line == m_Current.line ? SearchPlace{-1, 0}
                                           : SearchPlace{m_Current.line - 1, m_Current.byte};
    }
    --m_Lines;
    const ChunkPlace place = ChunkOf(line);
    Chunk&           chunk = m_Chunks[place.chunk];
    if (chunk.counted || line == place.firstLine)
    {
        Uncount(place.chunk);
    }
    --chunk.lines;
    if (chunk.lines == 0)
    {
        m_Chunks.erase(m_Chunks.begin() + static_cast<std::ptrdiff_t>(place.chunk));
        if (place.chunk < m_Open.chunk)
        {
            --m_Open.chunk;
            --m_Open.firstLine;
        }
        SkipCounted();
        return;
    }
    Reopen(place);
}

// Counts on in the first chunk that is not counted.
void HitNumbers::CountOn(const SearchedLines& lines, size_t& budget)
{
    const std::optional<LineStore::Block> found = lines.BlockOf(m_Open.firstLine);
    m_IsWaiting = !found;
    if (!found)
    {
        return;
    }
    const LineStore::Block& block = *found;
    if (m_Chunks[m_Open.chunk].from > 0 || block.bytes.size() > kPieceBytes)
    {
        CountLine(block.Line(m_Open.firstLine - block.firstLine), budget);
    }
    else
    {
        CountLines(block, budget);
    }
}

// True when all of the line has been looked at.
bool HitNumbers::GoThrough(std::string_view line, size_t& from, int64_t& hits, size_t& budget)
{
    while (from < line.size() && budget > 0)
    {
        m_Found.clear();
        m_Finder->HitsIn(line, PieceAt(line, from, m_Finder->Reach()), from, budget, m_Found);
        hits += static_cast<int64_t>(m_Found.size());
    }
    return from >= line.size();
}

void HitNumbers::CountLine(std::string_view line, size_t& budget)
{
    Chunk&        chunk = m_Chunks[m_Open.chunk];
    const int64_t before = chunk.hits;
    const bool    done = GoThrough(line, chunk.from, chunk.hits, budget);
    m_Hits += chunk.hits - before;
    if (done)
    {
        Pay(budget, 1);
        Close(1, line.size(), chunk.hits);
    }
}

void HitNumbers::CountLines(const LineStore::Block& block, size_t& budget)
{
    const int from = m_Open.firstLine - block.firstLine;
    const int end =
        std::min({block.lineCount, from + m_Chunks[m_Open.chunk].lines, from + kChunkLines});
    const auto bytesTo = [&](int line)
    {
        return (line < block.lineCount ? block.StartOf(line) : block.bytes.size()) -
               block.StartOf(from);
    };
    Pay(budget, bytesTo(end) + static_cast<size_t>(end - from));
    int64_t hits = 0;
    for (const int line : m_Finder->LinesIn(block, from, end, false))
    {
        size_t     byte = 0;
        int64_t    more = 0;
        size_t     left = std::max<size_t>(budget, 1); // something has to come of every step
        const bool done = GoThrough(block.Line(line), byte, more, left);
        budget = std::min(budget, left);
        if (!done)
        {
            m_Hits += hits;
            if (line > from)
            {
                Close(line - from, bytesTo(line), hits);
            }
            m_Chunks[m_Open.chunk].from = byte;
            m_Chunks[m_Open.chunk].hits = more;
            m_Hits += more;
            return;
        }
        hits += more;
    }
    m_Hits += hits;
    Close(end - from, bytesTo(end), hits);
}

// The first lines of the open chunk are counted: they join those before them, unless these are
// many already.
void HitNumbers::Close(int lines, size_t bytes, int64_t hits)
{
    Chunk& open = m_Chunks[m_Open.chunk];
    open = {open.lines - lines};
    m_Open.firstLine += lines;
    const bool   isEmpty = open.lines == 0;
    const auto   at = m_Chunks.begin() + static_cast<std::ptrdiff_t>(m_Open.chunk);
    Chunk* const last = m_Open.chunk > 0 ? &m_Chunks[m_Open.chunk - 1] : nullptr;
    if (last && last->lines + lines <= kChunkLines && last->bytes + bytes <= kChunkBytes)
    {
        last->lines += lines;
        last->bytes += bytes;
        last->hits += hits;
        if (isEmpty)
        {
            m_Chunks.erase(at);
        }
    }
    else
    {
        Chunk counted{lines, true, bytes, hits, 0};
        if (isEmpty)
        {
            *at = counted;
        }
        else
        {
            m_Chunks.insert(at, counted);
        }
        ++m_Open.chunk;
    }
    SkipCounted();
}

void HitNumbers::SkipCounted()
{
    while (m_Open.chunk < m_Chunks.size() && m_Chunks[m_Open.chunk].counted)
    {
        m_Open.firstLine += m_Chunks[m_Open.chunk].lines;
        ++m_Open.chunk;
    }
}

// The hits of whole chunks are known; those of the lines before it in its own are counted again.
void HitNumbers::BeginRank()
{
    m_Rank.begun = true;
    const ChunkPlace place = ChunkOf(m_Current.line);
    m_Rank.line = place.firstLine;
    for (size_t i = 0; i < place.chunk; ++i)
    {
        m_Rank.before += m_Chunks[i].hits;
    }
    m_Rank.done = place.chunk >= m_Chunks.size();
}

void HitNumbers::RankOn(const SearchedLines& lines, size_t& budget)
{
    if (!m_Rank.begun)
    {
        BeginRank();
    }
    while (m_Rank.line <= m_Current.line && !m_Rank.done && budget > 0)
    {
        const std::optional<std::string_view> line = lines.LineOf(m_Rank.line);
        m_IsWaiting = !line;
        if (!line)
        {
            return;
        }
        if (m_Rank.line == m_Current.line)
        {
            RankWithin(*line, budget);
            return;
        }
        Pay(budget, 1);
        if (GoThrough(*line, m_Rank.from, m_Rank.before, budget))
        {
            ++m_Rank.line;
            m_Rank.from = 0;
        }
    }
}

// In the line of the hit.
void HitNumbers::RankWithin(std::string_view line, size_t& budget)
{
    m_Number = 0;
    while (!m_Rank.done && budget > 0)
    {
        m_Found.clear();
        m_Rank.done = m_Rank.from >= line.size();
        if (m_Rank.done)
        {
            break;
        }
        m_Finder->HitsIn(line, PieceAt(line, m_Rank.from, m_Finder->Reach()), m_Rank.from, budget,
                         m_Found);
        for (const ByteSpan& hit : m_Found)
        {
            if (hit.begin >= m_Current.byte)
            {
                m_Number = hit.begin == m_Current.byte ? m_Rank.before + 1 : 0;
                m_Rank.done = true;
                return;
            }
            ++m_Rank.before;
        }
        m_Rank.done = m_Rank.from > m_Current.byte || m_Rank.from >= line.size();
    }
}
} // namespace textviews
