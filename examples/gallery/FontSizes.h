#pragma once

#include <wx/window.h>

/// Sizes that are meant for the usual font, as large as the window's own font makes them.
inline int InFontOf(const wxWindow& window, int pixels)
{
    constexpr int kUsual = 8; // pixels of a character of the usual font
    const int     width = window.GetCharWidth();
    return width > kUsual ? pixels * width / kUsual : pixels;
}

inline wxSize InFontOf(const wxWindow& window, const wxSize& pixels)
{
    return {pixels.x < 0 ? pixels.x : InFontOf(window, pixels.x),
            pixels.y < 0 ? pixels.y : InFontOf(window, pixels.y)};
}
