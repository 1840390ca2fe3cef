#include "internal/scrolling/ScrollModel.h"
#include "textviews/drawing/FontExtents.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>

wxDEFINE_EVENT(wxtEVT_TEXT_SIZE, wxCommandEvent);

void wxTextLineCtrl::SetTextSize(int points)
{
    CALL_ENTRY("wxTextLineCtrl::SetTextSize");
    points = std::clamp(points, k_LeastSize, k_MostSize);
    if (points == m_TextSize)
    {
        return;
    }
    const bool                  follows = IsFollowing();
    const textviews::TextAnchor first = TopAnchor();
    const int                   firstColumn = GetScrollPos(wxHORIZONTAL) / m_ColumnWidth;
    const int                   columns = m_TextWidth / m_ColumnWidth;
    m_TextSize = points;
    m_Font = &textviews::_FontExtents::Get(points);
    SetFont(m_Font->font);
    m_ColumnWidth = static_cast<int>(m_Font->columnWidth);
    m_LineHeight = static_cast<int>(m_Font->lineHeight);
    m_TextWidth = internal::ScrollRange(columns, m_ColumnWidth);
    const wxSize client = GetClientSize(); // a page is as many lines as are seen now
    m_VisibleColumns = internal::VisibleUnits(client.x, m_ColumnWidth);
    m_VisibleLines = internal::VisibleUnits(client.y, m_LineHeight);
    m_Gutter->Show({}, m_ColumnWidth);
    FitGutter();
    FitContentWidth();
    AdjustScrollbars();
    ScrollTo(wxHORIZONTAL, static_cast<long long>(firstColumn) * m_ColumnWidth);
    GoToAnchor(first);
    if (follows)
    {
        ScrollToBottom();
    }
    TellLook();
    Redraw();
}

// By the user.
void wxTextLineCtrl::ChangeTextSize(int points)
{
    const int before = m_TextSize;
    SetTextSize(points);
    if (m_TextSize != before)
    {
        wxCommandEvent event(wxtEVT_TEXT_SIZE, GetId());
        event.SetEventObject(this);
        event.SetInt(m_TextSize);
        QueueEvent(event.Clone());
    }
}

void wxTextLineCtrl::OnWheel(wxMouseEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnWheel");
    if (!event.ControlDown())
    {
        OnMouseWheel(event);
        return;
    }
    const int notches =
        internal::WheelLines(m_SizeTurn, event.GetWheelRotation(), event.GetWheelDelta(), 1);
    ChangeTextSize(m_TextSize - notches);
}
