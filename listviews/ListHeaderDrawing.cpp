#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "internal/drawing/ColorMix.h"
#include "listviews/cells/CellText.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/TableSettings.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/CallEntry.h"

#include <wx/dcmemory.h>

#include <algorithm>

namespace
{
constexpr int kLeastArrow = 5;  // pixels from its base to its point
constexpr int kArrowShare = 4;  // so many times that is a title high
constexpr int kMarkerWidth = 3; // pixels
} // namespace

void wxDBListHeader::DrawBitmap()
{
    CALL_ENTRY("wxDBListHeader::DrawBitmap");
    const listviews::ListGeometry geometry = Geometry();
    if (StaleAreas().empty() && geometry.scroll.x == m_DrawnScroll)
    {
        return; // the rows have been scrolled up or down
    }
    m_DrawnScroll = geometry.scroll.x;
    const std::unique_ptr<wxDC> buffer = m_Buffer.NewDC();
    wxDC&                       dc = *buffer;
    listviews::CellText         cells(dc);
    dc.SetFont(GetFont());
    MeasureTitles(dc);
    cells.Fill(wxRect(geometry.client), wxtGetColor(color_ButtonFace));
    const std::pair<int, int> columns = geometry.VisibleColumns();
    for (int column = columns.first; column < columns.second; ++column)
    {
        if (!geometry.IsHidden(column))
        {
            DrawTitle(dc, cells, column, geometry.ColumnRect(column));
        }
    }
    const int bottom = geometry.client.y - 1;
    cells.Fill(wxRect(0, bottom, geometry.client.x, 1), wxtGetColor(color_3DDark));
    if (m_List.IsDescendant(FindFocus()) && m_Model.HasColumn(m_Model.titleCursor))
    {
        DrawTitleCursor(cells, geometry.ColumnRect(m_Model.titleCursor));
    }
    if (IsMovingTitle())
    {
        DrawMove(dc, cells);
    }
    HoverAnew();
}

// Which takes longer than to draw them all.
void wxDBListHeader::MeasureTitles(const wxDC& dc)
{
    const double scale = GetContentScaleFactor();
    if (dc.GetFont() != m_TitleFont || scale != m_TitleScale)
    {
        m_TitleFont = dc.GetFont();
        m_TitleScale = scale;
        m_TitleHeight = dc.GetCharHeight();
    }
}

// Flat like the buttons; a title lights up under the mouse and when its column is the one that the
// list is about, and goes down while it is held.
wxColour wxDBListHeader::FaceOf(int column) const
{
    const wxColour  face = wxtGetColor(color_ButtonFace);
    const wxColour& shade = listviews::_TableSettings::Get().headerShade;
    if (column == m_Model.pressedColumn)
    {
        return OffsetColor(face, -shade.Red(), -shade.Green(), -shade.Blue());
    }
    const bool lit =
        column == m_Model.highlightColumn ||
        (column == m_Model.hoverColumn && ParentIsActive(const_cast<wxDBListHeader*>(this)));
    // As far as its title can still be read.
    return lit ? internal::MadeReadable(listviews::Shaded(face, shade),
                                        wxtGetColor(color_ButtonText))
               : face;
}

void wxDBListHeader::DrawTitle(wxDC& dc, listviews::CellText& cells, int column, const wxRect& rect)
{
    const wxDBListColumn& header = m_Model.Column(column);
    const int             margin = listviews::_TableSettings::Get().cellMargin;
    cells.Fill(rect, FaceOf(column));
    cells.Fill(wxRect(rect.x, rect.y, rect.width, 1), wxtGetColor(color_3DLight));
    cells.Fill(wxRect(rect.GetRight(), rect.y, 1, rect.height), wxtGetColor(color_3DDark));

    wxRect    room = wxRect(rect).Deflate(margin, 0);
    const int image = DrawImage(dc, header.image, room);
    room.width -= image;
    const int height = m_TitleHeight;
    room.y += (rect.height - height) / 2;
    room.height = height;
    dc.SetTextForeground(wxtGetColor(color_ButtonText));
    room.width -= image > 0 ? DrawRank(dc, cells, header.rank, room) : 0;
    if (column == m_Model.pressedColumn)
    {
        room.Offset(1, 1);
    }
    if (room.width > 0)
    {
        cells.Draw(wxtToWx(header.label), room);
    }
}

// At the right end of the room, before the image; the pixels that it takes.
int wxDBListHeader::DrawRank(wxDC& dc, listviews::CellText& cells, int rank, const wxRect& room)
{
    if (rank <= 0)
    {
        return 0;
    }
    const wxString text = wxString::Format("%d", rank);
    const int      width = dc.GetTextExtent(text).x;
    const int      margin = listviews::_TableSettings::Get().cellMargin;
    if (width + margin > room.width)
    {
        return 0;
    }
    cells.Draw(text, wxRect(room.GetRight() + 1 - width, room.y, width, room.height));
    return width + margin;
}

