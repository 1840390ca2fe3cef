#pragma once

#include "listviews/arranging/FilterQuery.h"
#include "listviews/wxDBListColumn.h"

#include <vector>

class wxDBListCtrl;

namespace listviews
{
std::vector<wxDBListColumn>      ColumnsOf(const wxDBListCtrl& list);
std::vector<FilterQuery::Column> FilterColumnsOf(const wxDBListCtrl& list);
/// Logs that words of a new filter are left out, if they are.
void WarnOfWordsLeftOut(const String& filter);
} // namespace listviews
