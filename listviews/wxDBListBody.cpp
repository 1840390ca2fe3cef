#include "listviews/wxDBListBody.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "internal/port/PopUps.h"
#include "internal/port/ToolTips.h"
#include "listviews/cells/DrawnRows.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/TableSettings.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/tips/TypingWatch.h"
#include "listviews/wxDBListSource.h"
#include "vesta/CallEntry.h"

#include <algorithm>

namespace
{
constexpr int    kHoverTimerId = 200;
constexpr int    kHoverDelay = 600;      // milliseconds that the pointer rests before its tooltip
constexpr size_t kLongestTip = 2000;     // characters
constexpr size_t kLongestCharacter = 4;  // bytes
constexpr int    kFirstContentWidth = 2; // pixels
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxDBListBody, wxDBListBase)
    EVT_LEFT_DOWN(wxDBListBody::OnLDown)
    EVT_LEFT_UP(wxDBListBody::OnLUp)
    EVT_LEFT_DCLICK(wxDBListBody::OnDoubleClick)
    EVT_RIGHT_DOWN(wxDBListBody::OnRDown)
    EVT_MOTION(wxDBListBody::OnMotion)
    EVT_LEAVE_WINDOW(wxDBListBody::OnLeave)
    EVT_TIMER(kHoverTimerId, wxDBListBody::Notify)
    EVT_KEY_DOWN(wxDBListBody::OnKey)
    EVT_SET_FOCUS(wxDBListBody::OnFocus)
    EVT_KILL_FOCUS(wxDBListBody::OnFocus)
wxEND_EVENT_TABLE()
// clang-format on

wxDBListBody::wxDBListBody(wxWindow& list, listviews::ListModel& model, wxDBListSource& source,
                           wxDoubleBufferedWindow& titles, bool singleSelection)
    : wxDBListBase(list, model, wxBORDER_NONE),
      m_Source(source),
      m_SingleSelection(singleSelection),
      m_Drawn(std::make_unique<listviews::DrawnRows>()),
      m_Typing(std::make_unique<listviews::TypingWatch>()),
      m_Selecting(std::make_unique<listviews::SelectionWork>(*this, source, model))
{
    CALL_ENTRY("wxDBListBody::wxDBListBody");
    const listviews::_TableSettings& settings = listviews::_TableSettings::Get();
    SetFont(settings.font);
    m_LineHeight = m_Model.rowHeight;
    m_ColumnWidth = settings.charWidth;
    m_ContentWidth = kFirstContentWidth;
    m_LinkedWindow = &titles;
    SetScrollbar(wxHORIZONTAL, 0, 0, 0);
    SetScrollbar(wxVERTICAL, 0, 0, 0);
    m_HoverTimer.SetOwner(this, kHoverTimerId);
    m_Gather = [this] { AskForChangedRows(); };
}

wxDBListBody::~wxDBListBody()
{
    m_HoverTimer.Stop();
}

void wxDBListBody::RowsChanged()
{
    m_LineCount = m_Model.rowCount;
    AdjustScrollbarsLater();
}

void wxDBListBody::ColumnsChanged()
{
    m_ContentWidth = m_Model.ContentWidth();
    AdjustScrollbarsLater();
}

void wxDBListBody::TraceScrollbars()
{
    m_ScrollTrace = true;
}

void wxDBListBody::ShowRow(int row)
{
    CALL_ENTRY("wxDBListBody::ShowRow");
    const long long top = static_cast<long long>(row) * m_LineHeight;
    const long long position = GetScrollPos(wxVERTICAL);
    const long long least = top + m_LineHeight - GetClientSize().y;
    if (top < position || position < least)
    {
        ScrollTo(wxVERTICAL, top < position ? top : std::min(least, top));
    }
}

wxRect wxDBListBody::GetItemRect(int row) const
{
    return Geometry().RowRect(row);
}

wxRect wxDBListBody::GetColumnRect(int column) const
{
    return Geometry().ColumnRect(column);
}

wxRect wxDBListBody::GetCellRect(int row, int column) const
{
    return Geometry().CellRect(row, column);
}

// The row under the pointer, as long as the user works here.
int wxDBListBody::HoverRow() const
{
    if (m_Pointer.x < 0 || !ParentIsActive(const_cast<wxDBListBody*>(this)))
    {
        return -1;
    }
    return Geometry().RowAt(m_Pointer.y);
}

void wxDBListBody::SetHoverRow(int row)
{
    if (row == m_Model.hoverRow)
    {
        return;
    }
    for (const int changed : {m_Model.hoverRow, row})
    {
        if (changed >= 0)
        {
            Redraw(GetItemRect(changed));
        }
    }
    m_Model.hoverRow = row;
}

void wxDBListBody::ShowCursor(const wxPoint& pointer)
{
    const listviews::ListGeometry geometry = Geometry();
    const int                     row = geometry.RowAt(pointer.y);
    SetCursor(m_Source.CustomizeCursor(m_Model.HasRow(row) ? row : -1, geometry.ColumnAt(pointer.x),
                                       pointer.x, pointer.y));
}

void wxDBListBody::OnMotion(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnMotion");
    event.Skip();
    if (!event.LeftIsDown())
    {
        LetMouseGo(); // the button was let go where nobody told of it
    }
    const bool                    inside = GetClientRect().Contains(event.GetPosition());
    const wxPoint                 before = m_Pointer;
    const listviews::ListGeometry geometry = Geometry();
    m_Pointer = inside ? event.GetPosition() : wxPoint(-1, -1);
    if (geometry.RowAt(before.y) != geometry.RowAt(m_Pointer.y) ||
        geometry.ColumnAt(before.x) != geometry.ColumnAt(m_Pointer.x))
    {
        internal::UnsetToolTipHere(*this);
    }
    SetHoverRow(HoverRow());
    if (inside)
    {
        ShowCursor(m_Pointer);
        m_Typing->Follow(*this);
        m_HoverTimer.StartOnce(kHoverDelay);
    }
}

void wxDBListBody::OnLeave(wxMouseEvent& event)
{
    event.Skip();
    m_Pointer = wxPoint(-1, -1);
    m_HoverTimer.Stop();
    SetHoverRow(-1);
    UnsetToolTip();
}

void wxDBListBody::Notify(wxTimerEvent&)
{
    CALL_ENTRY("wxDBListBody::Notify");
    // Not over what is open above the list, nor under the eyes of somebody who types.
    const bool isTyping = m_Typing->IsTyping();
    if (isTyping || internal::IsShutOut(*this))
    {
        UnsetToolTip();
        if (isTyping && m_Pointer.x >= 0)
        {
            m_HoverTimer.StartOnce(kHoverDelay);
        }
        return;
    }
    const listviews::ListGeometry geometry = Geometry();
    const int                     row = geometry.RowAt(m_Pointer.y);
    const int                     column = geometry.ColumnAt(m_Pointer.x);
    if (m_Pointer.x < 0 || !m_Model.HasRow(row) || column < 0)
    {
        UnsetToolTip();
        return;
    }
    const String whole = m_Source.GetDisplayText(row, column);
    // What is cut away anyway is not even converted.
    const size_t   bytes = std::min(whole.size(), kLongestTip * kLongestCharacter);
    const wxString text = wxtToWx(whole.data(), bytes).Left(kLongestTip);
    internal::SetToolTipHere(*this, text);
}

// The frame of the row that the keys move from comes and goes.
void wxDBListBody::OnFocus(wxFocusEvent& event)
{
    event.Skip();
    Redraw();
}
