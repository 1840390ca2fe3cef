#include "appearance/tabs/TabRow.h"

#include <algorithm>
#include <numeric>

namespace appearance
{
namespace
{
// The width that none may exceed for all to fit.
int CommonLimit(std::vector<int> wanted, int room)
{
    std::sort(wanted.begin(), wanted.end());
    int left = room;
    for (size_t i = 0; i < wanted.size(); ++i)
    {
        const int share = left / static_cast<int>(wanted.size() - i);
        if (wanted[i] > share)
        {
            return share;
        }
        left -= wanted[i];
    }
    return wanted.empty() ? 0 : wanted.back();
}

// As far back as the tabs from there on, and `shown`, still fit.
size_t FirstOf(const std::vector<int>& widths, size_t first, int shown, int room)
{
    first = std::min(first, widths.empty() ? 0 : widths.size() - 1);
    if (shown >= 0 && shown < static_cast<int>(widths.size()))
    {
        const auto wanted = static_cast<size_t>(shown);
        first = std::min(first, wanted);
        const auto at = widths.begin();
        int width = std::accumulate(at + static_cast<std::ptrdiff_t>(first), at + shown + 1, 0);
        for (; width > room && first < wanted; ++first)
        {
            width -= widths[first];
        }
    }
    int rest =
        std::accumulate(widths.begin() + static_cast<std::ptrdiff_t>(first), widths.end(), 0);
    while (first > 0 && rest + widths[first - 1] <= room)
    {
        rest += widths[--first];
    }
    return first;
}
} // namespace

std::vector<int> FitTabs(std::vector<int> wanted, int room, int least)
{
    const int limit = std::max(CommonLimit(wanted, room), least);
    for (int& width : wanted)
    {
        width = std::min(width, limit);
    }
    return wanted;
}

TabRow TabRow::Of(const std::vector<int>& wantedWidths, size_t first, int shown,
                  const TabRowSizes& sizes)
{
    TabRow           row;
    std::vector<int> widths = FitTabs(wantedWidths, sizes.room.x, sizes.least);
    const int        all = std::accumulate(widths.begin(), widths.end(), 0);
    int              room = sizes.room.x;
    row.scrolls = all > room;
    if (row.scrolls)
    {
        room = std::max(0, room - kTabRowButtons * sizes.button);
        for (int i = 0; i < kTabRowButtons; ++i)
        {
            row.buttons[i] = wxRect(room + i * sizes.button, 0, sizes.button, sizes.room.y);
        }
        widths = wantedWidths; // no name is cut for a row that shows a part only
        for (int& width : widths)
        {
            width = std::min(width, std::max(room, sizes.least));
        }
    }
    row.first = row.scrolls ? FirstOf(widths, first, shown, room) : 0;
    row.end = row.first;
    row.tabs.resize(widths.size());
    int x = 0;
    for (size_t i = row.first; i < widths.size() && x < room; ++i)
    {
        const int width = std::min(widths[i], room - x);
        row.tabs[i] = wxRect(x, 0, width, sizes.room.y);
        x += width;
        row.end = width == widths[i] ? i + 1 : row.end;
    }
    return row;
}

int TabRow::TabAt(const wxPoint& point) const
{
    for (size_t i = first; i < tabs.size() && !tabs[i].IsEmpty(); ++i)
    {
        if (tabs[i].Contains(point))
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int TabRow::ButtonAt(const wxPoint& point) const
{
    for (int i = 0; i < kTabRowButtons; ++i)
    {
        if (buttons[i].Contains(point))
        {
            return i;
        }
    }
    return -1;
}

size_t TabRow::PlaceAt(int x) const
{
    size_t place = first;
    while (place < tabs.size() && !tabs[place].IsEmpty() &&
           x >= tabs[place].x + tabs[place].width / 2)
    {
        ++place;
    }
    return place;
}

int TabRow::EdgeOf(size_t place) const
{
    const bool isSeen = place < tabs.size() && !tabs[place].IsEmpty();
    return isSeen ? tabs[place].x : place > first ? tabs[place - 1].GetRight() + 1 : 0;
}

size_t TabRow::PlaceFor(size_t dragged, int x) const
{
    if (dragged >= tabs.size())
    {
        return dragged;
    }
    size_t     place = dragged;
    const int  own = tabs[dragged].width;
    const auto isSeen = [this](size_t tab) { return tab < tabs.size() && !tabs[tab].IsEmpty(); };
    const auto passesBack = [&](const wxRect& other)
    { return x < other.x + std::min(own, other.width); };
    const auto passesOn = [&](const wxRect& other)
    { return x >= other.x + other.width - std::min(own, other.width); };
    while (place > first && passesBack(tabs[place - 1]))
    {
        --place;
    }
    while (place >= dragged && isSeen(place + 1) && passesOn(tabs[place + 1]))
    {
        ++place;
    }
    return place;
}

int TabWidth(int textWidth, bool hasIcon, bool hasSlot, const TabSizes& sizes)
{
    return std::min(sizes.most, 2 * sizes.margin + textWidth +
                                    (hasIcon ? sizes.icon + sizes.gap : 0) +
                                    (hasSlot ? sizes.slot + sizes.gap : 0));
}

TabParts PartsOfTab(const wxRect& tab, bool hasIcon, bool hasSlot, const TabSizes& sizes)
{
    TabParts   parts;
    int        left = tab.x + sizes.margin;
    int        right = tab.x + tab.width - sizes.margin;
    const auto square = [&tab](int x, int side)
    { return wxRect(x, tab.y + (tab.height - side) / 2, side, side); };
    if (hasSlot && right - left >= sizes.slot)
    {
        right -= sizes.slot;
        parts.slot = square(right, sizes.slot);
        right -= sizes.gap;
    }
    if (hasIcon && right - left >= sizes.icon)
    {
        parts.icon = square(left, sizes.icon);
        left += sizes.icon + sizes.gap;
    }
    parts.text = wxRect(left, tab.y, std::max(0, right - left), tab.height);
    return parts;
}
} // namespace appearance
