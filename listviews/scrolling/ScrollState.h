#pragma once

#include "internal/scrolling/ScrollModel.h"

#include <wx/defs.h>
#include <wx/gdicmn.h>

namespace listviews
{
/// Both scrollbars: where the view is, and what the native ones show of it.
struct ScrollState
{
    struct Bar
    {
        internal::ScrollAxis axis;
        internal::ScrollAxis shown;         ///< As the native one was left.
        bool                 hidden = true; ///< The native one is, whatever stands above.
    };

    Bar     horizontal;
    Bar     vertical;
    bool    due = false;  ///< The native ones are behind the content.
    bool    held = false; ///< A hand has taken one of the thumbs.
    wxSize  size;         ///< Pixels, at the last size event.
    wxPoint drawn;        ///< Positions of the content when it was drawn last.

    Bar& Of(int orientation) { return orientation == wxHORIZONTAL ? horizontal : vertical; }
};
} // namespace listviews
