#pragma once

#include <wx/string.h>

class wxColour;
class wxWindow;

namespace internal
{
/// What the toolkit has no word for in text fields. The GTK 2 port has no style sheets: there the
/// functions that set a style do nothing, and fields keep the looks that the toolkit gives them.

/// Colours of a text field besides those of its text and its ground.
struct FieldColours
{
    const wxColour& hint;
    const wxColour& selectedInk;
    const wxColour& selectedGround;
    const wxColour& focus; ///< Of the frame that shows that the field has the keyboard.
};

/// Draws a text field flat, with a little room around its text, and with these colours in every
/// state.
void StyleField(wxWindow& field, const FieldColours& colours);

/// The colours of the lists of completions that text fields open, wherever they are.
void StyleCompletions(const wxColour& ink, const wxColour& ground, const wxColour& selectedInk,
                      const wxColour& selectedGround);

/// Whether a text field has its list of completions open: it gets the keys then.
bool CompletionsAreOpen();
/// The proposal that is marked in the open list of completions; empty where there is none.
wxString MarkedCompletion();
} // namespace internal
