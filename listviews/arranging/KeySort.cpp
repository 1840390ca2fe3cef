#include "listviews/arranging/KeySort.h"

#include <algorithm>
#include <cstring>

namespace listviews
{
namespace
{
constexpr size_t   kBlock = 4'096;         // entries between two looks at the clock
constexpr size_t   kSmall = 256;           // entries that are sorted at once
constexpr size_t   kTiny = 16;             // entries whose keys are compared whole
constexpr size_t   kStore = 256 * 1'024;   // bytes of keys that are allocated at once
constexpr size_t   kChunk = 7;             // bytes of a key that are compared at once
constexpr uint64_t kMoreLeft = 1 + kChunk; // behind them: there are more
constexpr size_t   kMostSplitters = 255;   // one less than a power of two
constexpr size_t   kOfSplitter = 4;        // entries of a sample for each of them
constexpr size_t   kAhead = 12;
constexpr size_t   kOfPlace = 16; // entries of a range, at least, for each of those

bool IsMoreLeft(uint64_t chunk)
{
    return (chunk & 0xFF) == kMoreLeft;
}

// The last byte says how many there are, so that a key stands before a longer one that begins with
// it, whatever follows there.
uint64_t ChunkAt(const char* key, size_t length, size_t depth)
{
    const size_t      left = length - std::min(depth, length);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(key) + (length - left);
    if (left > kChunk)
    {
        const auto at = [bytes](int place) { return uint64_t{bytes[place]} << (56 - 8 * place); };
        return ((at(0) | at(1) | at(2) | at(3) | at(4) | at(5) | at(6) | at(7)) & ~uint64_t{0xFF}) |
               kMoreLeft;
    }
    uint64_t chunk = 0;
    for (size_t i = 0; i < kChunk; ++i)
    {
        chunk = chunk << 8 | (i < left ? bytes[i] : 0U);
    }
    return chunk << 8 | left;
}

struct ByChunk // a function would not be inlined
{
    template <class Entry> bool operator()(const Entry& left, const Entry& right) const
    {
        return left.chunk != right.chunk ? left.chunk < right.chunk : left.ordinal < right.ordinal;
    }
};
} // namespace

KeySort::KeySort(size_t mostItems)
{
    m_Items.reserve(mostItems);
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
    m_Entries.push_back(
        {0, Store(key), static_cast<uint32_t>(key.size()), static_cast<uint32_t>(m_Items.size())});
    m_Items.push_back(item);
}

// How many bytes behind the depth both keys have in common, if not less than `most`.
size_t KeySort::CommonOf(const Entry& first, const Entry& entry, size_t depth, size_t most)
{
    const char* const bytes = first.key + depth;
    const char* const others = entry.key + depth;
    most = std::min(most, entry.length - depth);
    return std::memcmp(bytes, others, most) == 0
               ? most
               : static_cast<size_t>(std::mismatch(bytes, bytes + most, others).first - bytes);
}

bool KeySort::IsLess(const Entry& left, const Entry& right, size_t depth)
{
    if (left.chunk == right.chunk && IsMoreLeft(left.chunk))
    {
        const int order =
            std::string_view(left.key, left.length)
                .substr(depth + kChunk)
                .compare(std::string_view(right.key, right.length).substr(depth + kChunk));
        if (order != 0)
        {
            return order < 0;
        }
    }
    return ByChunk()(left, right);
}

// Of many the bytes that all have in common are looked at once.
void KeySort::LoadSmall(Range& range)
{
    const Entry& first = m_Entries[range.begin];
    if (range.Size() > kTiny)
    {
        size_t common = first.length - range.depth;
        for (size_t at = range.begin + 1; at < range.end && common > 0; ++at)
        {
            FetchAhead(at, range.depth);
            common = CommonOf(first, m_Entries[at], range.depth, common);
        }
        range.depth += common;
    }
    for (size_t at = range.begin; at < range.end; ++at)
    {
        FetchAhead(at, range.depth);
        Entry& entry = m_Entries[at];
        entry.chunk = ChunkAt(entry.key, entry.length, range.depth);
    }
}

// A chunk at a time; of few the keys are compared whole.
void KeySort::SortSmall(Range range)
{
    if (!range.isLoaded)
    {
        LoadSmall(range);
    }
    Entry* const begin = m_Entries.data() + range.begin;
    Entry* const end = m_Entries.data() + range.end;
    if (range.Size() <= kTiny)
    {
        std::sort(begin, end,
                  [depth = range.depth](const Entry& left, const Entry& right)
                  { return IsLess(left, right, depth); });
        return;
    }
    if (!std::is_sorted(begin, end, ByChunk()))
    {
        std::sort(begin, end, ByChunk());
    }
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
    if (!IsMoreLeft(chunk))
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
        m_Dealt.reset(new Entry[m_Entries.size()]);
        m_Buckets.reset(new uint16_t[m_Entries.size()]);
        if (m_Entries.size() > 1)
        {
            m_Ranges.push_back({0, m_Entries.size(), 0});
        }
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
    case Phase::Load:
        return Load();
    case Phase::Deal:
        return Deal();
    case Phase::Copy:
        return Copy();
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
    if (m_Range.Size() <= kSmall)
    {
        SortSmall(m_Range);
        return m_Range.Size();
    }
    return BeginLoad(true);
}

// Where the sample's keys go on with the same bytes, those of the whole range seem to.
size_t KeySort::BeginLoad(bool skipsCommon)
{
    const std::vector<size_t> places = SomePlaces();
    const Entry&              first = m_Entries[m_Range.begin];
    m_Common = skipsCommon && !m_Range.isLoaded ? first.length - m_Range.depth : 0;
    for (const size_t at : places)
    {
        m_Common = CommonOf(first, m_Entries[at], m_Range.depth, m_Common);
    }
    std::vector<uint64_t> sample;
    sample.reserve(places.size());
    for (const size_t at : places)
    {
        const Entry& entry = m_Entries[at];
        sample.push_back(m_Range.isLoaded
                             ? entry.chunk
                             : ChunkAt(entry.key, entry.length, m_Range.depth + m_Common));
    }
    ChooseSplitters(std::move(sample));
    m_InOrder = true;
    Enter(Phase::Load);
    return places.size();
}

// By chance: what repeats at a distance is met, too.
std::vector<size_t> KeySort::SomePlaces()
{
    const size_t        step = std::max(m_Range.Size() / (kMostSplitters * kOfSplitter), kOfPlace);
    std::vector<size_t> places;
    for (size_t begin = m_Range.begin; begin + step <= m_Range.end; begin += step)
    {
        places.push_back(begin + m_Random() % step);
    }
    return places;
}

// Some of the sample, each chunk once. Padded to what a search halves down to one.
void KeySort::ChooseSplitters(std::vector<uint64_t> sample)
{
    std::sort(sample.begin(), sample.end());
    m_Splitters.clear();
    for (size_t at = kOfSplitter / 2; at < sample.size() && m_Splitters.size() < kMostSplitters;
         at += kOfSplitter)
    {
        if (m_Splitters.empty() || m_Splitters.back() != sample[at])
        {
            m_Splitters.push_back(sample[at]);
        }
    }
    size_t count = 1;
    while (count < m_Splitters.size())
    {
        count = 2 * count + 1;
    }
    m_Splitters.resize(count, UINT64_MAX); // which is no chunk
    m_Places.assign(2 * count + 1, 0);
}

// Those of a splitter have an odd number.
size_t KeySort::BucketOf(uint64_t chunk) const
{
    const uint64_t* at = m_Splitters.data();
    for (size_t half = m_Splitters.size() / 2 + 1; half > 0; half /= 2)
    {
        at += at[half - 1] < chunk ? half : 0;
    }
    const auto less = static_cast<size_t>(at - m_Splitters.data());
    return 2 * less + (less < m_Splitters.size() && *at == chunk ? 1 : 0);
}

// The keys lie far apart: to wait for each of them would take most of the time.
void KeySort::FetchAhead(size_t at, size_t depth) const
{
    if (at + kAhead < m_Entries.size())
    {
        __builtin_prefetch(m_Entries[at + kAhead].key + depth);
    }
}

size_t KeySort::Load()
{
    const size_t from = m_At;
    const Entry& first = m_Entries[m_Range.begin];
    uint16_t     before = m_At > m_Range.begin ? m_Buckets[m_At - 1] : uint16_t{0};
    for (const size_t end = std::min(m_At + kBlock, m_Range.end); m_At < end; ++m_At)
    {
        FetchAhead(m_At, m_Range.depth);
        Entry& entry = m_Entries[m_At];
        if (m_Common > 0 && CommonOf(first, entry, m_Range.depth, m_Common) < m_Common)
        {
            return m_At - from + BeginLoad(false);
        }
        if (!m_Range.isLoaded)
        {
            entry.chunk = ChunkAt(entry.key, entry.length, m_Range.depth + m_Common);
        }
        const auto bucket = static_cast<uint16_t>(BucketOf(entry.chunk));
        ++m_Places[bucket];
        m_Buckets[m_At] = bucket;
        m_InOrder = m_InOrder && bucket >= before;
        before = bucket;
    }
    const size_t count = m_At - from;
    if (m_At == m_Range.end)
    {
        EndLoad();
    }
    return count;
}

void KeySort::EndLoad()
{
    m_Range.depth += m_Common;
    size_t place = m_Range.begin;
    for (size_t& each : m_Places)
    {
        const size_t end = place + each;
        each = m_InOrder ? end : place;
        place = end;
    }
    if (m_InOrder)
    {
        PushBuckets();
        return;
    }
    Enter(Phase::Deal);
}

size_t KeySort::Deal()
{
    const size_t count = std::min(kBlock, m_Range.end - m_At);
    for (const size_t end = m_At + count; m_At < end; ++m_At)
    {
        m_Dealt[m_Places[m_Buckets[m_At]]++] = m_Entries[m_At];
    }
    if (m_At == m_Range.end)
    {
        Enter(Phase::Copy);
    }
    return count;
}

size_t KeySort::Copy()
{
    const size_t count = std::min(kBlock, m_Range.end - m_At);
    std::copy(m_Dealt.get() + m_At, m_Dealt.get() + m_At + count, m_Entries.data() + m_At);
    m_At += count;
    if (m_At == m_Range.end)
    {
        PushBuckets();
    }
    return count;
}

// Entries whose chunks are the same stand in the order in which they were added.
void KeySort::PushBuckets()
{
    m_Phase = Phase::Next;
    size_t begin = m_Range.begin;
    for (size_t bucket = 0; bucket < m_Places.size(); ++bucket)
    {
        const size_t end = m_Places[bucket];
        const bool   isSame = bucket % 2 == 1;
        if (end - begin > 1 && (!isSame || IsMoreLeft(m_Entries[begin].chunk)))
        {
            m_Ranges.push_back({begin, end, m_Range.depth + (isSame ? kChunk : 0), !isSame});
        }
        begin = end;
    }
}

std::vector<int> KeySort::Items() const
{
    std::vector<int> items;
    items.reserve(m_Entries.size());
    for (const Entry& entry : m_Entries)
    {
        items.push_back(m_Items[entry.ordinal]);
    }
    return items;
}
} // namespace listviews