// At the right end of the room; the pixels that it takes.
int wxDBListHeader::DrawImage(wxDC& dc, int image, const wxRect& room)
{
    const std::vector<wxBitmapBundle>& images = m_Model.titleImages;
    const int                          margin = listviews::_TableSettings::Get().cellMargin;
    const int                          width = ImageWidth(image);
    if (width == 0 || room.width < std::max(width, ArrowWidth()) + margin)
    {
        return 0;
    }
    if (images.empty())
    {
        return DrawArrow(dc, image == wxDBListColumn::image_Ascending, room) + margin;
    }
    const wxBitmap bitmap = images[static_cast<size_t>(image)].GetBitmapFor(this);
    const wxSize   size = bitmap.GetLogicalSize();
    dc.DrawBitmap(bitmap, room.GetRight() + 1 - size.x, room.y + (room.height - size.y) / 2, true);
    return size.x + margin;
}

int wxDBListHeader::DrawArrow(wxDC& dc, bool up, const wxRect& room)
{
    const wxColour ink = wxtGetColor(color_ButtonText);
    const int      width = ArrowWidth();
    const int      height = ArrowHeight();
    if (!ink.IsOk())
    {
        return width;
    }
    const wxDCBrushChanger brush(dc, wxBrush(ink));
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const int              left = room.GetRight() + 1 - width;
    const int              top = room.y + (room.height - height) / 2;
    // Row by row: the edges of a polygon would be smoothed on one port and not on the other.
    for (int i = 0; i < height; ++i)
    {
        const int inset = up ? height - 1 - i : i;
        dc.DrawRectangle(left + inset, top + i, width - 2 * inset, 1);
    }
    return width;
}

int wxDBListHeader::ArrowHeight() const
{
    return std::max(kLeastArrow, GetClientSize().y / kArrowShare);
}

int wxDBListHeader::ArrowWidth() const
{
    return 2 * ArrowHeight() - 1;
}

// Pixels; 0 when there is none.
int wxDBListHeader::ImageWidth(int image) const
{
    const std::vector<wxBitmapBundle>& images = m_Model.titleImages;
    if (image < 0 || static_cast<size_t>(image) >= std::max<size_t>(images.size(), 2))
    {
        return 0;
    }
    if (images.empty())
    {
        return ArrowWidth();
    }
    if (static_cast<size_t>(image) >= images.size())
    {
        return 0;
    }
    const wxBitmap bitmap =
        images[static_cast<size_t>(image)].GetBitmapFor(const_cast<wxDBListHeader*>(this));
    return bitmap.IsOk() ? bitmap.GetLogicalSize().x : 0;
}

int wxDBListHeader::TitleWidth(int column) const
{
    CALL_ENTRY("wxDBListHeader::TitleWidth");
    if (!m_Model.HasColumn(column))
    {
        return 0;
    }
    const wxDBListColumn& header = m_Model.Column(column);
    const int             margin = listviews::_TableSettings::Get().cellMargin;
    const auto            taken = [margin](int width) { return width > 0 ? width + margin : 0; };
    const int             image = taken(ImageWidth(header.image));
    const bool            hasRank = image > 0 && header.rank > 0;
    const int rank = hasRank ? taken(GetTextExtent(wxString::Format("%d", header.rank)).x) : 0;
    return GetTextExtent(wxtToWx(header.label)).x + 2 * margin + rank + image;
}

// Where the keys of the titles are, like the frame of the row that the others are on.
void wxDBListHeader::DrawTitleCursor(listviews::CellText& cells, const wxRect& rect)
{
    const wxColour line = wxtFocusColor({wxtGetColor(color_ButtonFace)});
    const wxRect   inside(rect.x, rect.y, rect.width - 1, rect.height - 1);
    for (const wxRect& part : wxtFocusShape(inside))
    {
        cells.Fill(part, line);
    }
}

// The title under the pointer, and a bar where it would go.
void wxDBListHeader::DrawMove(wxDC& dc, listviews::CellText& cells)
{
    const listviews::ListGeometry geometry = Geometry();
    const wxRect marker(geometry.ColumnRect(m_Model.dropGap).x - kMarkerWidth / 2, 0, kMarkerWidth,
                        geometry.client.y);
    wxRect       title = geometry.ColumnRect(m_Model.pressedColumn);
    title.x += m_Model.dragX - m_Model.pressX;
    DrawTitle(dc, cells, m_Model.pressedColumn, title);
    DrawTitleCursor(cells, title);
    cells.Fill(marker, wxtGetColor(color_Selected));
}
