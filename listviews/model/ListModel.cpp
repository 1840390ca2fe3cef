#include "listviews/model/ListModel.h"

#include <algorithm>
#include <climits>

namespace listviews
{
namespace
{
const char* const kSeparator = ", ";

int MovedDown(int row, int count)
{
    return static_cast<int>(std::min<long long>(static_cast<long long>(row) + count, INT_MAX));
}

// A text that is no number, too, gives a column that can be seen.
int StoredWidth(const String& text)
{
    const long long width = text.Trim().ToInt(0);
    return static_cast<int>(std::clamp<long long>(width, ListGeometry::k_LeastWidth, INT_MAX));
}
} // namespace

int ListModel::FindType(int type) const
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [type](const wxDBListColumn& c) { return c.type == type; });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

void ListModel::InsertColumn(int index, const wxDBListColumn& column)
{
    columns.insert(columns.begin() + index, column);
    SetWidth(index, column.width < 0 ? ListGeometry::k_DefaultWidth : column.width);
}

void ListModel::RemoveColumn(int index)
{
    columns.erase(columns.begin() + index);
}

int ListModel::MoveColumn(int index, int delta)
{
    const int target = static_cast<int>(
        std::clamp<long long>(static_cast<long long>(index) + delta, 0, ColumnCount() - 1));
    const auto column = columns.begin() + index;
    if (target > index)
    {
        std::rotate(column, column + 1, columns.begin() + target + 1);
    }
    else
    {
        std::rotate(columns.begin() + target, column, column + 1);
    }
    if (highlightColumn == index)
    {
        highlightColumn = target;
    }
    else if (delta < 0 && target <= highlightColumn && highlightColumn < index)
    {
        ++highlightColumn;
    }
    else if (delta > 0 && index < highlightColumn && highlightColumn <= target)
    {
        --highlightColumn;
    }
    return target;
}

void ListModel::SetWidth(int index, int width)
{
    Column(index).width = std::clamp(width, 0, ListGeometry::k_MostWidth);
}

int ListModel::ContentWidth() const
{
    return listviews::ContentWidth(Geometry({}, {}).widths);
}

void ListModel::BeginResize(int index, int x)
{
    hoverColumn = index;
    resizeStart = x;
    Column(index).startWidth = Column(index).width;
}

int ListModel::ResizedWidth(int x) const
{
    return std::max(ListGeometry::k_LeastWidth, Column(hoverColumn).startWidth + x - resizeStart);
}

void ListModel::LetTitlesGo()
{
    hoverColumn = pressedColumn = resizeStart = -1;
}

bool ListModel::InsertRows(int row, int count)
{
    const long long wanted = static_cast<long long>(rowCount) + count;
    const int       most = MostRows(rowHeight);
    const bool      isTooLong = wanted > most && rowCount < most;
    rowCount = static_cast<int>(std::min<long long>(wanted, most));
    anchor = anchor >= row ? MovedDown(anchor, count) : anchor;
    caret = caret >= row ? MovedDown(caret, count) : caret;
    return !isTooLong;
}

void ListModel::RemoveRows(int first, int last)
{
    rowCount -= last - first + 1;
    if (anchor >= first && anchor <= last)
    {
        anchor = first - 1;
    }
    caret = caret > last ? caret - (last - first + 1) : std::min(caret, first - 1);
}

ListGeometry ListModel::Geometry(const wxPoint& scroll, const wxSize& client) const
{
    ListGeometry geometry;
    geometry.rowHeight = rowHeight;
    geometry.scroll = scroll;
    geometry.client = client;
    geometry.widths.reserve(columns.size());
    for (const wxDBListColumn& column : columns)
    {
        geometry.widths.push_back(column.width);
    }
    return geometry;
}

String WidthsText(const ListModel& model)
{
    String text;
    for (const wxDBListColumn& column : model.columns)
    {
        text += (text.empty() ? "" : kSeparator) + String::FromInt(column.width);
    }
    return text;
}

void TakeWidths(ListModel& model, const String& text)
{
    int column = 0;
    for (StringTokenizer tokens(text, ",", '"', '\\');
         column < model.ColumnCount() && tokens.HasMore(); ++column)
    {
        model.SetWidth(column, StoredWidth(tokens.Next()));
    }
}
} // namespace listviews
