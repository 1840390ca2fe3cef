#pragma once

#include <wx/popupwin.h>
#include <wx/weakref.h>

namespace appearance
{
/// Shows where something that is dragged would go: a frame on the screen, in the colour of what is
/// selected, which leaves what lies under it to be seen.
class DropHint
{
public:
    /// `owner`: a window of the program that it is shown for.
    explicit DropHint(wxWindow& owner) : m_Owner(&owner) {}
    ~DropHint() { Hide(); }
    DropHint(const DropHint&) = delete;
    DropHint& operator=(const DropHint&) = delete;

    /// An empty rectangle hides it.
    void Show(const wxRect& screen);
    void Hide();

private:
    wxWeakRef<wxWindow>      m_Owner;
    wxWeakRef<wxPopupWindow> m_Window;
    wxRect                   m_Shown;
};
} // namespace appearance
