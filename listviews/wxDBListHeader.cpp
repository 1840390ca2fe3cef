#include "listviews/wxDBListHeader.h"

#include "appearance/wxTolvanString.h"
#include "internal/port/ToolTips.h"
#include "listviews/columns/ColumnActions.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/TableSettings.h"
#include "vesta/CallEntry.h"

#include <wx/weakref.h>

namespace
{
constexpr int kLargerByPoints = 1; // than the font of the rows
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxDBListHeader, wxDBListBase)
    EVT_MOTION(wxDBListHeader::OnMotion)
    EVT_LEFT_DOWN(wxDBListHeader::OnLDown)
    EVT_LEFT_DCLICK(wxDBListHeader::OnDoubleClick)
    EVT_LEFT_UP(wxDBListHeader::OnLUp)
    EVT_RIGHT_DOWN(wxDBListHeader::OnRDown)
    EVT_LEAVE_WINDOW(wxDBListHeader::OnLeave)
    EVT_MOUSE_CAPTURE_LOST(wxDBListHeader::OnCaptureLost)
wxEND_EVENT_TABLE()
// clang-format on

wxDBListHeader::wxDBListHeader(wxWindow& list, listviews::ListModel& model,
                               const listviews::ColumnActions& actions)
    : wxDBListBase(list, model, wxBORDER_NONE), m_Actions(actions)
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
    m_MoveTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ScrollToPointer(); });
}

wxDBListHeader::~wxDBListHeader() = default;

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
    m_MoveTimer.Stop();
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
    else if (event.LeftIsDown())
    {
        MoveTitle(event.GetX());
    }
    else
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
    m_PointerX = x;
    m_Model.hoverColumn = edge >= 0 ? edge : geometry.ColumnAt(x);
    internal::SetToolTipHere(*this, LabelOf(m_Model.hoverColumn));
    Redraw();
}

// Columns may have come, gone, moved or got another title under a pointer that rests.
void wxDBListHeader::HoverAnew()
{
    const bool isResting = m_PointerX >= 0 && !IsResizing() && m_Model.pressedColumn < 0;
    if (!isResting)
    {
        return;
    }
    const listviews::ListGeometry geometry = Geometry();
    const int                     edge = geometry.EdgeAt(m_PointerX);
    const int                     column = edge >= 0 ? edge : geometry.ColumnAt(m_PointerX);
    if (column != m_Model.hoverColumn || LabelOf(column) != GetToolTipText())
    {
        CallAfter(
            [this]
            {
                if (m_PointerX >= 0 && !HasCapture())
                {
                    Hover(m_PointerX);
                }
            });
    }
}

wxString wxDBListHeader::LabelOf(int column) const
{
    return m_Model.HasColumn(column) ? wxtToWx(m_Model.Column(column).label) : wxString();
}

void wxDBListHeader::Resize(int x)
{
    const int width = m_Model.ResizedWidth(x);
    if (width != m_Model.Column(m_Model.hoverColumn).width)
    {
        m_Actions.resize(m_Model.hoverColumn, width);
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
        m_Model.pressX = event.GetX();
        m_Model.titleCursor = -1;
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
    // The title that was pressed is not the one that the pointer rests on now.
    m_PointerX = GetClientRect().Contains(event.GetPosition()) ? event.GetX() : -1;
    if (IsResizing())
    {
        m_Model.resizeStart = -1;
        SendListEvent(wxEVT_LIST_COL_END_DRAG, InBody(event), m_Model.hoverColumn, -1);
    }
    else if (IsMovingTitle())
    {
        DropTitle();
    }
    else if (m_Model.pressedColumn >= 0)
    {
        m_Model.pressedColumn = -1;
        Redraw();
        SendListEvent(wxEVT_LIST_COL_CLICK, InBody(event), -1);
    }
}

void wxDBListHeader::OnDoubleClick(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListHeader::OnDoubleClick");
    Hover(event.GetX());
    if (m_OnEdge)
    {
        m_Actions.fit(m_Model.hoverColumn);
    }
    else
    {
        OnLDown(event);
    }
}

void wxDBListHeader::OnRDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListHeader::OnRDown");
    AskForMenu(Geometry().ColumnAt(event.GetX()), event.GetPosition());
}

void wxDBListHeader::AskForMenu(int column, const wxPoint& where)
{
    CALL_ENTRY("wxDBListHeader::AskForMenu");
    if (!GiveUpMove() && m_Model.pressedColumn >= 0)
    {
        // The menu gets the release.
        LetMouseGo();
        m_Model.pressedColumn = -1;
        Redraw();
    }
    const wxPoint inBody = where - wxPoint(0, GetSize().y);
    if (TellList(wxEVT_LIST_COL_RIGHT_CLICK, inBody, column, -1) == Outcome::Passed)
    {
        m_Actions.showMenu(ClientToScreen(where));
    }
}

void wxDBListHeader::OnLeave(wxMouseEvent&)
{
    m_PointerX = -1;
    if (!IsResizing() && m_Model.hoverColumn >= 0)
    {
        m_Model.hoverColumn = -1;
        Redraw();
    }
}
