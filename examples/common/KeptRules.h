#pragma once

#include "textviews/wxTextRule.h"

#include <optional>
#include <vector>

/// The rules by which all logs of the program are coloured, and whether they are, as the program's
/// options keep them. Main thread.

/// The user's, or where there are none yet, the standard ones.
std::vector<wxTextRule> KeptLogRules();
/// What a log is to show: those, or none.
std::vector<wxTextRule> ShownLogRules();
void                    KeepRules(const std::vector<wxTextRule>& rules);

/// Whether errors, warnings and what else rules are for are coloured. Without a choice they are.
/// @{
bool AreLogRulesWanted();
void KeepRulesWanted(bool wanted);
/// @}
/// Whether a strip beside each log shows where in it they are. Without a choice it does.
/// @{
bool IsOverviewWanted();
void KeepOverviewWanted(bool wanted);
/// @}

/// A rule as a line of the options, and what such a line says; nothing where it is none.
/// @{
String                    TextOfRule(const wxTextRule& rule);
std::optional<wxTextRule> RuleOfText(const String& text);
/// @}
