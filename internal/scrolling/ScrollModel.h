#pragma once

#include <wx/event.h>

namespace internal
{
/// The arithmetic of a scrolled view. Everything is in pixels unless said otherwise; products are
/// made in 64 bits and saturate at what a scrollbar can hold, so that a view of hundreds of
/// millions of lines scrolls to its limit instead of overflowing.

/// State of one scrollbar.
struct ScrollAxis
{
    int position = 0; ///< Pixels scrolled off the near edge.
    int thumb = 0;    ///< Visible part: the client size.
    int range = 0;    ///< Size of the content.

    /// The last position: 0 when everything is visible.
    int MaxPosition() const;
    int Clamped(long long target) const;
    /// Nothing is left below (to the right of) the visible part.
    bool AtEnd() const { return static_cast<long long>(range) - thumb <= position; }

    friend bool operator!=(const ScrollAxis& a, const ScrollAxis& b)
    {
        return a.position != b.position || a.thumb != b.thumb || a.range != b.range;
    }
};

/// What one scroll unit is worth, and how many of them are visible.
struct ScrollUnits
{
    int lineHeight = 10;
    int columnWidth = 10;
    int visibleLines = 0;   ///< Client height / line height + 2.
    int visibleColumns = 0; ///< Client width / column width + 2.
};

/// `units` times `unitSize`, at most INT_MAX; negative arguments count as 0.
int ScrollRange(int units, int unitSize);

/// How many units of that size a view shows at least in part: whole ones plus two.
int VisibleUnits(int clientSize, int unitSize);

/// The axis after the content or the client area has changed. With `followEnd` an axis that stood
/// at its end stands at the new end.
ScrollAxis Adjusted(const ScrollAxis& axis, int thumb, int range, bool followEnd);

/// What one page scroll moves by. Vertically the whole lines that fit; horizontally three columns
/// less than fit, because text that is read across a page needs some overlap. Never less than one
/// unit, or a view of two lines could not be paged through.
int PageSize(int orientation, const ScrollUnits& units);

/// Where a scroll event of that type leads on the axis. A line step is the line height on both
/// axes: a single column is too little for a step sideways. Any type without a rule of its own
/// leads to `eventPosition`. The result lies within the axis.
int ScrollTarget(wxEventType type, const ScrollAxis& axis, int lineHeight, int page,
                 int eventPosition);

/// Takes a rotation of the wheel and gives the whole lines due, positive downwards; what does not
/// make a whole notch stays in the accumulator.
int WheelLines(int& accumulator, int rotation, int delta, int linesPerAction);
} // namespace internal
