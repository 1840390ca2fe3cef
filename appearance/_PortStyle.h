#pragma once

#include "vesta/Export.h"

#include <wx/string.h>

class wxColour;
class wxWindow;

/// What the toolkit has no word for in text fields. The GTK 2 port has no style sheets: there the
/// functions that set a style do nothing, and fields keep the looks that the toolkit gives them.

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

/// Whether a text field has its list of completions open: it gets the keys then.
TOLVAN_API bool _CompletionsAreOpen();
/// The proposal that is marked in the open list of completions; empty where there is none.
TOLVAN_API wxString _MarkedCompletion();
