#pragma once

#include "appearance/wxTolvanColors.h"
#include "appearance/wxtChoice.h"
#include "tests/support/FrameTest.h"

#include <wx/uiaction.h>

/// Counts those that are alive.
class Counted : public wxClientData
{
public:
    Counted() { ++s_Alive; }
    ~Counted() override { --s_Alive; }
    static inline int s_Alive = 0;
};

/// A panel for the input controls, and real keys.
class InputsTest : public FrameTest
{
protected:
    InputsTest() : m_Panel(new wxtPanel(Frame())) { m_Panel->SetSize(Frame()->GetClientSize()); }

    static wxArrayString Items()
    {
        wxArrayString items;
        items.Add("Alpha");
        items.Add("beta");
        items.Add("bravo");
        items.Add("two\nlines\tand & more");
        items.Add(wxString('W', 10000));
        return items;
    }
    wxtChoice* AddChoice()
    {
        return new wxtChoice(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 24), Items());
    }
    void Focus(wxWindow* window)
    {
        window->SetFocus();
        ASSERT_TRUE(WaitFor([=] { return window->HasFocus(); }));
        PumpEvents();
    }
    void Press(int key, int modifiers = 0)
    {
        m_Input.Char(key, modifiers);
        PumpEvents();
    }
    static void SwitchTo(int scheme, wxWindow* top)
    {
        SetColors(scheme);
        wxSysColourChangedEvent event;
        top->ProcessWindowEvent(event);
    }

    wxUIActionSimulator m_Input;
    wxtPanel*           m_Panel;
};
