#pragma once

#include "appearance/wxTolvanColors.h"
#include "tests/support/FrameTest.h"

#include <wx/uiaction.h>

/// A panel for controls, that fills the frame, and a pointer that lights none of them up.
class PanelTest : public FrameTest
{
protected:
    PanelTest() : m_Panel(new wxtPanel(Frame()))
    {
        m_Panel->SetSize(Frame()->GetClientSize());
        m_Input.MouseMove(wxPoint(1200, 1000));
    }

    wxUIActionSimulator m_Input;
    wxtPanel*           m_Panel;
};
