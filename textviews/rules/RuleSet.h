#pragma once

#include "textviews/search/HitFinder.h"
#include "textviews/wxTextRule.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace textviews
{
class RuleSieve;

/// Where a rule was found.
struct RuleHit
{
    ByteSpan bytes;
    int      rule = 0; ///< Its index.
};

/// What has been found in a piece of a line, and how far the looking has come.
struct RuleWork
{
    std::vector<RuleHit> hits; ///< In order; none overlaps another.

    /// @name The looking
    /// @{
    bool                  isBegun = false;
    std::vector<int>      rules;    ///< That may be in it.
    size_t                next = 0; ///< Which of them is looked for next.
    size_t                from = 0; ///< Where that rule goes on.
    std::vector<ByteSpan> found;    ///< Of that rule.
    /// @}
};

/// Rules that can be looked for. What an earlier rule has found is taken: a hit of a later one that
/// overlaps it does not count. Main thread.
class RuleSet
{
public:
    /// Rules that are off, empty or no expression are left out.
    explicit RuleSet(const std::vector<wxTextRule>& rules);
    ~RuleSet();
    RuleSet(RuleSet&&) noexcept;

    bool                           IsEmpty() const { return m_Rules.empty(); }
    const std::vector<wxTextRule>& Rules() const { return m_Rules; } ///< Those that count.

    /// Without those that come after the last one which says that a line is an error or a warning:
    /// they can't change what it is.
    RuleSet ForMarks() const;

    /// The lines of [from, end) of the block that a rule may be in. For blocks of short lines.
    /// Valid until the next call.
    const std::vector<int>& LinesIn(const LineStore::Block& block, int from, int end) const;

    /// Goes on with the piece of the line that holds the byte, for about that many bytes, which it
    /// takes off; true when all is found.
    bool GoOn(std::string_view line, size_t byte, RuleWork& work, size_t& budget) const;

    /// What a line is in which that was found: the most severe counts.
    wxTextRule::Kind KindOf(const RuleWork& work) const;
    /// The first rule that was found of those that colour lines; -1 when there is none.
    int LineRuleOf(const RuleWork& work) const;

private:
    void BeginWork(std::string_view line, RuleWork& work, size_t& budget) const;

    std::vector<wxTextRule>                 m_Rules;
    std::vector<std::shared_ptr<HitFinder>> m_Finders; ///< One a rule.
    std::shared_ptr<HitFinder>              m_Any;     ///< Null: every line may have one.
    std::unique_ptr<RuleSieve>              m_Sieve;   ///< Null: any may be in a line.
    mutable std::vector<int>                m_Lines;
};
} // namespace textviews
