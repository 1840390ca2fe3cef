#pragma once

#include "appearance/wxtColorManaged.h"

#include <wx/window.h>

#include <functional>

namespace textviews
{
/// The small button in the corner of a view that follows its end: lit while it does, and a click
/// switches that. A child of the view, which destroys it. Keys and the focus stay with the view.
class FollowButton : public wxWindow, public wxtColorManaged
{
public:
    FollowButton(wxWindow* view, std::function<void()> onClick);

    ~FollowButton() override;

    void ShowState(bool following); ///< Does nothing when that is shown already.

    bool AcceptsFocus() const override { return false; }

private:
    /// Into the corner of the view. One that has no room for it has none.
    void Place();
    void OnViewSize(wxSizeEvent& event);
    void OnPaint(wxPaintEvent& event);
    void OnPress(wxMouseEvent& event);
    void SetHover(bool hover);

    std::function<void()> m_OnClick;
    bool                  m_Following = false;
    bool                  m_Hover = false;
};
} // namespace textviews
