#include "listviews/arranging/FilterColumns.h"

#include "listviews/wxDBListCtrl.h"
#include "vesta/Log.h"

namespace listviews
{
std::vector<wxDBListColumn> ColumnsOf(const wxDBListCtrl& list)
{
    std::vector<wxDBListColumn> columns;
    columns.reserve(static_cast<size_t>(list.GetColumnCount()));
    for (int i = 0; i < list.GetColumnCount(); ++i)
    {
        columns.push_back(list.GetColumn(i));
    }
    return columns;
}

std::vector<FilterQuery::Column> FilterColumnsOf(const wxDBListCtrl& list)
{
    std::vector<FilterQuery::Column> columns;
    for (const wxDBListColumn& column : ColumnsOf(list))
    {
        columns.push_back({column.type, column.label, column.key, column.visible});
    }
    return columns;
}

void WarnOfWordsLeftOut(const String& filter)
{
    if (FilterQuery(filter, {}).IsCutOff())
    {
        LogWarning(SFormat("Of the words of a filter only the first %zu are looked for",
                           FilterQuery::k_MostTerms));
    }
}
} // namespace listviews
