#include "listviews/wxListKeys.h"

#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/listbase.h>

#include <algorithm>

namespace
{
// The row that a key leads to from the anchor; -1 for a key that leads nowhere.
int TargetOf(const wxDBListCtrl& list, int key)
{
    const int last = list.GetItemCount() - 1;
    const int anchor = list.GetLastSelect();
    const int page = std::max(1, list.GetScrollThumb(wxVERTICAL) / list.GetRowHeight() - 1);
    switch (key)
    {
    case WXK_HOME:
    case WXK_NUMPAD_HOME:
        return 0;
    case WXK_END:
    case WXK_NUMPAD_END:
        return last;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP:
        return std::max(anchor - page, 0);
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
        return std::min(anchor + page, last);
    case WXK_UP:
    case WXK_NUMPAD_UP:
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
        return anchor < 0 ? 0 : -1;
    default:
        return -1;
    }
}

void Select(wxDBListBody& body, int first, int last)
{
    for (int row = first; row <= last; ++row)
    {
        if (!body.SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row))
        {
            return;
        }
    }
}

void GoTo(wxDBListCtrl& list, int row, bool extend)
{
    wxDBListBody& body = *list.GetBody();
    const int     anchor = list.GetLastSelect();
    const int     from = extend && anchor >= 0 ? anchor : row;
    if (!body.DeselectAll(false))
    {
        return;
    }
    Select(body, std::min(from, row), std::max(from, row));
    list.SetLastSelect(row);
    list.EnsureVisible(row);
    list.Redraw();
}

bool IsSelected(wxDBListCtrl& list, int row)
{
    return row >= 0 && row < list.GetItemCount() && list.IsRowSelected(row);
}

void OnKey(wxDBListCtrl& list, wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const int count = list.GetItemCount();
    const int target = count > 0 ? TargetOf(list, key) : -1;
    if (target >= 0)
    {
        GoTo(list, target, event.ShiftDown());
    }
    else if (key == 'A' && event.ControlDown())
    {
        Select(*list.GetBody(), 0, count - 1);
    }
    else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && list.GetLastSelect() >= 0)
    {
        list.GetBody()->SendListEvent(wxEVT_LIST_ITEM_ACTIVATED, wxPoint(0, 0), 0,
                                      list.GetLastSelect());
    }
    else
    {
        event.Skip();
    }
}
} // namespace

void wxAddListKeys(wxDBListCtrl& list)
{
    CALL_ENTRY("wxAddListKeys");
    list.GetBody()->Bind(wxEVT_KEY_DOWN, [&list](wxKeyEvent& event) { OnKey(list, event); });
}

void wxAddListMenu(wxDBListCtrl& list, const std::function<void(const wxPoint& where)>& show)
{
    CALL_ENTRY("wxAddListMenu");
    list.Bind(wxEVT_LIST_ITEM_RIGHT_CLICK,
              [&list, show](wxListEvent& event)
              {
                  // The body has selected the row, unless it was among the selected ones.
                  if (IsSelected(list, static_cast<int>(event.GetIndex())))
                  {
                      show(list.GetBody()->ClientToScreen(event.GetPoint()));
                  }
              });
    list.Bind(wxEVT_CONTEXT_MENU,
              [&list, show](wxContextMenuEvent& event)
              {
                  const int row = list.GetLastSelect();
                  // By the keyboard; a click of the mouse is the body's.
                  if (event.GetPosition() != wxDefaultPosition || !IsSelected(list, row))
                  {
                      event.Skip();
                      return;
                  }
                  list.EnsureVisible(row);
                  wxDBListBody& body = *list.GetBody();
                  show(body.ClientToScreen(body.GetItemRect(row).GetBottomLeft()));
              });
}
