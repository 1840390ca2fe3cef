#pragma once

#include "textviews/search/HitFinder.h"

#include <memory>

namespace textviews
{
/// What goes along with a search bar: it is told what the bar looks for, and has work of its own in
/// the slices of time that the bar takes. Main thread.
class SearchCompanion
{
public:
    /// Null: for nothing. In lines as they are shown, or as they are stored.
    virtual void LookFor(const std::shared_ptr<HitFinder>& finder, bool shown) = 0;
    virtual bool HasWork() const = 0;
    /// It cannot go on before lines have come from a disk, which the view's store tells of.
    virtual bool IsWaiting() const = 0;
    virtual void Work() = 0; ///< For a slice.

protected:
    ~SearchCompanion() = default;
};
} // namespace textviews
