#include "listviews/wxDBListCtrl.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "internal/text/OneLine.h"
#include "listviews/cells/TextFit.h"
#include "listviews/columns/ColumnActions.h"
#include "listviews/copying/TableCopy.h"
#include "listviews/keys/ListKeys.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/TableSettings.h"
#include "listviews/refresh/RefreshWork.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/dc.h>
#include <wx/sizer.h>

#include <algorithm>
#include <climits>

namespace
{
constexpr size_t kLongestMeasured = 4000; // bytes of a text: no view is as wide
}

wxDBListCtrl::wxDBListCtrl(wxWindow* parent, int id, bool singleSelection)
    : wxtPanel(parent, id),
      m_Model(std::make_unique<listviews::ListModel>()),
      m_Actions(MakeActions()),
      m_Copier(std::make_unique<listviews::Copier>())
{
    CALL_ENTRY("wxDBListCtrl::wxDBListCtrl");
    listviews::_TableSettings::Init();
    // Its views cover it. To have it erased the toolkit makes a device context at their every
    // paint.
    SetBackgroundStyle(wxBG_STYLE_SYSTEM);
    m_Model->rowHeight = listviews::_TableSettings::Get().RowHeight();
    m_Header = new wxDBListHeader(*this, *m_Model, *m_Actions);
    m_Body = new wxDBListBody(*this, *m_Model, *this, *m_Header, singleSelection);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Header, 0, wxEXPAND);
    sizer->Add(m_Body, 1, wxEXPAND);
    SetSizer(sizer);
    m_Keys = std::make_unique<listviews::ListKeys>(
        listviews::ListKeys::Parts{*this, *m_Header, *m_Body, *this, *m_Model, *m_Actions,
                                   singleSelection, [this] { CopySelection(); }});
}

std::unique_ptr<listviews::ColumnActions> wxDBListCtrl::MakeActions()
{
    auto actions = std::make_unique<listviews::ColumnActions>();
    actions->resize = [this](int column, int width) { SetColumnWidth(column, width); };
    actions->fit = [this](int column)
    {
        FitColumn(column);
        TellColumns(column);
    };
    actions->fitAll = [this]
    {
        FitAllColumns();
        TellColumns(-1);
    };
    actions->move = [this](int from, int to)
    {
        MoveColumn(from, to - from);
        WidthsChanged();
        TellColumns(to);
    };
    actions->showMenu = [this](const wxPoint& where) { ShowColumnMenu(where); };
    return actions;
}

// The views first: they ask for cells as long as they are there.
wxDBListCtrl::~wxDBListCtrl()
{
    DestroyChildren();
}

void wxDBListCtrl::PrepareToDraw(int)
{
}

void wxDBListCtrl::CleanupAfterDraw(int)
{
}

void wxDBListCtrl::DoClear()
{
}

String wxDBListCtrl::GetRowKey(int)
{
    return String();
}

wxColour wxDBListCtrl::GetRowColor(int)
{
    return wxtGetColor(color_Text);
}

wxColour wxDBListCtrl::GetRowBGColor(int row)
{
    return listviews::StripeColour(row);
}

wxCursor wxDBListCtrl::CustomizeCursor(int, int, int, int)
{
    return *wxSTANDARD_CURSOR;
}

void wxDBListCtrl::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool)
{
    CALL_ENTRY("wxDBListCtrl::DrawCell");
    const wxRect room = rect.Deflate(listviews::_TableSettings::Get().cellMargin);
    if (room.width < 1)
    {
        return;
    }
    const String text = listviews::WithoutHidden(GetDisplayText(row, column), room.width);
    if (text.empty() || m_Body->DrawAsciiText(dc, text, room))
    {
        return;
    }
    const wxString line = internal::OneLine(wxtToWx(text));
    if (m_Body->DrawCellText(dc, line, room))
    {
        return;
    }
    int               width = room.width;
    const wxString    shown = FormatDisplayString(wxtFromWx(line), width, dc);
    const wxDCClipper clip(dc, room);
    dc.DrawText(shown, room.GetPosition());
}

