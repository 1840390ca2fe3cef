#include "textviews/rules/RuleFinder.h"

#include "textviews/search/FinderChoice.h"
#include "textviews/search/ValidText.h"

#include <glib.h>
#include <re2/re2.h>
#include <re2/set.h>

#include <algorithm>
#include <numeric>

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

RE2::Options SieveOptions()
{
    RE2::Options options;
    options.set_dot_nl(true); // whatever bytes a line has, it is one line
    options.set_log_errors(false);
    return options;
}

class _Sieve final : public RuleSieve
{
public:
    explicit _Sieve(const std::vector<wxTextRule>& rules)
        : m_Count(static_cast<int>(rules.size())), m_Set(SieveOptions(), RE2::UNANCHORED)
    {
        m_IsReady = std::all_of(rules.begin(), rules.end(),
                                [this](const wxTextRule& rule)
                                { return m_Set.Add(Alternative(rule), nullptr) >= 0; }) &&
                    m_Set.Compile();
    }
    bool IsReady() const { return m_IsReady; }

    void RulesIn(std::string_view line, std::vector<int>& rules) const override
    {
        const ValidText        valid(line);
        RE2::Set::ErrorInfo    error{RE2::Set::kNoError};
        const re2::StringPiece text(valid.Text().data(), valid.Text().size());
        if (!m_Set.Match(text, &rules, &error) && error.kind != RE2::Set::kNoError)
        {
            rules.resize(static_cast<size_t>(m_Count)); // it has no memory left to tell
            std::iota(rules.begin(), rules.end(), 0);
        }
        std::sort(rules.begin(), rules.end());
    }

private:
    int      m_Count;
    RE2::Set m_Set;
    bool     m_IsReady;
};
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

std::unique_ptr<RuleSieve> RuleSieve::Make(const std::vector<wxTextRule>& rules)
{
    if (rules.empty() || !std::all_of(rules.begin(), rules.end(), CanBeJoined))
    {
        return nullptr;
    }
    auto sieve = std::make_unique<_Sieve>(rules);
    return sieve->IsReady() ? std::move(sieve) : nullptr;
}
} // namespace textviews
