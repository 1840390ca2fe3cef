#pragma once

#include "tests/textviews/TextViewTest.h"
#include "textviews/wxTextLinePanes.h"

#include <wx/sizer.h>

/// A shown view that fills the frame, with its search bar and the pane for the lines that match,
/// which is closed.
class PanesTest : public FrameTest
{
protected:
    PanesTest() : m_Panes(new wxTextLinePanes(Frame()))
    {
        m_View = new TestView(m_Panes->GetViewParent());
        m_Panes->ShowView(m_View);
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(m_Panes, 1, wxEXPAND);
        Frame()->SetSizer(sizer);
        Frame()->Layout();
        EXPECT_TRUE(WaitFor([this] { return m_View->Drawn() > 0; }));
    }

    wxTextLinePanes* m_Panes;
    TestView*        m_View;
};
