#pragma once

#include "listviews/_ScrollModel.h"
#include "listviews/wxDoubleBufferedWindow.h"

/// Both scrollbars as last given to the toolkit.
struct wxDoubleBufferedWindow::ScrollState
{
    _ScrollAxis horizontal;
    _ScrollAxis vertical;
    bool        due = false;   ///< They are behind the content.
    bool        hidden = true; ///< One of them is hidden, whatever stands above.

    _ScrollAxis& Axis(int orientation)
    {
        return orientation == wxHORIZONTAL ? horizontal : vertical;
    }
};
