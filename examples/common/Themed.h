#pragma once

#include "appearance/wxTolvanColors.h"

#include <utility>

/// A stock control in the colours of the scheme, with the background of a field to be filled in.
template <class Control> class Themed : public Control, public wxtColorManaged
{
public:
    template <class... Arguments>
    explicit Themed(Arguments&&... arguments) : Control(std::forward<Arguments>(arguments)...)
    {
        Manage(this);
        m_BackgroundName = color_WindowBGLighter;
        RefreshColors();
    }
};
