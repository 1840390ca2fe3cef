#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
#include "internal/drawing/Emphasis.h"
#include "listviews/cells/CellText.h"
#include "listviews/cells/DrawnRows.h"
#include "listviews/cells/RowBands.h"
#include "listviews/columns/ColumnFit.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/TableSettings.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListSource.h"
#include "vesta/CallEntry.h"

#include <wx/dcmemory.h>

#include <algorithm>
#include <utility>

namespace
{
constexpr int kTipDelay = 1; // milliseconds until a tooltip follows what is drawn

// Lets go of what is only there while the rows are painted, however that ends.
class WhilePainting
{
public:
    WhilePainting(listviews::CellText*& place, listviews::CellText& text)
        : m_Place(place), m_Before(std::exchange(place, &text))
    {
    }
    ~WhilePainting() { m_Place = m_Before; }
    WhilePainting(const WhilePainting&) = delete;
    WhilePainting& operator=(const WhilePainting&) = delete;

private:
    listviews::CellText*& m_Place;
    listviews::CellText*  m_Before; // a column may be fitted in the middle of it
};

wxColour SelectedGround()
{
    return internal::MixColours(wxtGetColor(color_WindowBGDarker), wxtGetColor(color_Selected),
                                internal::k_SelectedRowShare);
}
} // namespace

bool wxDBListBody::DrawCellText(wxDC& dc, const wxString& text, const wxRect& room)
{
    if (!m_CellText || !m_CellText->DrawsOn(dc))
    {
        return false;
    }
    m_CellText->Draw(text, room);
    return true;
}

bool wxDBListBody::DrawAsciiText(wxDC& dc, const String& text, const wxRect& room)
{
    return m_CellText && m_CellText->DrawsOn(dc) && m_CellText->DrawAscii(text, room);
}

void wxDBListBody::FillCell(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    if (m_CellText && m_CellText->DrawsOn(dc))
    {
        m_CellText->Fill(rect, colour);
        return;
    }
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const wxDCBrushChanger brush(dc, wxBrush(colour));
    dc.DrawRectangle(rect);
}

int wxDBListBody::CellTextWidth(wxDC& dc, const wxString& text) const
{
    return m_CellText && m_CellText->DrawsOn(dc) ? m_CellText->Width(text)
                                                 : dc.GetTextExtent(text).x;
}

int wxDBListBody::WidestCell(int column, std::chrono::steady_clock::duration time)
{
    CALL_ENTRY("wxDBListBody::WidestCell");
    wxBitmap            bitmap(1, 1);
    wxMemoryDC          dc(bitmap);
    listviews::CellText text(dc);
    const WhilePainting measuring(m_CellText, text);
    dc.SetFont(GetFont());
    const int first =
        std::min(std::max(GetScrollPos(wxVERTICAL), 0) / m_LineHeight, m_Model.rowCount);
    const int end = std::min(first + m_VisibleLines, m_Model.rowCount);
    return listviews::WidestRow({first, end}, m_Model.rowCount, time,
                                [&](int row)
                                {
                                    if (!m_Model.HasRow(row) || !m_Model.HasColumn(column))
                                    {
                                        return 0;
                                    }
                                    m_Source.PrepareToDraw(row);
                                    const int width = m_Source.GetCellWidth(dc, row, column);
                                    m_Source.CleanupAfterDraw(row);
                                    return width;
                                });
}

void wxDBListBody::DrawBitmap()
{
    CALL_ENTRY("wxDBListBody::DrawBitmap");
    const std::unique_ptr<wxDC>   buffer = m_Buffer.NewDC();
    listviews::CellText           text(*buffer);
    const WhilePainting           painting(m_CellText, text);
    const listviews::ListGeometry geometry = Geometry();
    buffer->SetFont(GetFont());
    m_Model.hoverRow = HoverRow();
    const std::vector<listviews::RowBand> bands = listviews::BandsWithin(StaleAreas(), geometry);
    m_Drawn->scroll = geometry.scroll;
    m_Drawn->Show(geometry.RowAt(0), geometry.RowAt(geometry.client.y - 1) + 1);
    for (const listviews::RowBand& band : bands)
    {
        for (int row = band.first; row < band.end; ++row)
        {
            DrawRow(*buffer, geometry, row);
        }
        DrawGrid(geometry, band);
    }
    DrawFocus(geometry, bands);
    if (!GetToolTipText().empty() && !m_HoverTimer.IsRunning())
    {
        m_HoverTimer.StartOnce(kTipDelay); // another row may have come under the pointer
    }
}

wxColour wxDBListBody::GroundOf(int row, bool hovered) const
{
    const listviews::_TableSettings& settings = listviews::_TableSettings::Get();
    wxColour                         ground;
    if (!m_Model.HasRow(row))
    {
        // The stripes go on below the last row, of which the derived class knows nothing.
        ground = listviews::StripeColour(row);
    }
    else if (m_Source.IsRowSelected(row))
    {
        ground = SelectedGround();
    }
    else
    {
        ground = m_Source.GetRowBGColor(row);
    }
    // On top of what the row's colour does by itself: the stripes are meant to be that strong, and
    // to go through a selection.
    const int contrast = row % 2 ? settings.rowContrast : 0;
    ground = OffsetColor(ground, contrast, contrast, contrast);
    return hovered ? listviews::Shaded(ground, settings.hoverShade) : ground;
}

