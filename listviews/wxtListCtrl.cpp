#include "listviews/wxtListCtrl.h"

#include "appearance/wxTolvanColors.h"
#include "listviews/model/ListSelection.h"
#include "listviews/model/TableSettings.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/listbase.h>

#include <algorithm>

struct wxtListCtrl::Row
{
    Row() = default;
    // Fonts and colours don't promise that moving never throws; without the promise all rows would
    // be copied, with their texts, whenever there are too many for their place.
    Row(Row&&) noexcept = default;
    Row& operator=(Row&&) noexcept = default;

    std::vector<String> cells;
    wxFont              font;
    wxColour            colour;
    int                 image = -1;
};

// clang-format off
wxBEGIN_EVENT_TABLE(wxtListCtrl, wxDBListCtrl)
    EVT_LIST_ITEM_SELECTED(wxID_ANY, wxtListCtrl::OnItemSelect)
    EVT_LIST_ITEM_DESELECTED(wxID_ANY, wxtListCtrl::OnItemDeselect)
wxEND_EVENT_TABLE()
// clang-format on

wxtListCtrl::wxtListCtrl(wxWindow* parent, int id, const wxPoint&, const wxSize&, long,
                         const wxValidator&, const wxString&)
    : wxDBListCtrl(parent, wxID_ANY, false),
      m_Selection(std::make_unique<listviews::ListSelection>())
{
    CALL_ENTRY("wxtListCtrl::wxtListCtrl");
    SetId(id);
    m_OnColumnMoved = [this](int from, int to) { MoveCells(from, to); };
}

// The views ask for rows until they are gone.
wxtListCtrl::~wxtListCtrl()
{
    DestroyChildren();
}

bool wxtListCtrl::HasData(int row) const
{
    return row >= 0 && static_cast<size_t>(row) < m_Rows.size();
}

// A row may have fewer cells than there are columns.
void wxtListCtrl::MoveCells(int from, int to)
{
    for (Row& row : m_Rows)
    {
        const auto count = static_cast<int>(row.cells.size());
        if (from >= 0 && to >= 0 && count <= std::max(from, to))
        {
            row.cells.resize(static_cast<size_t>(std::max(from, to)) + 1);
        }
        const auto cells = row.cells.begin();
        if (from < 0 && to < count)
        {
            row.cells.emplace(cells + to);
        }
        else if (to < 0 && from < count)
        {
            row.cells.erase(cells + from);
        }
        else if (from >= 0 && to > from)
        {
            std::rotate(cells + from, cells + from + 1, cells + to + 1);
        }
        else if (from >= 0 && to >= 0)
        {
            std::rotate(cells + to, cells + from, cells + from + 1);
        }
    }
}

int wxtListCtrl::InsertItem(int row, const String& text, int image)
{
    CALL_ENTRY("wxtListCtrl::InsertItem");
    const int place = std::clamp(row, 0, static_cast<int>(m_Rows.size()));
    Insert(place, true);
    Row inserted;
    inserted.cells.resize(static_cast<size_t>(GetColumnCount()));
    if (!inserted.cells.empty())
    {
        inserted.cells[0] = text;
    }
    inserted.image = image;
    m_Rows.insert(m_Rows.begin() + place, std::move(inserted));
    m_Selection->RowInserted(place);
    Redraw();
    return place;
}

void wxtListCtrl::SetItem(int row, int column, const String& text)
{
    CALL_ENTRY("wxtListCtrl::SetItem");
    if (!HasData(row) || column < 0 || column >= GetColumnCount())
    {
        return;
    }
    std::vector<String>& cells = m_Rows[static_cast<size_t>(row)].cells;
    if (static_cast<size_t>(column) >= cells.size())
    {
        cells.resize(static_cast<size_t>(GetColumnCount())); // columns have come since
    }
    cells[static_cast<size_t>(column)] = text;
    RedrawCell(row, column);
}

void wxtListCtrl::SetItemTextColour(int row, const wxColour& colour)
{
    CALL_ENTRY("wxtListCtrl::SetItemTextColour");
    if (HasData(row))
    {
        m_Rows[static_cast<size_t>(row)].colour = colour;
        RedrawItem(row);
    }
}

void wxtListCtrl::SetItemFont(int row, const wxFont& font)
{
    CALL_ENTRY("wxtListCtrl::SetItemFont");
    if (HasData(row))
    {
        m_Rows[static_cast<size_t>(row)].font = font;
        RedrawItem(row);
    }
}

void wxtListCtrl::SetImages(const std::vector<wxBitmapBundle>& images)
{
    CALL_ENTRY("wxtListCtrl::SetImages");
    m_Images = images;
    Redraw();
}

