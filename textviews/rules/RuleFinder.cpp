#include "textviews/rules/RuleFinder.h"

#include "textviews/search/FinderChoice.h"

#include <glib.h>
#include <re2/re2.h>

#include <algorithm>

namespace textviews
{
namespace
{
const char* const kBefore = "(?:^|[^\\pL\\pM\\pN_])";
const char* const kBehind = "(?:$|[^\\pL\\pM\\pN_])";

bool IsValid(const String& text)
{
    return g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr);
}

// Plain texts, too, so that all rules go by the same idea of upper and lower case. Bytes that are
// no valid text can be looked for as a text only.
bool CanBeExpression(const wxTextRule& rule)
{
    return rule.expression || IsValid(rule.pattern);
}

String ExpressionOf(const wxTextRule& rule)
{
    return rule.expression ? rule.pattern : String(RE2::QuoteMeta(rule.pattern));
}

// A quotation that is left open would reach into the next one.
bool CanBeJoined(const wxTextRule& rule)
{
    return CanBeExpression(rule) && (!rule.expression || rule.pattern.find("\\Q") == String::npos);
}

String Alternative(const wxTextRule& rule)
{
    const String text = (rule.matchCase ? "(?:" : "(?i:") + ExpressionOf(rule) + ")";
    return rule.wholeWords ? String(kBefore + text + kBehind) : text;
}
} // namespace

std::shared_ptr<HitFinder> MakeRuleFinder(const wxTextRule& rule, QueryProblem& problem)
{
    problem = {};
    if (rule.pattern.empty())
    {
        return nullptr;
    }
    const bool   expression = CanBeExpression(rule);
    const String text = expression ? ExpressionOf(rule) : rule.pattern;
    return MakeFinder({text, rule.matchCase, rule.wholeWords, expression}, problem);
}

std::shared_ptr<HitFinder> MakeAnyRuleFinder(const std::vector<wxTextRule>& rules)
{
    if (!std::all_of(rules.begin(), rules.end(), CanBeJoined))
    {
        return nullptr;
    }
    String all;
    for (const wxTextRule& rule : rules)
    {
        all += (all.empty() ? "" : "|") + Alternative(rule);
    }
    QueryProblem none;
    return all.empty() ? nullptr : MakeFinder({all, true, false, true}, none);
}
} // namespace textviews
