#pragma once

#include "textviews/gutter/ArrivalTimes.h"
#include "textviews/gutter/GutterLayout.h"
#include "textviews/lines/MarkedLines.h"

#include "vesta/String.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace textviews
{
/// What stands left of the text of a view.
struct Gutter
{
    bool          showNumbers = false;
    bool          showTimes = false;
    bool          offersCommands = false; ///< The user has keys and entries of the menu.
    int64_t       dropped = 0;            ///< Lines that a limit has taken from the start.
    GutterColumns columns;                ///< As they are shown.
    GutterLayout  layout;                 ///< Of those.
    MarkedLines   bookmarks;
    std::unique_ptr<ArrivalTimes> arrivals;     ///< Null until a host wants them kept.
    std::vector<String>           origins;      ///< The places that lines come from,
    std::vector<std::string>      shownOrigins; ///< as they are shown,
    std::function<int(int line)>  originOf;     ///< and the number of a line's.

    int64_t NumberOf(int line) const { return dropped + line + 1; }
    /// What it would show of so many lines.
    GutterColumns Wanted(int lineCount) const;
    /// Shows those columns, in a font with cells of that width.
    void Show(const GutterColumns& shown, int cellWidth);
    /// Cells that are no longer seen of the text, the last one maybe in part.
    int CellsTaken(int cellWidth) const { return (layout.width + cellWidth - 1) / cellWidth; }
};
} // namespace textviews
