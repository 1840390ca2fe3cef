#include "internal/scrolling/ScrollModel.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace internal
{
namespace
{
constexpr int kExtraUnits = 2;     // visible units counted beyond the whole ones
constexpr int kOverlapColumns = 3; // columns that a horizontal page keeps in view
constexpr int kDefaultDelta = 120; // rotation of one notch where a device reports none
} // namespace

int ScrollAxis::MaxPosition() const
{
    return std::max(0, range - thumb);
}

int ScrollAxis::Clamped(long long target) const
{
    return static_cast<int>(std::clamp(target, 0LL, static_cast<long long>(MaxPosition())));
}

int ScrollRange(int units, int unitSize)
{
    const long long size = static_cast<long long>(std::max(units, 0)) * std::max(unitSize, 0);
    return static_cast<int>(std::min<long long>(size, INT_MAX));
}

int VisibleUnits(int clientSize, int unitSize)
{
    return clientSize / std::max(unitSize, 1) + kExtraUnits;
}

ScrollAxis Adjusted(const ScrollAxis& axis, int thumb, int range, bool followEnd)
{
    ScrollAxis adjusted{axis.position, thumb, range};
    const bool follow = followEnd && axis.AtEnd();
    adjusted.position = adjusted.Clamped(follow ? adjusted.MaxPosition() : axis.position);
    return adjusted;
}

int PageSize(int orientation, const ScrollUnits& units)
{
    const bool vertical = orientation == wxVERTICAL;
    const int  count = vertical ? units.visibleLines - kExtraUnits
                                : units.visibleColumns - kExtraUnits - kOverlapColumns;
    return ScrollRange(std::max(count, 1), vertical ? units.lineHeight : units.columnWidth);
}

int ScrollTarget(wxEventType type, const ScrollAxis& axis, int lineHeight, int page,
                 int eventPosition)
{
    const long long position = axis.position;
    if (type == wxEVT_SCROLLWIN_TOP)
    {
        return 0;
    }
    if (type == wxEVT_SCROLLWIN_BOTTOM)
    {
        return axis.MaxPosition();
    }
    if (type == wxEVT_SCROLLWIN_LINEUP)
    {
        return axis.Clamped(position - lineHeight);
    }
    if (type == wxEVT_SCROLLWIN_LINEDOWN)
    {
        return axis.Clamped(position + lineHeight);
    }
    if (type == wxEVT_SCROLLWIN_PAGEUP)
    {
        return axis.Clamped(position - page);
    }
    if (type == wxEVT_SCROLLWIN_PAGEDOWN)
    {
        return axis.Clamped(position + page);
    }
    return axis.Clamped(eventPosition);
}

int WheelLines(int& accumulator, int rotation, int delta, int linesPerAction)
{
    const int notch = delta > 0 ? delta : kDefaultDelta;
    accumulator -= rotation;
    if (notch > std::abs(accumulator))
    {
        return 0;
    }
    const int notches = accumulator / notch;
    accumulator %= notch;
    return notches * linesPerAction;
}
} // namespace internal
