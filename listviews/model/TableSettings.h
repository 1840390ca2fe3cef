#pragma once

#include <wx/colour.h>
#include <wx/cursor.h>
#include <wx/font.h>

namespace listviews
{
/// The measures and shades that all list views share. Main thread.
struct _TableSettings
{
    int      charWidth = 1;  ///< Pixels of "M" in the table font.
    int      charHeight = 1; ///< Pixels.
    wxFont   font;
    wxCursor resizeCursor;
    /// Added to a colour, channel by channel, to tell its place apart.
    /// @{
    wxColour headerShade;    ///< A title that is hovered or sorted by.
    wxColour hoverShade;     ///< The band of the row under the mouse.
    wxColour hoverTextShade; ///< Its text.
    wxColour highlightShade; ///< A cell of the highlight column.
    /// @}
    int      rowContrast = 0; ///< Added to each channel of an odd row.
    int      cellMargin = 0;  ///< Pixels around the text of a cell.
    unsigned useCount = 0;

    /// Measures on its first call; later calls only count.
    static void            Init();
    static _TableSettings& Get();

    int HeaderHeight() const { return charHeight + 3 * cellMargin; } ///< Pixels.
    int RowHeight() const { return charHeight + 2 * cellMargin; }    ///< Pixels.
};

/// The colour with the shade's channels added, kept within 255. An invalid colour stays invalid.
wxColour Shaded(const wxColour& colour, const wxColour& shade);
/// The ground of a row whose list gives it no colour: darker in odd rows.
wxColour StripeColour(int row);
} // namespace listviews
