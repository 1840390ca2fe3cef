#pragma once

class wxColour;
class wxWindow;

namespace internal
{
/// Colours of a text field.
struct FieldColours
{
    const wxColour& ink;
    const wxColour& ground;
    const wxColour& hint;
    const wxColour& selectedInk;
    const wxColour& selectedGround;
    const wxColour& focus; ///< Of the frame that shows that the field has the keyboard.
};

/// Draws a text field flat, with a little room around its text, and gives it, the toolkit's colours
/// of its text and ground aside, and its list of completions, also one that it gets later, these
/// colours in every state. The GTK 2 port has no style sheets: there the field keeps the looks that
/// the toolkit gives it, and the list gets the colours.
void StyleField(wxWindow& field, const FieldColours& colours);
} // namespace internal
