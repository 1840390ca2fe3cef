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

// Where a column is when another has moved.
int AfterMove(int column, int from, int to)
{
    if (column == from)
    {
        return to;
    }
    if (to <= column && column < from)
    {
        return column + 1;
    }
    return from < column && column <= to ? column - 1 : column;
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

int ListModel::ShownCount() const
{
    return static_cast<int>(std::count_if(columns.begin(), columns.end(),
                                          [](const wxDBListColumn& c) { return c.visible; }));
}

int ListModel::NextShown(int index, int step) const
{
    while (HasColumn(index) && !Column(index).visible)
    {
        index += step;
    }
    return HasColumn(index) ? index : -1;
}

int ListModel::MainColumn() const
{
    return HasColumn(highlightColumn) && Column(highlightColumn).visible ? highlightColumn
                                                                         : NextShown(0, 1);
}

void ListModel::Show(int index, bool show)
{
    Column(index).visible = show || (Column(index).visible && ShownCount() == 1);
}

void ListModel::InsertColumn(int index, const wxDBListColumn& column)
{
    columns.insert(columns.begin() + index, column);
    SetWidth(index, column.width < 0 ? ListGeometry::k_DefaultWidth : column.width);
    homes.Insert(index, Column(index));
}

void ListModel::RemoveColumn(int index)
{
    columns.erase(columns.begin() + index);
    homes.Remove(index);
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
    homes.Move(index, target);
    highlightColumn = AfterMove(highlightColumn, index, target);
    titleCursor = AfterMove(titleCursor, index, target);
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
    hoverColumn = pressedColumn = resizeStart = dropGap = -1;
    titleCursor = HasColumn(titleCursor) && Column(titleCursor).visible ? titleCursor : -1;
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
        geometry.widths.push_back(column.visible ? column.width : 0);
        if (!column.visible)
        {
            geometry.hidden.resize(columns.size());
            geometry.hidden[geometry.widths.size() - 1] = true;
        }
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
