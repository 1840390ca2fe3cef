#pragma once

class wxColour;
class wxString;
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
/// colours in every state. The GTK 2 port has no style sheets: there a field of several lines keeps
/// the looks that the toolkit gives it.
void StyleField(wxWindow& field, const FieldColours& colours);

/// Shows the hint in the field, which has been styled, as long as nothing is in it. False where the
/// toolkit has to do that: for GTK 2 it would make the hint the field's text, in a colour of its
/// own that the scheme does not know.
bool ShowHint(wxWindow& field, const wxString& hint);
} // namespace internal
