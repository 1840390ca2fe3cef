#include "logview/OpenedFiles.h"

#include <algorithm>
#include <climits>
#include <map>
#include <sstream>

namespace
{
const char* const kRecent = "RecentFiles";
const char* const kOpened = "OpenedFiles";
const char* const kPages = "OpenedPages"; // what more is known of them, each key with its number
const char* const kBookmarks = "Bookmarks";
const char* const kSearch = "Search";
const char* const kChoices = "SearchChoices";
const char* const kMerged = "Merged"; // with a number from 1 on

constexpr struct
{
    const char* name;
    bool OpenedSearch::*isOn;
} kChoiceNames[] = {{"MatchCase", &OpenedSearch::matchCase},
                    {"WholeWords", &OpenedSearch::wholeWords},
                    {"Expression", &OpenedSearch::expression},
                    {"Bar", &OpenedSearch::isOpen},
                    {"OnlyMatching", &OpenedSearch::onlyMatching}};

// A value is "LINE FOLLOWS NAME": a name may hold anything.
String ValueOf(const OpenedFile& file)
{
    return SFormat("%d %d ", file.firstLine, file.follows ? 1 : 0) + file.name.Text();
}

OpenedFile FileOf(const String& value)
{
    const size_t line = value.find(' ');
    const size_t follows = line == String::npos ? line : value.find(' ', line + 1);
    if (follows == String::npos)
    {
        return {};
    }
    const auto part = [&](size_t from, size_t end)
    { return String(value.substr(from, end - from)).ToInt(0); };
    return {Path(String(value.substr(follows + 1))),
            static_cast<int>(std::clamp<long long>(part(0, line), 0, INT_MAX)),
            part(line + 1, follows) != 0};
}

using Values = std::map<String, String>;

// In the place of all that was there.
void SetSection(IniFile& options, const String& section, const Values& values)
{
    const WriteLock lock(options.Lock());
    for (const String& key : options.Keys(section))
    {
        if (values.count(key) == 0)
        {
            options.RemoveValue(section, key);
        }
    }
    for (const auto& [key, value] : values)
    {
        options.SetValue(section, key, value);
    }
}

// Numbered from 1 on.
void SetAll(IniFile& options, const String& section, const std::vector<String>& texts)
{
    Values values;
    for (const String& text : texts)
    {
        values[String::FromInt(static_cast<int>(values.size()) + 1)] = text;
    }
    SetSection(options, section, values);
}

std::vector<String> AllOf(const IniFile& options, const String& section)
{
    std::vector<String> values;
    for (int number = 1;; ++number)
    {
        const String value = options.GetValue(section, String::FromInt(number));
        if (value.empty())
        {
            return values;
        }
        values.push_back(value);
    }
}

String KeyOf(size_t file, const char* key)
{
    return SFormat("%zu.%s", file + 1, key);
}

String MergedKeyOf(size_t file, size_t number)
{
    return KeyOf(file, kMerged) + String::FromInt(static_cast<int>(number) + 1);
}

std::vector<Path> MergedOf(const IniFile& options, size_t file)
{
    std::vector<Path> files;
    for (;;)
    {
        const String name = options.GetValue(kPages, MergedKeyOf(file, files.size()));
        if (name.empty())
        {
            return files;
        }
        files.emplace_back(name);
    }
}

String ChoicesOf(const OpenedSearch& search)
{
    String choices;
    for (const auto& choice : kChoiceNames)
    {
        if (search.*choice.isOn)
        {
            choices += choices.empty() ? "" : " ";
            choices += choice.name;
        }
    }
    return choices;
}

OpenedSearch SearchOf(const String& text, const String& choices)
{
    OpenedSearch       search;
    std::istringstream words(choices);
    search.text = text;
    for (std::string word; words >> word;)
    {
        for (const auto& choice : kChoiceNames)
        {
            search.*choice.isOn = search.*choice.isOn || word == choice.name;
        }
    }
    return search;
}

String TextOf(const std::vector<int>& lines)
{
    String text;
    for (const int line : lines)
    {
        text += text.empty() ? "" : " ";
        text += String::FromInt(line);
    }
    return text;
}

std::vector<int> LinesOf(const String& text)
{
    std::vector<int>   lines;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        const long long line = String(word).ToInt(-1);
        if (line >= 0 && line < INT_MAX)
        {
            lines.push_back(static_cast<int>(line));
        }
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}
} // namespace

RecentFiles::RecentFiles(IniFile& options) : m_Options(options)
{
    for (const String& name : AllOf(options, kRecent))
    {
        m_Names.emplace_back(name);
    }
    m_Names.resize(std::min(m_Names.size(), k_Most));
}

void RecentFiles::Add(const Path& name)
{
    Remove(name);
    m_Names.insert(m_Names.begin(), name);
    m_Names.resize(std::min(m_Names.size(), k_Most));
    Save();
}

void RecentFiles::Remove(const Path& name)
{
    m_Names.erase(std::remove_if(m_Names.begin(), m_Names.end(),
                                 [&](const Path& other) { return other.Text() == name.Text(); }),
                  m_Names.end());
    Save();
}

void RecentFiles::Clear()
{
    m_Names.clear();
    Save();
}

void RecentFiles::Save() const
{
    std::vector<String> values;
    values.reserve(m_Names.size());
    for (const Path& name : m_Names)
    {
        values.push_back(name.Text());
    }
    SetAll(m_Options, kRecent, values);
}

void KeepOpenedFiles(IniFile& options, const std::vector<OpenedFile>& files)
{
    std::vector<String> values;
    Values              pages;
    for (const OpenedFile& file : files)
    {
        const size_t number = values.size();
        values.push_back(ValueOf(file));
        for (const auto& [key, value] :
             {std::pair(kBookmarks, TextOf(file.bookmarks)), std::pair(kSearch, file.search.text),
              std::pair(kChoices, ChoicesOf(file.search))})
        {
            if (!value.empty())
            {
                pages[KeyOf(number, key)] = value;
            }
        }
        for (size_t i = 0; i < file.merged.size(); ++i)
        {
            pages[MergedKeyOf(number, i)] = file.merged[i].Text();
        }
    }
    SetAll(options, kOpened, values);
    SetSection(options, kPages, pages);
}

std::vector<OpenedFile> KeptOpenedFiles(const IniFile& options)
{
    std::vector<OpenedFile> files;
    size_t                  number = 0;
    for (const String& value : AllOf(options, kOpened))
    {
        const auto more = [&](const char* key)
        { return options.GetValue(kPages, KeyOf(number, key)); };
        OpenedFile file = FileOf(value);
        if (!file.name.IsEmpty()) // the user may have edited it
        {
            file.bookmarks = LinesOf(more(kBookmarks));
            file.search = SearchOf(more(kSearch), more(kChoices));
            file.merged = MergedOf(options, number);
            files.push_back(file);
        }
        ++number;
    }
    return files;
}
