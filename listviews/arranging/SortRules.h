#pragma once

#include "listviews/wxDBListColumn.h"
#include "vesta/String.h"

#include <vector>

namespace listviews
{
/// By which column rows are sorted, and which way round.
struct SortRule
{
    int  type = 0; ///< Of the column.
    bool ascending = true;

    bool operator==(const SortRule& other) const
    {
        return type == other.type && ascending == other.ascending;
    }
};
using SortRules = std::vector<SortRule>; ///< The first one that tells two rows apart decides.

/// What a click on a title makes of the rules. The first click sorts by that column, the next one
/// turns it round. `add`: as a further rule behind the others.
SortRules Clicked(SortRules rules, int type, bool add);

/// The rules as the options file has them, "name +, #3 -", by the columns' names; and back, also
/// from "3 -" and from keys with backslashes before commas, as earlier versions wrote them. What
/// cannot be read, or is no column of the list, is left out.
/// @{
String    RulesText(const SortRules& rules, const std::vector<wxDBListColumn>& columns);
SortRules RulesFrom(const String& text, const std::vector<wxDBListColumn>& columns);
/// @}
} // namespace listviews
