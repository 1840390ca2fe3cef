#pragma once

#include "vesta/Export.h"
#include "vesta/IniDocument.h"
#include "vesta/Path.h"
#include "vesta/RWLock.h"
#include "vesta/String.h"

#include <atomic>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

/// An ini file: sections of keys and values, loaded and saved whole. Reading and writing single
/// values takes the file's lock by itself and may happen on any thread; several changes that belong
/// together are made under one `WriteLock` on `Lock()`.
///
/// Saving reads the file on the disk again, under a lock file, and applies only what was changed
/// here since it was loaded: two programs that save the same file lose neither's key. What the
/// other program changed is seen here after the save. A file that cannot be read, is too large or
/// write-protected is never overwritten. `Lock()` is not held while the disk is at work: reading
/// and changing values go on beside a save on another thread.
class TOLVAN_API IniFile
{
public:
    static constexpr size_t k_Limit = 16u << 20; ///< Bytes; a larger file is not loaded.

    IniFile();
    explicit IniFile(const Path& path);
    virtual ~IniFile();
    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;

    void        SetFileName(const Path& path);
    const Path& FileName() const { return m_Path; }

    /// Reads the file, replacing what is held. With `mustExist` a missing file, with `mustBeRead`
    /// an unreadable one throws an `Exception*`; otherwise it counts as empty and false is
    /// returned. Either, and every damaged line, is logged; a missing file only at debug level.
    bool Load(bool mustExist, bool mustBeRead);
    /// Writes the file as described above. Throws an `Exception*`; what was changed is then kept
    /// for the next try. A thread that holds `Lock()` while another one saves gets such an
    /// exception too, for it cannot wait for that one.
    void Save();
    bool IsChanged() const; ///< Whether there is something that is not saved yet.
    int  SaveCount() const { return m_SaveCount; } ///< Saves so far that wrote the file.

    RWLock& Lock() const { return m_Lock; }

    String              GetValue(const String& section, const String& key,
                                 const String& otherwise = String()) const;
    bool                GetBool(const String& section, const String& key, bool otherwise) const;
    int                 GetInt(const String& section, const String& key, int otherwise) const;
    bool                HasValue(const String& section, const String& key) const;
    std::vector<String> Sections() const;
    std::vector<String> Keys(const String& section) const;
    int                 LineOf(const String& section, const String& key) const;

    void InsertSection(const String& section);
    /// Setting a value that is there already changes nothing.
    void SetValue(const String& section, const String& key, const String& value);
    void RemoveValue(const String& section, const String& key);
    void ClearSection(const String& section);

protected:
    /// `Save`; false instead of the exception when another thread cannot be waited for.
    bool TrySave();

    /// Called after every change, with the write lock held.
    virtual void Changed() {}

private:
    class _Batch;

    struct Change
    {
        enum Kind
        {
            kInsert,
            kSet,
            kRemove,
            kClear
        } kind;
        String section;
        String key;
        String value;
    };
    struct NameLess ///< Orders pairs of section and key without regard to case.
    {
        bool operator()(const std::pair<String, String>& a,
                        const std::pair<String, String>& b) const;
    };

    void        Record(Change::Kind kind, const String& section, const String& key = String(),
                       const String& value = String());
    void        Note(const Change& change);
    void        NoteClear(const Change& change);
    void        Write(_Batch& batch, const Path& target);
    static void Apply(IniDocument& document, const Change& change);

    Path                m_Path;
    std::mutex          m_Saving; ///< Held by the thread that saves; taken before the lock.
    mutable RWLock      m_Lock;
    IniDocument         m_Document;
    std::vector<Change> m_Changes; ///< Since the last load or save, in order, one a key.
    std::atomic<int>    m_SaveCount{0};
    std::vector<Change> m_Batch; ///< Those that are being saved just now, older than m_Changes.
    std::map<std::pair<String, String>, size_t, NameLess> m_ChangeOf; ///< Of a key in m_Changes.
};
