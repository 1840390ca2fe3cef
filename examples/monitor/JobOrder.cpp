#include "monitor/JobOrder.h"

#include <algorithm>

namespace
{
JobOrder::const_iterator Find(const JobOrder& order, int column)
{
    return std::find_if(order.begin(), order.end(),
                        [column](const JobSort& by) { return by.column == column; });
}
} // namespace

JobOrder Clicked(const JobOrder& order, int column, bool add)
{
    const auto found = Find(order, column);
    const bool isThere = found != order.end();
    JobSort    by{column, isThere && !found->descending};
    if (!add)
    {
        by.descending = by.descending && order.front().column == column;
        return {by};
    }
    JobOrder result = order;
    if (isThere)
    {
        result[static_cast<size_t>(found - order.begin())] = by;
    }
    else
    {
        result.push_back(by);
    }
    return result;
}

String TextOf(const JobOrder& order)
{
    String text;
    for (const JobSort& by : order)
    {
        text += SFormat("%s%d%c", text.empty() ? "" : " ", by.column, by.descending ? '-' : '+');
    }
    return text;
}

JobOrder OrderFrom(const String& text, int columns)
{
    JobOrder        order;
    StringTokenizer words(text, " ", '"', '\\');
    while (words.HasMore())
    {
        const String word = words.Next();
        const bool   isMarked = !word.empty() && (word.back() == '+' || word.back() == '-');
        const auto   column = isMarked ? String(word.substr(0, word.size() - 1)).ToInt(-1) : -1;
        if (column >= 0 && column < columns && Find(order, static_cast<int>(column)) == order.end())
        {
            order.push_back({static_cast<int>(column), word.back() == '-'});
        }
    }
    return order;
}
