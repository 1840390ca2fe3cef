#include "textviews/search/FinderChoice.h"

#include "textviews/search/LineMatcher.h"
#include "textviews/search/RegexMatcher.h"

namespace textviews
{
std::shared_ptr<HitFinder> MakeFinder(const SearchQuery& query, QueryProblem& problem)
{
    problem = {};
    if (query.expression && !query.text.empty())
    {
        return RegexMatcher::Make(query, problem);
    }
    return std::make_shared<LineMatcher>(query);
}
} // namespace textviews
