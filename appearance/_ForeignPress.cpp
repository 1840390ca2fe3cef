#include "appearance/_ForeignPress.h"

#include <wx/window.h>

#include <memory>

namespace
{
enum class Press
{
    none,
    own,
    foreign
};
} // namespace

void _RefuseForeignRelease(wxWindow& window)
{
    const auto press = std::make_shared<Press>(Press::none);
    const auto watch = [press](wxMouseEvent& event)
    {
        event.Skip(!event.LeftUp() || *press != Press::foreign);
        if (event.LeftDown() || event.LeftDClick())
        {
            *press = Press::own;
        }
        else if (event.LeftUp() || !event.LeftIsDown())
        {
            *press = Press::none;
        }
        else if (*press == Press::none && !event.Leaving())
        {
            *press = Press::foreign;
        }
    };
    for (const auto& type : {wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_MOTION, wxEVT_LEFT_DOWN,
                             wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP})
    {
        window.Bind(type, watch);
    }
}
