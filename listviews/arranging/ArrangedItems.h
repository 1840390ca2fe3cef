#pragma once

#include "vesta/String.h"

#include <optional>

namespace listviews
{
/// What is asked about a host's items, which are numbered from 0, to sort and to filter them.
class ArrangedItems
{
public:
    virtual int    Count() = 0;
    virtual String TextOf(int item, int type) = 0; ///< Of the column of that type.
    /// What the column is sorted by where that is a number and not the text.
    virtual std::optional<double> NumberOf(int item, int type) = 0;

protected:
    ~ArrangedItems() = default;
};
} // namespace listviews
