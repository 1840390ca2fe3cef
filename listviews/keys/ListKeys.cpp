#include "listviews/keys/ListKeys.h"

#include "listviews/model/ListModel.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxDBListSource.h"
#include "vesta/CallEntry.h"

#include <wx/listbase.h>

#include <algorithm>
#include <cwctype>

// Whoever handles the list's events may destroy it: after each of them either nothing more is done,
// or the answer says that it is still there.

namespace listviews
{
namespace
{
constexpr auto kSlice = std::chrono::milliseconds(8); // of the search, between two events
constexpr int  kSearchPauseMs = 1;

bool IsPlainCharacter(const wxKeyEvent& event)
{
    return !event.ControlDown() && !event.AltDown() && !event.MetaDown() &&
           std::iswprint(static_cast<wint_t>(event.GetUnicodeKey()));
}
} // namespace

ListKeys::ListKeys(const Parts& parts)
    : m_Parts(parts),
      m_Rows(parts.body, parts.source, parts.model),
      m_Search(parts.source, parts.model),
      m_Titles(parts.list, parts.header, parts.model, parts.actions)
{
    m_Parts.body.Bind(wxEVT_KEY_DOWN, &ListKeys::OnKey, this);
    m_Parts.body.Bind(wxEVT_CHAR, &ListKeys::OnCharacter, this);
    const auto forget = [this](wxEvent& event)
    {
        event.Skip();
        m_Search.Stop();
        m_Typed.Forget();
    };
    m_Parts.body.Bind(wxEVT_SET_FOCUS, &ListKeys::OnFocus, this);
    m_Parts.body.Bind(wxEVT_KILL_FOCUS, &ListKeys::OnFocus, this);
    m_Parts.body.Bind(wxEVT_KILL_FOCUS, forget);
    m_Parts.body.Bind(wxEVT_LEFT_DOWN, forget);
    m_Parts.body.Bind(wxEVT_RIGHT_DOWN, forget);
    m_Parts.list.Bind(wxEVT_CONTEXT_MENU, &ListKeys::OnContextMenu, this);
    m_SearchTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { SearchOn(); });
}

// The cursor of the titles is seen while the keys come here.
void ListKeys::OnFocus(wxFocusEvent& event)
{
    event.Skip();
    if (m_Parts.model.titleCursor >= 0)
    {
        m_Parts.header.Redraw();
    }
}

bool ListKeys::HasFocusRow() const
{
    return m_Parts.model.HasRow(m_Parts.model.FocusRow());
}

int ListKeys::Page() const
{
    return std::max(1, m_Parts.body.GetScrollThumb(wxVERTICAL) / m_Parts.model.rowHeight - 1);
}

void ListKeys::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("ListKeys::OnKey");
    m_Search.Stop();
    const KeyModifiers modifiers{event.ControlDown(), event.ShiftDown()};
    const KeyAction    action = event.AltDown() || event.MetaDown()
                                    ? KeyAction::None
                                    : ActionOf(event.GetKeyCode(), modifiers);
    // A space among typed characters is one of them.
    const bool isTyped = action == KeyAction::Select && !modifiers.control &&
                         m_Typed.IsOpen(TypedText::Clock::now());
    if (!isTyped && (action != KeyAction::None || event.GetKeyCode() == WXK_ESCAPE))
    {
        m_Typed.Forget();
    }
    const bool isGivenUp = event.GetKeyCode() == WXK_ESCAPE && m_Titles.GiveUp();
    if (!isGivenUp && (isTyped || !Do(action, modifiers)))
    {
        event.Skip();
    }
}

// False when the key is not for the list.
bool ListKeys::Do(KeyAction action, KeyModifiers modifiers)
{
    ListModel& model = m_Parts.model;
    if (LeadsToRow(action) && model.rowCount > 0)
    {
        GoTo(TargetRow(action, model.FocusRow(), model.rowCount, Page()), modifiers);
        return true;
    }
    if (IsOfTitles(action))
    {
        return m_Titles.Do(action);
    }
    switch (action)
    {
    case KeyAction::Arrow:
        if (modifiers.shift && !m_Parts.singleSelection && HasFocusRow() &&
            !model.HasRow(model.anchor))
        {
            model.anchor = model.caret; // the row with the frame is the first of the range
            return !m_Rows.Range(model.caret, model.caret, true);
        }
        if (model.FocusRow() >= 0 || model.rowCount == 0)
        {
            return false; // the body's
        }
        model.caret = std::min(m_Parts.body.Geometry().RowAt(0), model.rowCount - 1);
        ShowFocus();
        return true;
    case KeyAction::Select:
        if (HasFocusRow())
        {
            Select(model.FocusRow(), modifiers);
        }
        return true;
    case KeyAction::SelectAll:
        SelectAll();
        return true;
    case KeyAction::Activate:
        if (!HasFocusRow())
        {
            return false;
        }
        if (m_Parts.body.Selecting().Finish())
        {
            Activate(model.FocusRow());
        }
        return true;
    case KeyAction::ScrollLeft:
        return ScrollBy(wxEVT_SCROLLWIN_LINEUP);
    case KeyAction::ScrollRight:
        return ScrollBy(wxEVT_SCROLLWIN_LINEDOWN);
    case KeyAction::Copy:
        m_Parts.copy();
        return true;
    default:
        return false;
    }
}

