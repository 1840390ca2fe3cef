#pragma once

#include "textviews/wxTextRule.h"

#include <wx/string.h>

#include <vector>

/// Rules for the words by which most programs tell of errors, of warnings and of other news, and
/// one before them for "0 errors" and the like. Errors and warnings colour their lines, in colours
/// of the scheme.
TOLVAN_API std::vector<wxTextRule> wxStandardTextRules();

/// What is wrong with the rule's expression, in the user's language; empty: nothing.
TOLVAN_API wxString wxTextRuleProblem(const wxTextRule& rule);
