#pragma once

#include "textviews/lines/MarkedLines.h"
#include "textviews/lines/StoredText.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace textviews
{
/// The lines of a text view, of any bytes, without a window. The bytes of neighbouring lines lie
/// one after the other in leaves of some 32 KiB, so that a line costs its own bytes and four more:
/// a string object a line would cost 60 on top, and a heap block each. Adding at the end and
/// removing at the start take constant time; in the middle one leaf moves.
///
/// Lines may also stay in a source, a file mostly: a leaf of such lines costs some 100 bytes, and
/// is read when one of them is asked for. Otherwise they are lines as all others; those that are
/// changed come into memory.
///
/// A view that is handed out is valid until the next change, or until lines of eight other leaves
/// have been asked for.
class LineStore
{
public:
    static constexpr size_t k_LeafBytes = 32 * 1024; ///< Of lines in a leaf; a longer one is alone.
    static constexpr size_t k_LeafLines = 4096;      ///< In a leaf, where they are short or empty.

    /// What somebody who has gone through all lines of a block has found.
    enum class Finding : uint8_t
    {
        None,  ///< Nobody has, since lines have joined them.
        Plain, ///< All are shown as they are stored, also where escape sequences are followed.
        Folded ///< Some are not.
    };

    /// Neighbouring lines that lie together, for whoever goes through all of them.
    struct Block
    {
        int              firstLine = 0;
        int              lineCount = 0;
        std::string_view bytes;            ///< Of all lines, one after the other, no separators.
        const uint32_t*  starts = nullptr; ///< Where each line starts, from `origin` on.
        uint32_t         origin = 0;       ///< Value of `starts` that `bytes` begins at.
        Finding          finding = Finding::None;

        std::string_view Line(int index) const; ///< Counted from `firstLine`.
        size_t           StartOf(int index) const { return starts[index] - origin; }
        int              LineAt(size_t byte) const; ///< The line that holds that byte of `bytes`.
    };

    /// `late` is called, on a thread of the store's own, when lines can be had that `Line` did
    /// not have. `most` is for tests: no more lines can be counted.
    explicit LineStore(std::function<void()> late = {}, int most = INT_MAX - 1);
    LineStore(LineStore&&) = default;
    virtual ~LineStore() = default;

    virtual int Count() const { return m_Count; }
    uint64_t    Bytes() const { return m_Bytes; } ///< Of all lines.
    bool        IsFull() const { return m_Count >= m_Most; }

    /// The line, for somebody who looks at a window: one whose disk does not answer at once is told
    /// to be on its way. An empty view when there is no line of that index.
    virtual std::string_view Line(int index) const;
    /// The same for others: it waits for the disk.
    virtual std::string_view LineNow(int index) const;
    /// The lines that lie together with that one; it must exist.
    virtual Block BlockOf(int index) const;
    /// The same for somebody who comes again: none as long as its disk does not answer.
    virtual std::optional<Block> BlockSoon(int index) const;
    /// Notes that of the lines that lie together with that one.
    void Note(int index, Finding finding) const;
    /// Another number after every change of the lines.
    uint64_t Changes() const { return m_Changes; }
    /// That line, or the first one after it whose bytes are in memory; `Count()` when there is
    /// none.
    virtual int NextInMemory(int index) const;
    /// Bytes of those lines, more or less: no line is read.
    virtual uint64_t RoughBytes(int first, int last) const;

    /// Whether the line after that one is the same line, which was too long to be one here: what
    /// leaves the store has no line feed between them.
    virtual bool GoesOn(int index) const { return index + 1 < m_Count && m_GoingOn.Has(index); }
    /// An index without a line: nothing.
    void SetGoesOn(int index);

    void Append(std::string_view line); ///< Nothing when the store is full.
    /// Adds lines that stay where they are. Gives how many: fewer when the store is full then.
    int AppendStored(const std::shared_ptr<const wxTextSource>& source,
                     const wxTextStretch&                       stretch);
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
        uint32_t              head = 0;        ///< Lines at the front that are erased already.
        uint32_t              storedBytes = 0; ///< Of lines in a source, as the view has them.
        StoredPlace           stored;          ///< Without a source: the lines are in memory.
        mutable Finding       finding = Finding::None;

        bool   IsStored() const { return stored.source != nullptr; }
        int    Count() const;
        size_t EndOf(size_t line) const;
        size_t LiveBytes() const { return bytes.size() - starts[head]; }
        void   Compact();
    };
    /// Lines of a leaf, wherever they lie.
    struct Content
    {
        const std::vector<char>&     bytes;
        const std::vector<uint32_t>& starts;

        std::string_view Line(size_t line) const;
    };

    static bool Fits(const Leaf& leaf, size_t size);
    static bool Continues(const Leaf& leaf, const std::shared_ptr<const wxTextSource>& source,
                          const wxTextStretch& stretch);
    static bool TooLarge(const Leaf& leaf);
    static void Seal(Leaf& leaf);

    Content          ContentOf(const Leaf& leaf) const;
    std::string_view LineOf(const Leaf& leaf, int index) const;
    void             TakeIntoMemory(Leaf& leaf);

    void   ReadAhead(size_t leaf) const;
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
    MarkedLines          m_GoingOn;
    int                  m_Count = 0;
    uint64_t             m_Bytes = 0;
    uint64_t             m_Changes = 0;
    int                  m_Most;

    mutable StoredTexts m_Stored;       ///< What was read lately.
    mutable size_t      m_LastSoon = 0; ///< The leaf that somebody who comes again had last.
};
} // namespace textviews
