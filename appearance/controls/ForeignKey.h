#pragma once

#include <wx/event.h>

#include <memory>

namespace appearance
{
class KeyWatch;

/// Tells whether the release of a key on a control ends a press that was meant for something else:
/// one that a dialog took for itself, or one that came to another window, which may have given the
/// focus away or have gone meanwhile (the key that closed a dialog must not click the button that
/// the focus returns to, however late its release is seen). A release without a known press counts
/// as the control's own. Main thread.
class ForeignKey
{
public:
    ForeignKey();
    ~ForeignKey();

    void OnFocus(); ///< The control has got the focus.
    /// A press: told twice, before anybody has taken it (`wxEVT_CHAR_HOOK`) and, when nobody has,
    /// again (`wxEVT_KEY_DOWN`). Lets it pass.
    void OnPress(wxKeyEvent& event);
    /// Whether the release is somebody else's; forgets the press.
    bool EndsWith(const wxKeyEvent& event);

private:
    int m_Key = WXK_NONE; ///< The key whose press is somebody else's.

    std::shared_ptr<KeyWatch> m_Watch; ///< One for all controls.
};
} // namespace appearance
