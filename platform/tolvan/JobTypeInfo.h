#pragma once

#include "tolvan/CommandInfo.h"
#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"
#include "vesta/UID.h"

#include <boost/shared_ptr.hpp>

#include <functional>
#include <map>
#include <vector>

/// A parameter of a job type.
struct TOLVAN_API JobParamInfo
{
    /// What its values are.
    enum class Kind
    {
        kText,
        kInteger,
        kNumber,
        kFile,
        kFolder
    };
    /// The value of another parameter of the same job; empty when there is none of that name.
    using Lookup = std::function<String(const String& name)>;

    String              name;
    String              description;
    String              value;   ///< Default.
    std::vector<String> choices; ///< Empty: any text.
    Kind                kind = Kind::kText;
    /// @name Range
    /// Of numbers, both included; empty: none. "%Name%" stands for another parameter's value.
    /// @{
    String minimum;
    String maximum;
    /// @}

    /// How it is named to users: by its description, if it has one.
    const String& Label() const { return description.empty() ? name : description; }
    /// What a value has to be, as the end of a sentence: "a whole number from 1 to 100". Empty for
    /// any text.
    String Requirement(const Lookup& lookup) const;
    /// Whether it can be the parameter's value. An empty one can where the default is empty.
    bool Accepts(const String& value, const Lookup& lookup) const;
};

/// Description of a job type ("product"), read from one module file. Never changes once loaded.
///
/// The file, an ini file named "*.module":
/// [Type] Id (UID), Name, Description, Execute (the command line, with %Parameter% replaced by the
/// job's value; quotes and backslashes as in `StringTokenizer`), Folder (where it is run; empty:
/// the job's own); Id and Name must be there;
/// [Parameter NAME] Description, Default, Choices (separated by ";"), Type (text, integer, number,
/// file, folder; text when there is none), Minimum and Maximum (of numbers; %Parameter% stands for
/// another one's value);
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
