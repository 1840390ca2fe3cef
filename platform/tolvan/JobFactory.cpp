#include "tolvan/JobFactory.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Log.h"
#include "vesta/Platform.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include <sys/stat.h>

namespace
{

const char* const kExtension = ".module";

bool IsModule(const String& name)
{
    const size_t length = std::strlen(kExtension);
    const bool   isHidden = name.StartsWith("."); // Editors keep their notes in such files.
    return !isHidden && name.size() > length &&
           name.compare(name.size() - length, length, kExtension) == 0;
}

Path DefaultFolder()
{
    if (const char* const named = getenv("TOLVAN_MODULES"); named && *named)
    {
        return Path(named);
    }
    Path ofUser = Path(File::s_UserDir) / "modules";
    if (!File::s_UserDir.empty() && File::IsFolder(ofUser))
    {
        return ofUser;
    }
    return Path(Platform::GetProgramFolder()).Branch() / "share" / "tolvan" / "modules";
}

JobFactory& DefaultFactory()
{
    static JobFactory factory;
    return factory;
}

} // namespace

JobFactory* JobFactory::s_JobFactory = &DefaultFactory();

JobFactory::JobFactory() = default;

JobFactory::JobFactory(const Path& folder) : m_Folder(folder)
{
}

Path JobFactory::Folder() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Folder.IsEmpty() ? DefaultFolder() : m_Folder;
}

void JobFactory::SetFolder(const Path& folder)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Folder = folder;
}

std::vector<UID> JobFactory::ListTypes()
{
    CALL_ENTRY("JobFactory::ListTypes");
    const std::lock_guard<std::mutex> lock(m_Mutex);
    Rescan();
    return m_Order;
}

boost::shared_ptr<const JobTypeInfo> JobFactory::GetTypeInfo(const UID& id, bool reload)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    auto                              found = m_Types.find(id);
    if (found == m_Types.end() && reload && !id.IsNull())
    {
        Rescan();
        found = m_Types.find(id);
    }
    return found == m_Types.end() ? nullptr : found->second;
}

JobFactory::Stamp JobFactory::StampOf(const String& file)
{
    struct stat status = {};
    Stamp       stamp;
    stamp.changed = 0; // A file that is not to be had is looked at, and complained of, once too.
    if (stat(file.c_str(), &status) == 0)
    {
        // The time of change, not of modification: it cannot be set back by whoever copies a file.
        stamp.changed = status.st_ctim.tv_sec * 1000000000LL + status.st_ctim.tv_nsec;
        stamp.size = status.st_size;
        stamp.number = status.st_ino;
    }
    return stamp;
}

void JobFactory::Rescan()
{
    const Path folder = m_Folder.IsEmpty() ? DefaultFolder() : m_Folder;
    const bool isOther = folder.Text() != m_Scanned.Text();
    if (isOther)
    {
        m_Files.clear();
        m_Scanned = folder;
        if (!File::IsFolder(folder))
        {
            LogWarning("There is no folder of job modules: " + folder.Text());
        }
    }
    if (LookInto(folder) || isOther)
    {
        ListByIds();
    }
}

/// Brings the files up to date; whether there was anything to do. Of files that have not changed
/// nothing is copied or allocated: there may be many thousands.
bool JobFactory::LookInto(const Path& folder)
{
    std::map<String, Entry> files;
    bool                    changed = false;
    String                  path = (folder / "").Text();
    const size_t            folderLength = path.size();
    for (const String& name : File::List(folder))
    {
        if (!IsModule(name))
        {
            continue;
        }
        auto known = m_Files.extract(name);
        auto entry = known.empty() ? files.emplace_hint(files.end(), name, Entry())
                                   : files.insert(files.end(), std::move(known));
        path.resize(folderLength);
        path += name;
        changed = Refresh(path, entry->second) || changed;
    }
    changed = changed || !m_Files.empty();
    m_Files.swap(files);
    return changed;
}

/// Reads the file again if it is not the one that was read; whether it did.
bool JobFactory::Refresh(const String& file, Entry& entry) const
{
    const Stamp stamp = StampOf(file);
    if (stamp.changed == entry.stamp.changed && stamp.size == entry.stamp.size &&
        stamp.number == entry.stamp.number)
    {
        return false;
    }
    entry = Entry();
    entry.stamp = stamp;
    try
    {
        entry.info = JobTypeInfo::Load(file);
    }
    catch (Exception* exception)
    {
        LogError("A job module is skipped: " + exception->Text() +
                 (exception->Text2().empty() ? "" : ": ") + exception->Text2());
        delete exception;
    }
    return true;
}

void JobFactory::ListByIds()
{
    m_Types.clear();
    m_Order.clear();
    for (auto& [name, entry] : m_Files)
    {
        if (!entry.info)
        {
            continue;
        }
        const auto [first, isNew] = m_Types.emplace(entry.info->Id(), entry.info);
        if (isNew)
        {
            m_Order.push_back(entry.info->Id());
        }
        else if (!entry.isReported)
        {
            entry.isReported = true;
            LogWarning("A job module is skipped: " + entry.info->FileName().Text() +
                       " has the identifier of " + first->second->FileName().Text());
        }
    }
}