void wxDBListBody::DrawRow(wxDC& dc, const listviews::ListGeometry& geometry, int row)
{
    const bool exists = m_Model.HasRow(row);
    if (exists)
    {
        m_Source.PrepareToDraw(row);
    }
    const bool     hovered = row == m_Model.hoverRow;
    const wxColour ground = GroundOf(row, hovered);
    m_CellText->Fill(geometry.RowRect(row), ground);
    if (!exists || !m_Model.HasRow(row))
    {
        return;
    }
    const wxColour ink = m_Source.GetRowColor(row);
    const wxColour shaded =
        hovered ? listviews::Shaded(ink, listviews::_TableSettings::Get().hoverTextShade) : ink;
    if (dc.GetTextForeground() != shaded && shaded.IsOk())
    {
        dc.SetTextForeground(shaded);
    }
    DrawCells(dc, geometry, row, ground);
    m_Source.CleanupAfterDraw(row);
}

void wxDBListBody::DrawCells(wxDC& dc, const listviews::ListGeometry& geometry, int row,
                             const wxColour& ground)
{
    const bool selected = m_Source.IsRowSelected(row);
    m_Drawn->Draw(row, selected);
    const std::pair<int, int> columns = geometry.VisibleColumns();
    wxRect                    rect = geometry.CellRect(row, columns.first);
    for (int column = columns.first; column < columns.second; ++column)
    {
        // Whoever gives the text may have changed rows and columns.
        if (!m_Model.HasRow(row) || column >= m_Model.ColumnCount())
        {
            break;
        }
        rect.width = geometry.widths[static_cast<size_t>(column)];
        if (column == m_Model.highlightColumn)
        {
            m_CellText->Fill(
                rect, listviews::Shaded(ground, listviews::_TableSettings::Get().highlightShade));
        }
        if (rect.width > 0)
        {
            m_Source.DrawCell(dc, row, column, rect, selected);
        }
        rect.x += rect.width;
    }
}

// A thin line behind each column, hardly more than the stripes.
void wxDBListBody::DrawGrid(const listviews::ListGeometry& geometry, const listviews::RowBand& band)
{
    const int                 top = geometry.RowRect(band.first).y;
    const int                 height = geometry.RowRect(band.end).y - top;
    const std::pair<int, int> columns = geometry.VisibleColumns();
    for (int column = columns.first; column < columns.second; ++column)
    {
        const wxRect rect = geometry.ColumnRect(column);
        m_CellText->Fill(wxRect(rect.GetRight(), top, 1, height), wxtGetColor(color_WindowBG));
    }
}

// Around the row that the keys are on; around all of them while that one is out of sight, or there
// is none. Empty without the keyboard.
wxRect wxDBListBody::FocusFrame(const listviews::ListGeometry& geometry) const
{
    if (!HasFocus())
    {
        return {};
    }
    const wxRect view(geometry.client);
    const wxRect row = geometry.RowRect(m_Model.FocusRow());
    return m_Model.HasRow(m_Model.FocusRow()) && view.Intersects(row) ? row : view;
}

// The same on either stripe and under the pointer: it must not change from row to row.
wxColour wxDBListBody::FocusColourOn(int row) const
{
    const int  contrast = listviews::_TableSettings::Get().rowContrast * (row % 2 ? -1 : 1);
    const auto otherStripe = [contrast](const wxColour& ground)
    { return OffsetColor(ground, contrast, contrast, contrast); };
    const wxColour plain = GroundOf(row, false);
    const wxColour hovered = GroundOf(row, true);
    return wxtFocusColor({plain, hovered, otherStripe(plain), otherStripe(hovered)});
}

// A frame that has moved is drawn where its rows are; else the one that is seen stays until its
// rows have been asked for.
void wxDBListBody::DrawFocus(const listviews::ListGeometry&         geometry,
                             const std::vector<listviews::RowBand>& drawn)
{
    const wxRect frame = FocusFrame(geometry);
    if (listviews::Hold(drawn, m_Drawn->focus, geometry) && listviews::Hold(drawn, frame, geometry))
    {
        m_Drawn->focus = frame;
    }
    else if (m_Drawn->focus != frame)
    {
        GatherLater();
    }
    if (m_Drawn->focus.IsEmpty())
    {
        return;
    }
    const int  row = geometry.RowAt(m_Drawn->focus.y);
    const bool isRow = m_Drawn->focus != wxRect(geometry.client);
    const auto colour =
        isRow ? FocusColourOn(row) : wxtFocusColor({listviews::StripeColour(0), SelectedGround()});
    for (const wxRect& part : wxtFocusShape(m_Drawn->focus))
    {
        m_CellText->Fill(part, colour);
    }
}

void wxDBListBody::AskForChangedRows()
{
    const listviews::ListGeometry geometry = Geometry();
    const wxRect                  focus = FocusFrame(geometry);
    const wxRect                  view(geometry.client);
    const bool                    isFrameChanged = focus != m_Drawn->focus;
    if (geometry.scroll != m_Drawn->scroll ||
        (isFrameChanged && (focus == view || m_Drawn->focus == view)))
    {
        Redraw();
        return;
    }
    for (int row = m_Drawn->First(); row < std::min(m_Drawn->End(), m_Model.rowCount); ++row)
    {
        if (m_Source.IsRowSelected(row) != m_Drawn->IsSelected(row))
        {
            Redraw(geometry.RowRect(row));
        }
    }
    if (isFrameChanged)
    {
        Redraw(m_Drawn->focus);
        Redraw(focus);
    }
}
