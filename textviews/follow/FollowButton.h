#pragma once

#include "appearance/wxtColorManaged.h"

#include <wx/window.h>

#include <functional>

namespace textviews
{
/// The small button that tells whether a view follows its end: lit while it does, and a click, or a
/// key when it has the focus, switches that.
class FollowButton : public wxWindow, public wxtColorManaged
{
public:
    FollowButton(wxWindow* parent, std::function<void()> onClick);

    void ShowState(bool following); ///< Does nothing when that is shown already.
    int  Side() const;              ///< Pixels of the square that it is.

protected:
    /// What is pressed takes no keys from where they are.
    virtual void OnPress() {}

    wxSize DoGetBestSize() const override;

private:
    void OnPaint(wxPaintEvent& event);
    void OnRelease(wxMouseEvent& event);
    void Click();
    void OnKey(wxKeyEvent& event);
    void SetHover(bool hover);

    std::function<void()> m_OnClick;
    bool                  m_Following = false;
    bool                  m_Hover = false;
    bool                  m_IsKeyDown = false; ///< The key that clicked it is held.
};

/// The one in the corner of the view, whose child it is. Keys and the focus stay with the view.
class CornerFollowButton final : public FollowButton
{
public:
    CornerFollowButton(wxWindow* view, std::function<void()> onClick);
    ~CornerFollowButton() override;

    void KeepClearOf(int pixels); ///< Of the view's right edge.

    bool AcceptsFocus() const override { return false; }

protected:
    void OnPress() override;

private:
    /// Into the corner of the view. One that has no room for it has none.
    void Place();
    void OnViewSize(wxSizeEvent& event);

    bool m_IsHeld = false; ///< By the pointer: it stays where it is.
    int  m_Right = 0;      ///< Pixels that something else has there.
};
} // namespace textviews
