#include "common/LogRules.h"

#include "common/FollowingText.h"

void TryLogRules(const std::vector<wxTextRule>& rules)
{
    FollowingText::ForEach([&rules](FollowingText& text) { text.SetRules(rules); });
}

void KeepLogRules(const std::vector<wxTextRule>& rules)
{
    KeepRules(rules);
    TryLogRules(ShownLogRules());
}

void WantLogRules(bool wanted)
{
    KeepRulesWanted(wanted);
    TryLogRules(ShownLogRules());
}

void WantOverview(bool wanted)
{
    KeepOverviewWanted(wanted);
    FollowingText::ForEach([wanted](FollowingText& text) { text.ShowOverview(wanted); });
}
