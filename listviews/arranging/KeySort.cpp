#include "listviews/arranging/KeySort.h"

#include <algorithm>
#include <cstring>

namespace listviews
{
namespace
{
constexpr size_t   kBlock = 4'096;         // entries that are sorted at once
constexpr size_t   kTiny = 16;             // entries whose keys are compared whole
constexpr size_t   kStore = 256 * 1'024;   // bytes of keys that are allocated at once
constexpr size_t   kChunk = 7;             // bytes of a key that are compared at once
constexpr uint64_t kMoreLeft = 1 + kChunk; // behind them: there are more

} // namespace

KeySort::KeySort(size_t mostItems)
{
    m_Keys.reserve(mostItems);
    m_Entries.reserve(mostItems);
}

const char* KeySort::Store(std::string_view key)
{
    if (key.size() > m_Room)
    {
        m_Room = std::max(kStore, key.size());
        m_Blocks.emplace_back(new char[m_Room]);
        m_Free = m_Blocks.back().get();
    }
    char* const place = m_Free;
    std::copy(key.begin(), key.end(), place);
    m_Free += key.size();
    m_Room -= key.size();
    return place;
}

void KeySort::Add(int item, std::string_view key)
{
    m_Entries.push_back({0, static_cast<uint32_t>(m_Keys.size()), item});
    m_Keys.push_back({Store(key), key.size()});
}

// The last byte says how many there are, so that a key stands before a longer one that begins with
// it, whatever follows there.
uint64_t KeySort::ChunkOf(const Entry& entry, size_t depth) const
{
    const Key&        key = m_Keys[entry.ordinal];
    const size_t      left = key.length - std::min(depth, key.length);
    const auto* const bytes =
        reinterpret_cast<const unsigned char*>(key.bytes) + (key.length - left);
    if (left > kChunk)
    {
        const auto at = [bytes](int place) { return uint64_t{bytes[place]} << (56 - 8 * place); };
        return at(0) | at(1) | at(2) | at(3) | at(4) | at(5) | at(6) | kMoreLeft;
    }
    uint64_t chunk = 0;
    for (size_t i = 0; i < kChunk; ++i)
    {
        chunk = chunk << 8 | (i < left ? bytes[i] : 0U);
    }
    return chunk << 8 | left;
}

// How many bytes behind the range's depth the first key has in common with those entries, if not
// less than `most`.
size_t KeySort::CommonWithFirst(const Range& range, size_t begin, size_t end, size_t most) const
{
    const char* const first = m_Keys[m_Entries[range.begin].ordinal].bytes + range.depth;
    for (size_t at = begin; at < end && most > 0; ++at)
    {
        const Key&        key = m_Keys[m_Entries[at].ordinal];
        const char* const bytes = key.bytes + range.depth;
        most = std::min(most, key.length - range.depth);
        if (std::memcmp(first, bytes, most) != 0)
        {
            most = static_cast<size_t>(std::mismatch(first, first + most, bytes).first - first);
        }
    }
    return most;
}

bool KeySort::IsLess(const Entry& left, const Entry& right, size_t depth) const
{
    if (left.chunk == right.chunk && (left.chunk & 0xFF) == kMoreLeft)
    {
        const Key& leftKey = m_Keys[left.ordinal];
        const Key& rightKey = m_Keys[right.ordinal];
        const int  order =
            std::string_view(leftKey.bytes, leftKey.length)
                .substr(depth + kChunk)
                .compare(std::string_view(rightKey.bytes, rightKey.length).substr(depth + kChunk));
        if (order != 0)
        {
            return order < 0;
        }
    }
    return IsChunkLess(left, right);
}

// Of many the bytes that all have in common are looked at once, and the rest a chunk at a time.
void KeySort::SortSmall(Range range)
{
    Entry* const begin = m_Entries.data() + range.begin;
    Entry* const end = m_Entries.data() + range.end;
    const bool   isTiny = range.Size() <= kTiny;
    if (!isTiny)
    {
        range.depth += CommonWithFirst(range, range.begin + 1, range.end,
                                       m_Keys[begin->ordinal].length - range.depth);
    }
    for (Entry* entry = begin; entry != end; ++entry)
    {
        entry->chunk = ChunkOf(*entry, range.depth);
    }
    if (isTiny)
    {
        std::sort(begin, end,
                  [this, depth = range.depth](const Entry& left, const Entry& right)
                  { return IsLess(left, right, depth); });
        return;
    }
    std::sort(begin, end, ByChunk());
    for (size_t at = range.begin; at < range.end;)
    {
        const Range same = SameFrom(at, range);
        at = same.end;
        if (same.Size() > 1)
        {
            m_Ranges.push_back(same);
        }
    }
}

// The entries from there on whose chunks are the same, if more of their keys is left; else they
// stand as they should, and the range is of one.
KeySort::Range KeySort::SameFrom(size_t at, const Range& range) const
{
    const uint64_t chunk = m_Entries[at].chunk;
    if ((chunk & 0xFF) != kMoreLeft)
    {
        return {at, at + 1, range.depth};
    }
    size_t end = at + 1;
    while (end < range.end && m_Entries[end].chunk == chunk)
    {
        ++end;
    }
    return {at, end, range.depth + kChunk};
}

bool KeySort::Step()
{
    if (!m_Begun)
    {
        m_Begun = true;
        m_Merged.reset(new Entry[m_Entries.size()]);
        m_Ranges.push_back({0, m_Entries.size(), 0});
    }
    for (size_t done = 0; done < kBlock;)
    {
        if (m_Phase == Phase::Next && m_Ranges.empty())
        {
            return false;
        }
        done += Advance();
    }
    return true;
}

size_t KeySort::Advance()
{
    switch (m_Phase)
    {
    case Phase::Common:
        return SkipCommon();
    case Phase::Load:
        return Load();
    case Phase::Blocks:
        return SortBlock();
    case Phase::Merge:
        return MergeSome();
    case Phase::Copy:
        return CopySome();
    case Phase::Split:
        return SplitSome();
    default:
        return BeginRange();
    }
}

void KeySort::Enter(Phase phase)
{
    m_Phase = phase;
    m_At = m_Range.begin;
}

size_t KeySort::BeginRange()
{
    m_Range = m_Ranges.back();
    m_Ranges.pop_back();
    if (m_Range.Size() <= kBlock)
    {
        SortSmall(m_Range);
        return m_Range.Size();
    }
    Enter(Phase::Common);
    m_Common = m_Keys[m_Entries[m_Range.begin].ordinal].length - m_Range.depth;
    return 0;
}

size_t KeySort::SkipCommon()
{
    const size_t from = m_At;
    m_At = std::min(m_At + kBlock, m_Range.end);
    m_Common = CommonWithFirst(m_Range, from, m_At, m_Common);
    if (m_Common == 0 || m_At == m_Range.end)
    {
        m_Range.depth += m_Common;
        m_IsSorted = true;
        Enter(Phase::Load);
    }
    return kBlock;
}

size_t KeySort::Load()
{
    const size_t from = m_At;
    for (const size_t end = std::min(m_At + kBlock, m_Range.end); m_At < end; ++m_At)
    {
        const uint64_t chunk = m_Entries[m_At].chunk = ChunkOf(m_Entries[m_At], m_Range.depth);
        const uint64_t before = m_At > m_Range.begin ? m_Entries[m_At - 1].chunk : chunk;
        m_IsSorted = m_IsSorted && chunk >= before;
    }
    const size_t count = m_At - from;
    if (m_At == m_Range.end)
    {
        Enter(m_IsSorted ? Phase::Split : Phase::Blocks);
    }
    return count;
}

size_t KeySort::SortBlock()
{
    const size_t count = std::min(kBlock, m_Range.end - m_At);
    Entry* const begin = m_Entries.data() + m_At;
    std::sort(begin, begin + count, ByChunk());
    m_At += count;
    if (m_At == m_Range.end)
    {
        m_Run = kBlock;
        m_From = m_Entries.data();
        m_To = m_Merged.get();
        m_Phase = Phase::Merge;
        BeginPair(m_Range.begin);
    }
    return count;
}

void KeySort::BeginPair(size_t begin)
{
    m_Left = m_At = begin;
    m_LeftEnd = m_Right = std::min(begin + m_Run, m_Range.end);
    m_RightEnd = std::min(m_Right + m_Run, m_Range.end);
}

size_t KeySort::MergeSome()
{
    const size_t from = m_At;
    const size_t end = std::min(m_At + kBlock, m_RightEnd);
    while (m_At < end)
    {
        const bool right = m_Left == m_LeftEnd ||
                           (m_Right < m_RightEnd && IsChunkLess(m_From[m_Right], m_From[m_Left]));
        m_To[m_At++] = m_From[right ? m_Right++ : m_Left++];
    }
    const size_t count = m_At - from;
    if (m_At == m_RightEnd && m_RightEnd < m_Range.end)
    {
        BeginPair(m_RightEnd);
    }
    else if (m_At == m_Range.end)
    {
        std::swap(m_From, m_To);
        m_Run *= 2;
        if (m_Run < m_Range.Size())
        {
            BeginPair(m_Range.begin);
        }
        else
        {
            Enter(m_From == m_Entries.data() ? Phase::Split : Phase::Copy);
        }
    }
    return count;
}

size_t KeySort::CopySome()
{
    const size_t count = std::min(kBlock, m_Range.end - m_At);
    std::copy(m_Merged.get() + m_At, m_Merged.get() + m_At + count, m_Entries.data() + m_At);
    m_At += count;
    if (m_At == m_Range.end)
    {
        Enter(Phase::Split);
    }
    return count;
}

// Entries whose chunks are the same stand in the order in which they were added.
size_t KeySort::SplitSome()
{
    const Range same = SameFrom(m_At, m_Range);
    m_At = same.end;
    if (same.Size() > kBlock)
    {
        m_Ranges.push_back(same);
    }
    else if (same.Size() > 1)
    {
        SortSmall(same);
    }
    if (m_At == m_Range.end)
    {
        m_Phase = Phase::Next;
    }
    return same.Size();
}

std::vector<int> KeySort::Items() const
{
    std::vector<int> items;
    items.reserve(m_Entries.size());
    for (const Entry& entry : m_Entries)
    {
        items.push_back(entry.item);
    }
    return items;
}
} // namespace listviews
