#pragma once

#include <vector>

/// Pixels of the screen, three bytes each: red, green and blue, row by row.
struct ScreenGrab
{
    int                        width = 0; ///< 0: they cannot be taken.
    int                        height = 0;
    std::vector<unsigned char> pixels;
};

/// What the display shows there, over a connection of its own: that of the toolkit leaves out other
/// programs' windows. Nothing where the place is not on the screen as a whole. A `width` of 0
/// stands for all of it.
ScreenGrab GrabScreen(int x = 0, int y = 0, int width = 0, int height = 0);
