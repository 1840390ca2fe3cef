#pragma once

#include "dialogs/colours/SchemeColours.h"

#include <vector>

namespace dialogs
{
/// A scheme as the text of "Colors.ini": values under the names of the colours, before any section.
/// A colour that is not named is the dark one.

/// "#RRGGBB"; empty for none.
String ColourText(const wxColour& colour);
/// What a person types as a colour: a hash and six hexadecimal digits, "rgb(...)" or a name, opaque
/// in any case. Invalid: it is none.
wxColour TypedColour(const String& text);

/// The colours that a text names over the dark ones.
struct ReadScheme
{
    SchemeColours       colours;
    std::vector<String> wrong;            ///< Keys whose value is no colour; these are invalid.
    bool                isScheme = false; ///< It names a colour, or which scheme it is.
};
ReadScheme ReadColours(const String& text, const SchemeColours& dark);

/// The text with these colours in it, and the custom scheme chosen, as a hand would change it: only
/// lines of colours that have become others, those of the dark ones gone, everything else as it is.
/// A colour that is as `original`, the text before anybody changed it, has it gets what is written
/// there.
String WithColours(const String& text, const String& original, const SchemeColours& colours,
                   const SchemeColours& dark);
/// The text with what `original` says of scheme and colours, where it still has what was `written`:
/// the custom scheme, and those colours.
String WithColoursTakenBack(const String& text, const String& written, const String& original);
} // namespace dialogs
