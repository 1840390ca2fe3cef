#pragma once

#include "monitor/JobRows.h"

#include <set>

/// How the grouping of jobs stands in the options file. Without a window.
/// @{
String      NameOf(JobGrouping grouping);
JobGrouping GroupingFrom(const String& name); ///< None for a name that makes no sense.

/// What a group is remembered by; short and in one line whatever it is called.
String GroupKey(JobGrouping grouping, const String& name);
/// At most some hundred keys.
String           TextOfClosed(const std::set<String>& keys);
std::set<String> ClosedGroupsFrom(const String& text);
/// @}
