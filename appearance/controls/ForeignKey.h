#pragma once

#include <wx/event.h>

namespace appearance
{
/// Tells whether the release of a key on a control ends a press that was meant for something else:
/// one that a dialog took for itself, or one that was already down when the control got the focus
/// (the key that closed a dialog must not click the button that the focus returns to). A release
/// without a known press counts as the control's own.
class ForeignKey
{
public:
    void OnFocus(); ///< The control has got the focus.
    /// A press: told twice, before anybody has taken it (`wxEVT_CHAR_HOOK`) and, when nobody has,
    /// again (`wxEVT_KEY_DOWN`). Lets it pass.
    void OnPress(wxKeyEvent& event);
    /// Whether the release is somebody else's; forgets the press.
    bool EndsWith(const wxKeyEvent& event);

private:
    int m_Key = WXK_NONE; ///< The key whose press is somebody else's.
};
} // namespace appearance
