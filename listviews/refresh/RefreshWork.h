#pragma once

#include "listviews/refresh/RowMarks.h"

namespace listviews
{
/// What a list knows of the refresh that brings back its selection, its focus and its place.
class RefreshWork
{
public:
    virtual ~RefreshWork() = default;

    virtual void     Restore(const RowMarks& marks) = 0; ///< The list may be gone then.
    virtual RowMarks Take() = 0; ///< Marks of the list as it is, and those that are not found yet.
    virtual bool     IsBusy() const = 0;
    /// Looks for the rest at once. False when a handler has destroyed the list.
    virtual bool Finish() = 0;
    virtual void Drop() = 0;
    virtual void RowsChanged() = 0; ///< There are others: what was found may stand elsewhere.
};
} // namespace listviews
