#pragma once

#include "vesta/Export.h"

class wxColour;
class wxWindow;

/// Style sheets for what the toolkit has no word for. The GTK 2 port has none: there nothing
/// happens, and fields keep the looks that the toolkit gives them.

/// Colours of a text field besides those of its text and its ground.
struct _FieldColours
{
    const wxColour& hint;
    const wxColour& selectedInk;
    const wxColour& selectedGround;
    const wxColour& focus; ///< Of the frame that shows that the field has the keyboard.
};

/// Draws a text field flat, with a little room around its text, and with these colours in every
/// state.
TOLVAN_API void _StyleField(wxWindow& field, const _FieldColours& colours);

/// The colours of the lists of completions that text fields open, wherever they are.
TOLVAN_API void _StyleCompletions(const wxColour& ink, const wxColour& ground,
                                  const wxColour& selectedInk, const wxColour& selectedGround);
