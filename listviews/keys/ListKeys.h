#pragma once

#include "listviews/keys/KeyTable.h"
#include "listviews/keys/RowSearch.h"
#include "listviews/keys/RowSelector.h"
#include "listviews/keys/TitleKeys.h"
#include "listviews/keys/TypedText.h"

#include <wx/event.h>
#include <wx/timer.h>

#include <functional>

namespace listviews
{
/// The keys of a list beside the body's arrows. They report through the events that clicks send.
/// A handler that is bound to the body or the list later is asked first. Main thread.
class ListKeys
{
public:
    struct Parts
    {
        wxWindow&             list;
        wxDBListHeader&       header;
        wxDBListBody&         body;
        wxDBListSource&       source;
        ListModel&            model;
        const ColumnActions&  actions;
        bool                  singleSelection;
        std::function<void()> copy;
    };

    explicit ListKeys(const Parts& parts);

    void SelectAll(); ///< Nothing in a list for one row.

private:
    void OnKey(wxKeyEvent& event);
    void OnCharacter(wxKeyEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnFocus(wxFocusEvent& event);
    void SearchOn();

    bool Do(KeyAction action, KeyModifiers modifiers);
    void GoTo(int row, KeyModifiers modifiers);
    void Select(int row, KeyModifiers modifiers);
    void SelectTo(int row, bool adding);
    void SelectAlone(int row);
    void Activate(int row);
    bool ScrollBy(wxEventType type);
    void ShowFocus();

    bool HasFocusRow() const;
    int  Page() const;

    Parts       m_Parts;
    RowSelector m_Rows;
    TypedText   m_Typed;
    RowSearch   m_Search;
    TitleKeys   m_Titles;
    wxTimer     m_SearchTimer;
};
} // namespace listviews
