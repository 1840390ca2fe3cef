#pragma once

#include "vesta/Export.h"

#include <wx/colour.h>

/// The colours of a check box or a radio button in one state. `flags` are the toolkit's
/// (`wxCONTROL_CHECKED` and so on). A checked one looks pressed: its light and dark are swapped.
struct TOLVAN_API _ControlLook
{
    wxColour frame;
    wxColour light;
    wxColour dark;
    wxColour face;

    static _ControlLook OfCheckBox(int flags);
    static _ControlLook OfRadioButton(int flags);
};
