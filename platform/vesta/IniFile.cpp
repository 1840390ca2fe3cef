#include "vesta/IniFile.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/FileLock.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr size_t kMaxDamageLines = 20; // damaged lines of one file that are logged one by one
constexpr int    kLockTime = 1000;     // milliseconds
constexpr int    kMostTries = 5;       // to write before somebody else does

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

/// What tells a file from a later one of its name.
struct Stamp
{
    explicit Stamp(const Path& path)
    {
        if (struct stat status = {}; stat(path.Text().c_str(), &status) == 0)
        {
            device = status.st_dev;
            number = status.st_ino;
            size = status.st_size;
            changed = status.st_mtim;
        }
    }
    bool operator==(const Stamp& other) const
    {
        return device == other.device && number == other.number && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }

    dev_t    device = 0;
    ino_t    number = 0; ///< 0: there is no file.
    off_t    size = 0;
    timespec changed = {};
};

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

/// The changes that one save is about. They come back for the next try unless it succeeds.
class IniFile::_Batch
{
public:
    explicit _Batch(IniFile& file) : m_File(file)
    {
        const WriteLock lock(file.m_Lock);
        file.m_Batch.swap(file.m_Changes);
        file.m_ChangeOf.clear();
    }
    ~_Batch()
    {
        const WriteLock lock(m_File.m_Lock);
        if (m_File.m_Batch.empty())
        {
            return;
        }
        std::vector<Change> changes;
        changes.swap(m_File.m_Batch);
        changes.insert(changes.end(), m_File.m_Changes.begin(), m_File.m_Changes.end());
        m_File.m_Changes.clear();
        m_File.m_ChangeOf.clear();
        for (const Change& change : changes)
        {
            m_File.Note(change);
        }
    }
    _Batch(const _Batch&) = delete;
    _Batch& operator=(const _Batch&) = delete;

    /// Only the thread that saves changes them: read without the lock.
    const std::vector<Change>& Changes() const { return m_File.m_Batch; }

    /// `saved` is what the file holds now; changes that came meanwhile stay on top of it.
    void Succeed(IniDocument saved)
    {
        const WriteLock lock(m_File.m_Lock);
        for (const Change& change : m_File.m_Changes)
        {
            Apply(saved, change);
        }
        std::swap(m_File.m_Document, saved);
        m_File.m_Batch.clear();
        ++m_File.m_SaveCount; // Before anybody can see that nothing is left to save.
    }

private:
    IniFile& m_File;
};

void IniFile::Save()
{
    CALL_ENTRY("IniFile::Save");
    if (!TrySave())
    {
        Exception::Throw("IniFile", "Save", ec_Refused,
                         "The settings are being saved by another thread");
    }
}

bool IniFile::TrySave()
{
    CALL_ENTRY("IniFile::TrySave");
    std::unique_lock<std::mutex> saving(m_Saving, std::defer_lock);
    if (!m_Lock.IsHeld())
    {
        saving.lock();
    }
    else if (!saving.try_lock())
    {
        return false; // That thread needs the lock to come to an end.
    }
    _Batch batch(*this);
    if (batch.Changes().empty())
    {
        return true;
    }
    Path target;
    {
        const ReadLock lock(m_Lock);
        target = m_Path;
    }
    if (target.IsEmpty())
    {
        Exception::Throw("IniFile", "Save", ec_NoUserDir, "The settings have no file");
    }
    target = File::FollowLinks(target);
    File::MakeFolder(target.Branch());
    File::CheckReplaceable(target);
    Write(batch, target);
    return true;
}

void IniFile::Write(_Batch& batch, const Path& target)
{
    const FileLock fileLock(target, kLockTime);
    IniDocument    merged;
    for (int tries = 1; tries <= kMostTries; ++tries)
    {
        const Stamp before(target);
        merged = IniDocument();
        if (!IsMissing(target))
        {
            merged.Parse(File::Read(target, k_Limit));
        }
        for (const Change& change : batch.Changes())
        {
            Apply(merged, change);
        }
        // Whoever does without the lock, or was stopped while it held it, may have come between.
        const auto isStillMerged = [&] { return tries == kMostTries || Stamp(target) == before; };
        if (File::WriteAtomically(target, merged.ToText(), isStillMerged))
        {
            break;
        }
    }
    batch.Succeed(std::move(merged));
}

bool IniFile::IsChanged() const
{
    const ReadLock lock(m_Lock);
    return !m_Changes.empty() || !m_Batch.empty();
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
    Note(change);
    Changed();
}

/// Keeps one change a key, so that a file that cannot be saved does not fill the memory.
void IniFile::Note(const Change& change)
{
    if (change.kind == Change::kClear)
    {
        NoteClear(change);
        return;
    }
    if (change.kind != Change::kInsert)
    {
        const auto place =
            m_ChangeOf.emplace(std::make_pair(change.section, change.key), m_Changes.size());
        if (!place.second)
        {
            m_Changes[place.first->second] = change;
            return;
        }
    }
    m_Changes.push_back(change);
}

void IniFile::NoteClear(const Change& clear)
{
    std::vector<Change> kept;
    m_ChangeOf.clear();
    for (const Change& change : m_Changes)
    {
        if (change.kind == Change::kInsert || !change.section.EqualsNoCase(clear.section))
        {
            if (change.kind == Change::kSet || change.kind == Change::kRemove)
            {
                m_ChangeOf.emplace(std::make_pair(change.section, change.key), kept.size());
            }
            kept.push_back(change);
        }
    }
    kept.push_back(clear);
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
