#include "listviews/columns/ColumnEvent.h"
#include "listviews/model/ListModel.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <algorithm>

namespace listviews
{
wxDEFINE_EVENT(EVT_COLUMNS_CHANGED, wxCommandEvent);
}

void wxDBListCtrl::ColumnsChanged()
{
    m_Header->ForgetColumns();
    WidthsChanged();
    wxCommandEvent changed(listviews::EVT_COLUMNS_CHANGED);
    ProcessWindowEventLocally(changed);
}

void wxDBListCtrl::WidthsChanged()
{
    m_Body->ColumnsChanged();
    Redraw();
}

int wxDBListCtrl::GetColumnCount() const
{
    return m_Model->ColumnCount();
}

const wxDBListCtrl::ColumnHeader& wxDBListCtrl::GetColumn(int index) const
{
    static const ColumnHeader s_None;
    return m_Model->HasColumn(index) ? m_Model->Column(index) : s_None;
}

String wxDBListCtrl::GetColumnName(int index) const
{
    return GetColumn(index).label;
}

void wxDBListCtrl::AddColumn(const ColumnHeader& column)
{
    CALL_ENTRY("wxDBListCtrl::AddColumn");
    PutColumn(GetColumnCount(), column);
}

void wxDBListCtrl::AddColumn(int type, const String& label, int width)
{
    InsertColumn(GetColumnCount(), type, label, String(), width);
}

void wxDBListCtrl::InsertColumn(int index, int type, const String& label, const String& key,
                                int width)
{
    CALL_ENTRY("wxDBListCtrl::InsertColumn");
    ColumnHeader column;
    column.label = label;
    column.width = width;
    column.type = type;
    column.key = key;
    PutColumn(index, column);
}

void wxDBListCtrl::PutColumn(int index, const ColumnHeader& column)
{
    if (index == GetColumnCount() || m_Model->HasColumn(index))
    {
        FinishCopying();
        m_Model->InsertColumn(index, column);
        TellColumnMoved(-1, index);
        ColumnsChanged();
    }
}

void wxDBListCtrl::RemoveColumn(int index)
{
    CALL_ENTRY("wxDBListCtrl::RemoveColumn");
    if (m_Model->HasColumn(index))
    {
        FinishCopying();
        m_Model->RemoveColumn(index);
        TellColumnMoved(index, -1);
        ColumnsChanged();
    }
}

void wxDBListCtrl::RemoveAllColumns()
{
    CALL_ENTRY("wxDBListCtrl::RemoveAllColumns");
    FinishCopying();
    while (GetColumnCount() > 0)
    {
        m_Model->RemoveColumn(GetColumnCount() - 1);
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
    if (delta != 0 && m_Model->HasColumn(index))
    {
        FinishCopying();
        const int target = m_Model->MoveColumn(index, delta);
        TellColumnMoved(index, target);
        m_Header->ForgetColumns();
        RedrawColumns(index, target);
    }
}

void wxDBListCtrl::SetColumnLabel(int index, const String& label)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnLabel");
    if (m_Model->HasColumn(index))
    {
        m_Model->Column(index).label = label;
        m_Header->Redraw();
    }
}

void wxDBListCtrl::SetColumnImage(int index, int image)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnImage");
    if (m_Model->HasColumn(index))
    {
        m_Model->Column(index).image = image;
        m_Header->Redraw();
    }
}

void wxDBListCtrl::SetColumnRank(int index, int rank)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnRank");
    if (m_Model->HasColumn(index))
    {
        m_Model->Column(index).rank = rank;
        m_Header->Redraw();
    }
}

void wxDBListCtrl::SetHeaderImages(const std::vector<wxBitmapBundle>& images)
{
    CALL_ENTRY("wxDBListCtrl::SetHeaderImages");
    m_Model->titleImages = images;
    m_Header->Redraw();
}

void wxDBListCtrl::SetColumnWidth(int index, int width)
{
    CALL_ENTRY("wxDBListCtrl::SetColumnWidth");
    if (m_Model->HasColumn(index))
    {
        m_Model->SetWidth(index, width);
        WidthsChanged();
    }
}

int wxDBListCtrl::GetHighlightColumn() const
{
    return m_Model->highlightColumn;
}

void wxDBListCtrl::SetHighlightColumn(int index)
{
    CALL_ENTRY("wxDBListCtrl::SetHighlightColumn");
    const int before = m_Model->highlightColumn;
    m_Model->highlightColumn = std::max(index, -1);
    if (before == -1)
    {
        RedrawColumn(index);
    }
    else
    {
        RedrawColumns(before, index);
    }
}

// Points of the titles' events lie above the rows.
bool wxDBListCtrl::IsOnTitles(const wxListEvent& event) const
{
    const int above = -event.GetPoint().y;
    return above > 0 && above <= m_Header->GetSize().y;
}

int wxDBListCtrl::FindColumnByType(int type) const
{
    return m_Model->FindType(type);
}

void wxDBListCtrl::SaveColumnSizes(const String& section, const String& key)
{
    CALL_ENTRY("wxDBListCtrl::SaveColumnSizes");
    const String value = listviews::WidthsText(*m_Model);
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
    listviews::TakeWidths(*m_Model, value);
    WidthsChanged();
}
