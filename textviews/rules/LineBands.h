#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace textviews
{
using LineMarks = uint8_t; ///< Bits.

/// A line that has marks.
struct MarkedLine
{
    int       line = 0;
    LineMarks marks = 0;
};

/// Which lines of a log have marks, in bands of neighbouring ones, as many as a strip beside the
/// log can show: so it takes no more memory than some 100 KiB, however many lines there are. Where
/// few lines have any it knows each of them. It is told what lines have, in order, and of lines
/// that come and go; then only what it does not know has to be looked at.
class LineBands
{
public:
    static constexpr size_t k_MostBands = 8192;

    /// Nothing is known of so many lines.
    void Reset(int lines);

    int Lines() const { return m_Lines; }
    /// Grows with everything that may look different.
    unsigned Version() const { return m_Version; }
    size_t   Bands() const { return m_Bands.size(); }

    /// Lines [first, end).
    struct Range
    {
        int first = 0;
        int end = 0;
    };
    /// The first lines of which nothing is known; empty when all are.
    Range NextUnknown() const;
    bool  IsComplete() const { return NextUnknown().first == NextUnknown().end; }
    /// Tells of those lines as far as that one; all that are not named have no marks.
    void Learn(int end, const std::vector<MarkedLine>& marked);

    /// The nearest line from that one on, down or up, that has one of these marks or of which
    /// nothing is known, or one of its band; -1 when there is none.
    int NextMarked(int line, bool forward, LineMarks wanted) const;

    /// The marks of each of so many rows that all of `total` lines are laid out in; of the lines
    /// behind the last one there are none.
    std::vector<LineMarks> Rows(int rows, int total) const;

    /// To be told of every line that comes, after it came, and of every line that goes.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    /// @}

private:
    struct Band
    {
        int       lines = 0;
        LineMarks marks = 0; ///< Of a band that is not known (any more), those it had.
        bool      known = false;
        bool      uniform = true; ///< Each of its lines has them.
    };
    struct Place
    {
        size_t band = 0;
        int    firstLine = 0;
    };

    Place PlaceOf(int line) const;
    bool  CanJoin(const Band& first, const Band& second, bool roughly) const;
    void  AddBand(std::vector<Band>& bands, const Band& band, bool roughly = false) const;
    void  Replace(size_t first, size_t count, const std::vector<Band>& bands);
    void  Coarsen();
    void  ForgetKnown() { m_Known = {}; }

    std::deque<Band> m_Bands; ///< All lines; none is empty.
    int              m_Lines = 0;
    int              m_BandLines = 1; ///< That lines with different marks are joined up to.
    unsigned         m_Version = 0;
    mutable Place    m_Known; ///< All bands before it are known.
};
} // namespace textviews
