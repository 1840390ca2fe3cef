#pragma once

#include "tests/support/UserFolderTest.h"

#include <wx/frame.h>
#include <wx/weakref.h>

#include <functional>

/// Pumps the event loop until the condition holds; false when the deadline (milliseconds) passes
/// first.
bool WaitFor(const std::function<bool()>& condition, int deadlineMs = 5000);
/// Pumps the event loop until no event is waiting.
void PumpEvents();

/// A test with a shown frame of 600 x 400 pixels client size at a known place, and options of its
/// own.
class FrameTest : public UserFolderTest
{
protected:
    FrameTest();
    ~FrameTest() override;

    wxFrame* Frame() const { return m_Frame; }

    /// Gives a window the keyboard.
    static void Focus(wxWindow* window);
    /// A real key, down and up.
    static void Press(int key, int modifiers = 0);
    /// Sets the scheme and tells the window.
    static void UseColors(int scheme, wxWindow* window);

private:
    wxWeakRef<wxFrame> m_Frame;
};