// The number of rows shown stays on purpose: the list keeps an empty row for each that was deleted,
// so that nothing jumps under the pointer of somebody who deletes one after another. `Clear` ends
// that.
void wxtListCtrl::DeleteItem(int row)
{
    CALL_ENTRY("wxtListCtrl::DeleteItem");
    if (!HasData(row))
    {
        return;
    }
    FinishCopying();
    if (!FinishSelecting() || !HasData(row))
    {
        return;
    }
    m_Rows.erase(m_Rows.begin() + row);
    m_Selection->RowErased(row);
    if (GetLastSelect() == row)
    {
        SetLastSelect(row - 1);
    }
    Redraw();
}

int wxtListCtrl::GetNextItem(int item, int, int) const
{
    return m_Selection->NextAfter(item);
}

bool wxtListCtrl::IsRowSelected(int row)
{
    return m_Selection->Has(row);
}

std::vector<int> wxtListCtrl::GetSelection()
{
    return m_Selection->Rows();
}

String wxtListCtrl::GetDisplayText(int row, int column)
{
    if (!HasData(row))
    {
        return String();
    }
    const std::vector<String>& cells = m_Rows[static_cast<size_t>(row)].cells;
    return column >= 0 && static_cast<size_t>(column) < cells.size()
               ? cells[static_cast<size_t>(column)]
               : String();
}

wxColour wxtListCtrl::GetRowColor(int row)
{
    const bool own = HasData(row) && m_Rows[static_cast<size_t>(row)].colour.IsOk();
    return own ? m_Rows[static_cast<size_t>(row)].colour : wxDBListCtrl::GetRowColor(row);
}

void wxtListCtrl::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    if (!HasData(row))
    {
        return;
    }
    const Row& data = m_Rows[static_cast<size_t>(row)];
    if (IsFirstShown(column))
    {
        const int taken = DrawImage(dc, data, rect);
        rect.x += taken;
        rect.width -= taken;
    }
    if (!data.font.IsOk())
    {
        wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
        return;
    }
    const wxDCFontChanger font(dc, data.font);
    wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
}

bool wxtListCtrl::IsFirstShown(int column) const
{
    int first = 0;
    while (first < column && !IsColumnShown(first))
    {
        ++first;
    }
    return first == column;
}

// Pixels, margin included; 0 when there is none.
int wxtListCtrl::ImageWidth(const Row& row) const
{
    if (row.image < 0 || static_cast<size_t>(row.image) >= m_Images.size())
    {
        return 0;
    }
    const wxBitmap bitmap =
        m_Images[static_cast<size_t>(row.image)].GetBitmapFor(const_cast<wxtListCtrl*>(this));
    return bitmap.IsOk() ? bitmap.GetLogicalSize().x + listviews::_TableSettings::Get().cellMargin
                         : 0;
}

int wxtListCtrl::GetCellWidth(wxDC& dc, int row, int column)
{
    if (!HasData(row))
    {
        return 0;
    }
    const Row&            data = m_Rows[static_cast<size_t>(row)];
    const wxDCFontChanger font(dc, data.font.IsOk() ? data.font : dc.GetFont());
    return wxDBListCtrl::GetCellWidth(dc, row, column) +
           (IsFirstShown(column) ? ImageWidth(data) : 0);
}

int wxtListCtrl::DrawImage(wxDC& dc, const Row& row, const wxRect& rect)
{
    if (row.image < 0 || static_cast<size_t>(row.image) >= m_Images.size())
    {
        return 0;
    }
    const wxBitmap bitmap = m_Images[static_cast<size_t>(row.image)].GetBitmapFor(this);
    const int      margin = listviews::_TableSettings::Get().cellMargin;
    const wxSize   size = bitmap.IsOk() ? bitmap.GetLogicalSize() : wxSize();
    if (!bitmap.IsOk() || size.x + 2 * margin > rect.width)
    {
        return 0;
    }
    const wxDCClipper clip(dc, rect);
    dc.DrawBitmap(bitmap, rect.x + margin, rect.y + (rect.height - size.y) / 2, true);
    return size.x + margin;
}

void wxtListCtrl::DoClear()
{
    CALL_ENTRY("wxtListCtrl::DoClear");
    m_Rows.clear();
    m_Selection->Clear();
    Redraw();
}

// Skipped, so that the host hears of what has changed.
void wxtListCtrl::OnItemSelect(wxListEvent& event)
{
    const long row = event.GetIndex();
    if (row < 0 || row >= GetItemCount())
    {
        return;
    }
    event.Skip();
    m_Selection->Add(static_cast<int>(row));
    Redraw();
}

void wxtListCtrl::OnItemDeselect(wxListEvent& event)
{
    const long row = event.GetIndex();
    if (row < 0 || row >= GetItemCount() || !m_Selection->Remove(static_cast<int>(row)))
    {
        return;
    }
    event.Skip();
    Redraw();
}
