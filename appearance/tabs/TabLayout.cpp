#include "appearance/tabs/TabLayout.h"

#include <wx/aui/framemanager.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>

namespace appearance
{
namespace
{
// "tabs1 / 5 0 0 0 600 400 1 log job%20list / 3 0 0 0 600 200 0 frames / windows chart / current
// log"
const char* const kVersion = "tabs1";
const char* const kWindows = "windows";
const char* const kCurrent = "current";
const char* const kSeparator = " / ";
const char* const kSpecial = "%/,;#\"\\=";
constexpr size_t  kNumbers = 7; // before the keys of a pane
constexpr int     kMostIndex = 1000;
constexpr int     kMostSize = 32767; // pixels

bool IsPlain(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte > ' ' && byte != 0x7f && !std::strchr(kSpecial, c);
}

// An empty key is written as one, too: each piece between blanks is a key.
String Escaped(const String& key)
{
    String text = key.empty() ? String("%") : String();
    for (const char c : key)
    {
        text += IsPlain(c) ? String(1, c) : SFormat("%%%02X", static_cast<unsigned char>(c));
    }
    return text;
}

String Unescaped(const String& text)
{
    String key;
    for (size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] != '%')
        {
            key += text[i];
        }
        else if (i + 2 < text.size())
        {
            key += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        }
    }
    return key;
}

std::vector<String> Words(const String& text)
{
    std::vector<String> words;
    for (const String& word : StringTokenizer::Split(text, " "))
    {
        if (!word.empty())
        {
            words.push_back(word);
        }
    }
    return words;
}

String WithKeys(String text, const std::vector<String>& keys)
{
    for (const String& key : keys)
    {
        text += " " + Escaped(key);
    }
    return text;
}

bool IsWithin(long long number, long long least, long long most)
{
    return number >= least && number <= most;
}

std::optional<TabLayout::Pane> PaneOf(const std::vector<String>& words)
{
    if (words.size() <= kNumbers)
    {
        return std::nullopt;
    }
    int numbers[kNumbers];
    for (size_t i = 0; i < kNumbers; ++i)
    {
        const long long number = words[i].ToInt(-1);
        if (!IsWithin(number, 0, kMostSize))
        {
            return std::nullopt;
        }
        numbers[i] = static_cast<int>(number);
    }
    const auto& [direction, layer, row, position, width, height, active] = numbers;
    TabLayout::Pane pane{
        {direction, layer, row, position, wxSize(width, height)}, {}, static_cast<size_t>(active)};
    for (size_t i = kNumbers; i < words.size(); ++i)
    {
        pane.keys.push_back(Unescaped(words[i]));
    }
    if (!IsWithin(direction, wxAUI_DOCK_TOP, wxAUI_DOCK_CENTER) ||
        std::max({layer, row, position}) > kMostIndex || pane.active >= pane.keys.size())
    {
        return std::nullopt;
    }
    return pane;
}

bool IsCentre(const PanePlace& place)
{
    return place.direction == wxAUI_DOCK_CENTER;
}

// The pages by their keys, each to be taken once.
class Pages
{
public:
    explicit Pages(const std::vector<String>& keys)
    {
        for (size_t page = 0; page < keys.size(); ++page)
        {
            m_ByKey[keys[page]].push_back(page);
        }
    }
    std::optional<size_t> Take(const String& key)
    {
        const auto found = m_ByKey.find(key);
        if (found == m_ByKey.end() || found->second.empty())
        {
            return std::nullopt;
        }
        const size_t page = found->second.front();
        found->second.pop_front();
        return page;
    }
    std::vector<size_t> Left() const
    {
        std::vector<size_t> left;
        for (const auto& pages : m_ByKey)
        {
            left.insert(left.end(), pages.second.begin(), pages.second.end());
        }
        std::sort(left.begin(), left.end());
        return left;
    }

private:
    std::map<String, std::deque<size_t>> m_ByKey;
};
} // namespace

TabPlan TabLayout::PlanFor(const std::vector<String>& keys) const
{
    Pages   left(keys);
    TabPlan plan{{}, {}, 0};
    for (const Pane& pane : panes)
    {
        TabPlan::Pane planned{pane.place, {}, 0};
        for (size_t i = 0; i < pane.keys.size(); ++i)
        {
            if (const auto page = left.Take(pane.keys[i]))
            {
                planned.pages.push_back(*page);
                planned.active =
                    i == pane.active || planned.pages.size() == 1 ? *page : planned.active;
            }
        }
        if (!planned.pages.empty())
        {
            plan.panes.insert(IsCentre(pane.place) ? plan.panes.begin() : plan.panes.end(),
                              planned);
        }
    }
    for (const String& key : windows)
    {
        if (const auto page = left.Take(key))
        {
            plan.windows.push_back(*page);
        }
    }
    // A page that goes to a window comes from the middle.
    std::vector<size_t> rest = left.Left();
    rest.insert(rest.end(), plan.windows.begin(), plan.windows.end());
    if (plan.panes.empty())
    {
        plan.panes.push_back({{}, {}, rest.empty() ? 0 : rest.front()});
    }
    TabPlan::Pane& middle = plan.panes.front();
    middle.place = {wxAUI_DOCK_CENTER, 0, 0, 0, middle.place.size};
    middle.pages.insert(middle.pages.end(), rest.begin(), rest.end());
    const auto selected = std::find(keys.begin(), keys.end(), current);
    plan.current =
        selected == keys.end() ? middle.active : static_cast<size_t>(selected - keys.begin());
    return plan;
}

String TabLayout::Text() const
{
    String text = kVersion;
    for (const Pane& pane : panes)
    {
        const PanePlace& at = pane.place;
        text +=
            WithKeys(SFormat("%s%d %d %d %d %d %d %d", kSeparator, at.direction, at.layer, at.row,
                             at.position, at.size.x, at.size.y, static_cast<int>(pane.active)),
                     pane.keys);
    }
    if (!windows.empty())
    {
        text += WithKeys(String(kSeparator) + kWindows, windows);
    }
    return current.empty() ? text : WithKeys(text + kSeparator + kCurrent, {current});
}

std::optional<TabLayout> TabLayout::OfText(const String& text)
{
    TabLayout layout;
    bool      isFirst = true;
    for (const String& part : StringTokenizer::Split(text, "/"))
    {
        std::vector<String> words = Words(part);
        if (isFirst)
        {
            if (words != std::vector<String>{kVersion})
            {
                return std::nullopt;
            }
            isFirst = false;
        }
        else if (!words.empty() && words.front() == kWindows)
        {
            std::transform(words.begin() + 1, words.end(), std::back_inserter(layout.windows),
                           Unescaped);
        }
        else if (words.size() == 2 && words.front() == kCurrent)
        {
            layout.current = Unescaped(words.back());
        }
        else if (const auto pane = PaneOf(words))
        {
            layout.panes.push_back(*pane);
        }
        else
        {
            return std::nullopt;
        }
    }
    // No panes: all pages have windows of their own.
    const auto centres = std::count_if(layout.panes.begin(), layout.panes.end(),
                                       [](const Pane& pane) { return IsCentre(pane.place); });
    if (isFirst || centres > 1 || (centres == 0 && !layout.panes.empty()))
    {
        return std::nullopt;
    }
    return layout;
}
} // namespace appearance
