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
/// job's value; quotes and backslashes as in `StringTokenizer`), Folder;
/// [Parameter NAME] Description, Default, Choices (separated by ";");
/// [Command NAME] Flags (job, output, admin; separated by ";"), Description, Items, States,
/// Separator (yes: nothing else counts);
/// [Entries] NAME = text: named entries that fields may refer to; [Outputs] NAME = file pattern.
class TOLVAN_API JobTypeInfo
{
public:
    /// Reads a module file. Throws an `Exception*` whose text names the file, the line and what is
    /// wrong with it.
    static boost::shared_ptr<const JobTypeInfo> Load(const Path& file);

    const UID&    Id() const { return m_Id; }
    const String& Name() const { return m_Name; }
    const String& Description() const { return m_Description; }
    const String& ExecuteLine() const { return m_Execute; }
    const Path&   FileName() const { return m_File; }

    int                 ParamCount() const { return static_cast<int>(m_Params.size()); }
    const JobParamInfo& GetParam(int index) const; ///< Throws an `Exception*` out of range.

    const std::vector<CommandInfo>&  Commands() const { return m_Commands; }
    const std::map<String, String>&  Entries() const { return m_Entries; }
    const std::map<String, String>&  Outputs() const { return m_Outputs; }

private:
    Path                      m_File;
    UID                       m_Id;
    String                    m_Name;
    String                    m_Description;
    String                    m_Execute;
    std::vector<JobParamInfo> m_Params;
    std::vector<CommandInfo>  m_Commands;
    std::map<String, String>  m_Entries;
    std::map<String, String>  m_Outputs;
};
