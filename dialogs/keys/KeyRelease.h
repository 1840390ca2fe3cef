#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>

#include <set>

namespace dialogs
{
/// Keeps the release of a key from whatever window has the focus by then, if its press was for
/// another. Themed buttons are clicked on the release: neither must the Enter that ends a dialog
/// click the button behind it, however late that gets to see the release, nor the Enter that chose
/// a menu's entry the first button of the dialog that opens. Main thread.
class KeyRelease : public wxEventFilter
{
public:
    ~KeyRelease() override;

    /// The next release of that key, unless it is pressed anew, reaches no window of the program.
    static void Swallow(int keyCode);
    /// The same for every key that clicks a button.
    static void SwallowClicks();

    int FilterEvent(wxEvent& event) override;

private:
    void Expect(int keyCode);
    void Stop();

    std::set<int> m_KeyCodes;
    bool          m_Active = false;
};
} // namespace dialogs