void ListKeys::SelectAll()
{
    if (!m_Parts.singleSelection)
    {
        m_Rows.All();
    }
}

void ListKeys::GoTo(int row, KeyModifiers modifiers)
{
    if (modifiers.shift)
    {
        SelectTo(row, modifiers.control);
    }
    else if (modifiers.control)
    {
        m_Parts.model.caret = row;
        ShowFocus();
    }
    else
    {
        SelectAlone(row);
    }
}

void ListKeys::Select(int row, KeyModifiers modifiers)
{
    if (modifiers.shift)
    {
        SelectTo(row, modifiers.control);
    }
    else if (modifiers.control && !m_Parts.singleSelection)
    {
        m_Parts.model.SetAnchor(row);
        m_Rows.Toggle(row);
    }
    else
    {
        SelectAlone(row);
    }
}

// The anchor moves first: a handler that fills the list anew takes it along with its row.
void ListKeys::SelectAlone(int row)
{
    m_Parts.model.SetAnchor(row);
    if (m_Rows.Alone(row))
    {
        ShowFocus();
    }
}

void ListKeys::SelectTo(int row, bool adding)
{
    ListModel& model = m_Parts.model;
    if (m_Parts.singleSelection)
    {
        SelectAlone(row);
        return;
    }
    if (!model.HasRow(model.anchor))
    {
        model.anchor = std::clamp(model.FocusRow(), 0, model.rowCount - 1);
    }
    model.caret = row;
    if (m_Rows.Range(std::min(model.anchor, row), std::max(model.anchor, row), adding))
    {
        ShowFocus();
    }
}

void ListKeys::ShowFocus()
{
    if (HasFocusRow())
    {
        m_Parts.body.ShowRow(m_Parts.model.FocusRow());
    }
    m_Parts.body.RedrawMarks();
}

void ListKeys::Activate(int row)
{
    m_Parts.body.SendListEvent(wxEVT_LIST_ITEM_ACTIVATED,
                               m_Parts.body.GetItemRect(row).GetPosition(), 0, row);
}

bool ListKeys::ScrollBy(wxEventType type)
{
    wxDBListBody& body = m_Parts.body;
    if (body.GetScrollRange(wxHORIZONTAL) <= body.GetScrollThumb(wxHORIZONTAL))
    {
        return false;
    }
    wxScrollWinEvent event(type, 0, wxHORIZONTAL);
    event.SetEventObject(&body);
    body.Scroll(event);
    return true;
}

// By the keyboard; a click of the mouse is the body's.
void ListKeys::OnContextMenu(wxContextMenuEvent& event)
{
    CALL_ENTRY("ListKeys::OnContextMenu");
    if (event.GetPosition() != wxDefaultPosition || !HasFocusRow())
    {
        event.Skip();
        return;
    }
    const int row = m_Parts.model.FocusRow();
    m_Parts.body.ShowRow(row);
    const auto tell = [this, row]
    {
        if (m_Parts.model.HasRow(row))
        {
            m_Parts.body.SendListEvent(wxEVT_LIST_ITEM_RIGHT_CLICK,
                                       m_Parts.body.GetItemRect(row).GetBottomLeft(), 0, row);
        }
    };
    if (!m_Parts.source.IsRowSelected(row))
    {
        m_Parts.model.SetAnchor(row);
        m_Rows.Alone(row, tell);
    }
    else if (m_Parts.body.Selecting().Finish())
    {
        tell();
    }
}

void ListKeys::OnCharacter(wxKeyEvent& event)
{
    CALL_ENTRY("ListKeys::OnCharacter");
    const ListModel& model = m_Parts.model;
    const int        column = model.MainColumn();
    if (!IsPlainCharacter(event) || model.rowCount == 0 || column < 0)
    {
        event.Skip();
        return;
    }
    m_Typed.Add(event.GetUnicodeKey(), TypedText::Clock::now());
    m_Search.Begin(m_Typed, column);
    SearchOn();
}

void ListKeys::SearchOn()
{
    CALL_ENTRY("ListKeys::SearchOn");
    const RowSearch::State state = m_Search.Work(kSlice);
    if (state == RowSearch::State::Running)
    {
        m_SearchTimer.StartOnce(kSearchPauseMs);
    }
    else if (state == RowSearch::State::Found)
    {
        SelectAlone(m_Search.Row());
    }
}
} // namespace listviews
