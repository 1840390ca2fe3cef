#pragma once

#include "vesta/String.h"

/// A column of a list: its title, its place, and whose it is.
struct wxDBListColumn
{
    /// Images of titles that are there without `wxDBListCtrl::SetHeaderImages`.
    enum
    {
        image_None = -1,
        image_Ascending = 0,
        image_Descending = 1
    };

    String label;
    int    width = 0;      ///< Pixels; negative: 100.
    int    startWidth = 0; ///< Pixels, when a drag of its edge began.
    bool   visible = true;
    int    type = 0; ///< The caller's name for the column, whatever its place.
    String key;
    int    image = image_None; ///< Of the title, by its index.
    int    rank = 0;           ///< Shown beside the image; 0: none.
};
