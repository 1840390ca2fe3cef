#pragma once

#include <wx/event.h>

#include <chrono>

class wxWindow;

namespace listviews
{
/// Knows whether somebody types in the window that a view is in: no tooltip is wanted then.
class TypingWatch : public wxEvtHandler
{
public:
    void Follow(wxWindow& view); ///< Costs nothing once it follows.
    bool IsTyping() const;       ///< A key has gone down within the last second.

private:
    void OnKey(wxKeyEvent& event);

    wxWindow*                             m_Followed = nullptr; ///< Only to be compared.
    std::chrono::steady_clock::time_point m_LastKey;
};
} // namespace listviews
