#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace textviews
{
/// Some of the lines of a view, by their numbers: a bit a line at most, and nothing for stretches
/// of which it has all or none. Lines come and go in it as they do in the view.
class LineSet
{
public:
    /// Of so many lines it has all or none.
    void Reset(int lines, bool on);

    int  Lines() const { return m_Lines; } ///< All that there are.
    int  Size() const { return m_Size; }   ///< Those in it.
    bool Has(int line) const;
    /// How many in it lie before that line.
    int Before(int line) const;
    /// Those in it are numbered; the line, or `Lines()` when there is none of that number.
    int At(int number) const;
    /// The first in it from that line on, else `Lines()`.
    int Next(int line) const;
    /// Bytes of memory.
    size_t Bytes() const;

    void Set(int line, bool on);
    /// Lines [first, end); what is outside is left out.
    void SetRange(int first, int end, bool on);
    void Insert(int line, bool on); ///< Before that one.
    void Erase(int line);

private:
    using Words = std::vector<uint64_t>;
    struct Chunk
    {
        int   lines = 0;
        int   size = 0;
        Words bits; ///< None when it has all or none of its lines.

        bool HasBits() const { return !bits.empty(); }
        bool Has(int line) const;
        int  Before(int line) const;
        int  At(int number) const;
        int  Next(int line) const;
        void Set(int line, bool on);
        void SetAll(bool on);
        void NeedBits();
        void DropBits();
    };
    /// What lies before a chunk.
    struct Sum
    {
        int lines = 0;
        int size = 0;
    };

    size_t ChunkOf(int line) const;
    size_t ChunkAt(int number) const;
    void   SumAsFarAs(size_t chunk) const;
    void   Changed(size_t chunk);
    void   Split(size_t chunk);

    std::vector<Chunk>       m_Chunks; ///< None is empty.
    mutable std::vector<Sum> m_Sums;   ///< Of the first chunks; the others are not known.
    int                      m_Lines = 0;
    int                      m_Size = 0;
};
} // namespace textviews
