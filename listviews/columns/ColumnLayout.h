#pragma once

#include "vesta/String.h"

#include <optional>
#include <vector>

struct wxDBListColumn;

namespace listviews
{
/// What a column goes by in every version of a program: its key, with commas and the like written
/// as "%2C", or "#" and its type if it has none.
String NameOf(const wxDBListColumn& column);

/// Order, width and visibility of columns as a line of text, so that each column finds its place in
/// a later version of a list:
/// "name=120, #3=80, folder=-200". A hidden column has a minus.
String LayoutText(const std::vector<wxDBListColumn>& columns);

/// What a layout makes of the columns of a list.
struct ColumnPlan
{
    struct Place
    {
        int                 index; ///< Of the column, as it is now.
        int                 width; ///< Pixels, at least `ListGeometry::k_LeastWidth`; -1: as it is.
        std::optional<bool> visible; ///< None: as it is.
    };
    std::vector<Place> places; ///< In the order to be shown.
};

/// Columns that the layout does not know stay behind their neighbours on the left; what it knows
/// beside them is left out. At least one column is shown. None when the text names no column that
/// there is.
std::optional<ColumnPlan> PlanLayout(const std::vector<wxDBListColumn>& columns,
                                     const String&                      layout);
} // namespace listviews