int wxDBListCtrl::GetCellWidth(wxDC& dc, int row, int column)
{
    const String text = GetDisplayText(row, column).substr(0, kLongestMeasured);
    return m_Body->CellTextWidth(dc, internal::OneLine(wxtToWx(text))) +
           2 * listviews::_TableSettings::Get().cellMargin;
}

wxString wxDBListCtrl::FormatDisplayString(const String& text, int& width, wxDC& dc)
{
    CALL_ENTRY("wxDBListCtrl::FormatDisplayString");
    listviews::Fitted fitted = listviews::FitMeasured(wxtToWx(text).ToStdWstring(), width,
                                                      [&dc](const std::wstring& form)
                                                      { return dc.GetTextExtent(form).x; });
    width = fitted.width;
    return fitted.text;
}

// Rows.

int wxDBListCtrl::GetItemCount() const
{
    return m_Model->rowCount;
}

int wxDBListCtrl::GetRowHeight() const
{
    return m_Model->rowHeight;
}

void wxDBListCtrl::Insert(int row, bool redraw)
{
    Insert(row, 1, redraw);
}

void wxDBListCtrl::Insert(int row, unsigned long count, bool redraw)
{
    CALL_ENTRY("wxDBListCtrl::Insert");
    if (row != GetItemCount() && !m_Model->HasRow(row))
    {
        return;
    }
    const int  before = GetItemCount();
    const auto added = static_cast<int>(std::min<unsigned long>(count, INT_MAX));
    if (!m_Model->InsertRows(row, added))
    {
        LogError(SFormat("A list of %lld rows is higher than can be scrolled: %d are shown",
                         static_cast<long long>(before) + added, GetItemCount()));
    }
    m_Copier->RowsInserted(row, GetItemCount() - before);
    m_Body->Selecting().RowsInserted(row, GetItemCount() - before);
    TellRowsChanged();
    if (redraw)
    {
        RedrawItems(row, GetItemCount() - 1);
    }
}

void wxDBListCtrl::TellRowsChanged()
{
    if (m_Refresh)
    {
        m_Refresh->RowsChanged();
    }
    m_Body->RowsChanged();
}

void wxDBListCtrl::Remove(int row)
{
    Remove(row, 1);
}

void wxDBListCtrl::Remove(int row, unsigned long count)
{
    CALL_ENTRY("wxDBListCtrl::Remove");
    if (!m_Model->HasRow(row) || count == 0)
    {
        return;
    }
    const auto below = static_cast<unsigned long>(GetItemCount() - row);
    const int  last = row + static_cast<int>(std::min(count, below)) - 1;
    m_Model->RemoveRows(row, last);
    m_Copier->RowsRemoved(row, last);
    m_Body->Selecting().RowsRemoved(row, last);
    TellRowsChanged();
    for (int removed = last; removed >= row; --removed)
    {
        if (IsRowSelected(removed) &&
            !m_Body->SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), 0, removed))
        {
            return;
        }
    }
    m_Body->Redraw();
}

void wxDBListCtrl::Clear()
{
    CALL_ENTRY("wxDBListCtrl::Clear");
    FinishCopying();
    DropSelecting();
    DoClear();
    m_Model->rowCount = 0;
    m_Model->caret = -1;
    m_Body->RowsChanged();
    m_Body->Redraw();
}

void wxDBListCtrl::SetItemCount(int count)
{
    CALL_ENTRY("wxDBListCtrl::SetItemCount");
    if (count > GetItemCount())
    {
        Insert(GetItemCount(), static_cast<unsigned long>(count - GetItemCount()), false);
    }
    m_Model->rowCount = std::clamp(count, 0, GetItemCount());
    TellRowsChanged();
    m_Body->Redraw();
}

bool wxDBListCtrl::IsSelecting() const
{
    return m_Body->Selecting().IsBusy() || (m_Refresh && m_Refresh->IsBusy());
}

