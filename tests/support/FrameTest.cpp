#include "tests/support/FrameTest.h"

#include "appearance/wxTolvanColors.h"
#include "tests/support/TestApp.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

namespace
{
constexpr int kPauseMs = 2; // between two looks at a condition
} // namespace

void PumpEvents()
{
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    wxTheApp->ProcessPendingEvents();
    while (loop->Pending())
    {
        loop->Dispatch();
        wxTheApp->ProcessPendingEvents();
    }
    wxTheApp->ProcessIdle();
}

bool WaitFor(const std::function<bool()>& condition, int deadlineMs)
{
    const wxStopWatch watch;
    while (!condition())
    {
        if (watch.Time() > deadlineMs)
        {
            return false;
        }
        PumpEvents();
        wxMilliSleep(kPauseMs);
    }
    return true;
}

FrameTest::FrameTest()
{
    TestApp::Get().ForgetOptions();
    SetColors(scheme_Dark);
    m_Frame = new wxFrame(nullptr, wxID_ANY, "Test", wxPoint(40, 40));
    m_Frame->SetClientSize(600, 400);
    m_Frame->Show();
    EXPECT_TRUE(WaitFor([this] { return m_Frame->IsShownOnScreen() && m_Frame->IsActive(); }));
}

FrameTest::~FrameTest()
{
    if (m_Frame)
    {
        m_Frame->Destroy();
    }
    WaitFor([this] { return !m_Frame; });
    TestApp::Get().ForgetOptions();
}

void FrameTest::Focus(wxWindow* window)
{
    window->SetFocus();
    EXPECT_TRUE(WaitFor([=] { return window->HasFocus(); }));
    PumpEvents();
}

void FrameTest::Press(int key, int modifiers)
{
    wxUIActionSimulator().Char(key, modifiers);
    PumpEvents();
}

void FrameTest::UseColors(int scheme, wxWindow* window)
{
    SetColors(scheme);
    wxSysColourChangedEvent changed;
    window->ProcessWindowEvent(changed);
}
