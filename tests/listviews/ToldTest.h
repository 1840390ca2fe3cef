#pragma once

#include "tests/support/FrameTest.h"
#include "vesta/String.h"

#include <wx/sizer.h>
#include <wx/uiaction.h>

#include <utility>

/// A test with one list, and what that tells.
class ToldTest : public FrameTest
{
protected:
    /// Has the list fill the frame.
    void Fill(wxWindow* list)
    {
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(list, 1, wxEXPAND);
        Frame()->SetSizer(sizer);
        Frame()->Layout();
    }
    /// What was told since the last time. Waits until it is what is expected, however busy the
    /// machine is, and for what comes beside that.
    String Told(const String& expected = String())
    {
        WaitFor([&] { return expected.empty() || m_Told + After() == expected; });
        for (int i = 0; i < 10; ++i)
        {
            PumpEvents();
            wxMilliSleep(5);
        }
        return std::exchange(m_Told, String()) + After();
    }
    /// What the list has come to, to be seen behind what it has told.
    virtual String After() const { return String(); }

    wxUIActionSimulator m_Input;
    String              m_Told;
};
