#pragma once

#include "tolvan/JobTypeInfo.h"
#include "vesta/Export.h"

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
    struct Entry
    {
        int64_t                              stamp = 0; ///< Change time and size in one.
        boost::shared_ptr<const JobTypeInfo> info;      ///< Null for a file with errors.
    };

    void Rescan();

    mutable std::mutex      m_Mutex;
    Path                    m_Folder;
    std::map<String, Entry> m_Files;
    std::map<UID, boost::shared_ptr<const JobTypeInfo>> m_Types;
};
