#include "listviews/wxDBListHeader.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "listviews/cells/CellText.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/TableSettings.h"
#include "vesta/CallEntry.h"

#include <wx/dcmemory.h>
#include <wx/weakref.h>

#include <algorithm>

namespace
{
constexpr int kLargerByPoints = 1; // than the font of the rows
constexpr int kArrowWidth = 9;     // pixels
constexpr int kArrowHeight = 5;    // pixels
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxDBListHeader, wxDBListBase)
    EVT_MOTION(wxDBListHeader::OnMotion)
    EVT_LEFT_DOWN(wxDBListHeader::OnLDown)
    EVT_LEFT_DCLICK(wxDBListHeader::OnLDown)
    EVT_LEFT_UP(wxDBListHeader::OnLUp)
    EVT_RIGHT_DOWN(wxDBListHeader::OnRDown)
    EVT_LEAVE_WINDOW(wxDBListHeader::OnLeave)
wxEND_EVENT_TABLE()
// clang-format on

wxDBListHeader::wxDBListHeader(wxWindow& list, listviews::ListModel& model,
                               std::function<void(int column, int width)> resize)
    : wxDBListBase(list, model, wxBORDER_NONE), m_Resize(std::move(resize))
{
    CALL_ENTRY("wxDBListHeader::wxDBListHeader");
    const listviews::_TableSettings& settings = listviews::_TableSettings::Get();
    wxFont                           font = settings.font;
    font.SetStyle(wxFONTSTYLE_ITALIC);
    font.SetPointSize(font.GetPointSize() + kLargerByPoints);
    SetFont(font);
    m_LineHeight = settings.HeaderHeight();
    m_ColumnWidth = settings.charWidth;
    SetMinSize(wxSize(wxDefaultCoord, m_LineHeight));
    SetSize(wxSize(wxDefaultCoord, m_LineHeight));
    SetCanFocus(false);
}

// The titles take no keys: whoever walks through the window by keyboard comes to the rows.
bool wxDBListHeader::AcceptsFocusFromKeyboard() const
{
    return false;
}

int wxDBListHeader::PressedColumn() const
{
    return m_Model.pressedColumn;
}

bool wxDBListHeader::IsResizing() const
{
    return m_Model.IsResizing();
}

void wxDBListHeader::ForgetColumns()
{
    LetMouseGo();
    m_Model.LetTitlesGo();
    ShowCursor(false);
}

wxPoint wxDBListHeader::InBody(const wxMouseEvent& event) const
{
    return event.GetPosition() - wxPoint(0, GetSize().y);
}

void wxDBListHeader::ShowCursor(bool onEdge)
{
    if (onEdge != m_OnEdge)
    {
        m_OnEdge = onEdge;
        SetCursor(onEdge ? listviews::_TableSettings::Get().resizeCursor : *wxSTANDARD_CURSOR);
    }
}

void wxDBListHeader::OnMotion(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListHeader::OnMotion");
    if (IsResizing() && event.LeftIsDown())
    {
        Resize(event.GetX());
    }
    else if (IsResizing() || (m_Model.pressedColumn >= 0 && !event.LeftIsDown() && HasCapture()))
    {
        OnLUp(event); // the button was let go where nobody told of it
    }
    else if (!event.LeftIsDown())
    {
        m_Model.pressedColumn = -1; // nor clicked, once the capture was lost
        Hover(event.GetX());
    }
}

void wxDBListHeader::Hover(int x)
{
    const listviews::ListGeometry geometry = Geometry();
    const int                     edge = geometry.EdgeAt(x);
    ShowCursor(edge >= 0);
    m_Model.hoverColumn = edge >= 0 ? edge : geometry.ColumnAt(x);
    const wxString label = m_Model.HasColumn(m_Model.hoverColumn)
                               ? wxtToWx(m_Model.Column(m_Model.hoverColumn).label)
                               : wxString();
    if (label != GetToolTipText())
    {
        SetToolTip(label);
    }
    Redraw();
}

void wxDBListHeader::Resize(int x)
{
    const int width = m_Model.ResizedWidth(x);
    if (width != m_Model.Column(m_Model.hoverColumn).width)
    {
        m_Resize(m_Model.hoverColumn, width);
    }
}

