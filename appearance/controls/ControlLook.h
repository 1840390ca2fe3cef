#pragma once

#include <wx/colour.h>

namespace appearance
{
/// The colours of a check box or a radio button in one state. `flags` are the toolkit's
/// (`wxCONTROL_CHECKED` and so on). A checked one looks pressed: its light and dark are swapped.
struct ControlLook
{
    wxColour frame;
    wxColour light;
    wxColour dark;
    wxColour face;

    static ControlLook OfCheckBox(int flags);
    static ControlLook OfRadioButton(int flags);
};
} // namespace appearance
