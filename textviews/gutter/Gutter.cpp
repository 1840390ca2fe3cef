#include "textviews/gutter/Gutter.h"

#include "textviews/lines/TextCells.h"

#include <algorithm>

namespace textviews
{
GutterColumns Gutter::Wanted(int lineCount) const
{
    GutterColumns wanted;
    wanted.digits = showNumbers ? DigitsFor(dropped + lineCount) : 0;
    wanted.timeCells = showTimes && arrivals ? arrivals->Cells() : 0;
    for (const std::string& origin : shownOrigins)
    {
        wanted.originCells = std::max(wanted.originCells, static_cast<int>(CellCount(origin)));
    }
    wanted.hasOrigins = !shownOrigins.empty();
    wanted.marks = !(wanted == GutterColumns()) ||
                   !bookmarks.IsEmpty(); // the text stays where it is when the first mark comes
    return wanted;
}

void Gutter::Show(const GutterColumns& shown, int cellWidth)
{
    columns = shown;
    layout = GutterLayout::Of(shown, cellWidth);
}
} // namespace textviews
