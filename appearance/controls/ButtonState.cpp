#include "appearance/controls/ButtonState.h"

#include <utility>

namespace appearance
{
ButtonState::Focus ButtonState::LoseFocus()
{
    return std::exchange(m_Focus, Focus::None);
}

bool ButtonState::Light(bool on)
{
    return std::exchange(m_Lit, on) != on;
}

bool ButtonState::TakeLight()
{
    return std::exchange(m_Lit, false);
}

void ButtonState::BeginClick()
{
    m_Clicking = true;
    m_EnableAfterClick = true;
}

bool ButtonState::KeepEnabling(bool enable)
{
    if (m_Clicking)
    {
        m_EnableAfterClick = enable;
    }
    return m_Clicking;
}

bool ButtonState::EndClick()
{
    m_Clicking = false;
    return m_EnableAfterClick;
}

bool ButtonState::Release()
{
    return !std::exchange(m_PressedAgain, false);
}
} // namespace appearance
