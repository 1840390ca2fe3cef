#pragma once

#include <wx/defs.h>

namespace internal
{
/// The key that stands for one of the numeric pad which does not type a digit now: the pad's arrows
/// and its Home, End, Page Up and Page Down are what people call by those names. Any other key is
/// itself.
inline int OffThePad(int key)
{
    switch (key)
    {
    case WXK_NUMPAD_HOME:
        return WXK_HOME;
    case WXK_NUMPAD_END:
        return WXK_END;
    case WXK_NUMPAD_LEFT:
        return WXK_LEFT;
    case WXK_NUMPAD_RIGHT:
        return WXK_RIGHT;
    case WXK_NUMPAD_UP:
        return WXK_UP;
    case WXK_NUMPAD_DOWN:
        return WXK_DOWN;
    case WXK_NUMPAD_PAGEUP:
        return WXK_PAGEUP;
    case WXK_NUMPAD_PAGEDOWN:
        return WXK_PAGEDOWN;
    default:
        return key;
    }
}
} // namespace internal
