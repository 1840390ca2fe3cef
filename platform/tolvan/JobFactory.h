#pragma once

#include "tolvan/JobTypeInfo.h"
#include "vesta/Export.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <vector>

/// Knows the job types of a folder of module files. Files that changed are read again when the
/// types are listed; descriptions that are in use stay valid. A file with errors is skipped and
/// named in the log, once a change. Any thread.
class TOLVAN_API JobFactory
{
public:
    /// The process's factory. Its folder is $TOLVAN_MODULES, else "modules" in the user's folder if
    /// it is there, else "share/tolvan/modules" beside the program's folder.
    static JobFactory* s_JobFactory;

    JobFactory();
    explicit JobFactory(const Path& folder);

    Path Folder() const;
    void SetFolder(const Path& folder);

    /// The types in the order of their files' names. Of two files with one id the first counts.
    std::vector<UID> ListTypes();
    /// Null when there is no such type; with `reload` the folder is looked at first if the type is
    /// not known.
    boost::shared_ptr<const JobTypeInfo> GetTypeInfo(const UID& id, bool reload);

private:
    /// What tells a file from a later one of its name.
    struct Stamp
    {
        int64_t  changed = -1; ///< Nanoseconds since 1970.
        int64_t  size = -1;    ///< Bytes.
        uint64_t number = 0;   ///< Of the file in its file system.
    };
    struct Entry
    {
        Stamp                                stamp;
        boost::shared_ptr<const JobTypeInfo> info; ///< Null for a file with errors.
        bool isReported = false;                   ///< As one that has another file's identifier.
    };

    static Stamp StampOf(const String& file);
    void         Rescan();
    bool         LookInto(const Path& folder);
    bool         Refresh(const String& file, Entry& entry) const;
    void         ListByIds();

    mutable std::mutex      m_Mutex;
    Path                    m_Folder;  ///< Empty: the default one.
    Path                    m_Scanned; ///< The folder that the rest is about.
    std::map<String, Entry> m_Files;
    std::vector<UID>        m_Order;
    std::map<UID, boost::shared_ptr<const JobTypeInfo>> m_Types;
};
