#pragma once

#include <wx/colour.h>
#include <wx/string.h>

class wxDC;
class wxRect;
class wxWindow;

namespace appearance
{
/// How the lists of the input controls show their items.

/// Colours of an item. That of the selected one is the look of a default button.
struct ItemLook
{
    wxColour ground;
    wxColour ink;

    /// The given colours are those of what is not selected.
    static ItemLook Of(const wxColour& ground, const wxColour& ink, bool selected);
};

/// Fills the rectangle; an invalid colour fills nothing.
void FillGround(wxDC& dc, const wxRect& rect, const wxColour& colour);
/// A frame of one pixel inside the rectangle.
void DrawFrame(wxDC& dc, const wxRect& rect, const wxColour& colour);
/// The text on one line, vertically centred, shortened at its end where it is too wide.
void DrawItemText(wxDC& dc, const wxRect& rect, const wxString& text, const wxColour& ink);

/// Height of an item in pixels.
int ItemHeight(const wxWindow& window);
/// Width of an item's text in pixels, up to a limit: nobody wants a control as wide as a text of
/// thousands of characters.
/// @{
int ItemTextWidth(const wxWindow& window, const wxString& text);
/// Guessed from the number of characters, which costs nothing. `charWidth`: the window's.
int GuessedTextWidth(int charWidth, size_t characters);
/// @}

/// The first item from `start` on, going round, whose text in small letters the condition is true
/// of; -1 when there is none.
template <class TextOf, class Condition>
int FindItem(int start, int count, const TextOf& textOf, const Condition& isWanted)
{
    for (int i = 0; i < count; ++i)
    {
        const int item = (start + i) % count;
        if (isWanted(wxString(textOf(item)).Lower()))
        {
            return item;
        }
    }
    return -1;
}

/// Finds items by how they begin, without regard to case, as a user types it.
template <class TextOf>
int FindByStart(const wxString& typed, int start, int count, const TextOf& textOf)
{
    return FindItem(start, count, textOf,
                    [wanted = typed.Lower()](const wxString& text)
                    { return text.StartsWith(wanted); });
}

/// The same, and where none begins so, by what they hold anywhere: names of many files begin alike.
template <class TextOf>
int FindByTyping(const wxString& typed, int start, int count, const TextOf& textOf)
{
    const int found = FindByStart(typed, start, count, textOf);
    return found >= 0 ? found
                      : FindItem(start, count, textOf,
                                 [wanted = typed.Lower()](const wxString& text)
                                 { return text.find(wanted) != wxString::npos; });
}
} // namespace appearance
