#include "listviews/arranging/ListOrder.h"

#include <algorithm>

namespace listviews
{
int ListOrder::RowCount(int count) const
{
    return IsPlain() ? count : static_cast<int>(items.size());
}

int ListOrder::ItemAt(int row, int count) const
{
    if (row < 0 || row >= RowCount(count))
    {
        return -1;
    }
    const int item = IsPlain() ? row : items[static_cast<size_t>(row)];
    return item < count ? item : -1;
}

int ListOrder::RowOf(int item, int count) const
{
    if (item < 0 || item >= count || IsPlain())
    {
        return item < count ? std::max(item, -1) : -1;
    }
    const auto found = std::find(items.begin(), items.end(), item);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

std::vector<bool> ListOrder::Shown(int count) const
{
    std::vector<bool> shown(static_cast<size_t>(count), IsPlain());
    for (const int item : items)
    {
        if (item < count)
        {
            shown[static_cast<size_t>(item)] = true;
        }
    }
    return shown;
}

std::optional<std::vector<int>> AmongThose(const ListOrder& known, const ListOrder& wanted,
                                           int count)
{
    if (known.IsPlain() || !known.isCurrent || !wanted.query.IsWithin(known.query))
    {
        return std::nullopt;
    }
    if (known.rules == wanted.rules)
    {
        return known.items;
    }
    if (known.query.IsEmpty())
    {
        return std::nullopt;
    }
    // What is sorted anew begins with the host's own order, whatever it was sorted by before.
    std::vector<int>        among;
    const std::vector<bool> shown = known.Shown(count);
    for (int item = 0; item < count; ++item)
    {
        if (shown[static_cast<size_t>(item)])
        {
            among.push_back(item);
        }
    }
    return among;
}

int NearestShown(const ListOrder& order, int row, const std::vector<bool>& shown)
{
    const int  count = static_cast<int>(shown.size());
    const int  rows = order.RowCount(count);
    const auto shownAt = [&](int at)
    {
        const int item = order.ItemAt(at, count);
        return item >= 0 && shown[static_cast<size_t>(item)] ? item : -1;
    };
    for (const int step : {1, -1})
    {
        for (int at = row; at >= 0 && at < rows; at += step)
        {
            if (const int item = shownAt(at); item >= 0)
            {
                return item;
            }
        }
    }
    return -1;
}
} // namespace listviews
