#include "tolvan/modules/ModuleFile.h"

#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Log.h"

#include <algorithm>

namespace tolvan
{
namespace
{

constexpr int kMostReports = 20; // names without a meaning that are logged one by one

String Place(const Path& path, int line)
{
    return path.Text() + (line > 0 ? ":" + String::FromInt(line) : String()) + ": ";
}

} // namespace

ModuleFile::ModuleFile(const Path& path, size_t limit) : m_Path(path)
{
    const std::vector<int> badLines = m_Document.Parse(File::Read(path, limit));
    if (!badLines.empty())
    {
        Complain(badLines.front(), "neither a section, a value nor a comment");
    }
}

void ModuleFile::Complain(int line, const String& why) const
{
    Exception::Throw("JobTypeInfo", "Load", ec_BadData, Place(m_Path, line) + why);
}

void ModuleFile::Complain(const String& section, const String& key, const String& why) const
{
    Complain(m_Document.LineOf(section, key), why);
}

int ModuleFile::FirstLineOf(const String& section) const
{
    const std::vector<String> keys = m_Document.Keys(section);
    return keys.empty() ? 0 : m_Document.LineOf(section, keys.front());
}

void ModuleFile::ReportUnknownKeys(const String& section, const std::vector<String>& known)
{
    for (const String& key : m_Document.Keys(section))
    {
        if (std::none_of(known.begin(), known.end(),
                         [&](const String& name) { return name.EqualsNoCase(key); }) &&
            ++m_UnknownCount <=
                kMostReports) // Telling the line counts lines: not for each of many.
        {
            LogWarning(Place(m_Path, m_Document.LineOf(section, key)) + "the key \"" + key +
                       "\" means nothing in [" + section + "]");
        }
    }
}

void ModuleFile::ReportUnknownSection(const String& section)
{
    if (++m_UnknownCount <= kMostReports)
    {
        LogWarning(Place(m_Path, FirstLineOf(section)) + "the section [" + section +
                   "] means nothing in a module file");
    }
}

void ModuleFile::ReportTheRest() const
{
    if (m_UnknownCount > kMostReports)
    {
        LogWarning(Place(m_Path, 0) +
                   SFormat("%d more keys or sections mean nothing", m_UnknownCount - kMostReports));
    }
}

bool ModuleFile::HasSection(const String& section) const
{
    return m_Document.HasSection(section);
}

String ModuleFile::Get(const String& section, const String& key) const
{
    return m_Document.Get(section, key);
}

String ModuleFile::Require(const String& section, const String& key) const
{
    String value = Get(section, key);
    if (value.empty())
    {
        const int line = m_Document.LineOf(section, key);
        Complain(line > 0 ? line : FirstLineOf(section),
                 "[" + section + "] needs a value for \"" + key + "\"");
    }
    return value;
}

bool ModuleFile::GetBool(const String& section, const String& key) const
{
    const String text = Get(section, key);
    const bool   value = text.ToBool(false);
    if (!text.empty() && value != text.ToBool(true))
    {
        Complain(section, key, "\"" + text + "\" is neither yes nor no");
    }
    return value;
}

std::vector<String> ModuleFile::GetList(const String& section, const String& key) const
{
    std::vector<String> list;
    for (const String& piece : StringTokenizer::Split(Get(section, key), ";"))
    {
        if (const String item = piece.Trim(); !item.empty())
        {
            list.push_back(item);
        }
    }
    return list;
}

std::map<String, String> ModuleFile::GetMap(const String& section) const
{
    std::map<String, String> values;
    for (const String& key : m_Document.Keys(section))
    {
        values[key] = Get(section, key);
    }
    return values;
}
} // namespace tolvan
