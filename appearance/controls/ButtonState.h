#pragma once

namespace appearance
{
/// What a push button is in the middle of: its light, what the focus made of it, a click, a press
/// of the mouse. Knows no window; each function tells the button what is left for it to do.
class ButtonState
{
public:
    /// What the focus has made of the button.
    enum class Focus
    {
        None,
        Lit,  ///< It is lit up only: it is the default item itself, or there is none.
        Role, ///< It holds the role of the default item, and will give it back.
    };

    Focus OfFocus() const { return m_Focus; }
    /// `tookRole`: it has become the default item in place of another.
    void GainFocus(bool tookRole) { m_Focus = tookRole ? Focus::Role : Focus::Lit; }
    /// What the focus had made of it, to be undone.
    Focus LoseFocus();

    bool IsLit() const { return m_Lit; }
    /// Whether that changes anything.
    bool Light(bool on);
    /// The light is gone with the look that it was on; whether it has to be put on again.
    bool TakeLight();

    bool IsClicking() const { return m_Clicking; }
    void BeginClick();
    /// During a click: keeps for its end whether the button shall be enabled then, and says so.
    bool KeepEnabling(bool enable);
    /// Whether the button shall be enabled now.
    bool EndClick();

    /// The mouse's button goes down; `again`: the second time of two quick ones.
    void Press(bool again) { m_PressedAgain = again; }
    /// It goes up; whether that may click. The one that ends a double click does not.
    bool Release();

private:
    Focus m_Focus = Focus::None;
    bool  m_Lit = false;
    bool  m_Clicking = false;
    bool  m_EnableAfterClick = true;
    bool  m_PressedAgain = false;
};
} // namespace appearance
