#pragma once

#include "appearance/tabs/DropPlace.h"
#include "vesta/String.h"

#include <optional>
#include <vector>

namespace appearance
{
/// Where the pages that there are go by a layout. Pages are numbers.
struct TabPlan
{
    struct Pane
    {
        PanePlace           place;
        std::vector<size_t> pages; ///< In the order of the tabs; there is one.
        size_t              active;
    };
    std::vector<Pane>   panes; ///< The one in the middle first.
    std::vector<size_t> windows;
    size_t              current;
};

/// The panes of a notebook and the tabs in them, as they are kept in the settings.
struct TabLayout
{
    struct Pane
    {
        PanePlace           place;
        std::vector<String> keys;   ///< Of the pages, in the order of the tabs.
        size_t              active; ///< Which of them is shown.
    };
    std::vector<Pane>   panes;
    std::vector<String> windows; ///< Keys of the pages with windows of their own.
    String              current; ///< Key of the page that is selected.

    String Text() const;
    /// For pages with these keys, at least one. Panes without pages go; those that the layout does
    /// not know stay behind the others in the middle.
    TabPlan PlanFor(const std::vector<String>& keys) const;
    /// None for a text that is no layout, or one that no notebook can have.
    static std::optional<TabLayout> OfText(const String& text);
};
} // namespace appearance
