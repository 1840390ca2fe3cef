#include "monitor/GroupMemory.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr size_t  kMostKey = 80; // bytes of a name
constexpr size_t  kMostKeys = 300;
const char* const kSeparator = ";";

const char* const kNames[] = {"None", "User", "Product", "State"};
} // namespace

String NameOf(JobGrouping grouping)
{
    return kNames[static_cast<size_t>(grouping)];
}

JobGrouping GroupingFrom(const String& name)
{
    const auto found = std::find_if(std::begin(kNames), std::end(kNames),
                                    [&name](const char* each) { return name.EqualsNoCase(each); });
    return found == std::end(kNames) ? JobGrouping::kNone
                                     : static_cast<JobGrouping>(found - std::begin(kNames));
}

String GroupKey(JobGrouping grouping, const String& name)
{
    String key = NameOf(grouping) + "/" + name.substr(0, kMostKey);
    std::replace_if(
        key.begin(), key.end(),
        [](char byte)
        {
            const auto value = static_cast<unsigned char>(byte);
            return value < ' ' || value == 0x7F || byte == ';' || byte == '"' || byte == '\\';
        },
        '_');
    return key;
}

String TextOfClosed(const std::set<String>& keys)
{
    String text;
    size_t count = 0;
    for (const String& key : keys)
    {
        if (++count <= kMostKeys)
        {
            text += (text.empty() ? "" : kSeparator) + key;
        }
    }
    return text;
}

std::set<String> ClosedGroupsFrom(const String& text)
{
    std::set<String> keys;
    StringTokenizer  words(text, kSeparator, '"', '\\');
    while (words.HasMore() && keys.size() < kMostKeys)
    {
        keys.insert(words.Next());
    }
    return keys;
}
