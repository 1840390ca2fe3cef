#pragma once

#include "dialogs/colours/ColourFile.h"
#include "dialogs/colours/ColourHistory.h"

#include <optional>

namespace dialogs
{
/// The custom scheme while it is edited.
struct SchemeEdit
{
    SchemeColours             dark = ColoursOf(scheme_Dark);
    SchemeColours             shown = ColoursOf(scheme_Custom); ///< Those that are tried, too.
    ColourHistory             history{shown};
    std::optional<ColourFile> file; ///< None before it begins.
};
} // namespace dialogs
