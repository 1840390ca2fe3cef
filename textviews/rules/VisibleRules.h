#pragma once

#include "textviews/lines/PictureCache.h"
#include "textviews/rules/RuleSet.h"

#include <memory>

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
    void Forget() { m_Known.Forget(); }

    /// Before the lines of a picture.
    void BeginPicture() { m_Known.BeginPicture(); }
    /// What has been found so far in the piece of the line that holds the byte. Valid until
    /// `Forget` or the next picture.
    const RuleWork& In(int line, std::string_view text, size_t byte);
    /// Some was not looked for in this picture: another one is due.
    bool IsIncomplete() const { return m_Known.IsIncomplete(); }

private:
    std::shared_ptr<const RuleSet> m_Rules;
    PictureCache<RuleWork>         m_Known;
};
} // namespace textviews