void wxDBListCtrl::SelectAllRows()
{
    CALL_ENTRY("wxDBListCtrl::SelectAllRows");
    m_Keys->SelectAll();
}

bool wxDBListCtrl::FinishSelecting()
{
    CALL_ENTRY("wxDBListCtrl::FinishSelecting");
    return (!m_Refresh || m_Refresh->Finish()) && m_Body->Selecting().Finish();
}

void wxDBListCtrl::DropSelecting()
{
    m_Body->Selecting().Drop();
    if (m_Refresh)
    {
        m_Refresh->Drop();
    }
}

const wxCursor& wxDBListCtrl::GetCurrentCursor() const
{
    return m_Body->GetCursor();
}

int wxDBListCtrl::GetLastSelect() const
{
    return m_Model->anchor;
}

void wxDBListCtrl::SetLastSelect(int row)
{
    m_Model->SetAnchor(row);
    m_Body->RedrawMarks();
}

int wxDBListCtrl::GetFocusRow() const
{
    return m_Model->FocusRow();
}

void wxDBListCtrl::SetFocusRow(int row)
{
    CALL_ENTRY("wxDBListCtrl::SetFocusRow");
    if (row == -1 || m_Model->HasRow(row))
    {
        m_Model->caret = row;
        m_Body->RedrawMarks();
    }
}

void wxDBListCtrl::ReportScrollbars()
{
    m_Body->TraceScrollbars();
}

// Redrawing.

void wxDBListCtrl::Redraw()
{
    m_Header->Redraw();
    m_Body->Redraw();
}

void wxDBListCtrl::RedrawSelection()
{
    m_Body->RedrawMarks();
}

void wxDBListCtrl::RedrawItem(int row)
{
    if (!m_Body->IsWholeRedrawPending())
    {
        m_Body->Redraw(m_Body->GetItemRect(row));
    }
}

void wxDBListCtrl::RedrawItems(int a, int b)
{
    m_Body->Redraw(m_Body->GetItemRect(std::min(a, b)).Union(m_Body->GetItemRect(std::max(a, b))));
}

void wxDBListCtrl::RedrawColumn(int column)
{
    m_Body->Redraw(m_Body->GetColumnRect(column));
    m_Header->Redraw();
}

void wxDBListCtrl::RedrawColumns(int a, int b)
{
    m_Body->Redraw(
        m_Body->GetColumnRect(std::min(a, b)).Union(m_Body->GetColumnRect(std::max(a, b))));
    m_Header->Redraw();
}

void wxDBListCtrl::RedrawCell(int row, int column)
{
    if (!m_Body->IsWholeRedrawPending()) // a list is filled cell by cell
    {
        m_Body->Redraw(m_Body->GetCellRect(row, column));
    }
}

void wxDBListCtrl::RedrawCells(int row1, int row2, int column1, int column2)
{
    const wxRect first = m_Body->GetCellRect(std::min(row1, row2), std::min(column1, column2));
    m_Body->Redraw(
        first.Union(m_Body->GetCellRect(std::max(row1, row2), std::max(column1, column2))));
}

// Scrolling and focus are the body's.

void wxDBListCtrl::SetFocus()
{
    m_Body->SetFocus();
}

void wxDBListCtrl::SetScrollPos(int orientation, int position, bool refresh)
{
    m_Body->SetScrollPos(orientation, position, refresh);
    Redraw();
}

int wxDBListCtrl::GetScrollPos(int orientation) const
{
    return m_Body->GetScrollPos(orientation);
}

int wxDBListCtrl::GetScrollRange(int orientation) const
{
    return m_Body->GetScrollRange(orientation);
}

int wxDBListCtrl::GetScrollThumb(int orientation) const
{
    return m_Body->GetScrollThumb(orientation);
}

void wxDBListCtrl::EnsureVisible(int row)
{
    CALL_ENTRY("wxDBListCtrl::EnsureVisible");
    if (m_Model->HasRow(row))
    {
        m_Body->ShowRow(row);
    }
}
