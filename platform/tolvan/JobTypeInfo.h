#pragma once

#include "tolvan/CommandInfo.h"
#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"
#include "vesta/UID.h"

#include <boost/shared_ptr.hpp>

#include <map>
#include <vector>

/// A parameter of a job type.
struct JobParamInfo
{
    String              name;
    String              description;
    String              value;   ///< Default.
    std::vector<String> choices; ///< Empty: any text.
};

/// Description of a job type ("product"), read from one module file. Never changes once loaded.
///
/// The file, an ini file named "*.module":
/// [Type] Id (UID), Name, Description, Execute (the command line, with %Parameter% replaced by the
/// job's value; quotes and backslashes as in `StringTokenizer`), Folder (where it is run; empty:
/// the job's own); Id and Name must be there;
/// [Parameter NAME] Description, Default, Choices (separated by ";");
/// [Command NAME] Flags (job, output, admin; separated by ";"; job when there are none),
/// Description, Items, States, Separator (yes: only Flags count besides; every kind when there are
/// none);
/// [Entries] NAME = text: named entries that fields may refer to; [Outputs] NAME = file pattern.
class TOLVAN_API JobTypeInfo
{
public:
    static constexpr size_t k_Limit = 1u << 20; ///< Bytes; a larger module file is refused.

    /// Reads a module file. Throws an `Exception*` whose text names the file, the line and what is
    /// wrong with it. Sections and keys that nobody knows are only logged.
    static boost::shared_ptr<const JobTypeInfo> Load(const Path& file);

    const UID&    Id() const { return m_Id; }
    const String& Name() const { return m_Name; }
    const String& Description() const { return m_Description; }
    const String& ExecuteLine() const { return m_Execute; }
    const String& Folder() const { return m_Folder; } ///< As declared.
    const Path&   FileName() const { return m_File; }

    int                 ParamCount() const { return static_cast<int>(m_Params.size()); }
    const JobParamInfo& GetParam(int index) const; ///< Throws an `Exception*` out of range.

    const std::vector<CommandInfo>& Commands() const { return m_Commands; }
    const std::map<String, String>& Entries() const { return m_Entries; }
    const std::map<String, String>& Outputs() const { return m_Outputs; }

private:
    Path                      m_File;
    UID                       m_Id;
    String                    m_Name;
    String                    m_Description;
    String                    m_Execute;
    String                    m_Folder;
    std::vector<JobParamInfo> m_Params;
    std::vector<CommandInfo>  m_Commands;
    std::map<String, String>  m_Entries;
    std::map<String, String>  m_Outputs;
};
