#include "listviews/columns/ColumnLayout.h"

#include "listviews/cells/ListGeometry.h"
#include "listviews/wxDBListColumn.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <unordered_map>

namespace listviews
{
namespace
{
const char* const kSpecial = "%,=\"\\#"; // in keys

bool IsSpecial(char byte)
{
    return static_cast<unsigned char>(byte) < ' ' || std::strchr(kSpecial, byte) != nullptr;
}

// The columns by what they go by; several may go by the same.
using ColumnsByName = std::unordered_map<std::string, std::deque<int>>;

ColumnsByName NamesOf(const std::vector<wxDBListColumn>& columns)
{
    ColumnsByName names;
    for (size_t index = 0; index < columns.size(); ++index)
    {
        names[NameOf(columns[index])].push_back(static_cast<int>(index));
    }
    return names;
}

int StoredWidth(const String& text)
{
    const long long width = std::llabs(std::clamp<long long>(
        text.ToInt(0), -ListGeometry::k_MostWidth, ListGeometry::k_MostWidth));
    return std::max(ListGeometry::k_LeastWidth, static_cast<int>(width));
}

// The column of "name=width", which is taken from the names; none for any other text.
std::optional<ColumnPlan::Place> TakePlace(ColumnsByName& names, const String& entry)
{
    const size_t equals = entry.find('=');
    const auto   found = equals == String::npos ? names.end() : names.find(entry.substr(0, equals));
    if (found == names.end())
    {
        return std::nullopt;
    }
    const String            width = entry.substr(equals + 1);
    const ColumnPlan::Place place{found->second.front(), StoredWidth(width),
                                  !width.StartsWith("-")};
    found->second.pop_front();
    if (found->second.empty())
    {
        names.erase(found);
    }
    return place;
}

void AddUnknown(ColumnPlan& plan, const std::vector<wxDBListColumn>& columns)
{
    std::vector<bool> known(columns.size());
    for (const ColumnPlan::Place& place : plan.places)
    {
        known[static_cast<size_t>(place.index)] = true;
    }
    for (int index = 0; index < static_cast<int>(columns.size()); ++index)
    {
        if (!known[static_cast<size_t>(index)])
        {
            // The neighbour has its place by now.
            const auto neighbour =
                std::find_if(plan.places.begin(), plan.places.end(),
                             [index](const auto& place) { return place.index == index - 1; });
            plan.places.insert(index == 0 ? plan.places.begin() : neighbour + 1,
                               {index, -1, std::nullopt});
        }
    }
}

void ShowOne(ColumnPlan& plan, const std::vector<wxDBListColumn>& columns)
{
    const auto isShown = [&columns](const ColumnPlan::Place& place)
    { return place.visible.value_or(columns[static_cast<size_t>(place.index)].visible); };
    if (!plan.places.empty() && std::none_of(plan.places.begin(), plan.places.end(), isShown))
    {
        plan.places.front().visible = true;
    }
}
} // namespace

String NameOf(const wxDBListColumn& column)
{
    if (column.key.empty())
    {
        return "#" + String::FromInt(column.type);
    }
    String text;
    for (const char byte : column.key)
    {
        text +=
            IsSpecial(byte) ? SFormat("%%%02X", static_cast<unsigned char>(byte)) : String(1, byte);
    }
    return text;
}

String LayoutText(const std::vector<wxDBListColumn>& columns)
{
    String text;
    for (const wxDBListColumn& column : columns)
    {
        text += (text.empty() ? "" : ", ") + NameOf(column) + (column.visible ? "=" : "=-") +
                String::FromInt(column.width);
    }
    return text;
}

std::optional<ColumnPlan> PlanLayout(const std::vector<wxDBListColumn>& columns,
                                     const String&                      layout)
{
    ColumnsByName names = NamesOf(columns);
    ColumnPlan    plan;
    for (StringTokenizer entries(layout, ",", '\0', '\0'); entries.HasMore() && !names.empty();)
    {
        if (const auto place = TakePlace(names, entries.Next().Trim()))
        {
            plan.places.push_back(*place);
        }
    }
    if (plan.places.empty())
    {
        return std::nullopt;
    }
    AddUnknown(plan, columns);
    ShowOne(plan, columns);
    return plan;
}
} // namespace listviews
