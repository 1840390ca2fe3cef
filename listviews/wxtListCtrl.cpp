#include "listviews/wxtListCtrl.h"

#include "appearance/wxTolvanColors.h"
#include "listviews/model/ListSelection.h"
#include "listviews/model/TableSettings.h"
#include "listviews/rows/PackedRow.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/listbase.h>

#include <algorithm>

struct wxtListCtrl::Row
{
    listviews::PackedRow    cells;
    std::unique_ptr<wxFont> font; // few rows have one
    // Of the text, as a number: a colour object of its own would take ten times as much. 0 is the
    // scheme's; as a colour it is a transparent black, which nobody would see.
    wxUint32 colour = 0;
    int      image = -1;
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

// None where the list shows an empty row.
wxtListCtrl::Row* wxtListCtrl::FindRow(int row)
{
    return row >= 0 && static_cast<size_t>(row) < m_Rows.size() ? &m_Rows[static_cast<size_t>(row)]
                                                                : nullptr;
}

void wxtListCtrl::MoveCells(int from, int to)
{
    for (Row& row : m_Rows)
    {
        if (from < 0)
        {
            row.cells.Insert(static_cast<size_t>(to));
        }
        else if (to < 0)
        {
            row.cells.Erase(static_cast<size_t>(from));
        }
        else
        {
            row.cells.Move(static_cast<size_t>(from), static_cast<size_t>(to));
        }
    }
}

int wxtListCtrl::InsertItem(int row, const String& text, int image)
{
    CALL_ENTRY("wxtListCtrl::InsertItem");
    const int place = std::clamp(row, 0, static_cast<int>(m_Rows.size()));
    Row       inserted;
    inserted.image = image;
    if (GetColumnCount() > 0)
    {
        inserted.cells = listviews::PackedRow(static_cast<size_t>(GetColumnCount()));
        inserted.cells.Set(0, text);
    }
    Insert(place, true);
    m_Rows.insert(m_Rows.begin() + place, std::move(inserted));
    m_Selection->RowInserted(place);
    Redraw();
    return place;
}

void wxtListCtrl::SetItem(int row, int column, const String& text)
{
    CALL_ENTRY("wxtListCtrl::SetItem");
    Row* const data = FindRow(row);
    if (data && column >= 0 && column < GetColumnCount())
    {
        data->cells.Set(static_cast<size_t>(column), text);
        RedrawCell(row, column);
    }
}

void wxtListCtrl::SetItemTextColour(int row, const wxColour& colour)
{
    CALL_ENTRY("wxtListCtrl::SetItemTextColour");
    if (Row* const data = FindRow(row))
    {
        data->colour = colour.IsOk() ? colour.GetRGBA() : 0;
        RedrawItem(row);
    }
}

void wxtListCtrl::SetItemFont(int row, const wxFont& font)
{
    CALL_ENTRY("wxtListCtrl::SetItemFont");
    if (Row* const data = FindRow(row))
    {
        data->font = font.IsOk() ? std::make_unique<wxFont>(font) : nullptr;
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
    if (!FindRow(row))
    {
        return;
    }
    FinishCopying();
    if (!FinishSelecting() || !FindRow(row))
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
    const Row* const data = FindRow(row);
    return data && column >= 0 ? String(data->cells.Text(static_cast<size_t>(column))) : String();
}

wxColour wxtListCtrl::GetRowColor(int row)
{
    const Row* const data = FindRow(row);
    if (!data || data->colour == 0)
    {
        return wxDBListCtrl::GetRowColor(row);
    }
    wxColour colour;
    colour.SetRGBA(data->colour);
    return colour;
}

void wxtListCtrl::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    const Row* const data = FindRow(row);
    if (!data)
    {
        return;
    }
    if (IsFirstShown(column))
    {
        const int taken = DrawImage(dc, *data, rect);
        rect.x += taken;
        rect.width -= taken;
    }
    if (!data->font)
    {
        wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
        return;
    }
    const wxDCFontChanger font(dc, *data->font);
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
    const Row* const data = FindRow(row);
    if (!data)
    {
        return 0;
    }
    const int             image = IsFirstShown(column) ? ImageWidth(*data) : 0;
    const wxDCFontChanger font(dc, data->font ? *data->font : dc.GetFont());
    return image + wxDBListCtrl::GetCellWidth(dc, row, column);
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
    RedrawSelection();
}

void wxtListCtrl::OnItemDeselect(wxListEvent& event)
{
    const long row = event.GetIndex();
    if (row < 0 || row >= GetItemCount() || !m_Selection->Remove(static_cast<int>(row)))
    {
        return;
    }
    event.Skip();
    RedrawSelection();
}
