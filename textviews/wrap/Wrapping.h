#pragma once

#include "textviews/lines/TextGeometry.h"
#include "textviews/wrap/LineWrap.h"

#include <wx/event.h>

#include <atomic>
#include <optional>
#include <vector>

namespace textviews
{
/// What a view that wraps has room for, in pixels but for the cells.
struct WrapRoom
{
    RowWidths widths;
    int       height = 0;
    int       lineHeight = 1;

    bool operator==(const WrapRoom& other) const
    {
        return widths == other.widths && height == other.height && lineHeight == other.lineHeight;
    }
};

/// What is at the top of the view.
struct ViewTop
{
    RowPlace place;
    int      below = 0; ///< Pixels of that row that are scrolled away.

    bool operator==(const ViewTop& other) const
    {
        return place == other.place && below == other.below;
    }
    bool operator<(const ViewTop& other) const
    {
        return place < other.place || (place == other.place && below < other.below);
    }
};

/// A place in the text, whatever its rows are.
struct TextAnchor
{
    int     line = 0;
    int64_t cell = 0;
};

/// Where a view that wraps stands: at a row of a line, as a pager does, so that no more lines are
/// looked at than are seen, and some at the end. The scrollbar has a line's height for each line,
/// of which the row at the top takes its share; of a line with more rows than that has pixels, only
/// this object knows the row. Main thread.
class Wrapping
{
public:
    Wrapping(const LineStore& lines, ShownLines& shown) : m_Rows(lines, shown), m_Store(lines) {}

    bool IsOn() const { return m_IsOn; }
    void Switch(bool on);

    /// Before anything is asked: what there is room for now.
    void Fit(const WrapRoom& room);
    /// What lines show has changed without a change of them.
    void Forget() { m_End.reset(); }
    /// The same, on any thread, of all views: bytes of lines have come.
    static void LinesCame() { ++s_Came; }

    const LineWrap& Rows() const { return m_Rows; }
    int             PageRows() const; ///< Whole ones that are seen; at least 1.

    /// The last place that can be scrolled to.
    ViewTop End() const;
    /// Of the scrollbar, when this is at the top.
    int      PixelsOf(const ViewTop& top) const;
    int      PixelsBelow(const RowPlace& place) const; ///< As far as the end of that row.
    RowPlace PlaceAt(int64_t pixel) const;             ///< Of the scrollbar, or the last line's.

    /// What is at the top when the scrollbar stands there. A view that follows stays at its end.
    ViewTop    Top(int position, bool follows) const;
    TextAnchor AnchorOf(const ViewTop& top) const;
    ViewTop    TopOf(const TextAnchor& anchor) const;
    /// From there so many rows down, or up.
    ViewTop Moved(const ViewTop& from, int64_t rows) const;
    /// These rows are seen as a whole.
    bool Shows(const ViewTop& top, const RowPlace& first, const RowPlace& last) const;
    /// The top of a view that has so many rows from that one on in its middle, or begins there.
    ViewTop Around(const RowPlace& place, int64_t rows) const;

    /// The nearest top that shows the whole line, or its first rows.
    ViewTop Showing(const ViewTop& top, int line) const;
    /// The line so many rows below that one, or above it, at least the next one.
    int LineAfterRows(int line, int rows) const;

    /// Stands there from now on, or at the end. Gives where the scrollbar is to be put.
    int MoveTo(const ViewTop& top);
    /// The same for a place of the scrollbar.
    int MoveToPixel(int position);
    /// The same from there for a vertical scroll event: by rows, of which none is left out.
    int MoveBy(wxEventType type, const ViewTop& top, int position);

    /// The rows that are seen at least in part.
    std::vector<TextRow> RowsFrom(const ViewTop& top) const;

    /// A scrollbar that stands there, and ends there, tells of that top.
    bool IsSettled(const ViewTop& top, int position, int end) const
    {
        return (position == PixelsOf(top) || AtPixel(position) == top) && end == PixelsOf(End());
    }

    /// Keep what is at the top; the scrollbar may follow later.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    /// @}

private:
    struct KnownEnd
    {
        ViewTop  top;
        uint64_t changes = 0;
        int      lines = 0;
        unsigned came = 0;
    };

    ViewTop AtPixel(int position) const;
    ViewTop Inside(ViewTop top) const;

    static std::atomic<unsigned> s_Came;

    LineWrap         m_Rows;
    const LineStore& m_Store;
    WrapRoom         m_Room;
    bool             m_IsOn = false;
    ViewTop          m_Top;
    int64_t          m_Cell = 0; ///< Where its row began,
    RowWidths        m_Widths;   ///< when rows were so wide.
    bool             m_IsAtEnd = false;
    int              m_Position = -1; ///< Of the scrollbar then.

    mutable std::optional<KnownEnd> m_End;
};
} // namespace textviews
