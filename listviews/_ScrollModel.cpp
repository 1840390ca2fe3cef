#include "listviews/_ScrollModel.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace
{
constexpr int kExtraUnits = 2;     // visible units counted beyond the whole ones
constexpr int kOverlapColumns = 3; // columns that a horizontal page keeps in view
constexpr int kDefaultDelta = 120; // rotation of one notch where a device reports none
} // namespace

int _ScrollAxis::MaxPosition() const
{
    return std::max(0, range - thumb);
}

int _ScrollAxis::Clamped(long long target) const
{
    return static_cast<int>(std::clamp(target, 0LL, static_cast<long long>(MaxPosition())));
}

int _ScrollRange(int units, int unitSize)
{
    const long long size = static_cast<long long>(std::max(units, 0)) * std::max(unitSize, 0);
    return static_cast<int>(std::min<long long>(size, INT_MAX));
}

int _VisibleUnits(int clientSize, int unitSize)
{
    return clientSize / std::max(unitSize, 1) + kExtraUnits;
}

_ScrollAxis _Adjusted(const _ScrollAxis& axis, int thumb, int range, bool followEnd)
{
    _ScrollAxis adjusted{axis.position, thumb, range};
    const bool  follow = followEnd && axis.AtEnd();
    adjusted.position = adjusted.Clamped(follow ? adjusted.MaxPosition() : axis.position);
    return adjusted;
}

int _PageSize(int orientation, const _ScrollUnits& units)
{
    const bool vertical = orientation == wxVERTICAL;
    const int  count = vertical ? units.visibleLines - kExtraUnits
                                : units.visibleColumns - kExtraUnits - kOverlapColumns;
    return _ScrollRange(std::max(count, 1), vertical ? units.lineHeight : units.columnWidth);
}

int _ScrollTarget(wxEventType type, const _ScrollAxis& axis, int lineHeight, int page,
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

int _WheelLines(int& accumulator, int rotation, int delta, int linesPerAction)
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
