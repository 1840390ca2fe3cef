#pragma once

#include "vesta/String.h"

#include <vector>

/// A column of the list of jobs that it is sorted by.
struct JobSort
{
    int  column = 0;
    bool descending = false;
};

/// What the list of jobs is sorted by, the first one first. Without a window.
using JobOrder = std::vector<JobSort>;

/// After a click on the title of that column: sorted by it alone, and the other way round if it was
/// already; with `add` it is one of several.
JobOrder Clicked(const JobOrder& order, int column, bool add);
/// For the options file: "3- 0+". What makes no sense in a text is left out.
/// @{
String   TextOf(const JobOrder& order);
JobOrder OrderFrom(const String& text, int columns);
/// @}
