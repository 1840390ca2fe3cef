#include "logview/OpenedFiles.h"

#include <algorithm>
#include <climits>

namespace
{
const char* const kRecent = "RecentFiles";
const char* const kOpened = "OpenedFiles";

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

// Numbered from 1 on, in the place of those that were there.
template <typename Values>
void SetAll(IniFile& options, const String& section, const Values& values)
{
    const WriteLock lock(options.Lock());
    size_t          number = 0;
    for (const String& value : values)
    {
        options.SetValue(section, String::FromInt(static_cast<int>(++number)), value);
    }
    for (const String& key : options.Keys(section))
    {
        if (key.ToInt(0) > static_cast<long long>(number))
        {
            options.RemoveValue(section, key);
        }
    }
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
    values.reserve(files.size());
    for (const OpenedFile& file : files)
    {
        values.push_back(ValueOf(file));
    }
    SetAll(options, kOpened, values);
}

std::vector<OpenedFile> KeptOpenedFiles(const IniFile& options)
{
    std::vector<OpenedFile> files;
    for (const String& value : AllOf(options, kOpened))
    {
        const OpenedFile file = FileOf(value);
        if (!file.name.IsEmpty()) // the user may have edited it
        {
            files.push_back(file);
        }
    }
    return files;
}
