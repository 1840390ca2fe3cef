#include "textviews/rules/RuleSet.h"

#include "textviews/rules/RuleFinder.h"

#include <algorithm>
#include <numeric>

namespace textviews
{
namespace
{
void Pay(size_t& budget, size_t cost)
{
    budget -= std::min(budget, cost);
}

// Joins what a rule has found to what those before it have, where that leaves room. Both are in
// order.
void Take(RuleWork& work, int rule)
{
    std::vector<RuleHit> all;
    all.reserve(work.hits.size() + work.found.size());
    auto taken = work.hits.begin();
    for (const ByteSpan& span : work.found)
    {
        for (; taken != work.hits.end() && taken->bytes.end <= span.begin; ++taken)
        {
            all.push_back(*taken);
        }
        if (taken == work.hits.end() || taken->bytes.begin >= span.end)
        {
            all.push_back({span, rule});
        }
    }
    all.insert(all.end(), taken, work.hits.end());
    work.hits = std::move(all);
    work.found.clear();
}
} // namespace

RuleSet::RuleSet(const std::vector<wxTextRule>& rules)
{
    for (const wxTextRule& rule : rules)
    {
        QueryProblem none;
        if (auto finder = rule.on ? MakeRuleFinder(rule, none) : nullptr)
        {
            m_Rules.push_back(rule);
            m_Finders.push_back(std::move(finder));
        }
    }
    m_Any = MakeAnyRuleFinder(m_Rules);
    m_Sieve = RuleSieve::Make(m_Rules);
}

RuleSet::~RuleSet() = default;
RuleSet::RuleSet(RuleSet&&) noexcept = default;

RuleSet RuleSet::ForMarks() const
{
    const auto last =
        std::find_if(m_Rules.rbegin(), m_Rules.rend(),
                     [](const wxTextRule& rule) { return rule.kind >= wxTextRule::Kind::Warning; });
    return RuleSet(std::vector<wxTextRule>(m_Rules.begin(), last.base()));
}

const std::vector<int>& RuleSet::LinesIn(const LineStore::Block& block, int from, int end) const
{
    if (m_Any)
    {
        return m_Any->LinesIn(block, from, end, false);
    }
    m_Lines.resize(m_Rules.empty() ? 0 : static_cast<size_t>(std::max(end - from, 0)));
    std::iota(m_Lines.begin(), m_Lines.end(), from);
    return m_Lines;
}

// One look tells of a line of one piece which rules are worth another.
void RuleSet::BeginWork(std::string_view line, RuleWork& work, size_t& budget) const
{
    work.isBegun = true;
    if (m_Sieve && line.size() <= kPieceBytes)
    {
        Pay(budget, line.size() + 1);
        m_Sieve->RulesIn(line, work.rules);
        return;
    }
    work.rules.resize(m_Rules.size());
    std::iota(work.rules.begin(), work.rules.end(), 0);
}

bool RuleSet::GoOn(std::string_view line, size_t byte, RuleWork& work, size_t& budget) const
{
    if (!work.isBegun)
    {
        BeginWork(line, work, budget);
    }
    while (work.next < work.rules.size() && budget > 0)
    {
        const int       rule = work.rules[work.next];
        HitFinder&      finder = *m_Finders[static_cast<size_t>(rule)];
        const LinePiece piece = PieceAt(line, byte, finder.Reach());
        work.from = std::max(work.from, piece.begin);
        finder.HitsIn(line, piece, work.from, budget, work.found);
        if (work.from >= piece.end)
        {
            Take(work, rule);
            ++work.next;
            work.from = 0;
        }
    }
    return work.next >= work.rules.size();
}

wxTextRule::Kind RuleSet::KindOf(const RuleWork& work) const
{
    wxTextRule::Kind kind = wxTextRule::Kind::None;
    for (const RuleHit& hit : work.hits)
    {
        kind = std::max(kind, m_Rules[static_cast<size_t>(hit.rule)].kind);
    }
    return kind;
}

int RuleSet::LineRuleOf(const RuleWork& work) const
{
    int first = -1;
    for (const RuleHit& hit : work.hits)
    {
        const wxTextRule& rule = m_Rules[static_cast<size_t>(hit.rule)];
        const bool        isFirst = first < 0 || hit.rule < first;
        if (isFirst && rule.part == wxTextRule::Part::Line)
        {
            first = hit.rule;
        }
    }
    return first;
}
} // namespace textviews
