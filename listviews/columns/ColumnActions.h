#pragma once

#include <wx/gdicmn.h>

#include <functional>

namespace listviews
{
/// What a hand or a key makes the list do with its columns. The list may be gone after each of
/// them, because its host is told.
struct ColumnActions
{
    std::function<void(int column, int width)> resize; ///< Pixels.
    std::function<void(int column)>            fit;
    std::function<void()>                      fitAll;
    std::function<void(int from, int to)>      move;
    /// Of what can be done to all of them. `where`: pixels of the screen.
    std::function<void(const wxPoint& where)> showMenu;
};
} // namespace listviews
