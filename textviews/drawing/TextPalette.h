#pragma once

#include "textviews/lines/ByteSpan.h"

#include <wx/colour.h>

#include <array>

namespace textviews
{
/// What a line is, for the colour of its band.
struct LineState
{
    bool     selected = false;
    bool     hover = false;
    bool     marked = false;     ///< The search last hit it.
    bool     bookmarked = false; ///< Its band has no colour of its own for that.
    ByteSpan span = {};          ///< What of it is selected, where that is not all.
    bool     quiet = false;      ///< Its band has none for that either: its text has.

    bool operator==(const LineState& other) const
    {
        return selected == other.selected && hover == other.hover && marked == other.marked &&
               bookmarked == other.bookmarked && span == other.span && quiet == other.quiet;
    }
};

/// The colour, or its counterpart in lightness, which can be read there in any case, whichever
/// reads better on that ground.
wxColour ReadableInk(const wxColour& colour, const wxColour& ground);

/// Colours of the bands behind the lines, all derived from three of the scheme.
class TextPalette
{
public:
    TextPalette(const wxColour& background, const wxColour& selection, const wxColour& mark);

    const wxColour& Band(const LineState& state) const;

private:
    std::array<wxColour, 8> m_Bands; ///< By the three bits of the state.
};
} // namespace textviews
