#pragma once

#include "common/KeptRules.h"

/// What the user wants of the rules of all logs, which show it at once. Main thread.

/// Keeps them, and shows them if rules are wanted.
void KeepLogRules(const std::vector<wxTextRule>& rules);
/// Has all logs show them, for the moment.
void TryLogRules(const std::vector<wxTextRule>& rules);
void WantLogRules(bool wanted);
void WantOverview(bool wanted);
