#include "listviews/keys/TitleKeys.h"

#include "listviews/columns/ColumnActions.h"
#include "listviews/model/ListModel.h"
#include "listviews/wxDBListHeader.h"

#include <wx/listbase.h>

#include <algorithm>

namespace listviews
{
TitleKeys::TitleKeys(wxWindow& list, wxDBListHeader& header, ListModel& model,
                     const ColumnActions& actions)
    : m_List(list), m_Header(header), m_Model(model), m_Actions(actions)
{
}

bool TitleKeys::HasCursor() const
{
    return m_Model.HasColumn(m_Model.titleCursor) && m_Model.Column(m_Model.titleCursor).visible;
}

bool TitleKeys::GiveUp()
{
    if (m_Header.GiveUpMove())
    {
        return true;
    }
    const bool had = HasCursor();
    m_Model.titleCursor = -1;
    m_Header.Redraw();
    return had;
}

bool TitleKeys::Do(KeyAction action)
{
    if (m_Model.MainColumn() < 0)
    {
        return false;
    }
    const wxRect title = m_Header.Geometry().ColumnRect(std::max(m_Model.titleCursor, 0));
    switch (action)
    {
    case KeyAction::PreviousTitle:
        MoveCursor(-1);
        return true;
    case KeyAction::NextTitle:
        MoveCursor(1);
        return true;
    case KeyAction::MoveTitleLeft:
        MoveColumn(-1);
        return true;
    case KeyAction::MoveTitleRight:
        MoveColumn(1);
        return true;
    case KeyAction::ClickTitle:
        if (!HasCursor())
        {
            return false;
        }
        m_Header.SendListEvent(wxEVT_LIST_COL_CLICK,
                               title.GetPosition() - wxPoint(0, m_Header.GetSize().y),
                               m_Model.titleCursor, -1);
        return true;
    case KeyAction::TitleMenu:
        m_Header.AskForMenu(HasCursor() ? m_Model.titleCursor : m_Model.MainColumn(),
                            wxPoint(HasCursor() ? title.x : 0, m_Header.GetClientSize().y));
        return true;
    case KeyAction::FitAll:
        m_Actions.fitAll();
        return true;
    default:
        return false;
    }
}

// It comes to the column that the list is about.
void TitleKeys::MoveCursor(int step)
{
    const int next =
        HasCursor() ? m_Model.NextShown(m_Model.titleCursor + step, step) : m_Model.MainColumn();
    if (next >= 0)
    {
        ShowCursor(next);
    }
}

void TitleKeys::MoveColumn(int step)
{
    if (!HasCursor())
    {
        MoveCursor(step);
        return;
    }
    const int from = m_Model.titleCursor;
    const int to = m_Model.NextShown(from + step, step);
    if (to >= 0 && m_Model.canMoveTitles)
    {
        m_Actions.move(from, to); // the cursor goes with it
    }
}

void TitleKeys::ShowCursor(int column)
{
    m_Model.titleCursor = column;
    const wxRect title = m_Header.Geometry().ColumnRect(column);
    const int    position = m_List.GetScrollPos(wxHORIZONTAL);
    const int    beyond = std::min(title.GetRight() + 1 - m_Header.GetClientSize().x, title.x);
    if (title.x < 0 || beyond > 0)
    {
        m_List.SetScrollPos(wxHORIZONTAL, position + (title.x < 0 ? title.x : beyond));
    }
    m_Header.Redraw();
}
} // namespace listviews
