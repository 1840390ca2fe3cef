#include "appearance/wxTolvanColors.h"
#include "listviews/cells/ListGeometry.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <algorithm>

namespace
{
const char* const kSeparator = ", ";

int WidthOrDefault(int width)
{
    return width < 0 ? listviews::ListGeometry::k_DefaultWidth
                     : std::min(width, listviews::ListGeometry::k_MostWidth);
}

// A text that is no number, too, gives a column that can be seen.
int StoredWidth(const String& text)
{
    const long long width = text.Trim().ToInt(0);
    return static_cast<int>(std::clamp<long long>(width, listviews::ListGeometry::k_LeastWidth,
                                                  listviews::ListGeometry::k_MostWidth));
}
} // namespace

void wxDBListCtrl::ColumnsChanged()
{
    m_Header->ForgetColumns();
    m_Body->m_ContentWidth = listviews::ContentWidth(m_Body->Geometry().widths);
    m_Body->AdjustScrollbarsLater();
    Redraw();
}

bool wxDBListCtrl::HasColumn(int index) const
{
    return index >= 0 && index < GetColumnCount();
}

const wxDBListCtrl::ColumnHeader& wxDBListCtrl::GetColumn(int index) const
{
    static const ColumnHeader s_None;
    return HasColumn(index) ? m_Columns[static_cast<size_t>(index)] : s_None;
}

String wxDBListCtrl::GetColumnName(int index) const
{
    return GetColumn(index).label;
}

void wxDBListCtrl::AddColumn(const ColumnHeader& column)
{
    CALL_ENTRY("wxDBListCtrl::AddColumn");
    m_Columns.push_back(column);
    m_Columns.back().width = WidthOrDefault(column.width);
    ColumnsChanged();
}

void wxDBListCtrl::AddColumn(int type, const String& label, int width)
{
    InsertColumn(GetColumnCount(), type, label, String(), width);
}

void wxDBListCtrl::InsertColumn(int index, int type, const String& label, const String& key,
                                int width)
{
    CALL_ENTRY("wxDBListCtrl::InsertColumn");
    if (index != GetColumnCount() && !HasColumn(index))
    {
        return;
    }
    ColumnHeader column;
    column.label = label;
    column.width = WidthOrDefault(width);
    column.type = type;
    column.key = key;
    m_Columns.insert(m_Columns.begin() + index, column);
    TellColumnMoved(-1, index);
    ColumnsChanged();
}

void wxDBListCtrl::RemoveColumn(int index)
{
    CALL_ENTRY("wxDBListCtrl::RemoveColumn");
    if (!HasColumn(index))
    {
        return;
    }
    m_Columns.erase(m_Columns.begin() + index);
    TellColumnMoved(index, -1);
    ColumnsChanged();
}

void wxDBListCtrl::RemoveAllColumns()
{
    CALL_ENTRY("wxDBListCtrl::RemoveAllColumns");
    while (!m_Columns.empty())
    {
        m_Columns.pop_back();
        TellColumnMoved(GetColumnCount(), -1);
    }
    ColumnsChanged();
}

void wxDBListCtrl::TellColumnMoved(int from, int to)
{
    if (m_OnColumnMoved)
    {
        m_OnColumnMoved(from, to);
    }
}

void wxDBListCtrl::MoveColumn(int index, int delta)
{
    CALL_ENTRY("wxDBListCtrl::MoveColumn");
    if (delta == 0 || !HasColumn(index))
    {
        return;
    }
    const int target = static_cast<int>(
        std::clamp<long long>(static_cast<long long>(index) + delta, 0, GetColumnCount() - 1));
    const auto column = m_Columns.begin() + index;
    if (target > index)
    {
        std::rotate(column, column + 1, m_Columns.begin() + target + 1);
    }
    else
    {
        std::rotate(m_Columns.begin() + target, column, column + 1);
    }
    if (m_HighlightColumn == index)
    {
        m_HighlightColumn = target;
    }
    else if (delta < 0 && target <= m_HighlightColumn && m_HighlightColumn < index)
    {
        ++m_HighlightColumn;
    }
    else if (delta > 0 && index < m_HighlightColumn && m_HighlightColumn <= target)
    {
        --m_HighlightColumn;
    }
    TellColumnMoved(index, target);
    m_Header->ForgetColumns();
    RedrawColumns(index, target);
}

void wxDBListCtrl::SetColumnLabel(int index, const String& label)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnLabel");
    if (HasColumn(index))
    {
        m_Columns[static_cast<size_t>(index)].label = label;
        m_Header->Redraw();
    }
}

void wxDBListCtrl::SetColumnImage(int index, int image)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnImage");
    if (HasColumn(index))
    {
        m_Columns[static_cast<size_t>(index)].image = image;
        m_Header->Redraw();
    }
}

void wxDBListCtrl::SetHeaderImages(const std::vector<wxBitmapBundle>& images)
{
    CALL_ENTRY("wxDBListCtrl::SetHeaderImages");
    m_HeaderImages = images;
    m_Header->Redraw();
}

void wxDBListCtrl::ChangeWidth(int index, int width)
{
    m_Columns[static_cast<size_t>(index)].width =
        std::clamp(width, 0, listviews::ListGeometry::k_MostWidth);
    m_Body->m_ContentWidth = listviews::ContentWidth(m_Body->Geometry().widths);
}

void wxDBListCtrl::SetColumnWidth(int index, int width)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnWidth");
    if (HasColumn(index))
    {
        ChangeWidth(index, width);
        m_Body->AdjustScrollbarsLater();
        Redraw();
    }
}

void wxDBListCtrl::SetHighlightColumn(int index)
{
    CALL_ENTRY("wxDBListCtrl::SetHighlightColumn");
    const int before = m_HighlightColumn;
    m_HighlightColumn = std::max(index, -1);
    if (before == -1)
    {
        RedrawColumn(index);
    }
    else
    {
        RedrawColumns(before, index);
    }
}

int wxDBListCtrl::FindColumnByType(int type) const
{
    const auto found = std::find_if(m_Columns.begin(), m_Columns.end(),
                                    [type](const ColumnHeader& c) { return c.type == type; });
    return found == m_Columns.end() ? -1 : static_cast<int>(found - m_Columns.begin());
}

void wxDBListCtrl::SaveColumnSizes(const String& section, const String& key)
{
    CALL_ENTRY("wxDBListCtrl::SaveColumnSizes");
    String value;
    for (const ColumnHeader& column : m_Columns)
    {
        value += (value.empty() ? "" : kSeparator) + String::FromInt(column.width);
    }
    {
        OptionsFile&    options = Application::the_Application->Options();
        const WriteLock lock(options.Lock());
        options.InsertSection(section);
        options.SetValue(section, key, value);
    }
    LogDebug("ListCtrl SAVE: [ " + section + " ] " + key + " = " + value);
}

void wxDBListCtrl::RestoreColumnSizes(const String& section, const String& key)
{
    CALL_ENTRY("wxDBListCtrl::RestoreColumnSizes");
    const String value = Application::the_Application->Options().GetValue(section, key);
    LogDebug("ListCtrl LOAD: [ " + section + " ] " + key + " = " + value);
    int column = 0;
    for (StringTokenizer tokens(value, ",", '"', '\\');
         column < GetColumnCount() && tokens.HasMore(); ++column)
    {
        ChangeWidth(column, StoredWidth(tokens.Next()));
    }
    m_Body->AdjustScrollbarsLater();
    Redraw();
}
