#pragma once

#include "textviews/rules/RuleSet.h"

#include <map>
#include <memory>
#include <utility>

namespace textviews
{
/// What the rules have found in the lines that a view draws. It is looked for when a line is drawn,
/// in no more bytes than a picture may cost, and remembered. Main thread.
class VisibleRules
{
public:
    /// Null: there are none.
    void                                  SetRules(std::shared_ptr<const RuleSet> rules);
    bool                                  IsOn() const { return m_Rules != nullptr; }
    const std::shared_ptr<const RuleSet>& Rules() const { return m_Rules; }

    /// Whenever the lines' numbers or contents change.
    void Forget();

    /// Before the lines of a picture.
    void BeginPicture();
    /// What has been found so far in the piece of the line that holds the byte. Valid until
    /// `Forget` or the next picture.
    const RuleWork& In(int line, std::string_view text, size_t byte);
    /// Some was not looked for in this picture: another one is due.
    bool IsIncomplete() const { return m_Incomplete; }

private:
    struct Known
    {
        RuleWork work;
        size_t   size = 0; ///< Of the line: one whose disk was waited for is another one then.
        char     first = 0;
    };

    std::shared_ptr<const RuleSet>          m_Rules;
    std::map<std::pair<int, size_t>, Known> m_Known; ///< By line and piece.
    size_t                                  m_KnownHits = 0;
    size_t                                  m_Budget = 0;
    bool                                    m_Incomplete = false;
};
} // namespace textviews
