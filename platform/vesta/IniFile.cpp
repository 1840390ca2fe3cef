#include "vesta/IniFile.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/FileLock.h"

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace
{

constexpr size_t kMaxDamageLines = 20; // damaged lines of one file that are logged one by one

void LogDamage(const Path& path, const std::vector<int>& lines)
{
    for (size_t i = 0; i < lines.size() && i < kMaxDamageLines; ++i)
    {
        LogWarning(path.Text() + ":" + String::FromInt(lines[i]) +
                   ": neither a section, a key with a value nor a comment; the line is left alone");
    }
    if (lines.size() > kMaxDamageLines)
    {
        LogWarning(SFormat("%s: %zu more damaged lines", path.Text().c_str(),
                           lines.size() - kMaxDamageLines));
    }
}

/// Whether there is certainly no file: one in a folder that may not be searched counts as there,
/// so that the reason is told.
bool IsMissing(const Path& path)
{
    return access(path.Text().c_str(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

} // namespace

bool IniFile::NameLess::operator()(const std::pair<String, String>& a,
                                   const std::pair<String, String>& b) const
{
    const String::ciless less;
    return less(a.first, b.first) || (!less(b.first, a.first) && less(a.second, b.second));
}

IniFile::IniFile() = default;

IniFile::IniFile(const Path& path) : m_Path(path)
{
}

IniFile::~IniFile() = default;

void IniFile::SetFileName(const Path& path)
{
    const WriteLock lock(m_Lock);
    m_Path = path;
}

bool IniFile::Load(bool mustExist, bool mustBeRead)
{
    CALL_ENTRY("IniFile::Load");
    const WriteLock lock(m_Lock);
    m_Document = IniDocument();
    m_Changes.clear();
    m_ChangeOf.clear();
    const bool exists = !IsMissing(m_Path);
    if (!exists && !mustExist)
    {
        LogDebug("There is no file \"" + m_Path.Text() + "\" yet");
        return false;
    }
    try
    {
        LogDamage(m_Path, m_Document.Parse(File::Read(m_Path, k_Limit)));
        return true;
    }
    catch (Exception* e)
    {
        if (exists ? mustBeRead : mustExist)
        {
            throw;
        }
        e->Log(log_Warning);
        delete e;
    }
    return false;
}

void IniFile::Save()
{
    CALL_ENTRY("IniFile::Save");
    const WriteLock lock(m_Lock);
    if (m_Changes.empty())
    {
        return;
    }
    if (m_Path.IsEmpty())
    {
        Exception::Throw("IniFile", "Save", ec_NoUserDir, "The settings have no file");
    }
    const Path target = File::FollowLinks(m_Path);
    File::MakeFolder(target.Branch());
    File::CheckReplaceable(target);

    const FileLock fileLock(target);
    IniDocument    merged;
    if (!IsMissing(target))
    {
        merged.Parse(File::Read(target, k_Limit));
    }
    for (const Change& change : m_Changes)
    {
        Apply(merged, change);
    }
    File::WriteAtomically(target, merged.ToText());

    m_Document = std::move(merged);
    m_Changes.clear();
    m_ChangeOf.clear();
}

bool IniFile::IsChanged() const
{
    const ReadLock lock(m_Lock);
    return !m_Changes.empty();
}

String IniFile::GetValue(const String& section, const String& key, const String& otherwise) const
{
    const ReadLock lock(m_Lock);
    return m_Document.Has(section, key) ? m_Document.Get(section, key) : otherwise;
}

bool IniFile::GetBool(const String& section, const String& key, bool otherwise) const
{
    return GetValue(section, key).ToBool(otherwise);
}

int IniFile::GetInt(const String& section, const String& key, int otherwise) const
{
    const long long value = GetValue(section, key).ToInt(otherwise);
    return value == static_cast<int>(value) ? static_cast<int>(value) : otherwise;
}

bool IniFile::HasValue(const String& section, const String& key) const
{
    const ReadLock lock(m_Lock);
    return m_Document.Has(section, key);
}

std::vector<String> IniFile::Sections() const
{
    const ReadLock lock(m_Lock);
    return m_Document.Sections();
}

std::vector<String> IniFile::Keys(const String& section) const
{
    const ReadLock lock(m_Lock);
    return m_Document.Keys(section);
}

int IniFile::LineOf(const String& section, const String& key) const
{
    const ReadLock lock(m_Lock);
    return m_Document.LineOf(section, key);
}

void IniFile::InsertSection(const String& section)
{
    const WriteLock lock(m_Lock);
    if (!section.empty() && !m_Document.HasSection(section))
    {
        Record(Change::kInsert, section);
    }
}

void IniFile::SetValue(const String& section, const String& key, const String& value)
{
    const WriteLock lock(m_Lock);
    if (!m_Document.Has(section, key) || m_Document.Get(section, key) != value)
    {
        Record(Change::kSet, section, key, value);
    }
}

void IniFile::RemoveValue(const String& section, const String& key)
{
    const WriteLock lock(m_Lock);
    if (m_Document.Has(section, key))
    {
        Record(Change::kRemove, section, key);
    }
}

void IniFile::ClearSection(const String& section)
{
    const WriteLock lock(m_Lock);
    if (!m_Document.Keys(section).empty())
    {
        Record(Change::kClear, section);
    }
}

void IniFile::Record(Change::Kind kind, const String& section, const String& key,
                     const String& value)
{
    const Change change{kind, section, key, value};
    Apply(m_Document, change);
    if (kind == Change::kClear)
    {
        RecordClear(section);
    }
    else if (kind == Change::kInsert)
    {
        m_Changes.push_back(change);
    }
    else
    {
        // One change a key, so that a file that cannot be saved does not fill the memory.
        const auto place = m_ChangeOf.emplace(std::make_pair(section, key), m_Changes.size());
        if (place.second)
        {
            m_Changes.push_back(change);
        }
        else
        {
            m_Changes[place.first->second] = change;
        }
    }
    Changed();
}

void IniFile::RecordClear(const String& section)
{
    std::vector<Change> kept;
    m_ChangeOf.clear();
    for (const Change& change : m_Changes)
    {
        if (change.kind == Change::kInsert || !change.section.EqualsNoCase(section))
        {
            if (change.kind == Change::kSet || change.kind == Change::kRemove)
            {
                m_ChangeOf.emplace(std::make_pair(change.section, change.key), kept.size());
            }
            kept.push_back(change);
        }
    }
    kept.push_back({Change::kClear, section, String(), String()});
    m_Changes = std::move(kept);
}

void IniFile::Apply(IniDocument& document, const Change& change)
{
    switch (change.kind)
    {
    case Change::kInsert:
        document.InsertSection(change.section);
        break;
    case Change::kSet:
        document.Set(change.section, change.key, change.value);
        break;
    case Change::kRemove:
        document.Remove(change.section, change.key);
        break;
    case Change::kClear:
        document.ClearSection(change.section);
        break;
    }
}
