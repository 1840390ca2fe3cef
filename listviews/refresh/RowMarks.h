#pragma once

#include "vesta/String.h"

#include <functional>
#include <vector>

namespace listviews
{
/// A row that is to be found again when the rows are others.
struct RowMark
{
    String key;      ///< Empty: it is known by its index.
    int    row = -1; ///< Its index; -1: there is none.
};

/// The rows of a list that a user has made something of.
struct RowMarks
{
    std::vector<RowMark> selected; ///< In order of selection.
    std::vector<RowMark> seen;     ///< From the top of the view.
    RowMark              anchor;
    RowMark              caret;
    int                  scroll = 0; ///< Pixels that the view is scrolled down by.
};

/// Has the marks stand for the rows as they are now: `keyOf` is asked for each of the `count` rows
/// once at most, first around the places where marked rows were; of rows that are only seen one is
/// enough then. Marks of rows that are not found have row -1. Of rows with the same key any are
/// taken. `isOver` is asked now and then, and ends the search: false then.
bool FindAgain(RowMarks& marks, int count, const std::function<String(int row)>& keyOf,
               const std::function<bool()>& isOver);

/// Where the view has to be scrolled to (pixels), so that the topmost of the rows seen that is
/// still there is where it was.
long long ScrollAfter(const RowMarks& before, const RowMarks& found, int rowHeight);
} // namespace listviews
