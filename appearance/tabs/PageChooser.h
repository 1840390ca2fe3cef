#pragma once

#include "appearance/tabs/InputFilter.h"
#include "appearance/tabs/PageList.h"

#include <wx/timer.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>
#include <vector>

namespace appearance
{
/// Lets the user choose one of the pages of a notebook from a list. Either the list stays until a
/// page is picked or the user turns to something else, or it is there while the Ctrl key is held
/// and the Tab key goes through it. It takes the keys wherever the focus is. Main thread.
class PageChooser : public wxEvtHandler
{
public:
    struct Page
    {
        wxWeakRef<wxWindow> window;
        PageList::Row       row;
    };
    /// Told once, when nothing of this is at work any more; null when none was chosen.
    using Chosen = std::function<void(wxWindow* page)>;

    PageChooser(wxWindow& owner, std::vector<Page> pages, int marked, Chosen chosen);
    ~PageChooser() override;

    /// Below a point of the screen, and left of it.
    void OpenBelow(const wxPoint& screen);
    /// Around a point, once Ctrl has been held for a moment.
    void OpenWhileHeld(const wxPoint& screen);
    void GoOn(int rows); ///< From the last row to the first.

private:
    bool Takes(wxEvent& event);
    bool TakesKey(wxKeyEvent& event);
    void Type(wxKeyEvent& event);
    bool IsOutside(const wxEvent& event) const;
    void Finish(bool choose);
    void OnTick(wxTimerEvent& event);

    std::vector<Page>   m_Pages;
    Chosen              m_Chosen;
    wxWeakRef<PageList> m_List;
    wxPoint             m_Middle;         ///< Of the list to come.
    bool                m_IsHeld = false; ///< By the Ctrl key.
    bool                m_IsOver = false;
    wxString            m_Typed;
    wxLongLong          m_LastTyped;
    int                 m_Ticks = 0;
    wxTimer             m_Timer;
    InputFilter         m_Filter;
};
} // namespace appearance
