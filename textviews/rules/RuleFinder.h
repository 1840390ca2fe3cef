#pragma once

#include "textviews/search/HitFinder.h"
#include "textviews/search/SearchQuery.h"
#include "textviews/wxTextRule.h"

#include <memory>
#include <string_view>
#include <vector>

namespace textviews
{
/// What finds the rule's pattern; null where it is empty or no expression, and then why.
std::shared_ptr<HitFinder> MakeRuleFinder(const wxTextRule& rule, QueryProblem& problem);

/// Finds the lines that any of the rules is in, and maybe some others, in one look at each of them
/// however many rules there are; null where there is none for these.
std::shared_ptr<HitFinder> MakeAnyRuleFinder(const std::vector<wxTextRule>& rules);

/// Tells which of some rules are in a line, in one look at it however many they are.
class RuleSieve
{
public:
    /// Null where that can't be told of these.
    static std::unique_ptr<RuleSieve> Make(const std::vector<wxTextRule>& rules);
    virtual ~RuleSieve() = default;

    /// Their indexes, in order; rules that are not in it may be among them.
    virtual void RulesIn(std::string_view line, std::vector<int>& rules) const = 0;
};
} // namespace textviews
