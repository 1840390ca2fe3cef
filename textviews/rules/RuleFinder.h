#pragma once

#include "textviews/search/HitFinder.h"
#include "textviews/search/SearchQuery.h"
#include "textviews/wxTextRule.h"

#include <memory>
#include <vector>

namespace textviews
{
/// What finds the rule's pattern; null where it is empty or no expression, and then why.
std::shared_ptr<HitFinder> MakeRuleFinder(const wxTextRule& rule, QueryProblem& problem);

/// Finds the lines that any of the rules is in, and maybe some others, in one look at each of them
/// however many rules there are; null where there is none for these.
std::shared_ptr<HitFinder> MakeAnyRuleFinder(const std::vector<wxTextRule>& rules);
} // namespace textviews