void wxDBListHeader::OnLDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListHeader::OnLDown");
    Hover(event.GetX());
    if (m_OnEdge)
    {
        m_Model.BeginResize(m_Model.hoverColumn, event.GetX());
        if (!SendListEvent(wxEVT_LIST_COL_BEGIN_DRAG, InBody(event), m_Model.hoverColumn, -1) ||
            !IsResizing())
        {
            return;
        }
    }
    else
    {
        m_Model.pressedColumn = Geometry().ColumnAt(event.GetX());
        Redraw();
        const wxWeakRef<wxDBListHeader> self(this);
        m_List.SetFocus();
        if (!self || IsBeingDeleted())
        {
            return;
        }
    }
    HoldMouse();
}

void wxDBListHeader::OnLUp(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListHeader::OnLUp");
    LetMouseGo();
    if (IsResizing())
    {
        m_Model.resizeStart = -1;
        SendListEvent(wxEVT_LIST_COL_END_DRAG, InBody(event), m_Model.hoverColumn, -1);
    }
    else if (m_Model.pressedColumn >= 0)
    {
        m_Model.pressedColumn = -1;
        Redraw();
        SendListEvent(wxEVT_LIST_COL_CLICK, InBody(event), -1);
    }
}

void wxDBListHeader::OnRDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListHeader::OnRDown");
    SendListEvent(wxEVT_LIST_COL_RIGHT_CLICK, InBody(event), -1);
}

void wxDBListHeader::OnLeave(wxMouseEvent&)
{
    if (!IsResizing() && m_Model.hoverColumn >= 0)
    {
        m_Model.hoverColumn = -1;
        Redraw();
    }
}

void wxDBListHeader::DrawBitmap()
{
    CALL_ENTRY("wxDBListHeader::DrawBitmap");
    wxMemoryDC                    dc(*m_Buffer);
    listviews::CellText           cells(dc);
    const listviews::ListGeometry geometry = Geometry();
    dc.SetFont(GetFont());
    cells.Fill(wxRect(geometry.client), wxtGetColor(color_ButtonFace));
    const std::pair<int, int> columns = geometry.VisibleColumns();
    for (int column = columns.first; column < columns.second; ++column)
    {
        DrawTitle(dc, cells, column, geometry.ColumnRect(column));
    }
    const int bottom = geometry.client.y - 1;
    cells.Fill(wxRect(0, bottom, geometry.client.x, 1), wxtGetColor(color_3DDark));
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
    return lit ? listviews::Shaded(face, shade) : face;
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
    const int height = dc.GetCharHeight();
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
    if (image < 0 || room.width < kArrowWidth + margin)
    {
        return 0;
    }
    if (images.empty())
    {
        return image <= wxDBListColumn::image_Descending
                   ? DrawArrow(dc, image == wxDBListColumn::image_Ascending, room) + margin
                   : 0;
    }
    if (static_cast<size_t>(image) >= images.size())
    {
        return 0;
    }
    const wxBitmap bitmap = images[static_cast<size_t>(image)].GetBitmapFor(this);
    const wxSize   size = bitmap.GetLogicalSize();
    if (!bitmap.IsOk() || size.x + margin > room.width)
    {
        return 0;
    }
    dc.DrawBitmap(bitmap, room.GetRight() + 1 - size.x, room.y + (room.height - size.y) / 2, true);
    return size.x + margin;
}

int wxDBListHeader::DrawArrow(wxDC& dc, bool up, const wxRect& room)
{
    const wxColour ink = wxtGetColor(color_ButtonText);
    if (!ink.IsOk())
    {
        return kArrowWidth;
    }
    const wxDCBrushChanger brush(dc, wxBrush(ink));
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const int              left = room.GetRight() + 1 - kArrowWidth;
    const int              top = room.y + (room.height - kArrowHeight) / 2;
    // Row by row: the edges of a polygon would be smoothed on one port and not on the other.
    for (int i = 0; i < kArrowHeight; ++i)
    {
        const int inset = up ? kArrowHeight - 1 - i : i;
        dc.DrawRectangle(left + inset, top + i, kArrowWidth - 2 * inset, 1);
    }
    return kArrowWidth;
}
