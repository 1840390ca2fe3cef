#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

namespace textviews
{
/// The lines of a text view, of any bytes, without a window. The bytes of neighbouring lines lie
/// one after the other in leaves of some 32 KiB, so that a line costs its own bytes and four more:
/// a string object a line would cost 60 on top, and a heap block each. Adding at the end and
/// removing at the start take constant time; in the middle one leaf moves.
///
/// A view that is handed out is valid until the next change.
class LineStore
{
public:
    /// Neighbouring lines that lie together, for whoever goes through all of them.
    struct Block
    {
        int              firstLine = 0;
        int              lineCount = 0;
        std::string_view bytes;            ///< Of all lines, one after the other, no separators.
        const uint32_t*  starts = nullptr; ///< Where each line starts, from `origin` on.
        uint32_t         origin = 0;       ///< Value of `starts` that `bytes` begins at.

        std::string_view Line(int index) const; ///< Counted from `firstLine`.
        size_t           StartOf(int index) const { return starts[index] - origin; }
        int              LineAt(size_t byte) const; ///< The line that holds that byte of `bytes`.
    };

    int      Count() const { return m_Count; }
    uint64_t Bytes() const { return m_Bytes; } ///< Of all lines.

    /// The line; an empty view when there is no line of that index.
    std::string_view Line(int index) const;
    /// The lines that lie together with that one; it must exist.
    Block BlockOf(int index) const;

    void Append(std::string_view line);
    /// Puts the line before that one; an index outside adds it at the nearer end.
    void Insert(int index, std::string_view line);
    void Erase(int index); ///< No line of that index: nothing.
    void Clear();          ///< Also gives the memory back.

    /// The first line that is not less than the given one, byte by byte, in lines that are sorted.
    int LowerBound(std::string_view line) const;

private:
    struct Leaf
    {
        std::vector<char>     bytes;
        std::vector<uint32_t> starts;
        uint32_t              head = 0; ///< Lines at the front that are erased already.

        int              Count() const { return static_cast<int>(starts.size() - head); }
        size_t           EndOf(size_t line) const;
        std::string_view Line(int index) const;
        size_t           LiveBytes() const { return bytes.size() - starts[head]; }
        void             Compact();
    };

    static bool Fits(const Leaf& leaf, size_t size);
    static bool TooLarge(const Leaf& leaf);
    static void Seal(Leaf& leaf);

    size_t LeafOf(int index) const;
    int    FirstLineOf(size_t leaf) const;
    void   BeginLastLeaf(size_t firstSize);
    void   AddLeaf(size_t at, int64_t firstLine);
    void   InsertIntoLeaf(size_t leaf, int line, std::string_view text);
    void   Split(size_t leaf);
    void   EraseFromLeaf(size_t leaf, int line);
    void   DropLeaf(size_t leaf);
    void   MergeSmall(size_t leaf);
    void   ShiftFirstLines(size_t from, int64_t by);

    std::deque<Leaf>     m_Leaves;     ///< None is empty.
    std::vector<int64_t> m_FirstLines; ///< Index of each leaf's first line, plus `m_Erased`.
    int64_t              m_Erased = 0; ///< Lines that were erased at the very start.
    int                  m_Count = 0;
    uint64_t             m_Bytes = 0;
};
} // namespace textviews
