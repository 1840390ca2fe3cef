#pragma once

#include <cstdint>
#include <memory>
#include <random>
#include <string_view>
#include <vector>

namespace listviews
{
/// Sorts numbered items by keys that compare byte by byte, in steps that are short enough for a
/// window to live meanwhile. Items with the same key stay in the order in which they were added.
///
/// A few bytes of each key at a time are compared as one number. Many are dealt to buckets that a
/// sample of them bounds, few are sorted; only where those of several items are the same the next
/// few are looked at.
class KeySort
{
public:
    explicit KeySort(size_t mostItems); ///< No more are added.

    void Add(int item, std::string_view key);
    /// Sorts on for less than a millisecond; false when it is done. Nothing may be added any more.
    bool             Step();
    std::vector<int> Items() const; ///< Sorted, once it is done.

private:
    struct Entry
    {
        uint64_t    chunk; ///< The bytes of the key that are looked at, and how many are left.
        const char* key;
        uint32_t    length;
        uint32_t    ordinal; ///< As they were added.
    };
    struct Range
    {
        size_t begin;
        size_t end;
        size_t depth;            ///< Bytes of the keys that are the same in all entries.
        bool   isLoaded = false; ///< The entries have their chunks from there.

        size_t Size() const { return end - begin; }
    };
    enum class Phase
    {
        Next, ///< A range is to be begun,
        Load, ///< it is counted how many of its entries each bucket gets,
        Deal, ///< they are dealt to the buckets,
        Copy  ///< and go back to their place, where each bucket is a range.
    };

    const char*         Store(std::string_view key);
    static size_t       CommonOf(const Entry& first, const Entry& entry, size_t depth, size_t most);
    static bool         IsLess(const Entry& left, const Entry& right, size_t depth);
    void                SortSmall(Range range);
    void                LoadSmall(Range& range);
    size_t              BeginLoad(bool skipsCommon);
    void                EndLoad();
    std::vector<size_t> SomePlaces();
    void                ChooseSplitters(std::vector<uint64_t> sample);
    size_t              BucketOf(uint64_t chunk) const;
    Range               SameFrom(size_t at, const Range& range) const;
    size_t              Advance(); ///< A little on in the phase; how many entries it has looked at.
    size_t              BeginRange();
    void                FetchAhead(size_t at, size_t depth) const;
    size_t              Load();
    size_t              Deal();
    size_t              Copy();
    void                Enter(Phase phase);
    void                PushBuckets();

    std::vector<std::unique_ptr<char[]>> m_Blocks;         ///< The bytes of the keys.
    char*                                m_Free = nullptr; ///< In the last one,
    size_t                               m_Room = 0;       ///< and what is left there.
    std::vector<int>                     m_Items;          ///< As they were added.
    std::vector<Entry>                   m_Entries;
    std::unique_ptr<Entry[]>             m_Dealt;   ///< As many.
    std::unique_ptr<uint16_t[]>          m_Buckets; ///< Theirs.

    std::vector<Range>    m_Ranges; ///< Yet to be sorted.
    Range                 m_Range{0, 0, 0};
    Phase                 m_Phase = Phase::Next;
    bool                  m_Begun = false;
    size_t                m_At = 0;          ///< The entry that the phase has come to.
    size_t                m_Common = 0;      ///< Bytes that all its keys seem to go on with.
    std::vector<uint64_t> m_Splitters;       ///< Chunks that have a bucket, with one before each.
    std::vector<size_t>   m_Places;          ///< Of the buckets: entries, where they begin, or end.
    bool                  m_InOrder = false; ///< The entries already stand by their buckets.
    std::minstd_rand      m_Random;
};
} // namespace listviews
