#include "internal/input/ForeignPress.h"

#include <wx/stattext.h>

#include <memory>

namespace internal
{
namespace
{
enum class Press
{
    none,
    own,
    foreign
};
} // namespace

void RefuseForeignRelease(wxWindow& window)
{
    const auto press = std::make_shared<Press>(Press::none);
    const auto look = [press](const wxMouseEvent& event)
    {
        if (event.LeftUp() || !event.LeftIsDown())
        {
            *press = Press::none;
        }
        else if (*press == Press::none && !event.Leaving())
        {
            *press = Press::foreign;
        }
    };
    const auto watch = [press, look](wxMouseEvent& event)
    {
        event.Skip(!event.LeftUp() || *press != Press::foreign);
        if (event.LeftDown() || event.LeftDClick())
        {
            *press = Press::own;
        }
        else
        {
            look(event);
        }
    };
    const auto watchAround = [look](wxMouseEvent& event)
    {
        event.Skip();
        look(event);
    };
    for (const auto& type : {wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_MOTION, wxEVT_LEFT_DOWN,
                             wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP})
    {
        window.Bind(type, watch);
    }
    // A label is part of its parent's window on one of the ports, and is not told of the pointer
    // that comes in.
    if (dynamic_cast<wxStaticText*>(&window) && window.GetParent())
    {
        window.GetParent()->Bind(wxEVT_ENTER_WINDOW, watchAround);
        window.GetParent()->Bind(wxEVT_LEFT_UP, watchAround);
    }
}
} // namespace internal
