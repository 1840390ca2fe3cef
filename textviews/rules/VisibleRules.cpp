#include "textviews/rules/VisibleRules.h"

namespace textviews
{
void VisibleRules::SetRules(std::shared_ptr<const RuleSet> rules)
{
    m_Rules = std::move(rules);
    Forget();
}

const RuleWork& VisibleRules::In(int line, std::string_view text, size_t byte)
{
    const size_t piece = byte / kPieceBytes * kPieceBytes;
    return m_Known.In(line, text, piece,
                      [&](RuleWork& work, size_t& budget)
                      { return m_Rules->GoOn(text, piece, work, budget); });
}
} // namespace textviews
