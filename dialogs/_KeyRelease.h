#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>

/// Keeps the release of a key whose press a dialog has taken from whatever window has the focus by
/// then. Themed buttons are clicked on the release: the Enter that ends a dialog must not click the
/// button behind it, however late that gets to see the release. Main thread.
class _KeyRelease : public wxEventFilter
{
public:
    ~_KeyRelease() override;

    /// The next release of that key reaches no window of the program.
    static void Swallow(int keyCode);

    int FilterEvent(wxEvent& event) override;

private:
    void Expect(int keyCode);
    void Stop();

    int  m_KeyCode = WXK_NONE;
    bool m_Active = false;
};
