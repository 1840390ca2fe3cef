#include "listviews/arranging/SortRules.h"

#include "listviews/columns/ColumnLayout.h"

#include <algorithm>
#include <map>

namespace listviews
{
namespace
{
const char* const kSeparator = ", ";
constexpr char    kAscending = '+';
constexpr char    kDescending = '-';

constexpr size_t kMostRules = 16; // that are read; what is stored may be anything

// What a column went by in earlier versions.
String OldNameOf(const wxDBListColumn& column)
{
    return column.key.empty() ? String::FromInt(column.type) : column.key;
}

SortRules::iterator Find(SortRules& rules, int type)
{
    return std::find_if(rules.begin(), rules.end(),
                        [type](const SortRule& rule) { return rule.type == type; });
}
} // namespace

SortRules Clicked(SortRules rules, int type, bool add)
{
    const auto found = Find(rules, type);
    if (found == rules.end())
    {
        if (!add)
        {
            rules.clear();
        }
        rules.push_back({type, true});
        return rules;
    }
    if (!add && found != rules.begin())
    {
        return {{type, true}}; // that column has not decided first yet
    }
    found->ascending = !found->ascending;
    return add ? rules : SortRules{*found};
}

String RulesText(const SortRules& rules, const std::vector<wxDBListColumn>& columns)
{
    String text;
    for (const SortRule& rule : rules)
    {
        const auto column =
            std::find_if(columns.begin(), columns.end(),
                         [&rule](const wxDBListColumn& each) { return each.type == rule.type; });
        if (column != columns.end())
        {
            text += (text.empty() ? "" : kSeparator) + NameOf(*column) + " " +
                    (rule.ascending ? kAscending : kDescending);
        }
    }
    return text;
}

SortRules RulesFrom(const String& text, const std::vector<wxDBListColumn>& columns)
{
    SortRules             rules;
    std::map<String, int> types;
    for (const auto& nameOf : {&NameOf, &OldNameOf})
    {
        for (const wxDBListColumn& column : columns)
        {
            types.emplace(nameOf(column), column.type);
        }
    }
    for (StringTokenizer entries(text, ",", '"', '\\');
         entries.HasMore() && rules.size() < kMostRules;)
    {
        const String entry = entries.Next().Trim();
        const size_t blank = entry.rfind(' ');
        const String sign = blank == String::npos ? String() : String(entry.substr(blank + 1));
        const auto   type = types.find(entry.substr(0, std::min(blank, entry.size())));
        const bool   isSigned = sign == String(1, kAscending) || sign == String(1, kDescending);
        if (isSigned && type != types.end() && Find(rules, type->second) == rules.end())
        {
            rules.push_back({type->second, sign[0] == kAscending});
        }
    }
    return rules;
}
} // namespace listviews
