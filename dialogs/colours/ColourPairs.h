#pragma once

#include "dialogs/colours/SchemeColours.h"

#include <vector>

namespace dialogs
{
constexpr double k_LeastContrast = 4.5; ///< To 1; under it a text of usual size is hard to read.

/// A colour of text on the ground that it is shown on.
struct ColourPair
{
    enum Kind
    {
        kPlain,
        kSelectedRow, ///< The ground of a selected row that is of that colour by itself.
        kDefault      ///< Both lifted, as of a default button.
    };

    const String* ink;
    const String* ground;
    Kind          kind;
    const char*   place; ///< Where it is shown; to be translated.

    wxColour InkOf(const SchemeColours& colours) const;
    wxColour GroundOf(const SchemeColours& colours) const;
    /// 1 to 21, the way that the web's guidelines for accessible content reckon it; 0 where either
    /// is no colour.
    double ContrastIn(const SchemeColours& colours) const;
};

/// Those that the library shows as they are: other text is kept readable (`wxtReadableColor`).
const std::vector<ColourPair>& ColourPairs();
/// How many of them are hard to read, or not to be seen at all.
size_t CountOfPoor(const SchemeColours& colours);
} // namespace dialogs
