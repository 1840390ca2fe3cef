#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace listviews
{
/// Sorts numbered items by keys that compare byte by byte, in steps that are short enough for a
/// window to live meanwhile. Items with the same key stay in the order in which they were added.
///
/// A few bytes of each key at a time are compared as one number. Only where those of several items
/// are the same the next few are looked at.
class KeySort
{
public:
    explicit KeySort(size_t mostItems); ///< No more are added.

    void Add(int item, std::string_view key);
    /// Sorts on for less than a millisecond; false when it is done. Nothing may be added any more.
    bool             Step();
    std::vector<int> Items() const; ///< Sorted, once it is done.

private:
    struct Key
    {
        const char* bytes;
        size_t      length;
    };
    struct Entry
    {
        uint64_t chunk;   ///< The bytes of the key that are looked at, and how many are left.
        uint32_t ordinal; ///< Of the key, as they were added.
        int      item;
    };
    struct Range
    {
        size_t begin;
        size_t end;
        size_t depth; ///< Bytes of the keys that are the same in all entries.

        size_t Size() const { return end - begin; }
    };
    enum class Phase
    {
        Next,   ///< A range is to be begun,
        Common, ///< what all its keys begin with is left out,
        Load,   ///< its chunks are taken from the keys,
        Blocks, ///< it is sorted in small blocks,
        Merge,  ///< the blocks are merged to longer and longer runs,
        Copy,   ///< those go back to their place,
        Split   ///< and where chunks are the same, their entries are ranges.
    };

    const char* Store(std::string_view key);
    uint64_t    ChunkOf(const Entry& entry, size_t depth) const;
    bool        IsLess(const Entry& left, const Entry& right, size_t depth) const;
    size_t      CommonWithFirst(const Range& range, size_t begin, size_t end, size_t most) const;
    Range       SameFrom(size_t at, const Range& range) const;
    void        SortSmall(Range range);
    static bool IsChunkLess(const Entry& left, const Entry& right)
    {
        return left.chunk != right.chunk ? left.chunk < right.chunk : left.ordinal < right.ordinal;
    }
    struct ByChunk // a function would not be inlined
    {
        bool operator()(const Entry& left, const Entry& right) const
        {
            return IsChunkLess(left, right);
        }
    };

    size_t Advance(); ///< A little on in the phase; how many entries it has looked at.
    size_t BeginRange();
    size_t SkipCommon();
    size_t Load();
    size_t SortBlock();
    size_t MergeSome();
    size_t CopySome();
    size_t SplitSome();
    void   BeginPair(size_t begin);
    void   Enter(Phase phase);

    std::vector<std::unique_ptr<char[]>> m_Blocks;         ///< The bytes of the keys.
    char*                                m_Free = nullptr; ///< In the last one,
    size_t                               m_Room = 0;       ///< and what is left there.
    std::vector<Key>                     m_Keys;
    std::vector<Entry>                   m_Entries;
    std::unique_ptr<Entry[]>             m_Merged; ///< As many.

    std::vector<Range> m_Ranges; ///< Yet to be sorted.
    Range              m_Range{0, 0, 0};
    Phase              m_Phase = Phase::Next;
    bool               m_Begun = false;
    size_t             m_Common = 0;       ///< Bytes that all its keys begin with.
    size_t             m_At = 0;           ///< The entry that the phase has come to.
    bool               m_IsSorted = false; ///< The chunks of the range are, as they stand.
    size_t             m_Run = 0;          ///< Entries of a sorted run.
    Entry*             m_From = nullptr;   ///< What the runs are merged from,
    Entry*             m_To = nullptr;     ///< and to.
    size_t             m_Left = 0;         ///< Where the two runs stand that are being merged,
    size_t             m_Right = 0;        ///< and where they end.
    size_t             m_LeftEnd = 0;
    size_t             m_RightEnd = 0;
};
} // namespace listviews
