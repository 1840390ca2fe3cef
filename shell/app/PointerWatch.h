#pragma once

#include <wx/eventfilter.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <optional>
#include <vector>

namespace shell
{
/// Tells a window that the pointer has left it while a menu or a modal dialog had all input: the
/// port doesn't, and the window would look as under the pointer until that comes again. Keeps
/// tooltips away from somebody who types, until the pointer moves. Main thread.
class PointerWatch : public wxEventFilter
{
public:
    PointerWatch();
    ~PointerWatch() override;

    int FilterEvent(wxEvent& event) override;

private:
    void NoteTyping(const wxEvent& event);
    void NoteShutOut();
    void TellThoseLetIn();

    wxWeakRef<wxWindow>    m_Under;   ///< The one that the pointer came to last.
    std::optional<wxPoint> m_TypedAt; ///< Where on the screen the pointer rests at typing.
    std::vector<wxWeakRef<wxWindow>> m_ShutOut; ///< Those that it came to before.
};
} // namespace shell
