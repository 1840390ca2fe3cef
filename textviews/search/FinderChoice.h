#pragma once

#include "textviews/search/HitFinder.h"
#include "textviews/search/SearchQuery.h"

#include <memory>

namespace textviews
{
/// What finds it; null when the expression is none, and why.
std::shared_ptr<HitFinder> MakeFinder(const SearchQuery& query, QueryProblem& problem);
} // namespace textviews
