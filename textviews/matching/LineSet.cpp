#include "textviews/matching/LineSet.h"

#include <algorithm>
#include <bitset>

namespace textviews
{
namespace
{
constexpr int    kChunkLines = 4096;
constexpr int    kWordBits = 64;
constexpr size_t kWords = kChunkLines / kWordBits;

int Count(uint64_t word)
{
    return static_cast<int>(std::bitset<kWordBits>(word).count());
}

// The bits below that one.
uint64_t Below(int bit)
{
    return (uint64_t{1} << bit) - 1;
}

int LowestOf(uint64_t word)
{
    return Count((word & (~word + 1)) - 1);
}

size_t WordOf(int line)
{
    return static_cast<size_t>(line / kWordBits);
}
} // namespace

bool LineSet::Chunk::Has(int line) const
{
    return HasBits() ? ((bits[WordOf(line)] >> (line % kWordBits)) & 1) != 0 : size > 0;
}

int LineSet::Chunk::Before(int line) const
{
    if (!HasBits())
    {
        return size > 0 ? line : 0;
    }
    int count = 0;
    for (size_t word = 0; word < WordOf(line); ++word)
    {
        count += Count(bits[word]);
    }
    return line % kWordBits == 0 ? count
                                 : count + Count(bits[WordOf(line)] & Below(line % kWordBits));
}

int LineSet::Chunk::At(int number) const
{
    if (!HasBits())
    {
        return number;
    }
    size_t word = 0;
    for (int count = Count(bits[0]); number >= count; count = Count(bits[word]))
    {
        number -= count;
        ++word;
    }
    uint64_t left = bits[word];
    for (; number > 0; --number)
    {
        left &= left - 1;
    }
    return static_cast<int>(word) * kWordBits + LowestOf(left);
}

// `lines` when there is none.
int LineSet::Chunk::Next(int line) const
{
    if (!HasBits())
    {
        return size > 0 ? line : lines;
    }
    uint64_t left = bits[WordOf(line)] & ~Below(line % kWordBits);
    size_t   word = WordOf(line);
    while (left == 0 && ++word < kWords)
    {
        left = bits[word];
    }
    return left == 0 ? lines : static_cast<int>(word) * kWordBits + LowestOf(left);
}

void LineSet::Chunk::NeedBits()
{
    if (!HasBits())
    {
        bits.assign(kWords, 0);
        for (int line = 0; size > 0 && line < lines; line += kWordBits)
        {
            bits[WordOf(line)] =
                lines - line >= kWordBits ? ~uint64_t{0} : Below((lines - line) % kWordBits);
        }
    }
}

void LineSet::Chunk::DropBits()
{
    if (size == 0 || size == lines)
    {
        Words().swap(bits);
    }
}

void LineSet::Chunk::Set(int line, bool on)
{
    if (Has(line) == on)
    {
        return;
    }
    NeedBits();
    bits[WordOf(line)] ^= uint64_t{1} << (line % kWordBits);
    size += on ? 1 : -1;
    DropBits();
}

void LineSet::Chunk::SetAll(bool on)
{
    size = on ? lines : 0;
    DropBits();
}

void LineSet::Reset(int lines, bool on)
{
    m_Chunks.clear();
    m_Sums.clear();
    m_Lines = std::max(lines, 0);
    m_Size = on ? m_Lines : 0;
    for (int left = m_Lines; left > 0; left -= kChunkLines)
    {
        Chunk chunk;
        chunk.lines = std::min(left, kChunkLines);
        chunk.size = on ? chunk.lines : 0;
        m_Chunks.push_back(std::move(chunk));
    }
}

void LineSet::SumAsFarAs(size_t chunk) const
{
    if (m_Sums.empty())
    {
        m_Sums.push_back({});
    }
    while (m_Sums.size() <= chunk)
    {
        const Chunk& last = m_Chunks[m_Sums.size() - 1];
        m_Sums.push_back({m_Sums.back().lines + last.lines, m_Sums.back().size + last.size});
    }
}

void LineSet::Changed(size_t chunk)
{
    m_Sums.resize(std::min(m_Sums.size(), chunk + 1));
}

// It must exist.
size_t LineSet::ChunkOf(int line) const
{
    if (line < m_Chunks.front().lines)
    {
        return 0;
    }
    if (line >= m_Lines - m_Chunks.back().lines)
    {
        SumAsFarAs(m_Chunks.size() - 1);
        return m_Chunks.size() - 1;
    }
    SumAsFarAs(0);
    while (m_Sums.back().lines <= line && m_Sums.size() < m_Chunks.size())
    {
        SumAsFarAs(m_Sums.size());
    }
    const auto after =
        std::upper_bound(m_Sums.begin(), m_Sums.end(), line,
                         [](int wanted, const Sum& sum) { return wanted < sum.lines; });
    return static_cast<size_t>(after - m_Sums.begin()) - 1;
}

size_t LineSet::ChunkAt(int number) const
{
    SumAsFarAs(0);
    while (m_Sums.back().size <= number && m_Sums.size() < m_Chunks.size())
    {
        SumAsFarAs(m_Sums.size());
    }
    const auto after =
        std::upper_bound(m_Sums.begin(), m_Sums.end(), number,
                         [](int wanted, const Sum& sum) { return wanted < sum.size; });
    return static_cast<size_t>(after - m_Sums.begin()) - 1;
}

bool LineSet::Has(int line) const
{
    if (line < 0 || line >= m_Lines || m_Size == 0)
    {
        return false;
    }
    const size_t chunk = ChunkOf(line);
    SumAsFarAs(chunk);
    return m_Chunks[chunk].Has(line - m_Sums[chunk].lines);
}

int LineSet::Before(int line) const
{
    if (line <= 0 || m_Size == 0)
    {
        return 0;
    }
    if (line >= m_Lines)
    {
        return m_Size;
    }
    const size_t chunk = ChunkOf(line);
    SumAsFarAs(chunk);
    return m_Sums[chunk].size + m_Chunks[chunk].Before(line - m_Sums[chunk].lines);
}

int LineSet::At(int number) const
{
    if (number < 0 || number >= m_Size)
    {
        return m_Lines;
    }
    const size_t chunk = ChunkAt(number);
    return m_Sums[chunk].lines + m_Chunks[chunk].At(number - m_Sums[chunk].size);
}

int LineSet::Next(int line) const
{
    line = std::max(line, 0);
    if (line >= m_Lines || m_Size == 0)
    {
        return m_Lines;
    }
    size_t chunk = ChunkOf(line);
    SumAsFarAs(chunk);
    int first = m_Sums[chunk].lines;
    int within = m_Chunks[chunk].Next(line - first);
    while (within >= m_Chunks[chunk].lines && chunk + 1 < m_Chunks.size())
    {
        first += m_Chunks[chunk].lines;
        ++chunk;
        within = m_Chunks[chunk].size > 0 ? m_Chunks[chunk].Next(0) : m_Chunks[chunk].lines;
    }
    return std::min(first + within, m_Lines);
}

size_t LineSet::Bytes() const
{
    size_t bytes = m_Chunks.capacity() * sizeof(Chunk) + m_Sums.capacity() * sizeof(Sum);
    for (const Chunk& chunk : m_Chunks)
    {
        bytes += chunk.bits.capacity() * sizeof(uint64_t);
    }
    return bytes;
}

void LineSet::Set(int line, bool on)
{
    SetRange(line, line + 1, on);
}

void LineSet::SetRange(int first, int end, bool on)
{
    first = std::max(first, 0);
    end = std::min(end, m_Lines);
    while (first < end)
    {
        const size_t index = ChunkOf(first);
        SumAsFarAs(index);
        Chunk&    chunk = m_Chunks[index];
        const int start = m_Sums[index].lines;
        const int last = std::min(end - start, chunk.lines);
        const int before = chunk.size;
        if (first == start && last == chunk.lines)
        {
            chunk.SetAll(on);
        }
        for (int line = first - start; line < last && chunk.size != (on ? chunk.lines : 0); ++line)
        {
            chunk.Set(line, on);
        }
        m_Size += chunk.size - before;
        if (chunk.size != before)
        {
            Changed(index);
        }
        first = start + last;
    }
}

// In two halves.
void LineSet::Split(size_t index)
{
    Chunk     upper;
    Chunk&    lower = m_Chunks[index];
    const int half = kChunkLines / 2;
    upper.lines = lower.lines - half;
    if (lower.HasBits())
    {
        upper.bits.assign(kWords, 0);
        std::copy(lower.bits.begin() + kWords / 2, lower.bits.end(), upper.bits.begin());
        std::fill(lower.bits.begin() + kWords / 2, lower.bits.end(), 0);
    }
    upper.size = lower.size - lower.Before(half);
    lower.size -= upper.size;
    lower.lines = half;
    lower.DropBits();
    upper.DropBits();
    Changed(index);
    m_Chunks.insert(m_Chunks.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(upper));
}

void LineSet::Insert(int line, bool on)
{
    line = std::clamp(line, 0, m_Lines);
    const bool isLast = line == m_Lines;
    if (m_Chunks.empty() || (isLast && m_Chunks.back().lines == kChunkLines))
    {
        m_Chunks.emplace_back();
    }
    size_t index = isLast ? m_Chunks.size() - 1 : ChunkOf(line);
    SumAsFarAs(index);
    if (m_Chunks[index].lines == kChunkLines)
    {
        Split(index);
        index += line - m_Sums[index].lines >= m_Chunks[index].lines ? 1 : 0;
        SumAsFarAs(index);
    }
    Chunk&    chunk = m_Chunks[index];
    const int at = line - m_Sums[index].lines;
    if (!chunk.HasBits() && chunk.size == (on ? chunk.lines : 0))
    {
        chunk.size += on ? 1 : 0;
        ++chunk.lines;
    }
    else
    {
        chunk.NeedBits();
        uint64_t carried = on ? 1 : 0;
        for (size_t word = WordOf(at); word < kWords; ++word)
        {
            const int      bit = word == WordOf(at) ? at % kWordBits : 0;
            const uint64_t bits = chunk.bits[word];
            const uint64_t kept = bits & Below(bit);
            chunk.bits[word] = kept | (carried << bit) | ((bits & ~Below(bit)) << 1);
            carried = bits >> (kWordBits - 1);
        }
        chunk.size += on ? 1 : 0;
        ++chunk.lines;
        chunk.DropBits();
    }
    m_Size += on ? 1 : 0;
    ++m_Lines;
    Changed(index);
}

void LineSet::Erase(int line)
{
    if (line < 0 || line >= m_Lines)
    {
        return;
    }
    const size_t index = ChunkOf(line);
    SumAsFarAs(index);
    Chunk&     chunk = m_Chunks[index];
    const int  at = line - m_Sums[index].lines;
    const bool had = chunk.Has(at);
    if (chunk.HasBits())
    {
        for (size_t word = WordOf(at); word < kWords; ++word)
        {
            const int      bit = word == WordOf(at) ? at % kWordBits : 0;
            const uint64_t bits = chunk.bits[word];
            const uint64_t next = word + 1 < kWords ? chunk.bits[word + 1] : 0;
            const uint64_t above = (bits >> bit) >> 1 << bit; // without the line's own
            chunk.bits[word] = (bits & Below(bit)) | above | (next << (kWordBits - 1));
        }
    }
    chunk.size -= had ? 1 : 0;
    --chunk.lines;
    m_Size -= had ? 1 : 0;
    --m_Lines;
    chunk.DropBits();
    Changed(index);
    if (chunk.lines == 0)
    {
        m_Chunks.erase(m_Chunks.begin() + static_cast<std::ptrdiff_t>(index));
    }
}
} // namespace textviews
