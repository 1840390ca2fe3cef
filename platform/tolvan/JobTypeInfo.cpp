#include "tolvan/JobTypeInfo.h"

#include "tolvan/modules/ModuleFile.h"
#include "vesta/Exception.h"
#include "vesta/Log.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{

const char* const kType = "Type";
const char* const kParameter = "Parameter";
const char* const kCommand = "Command";
const char* const kEntries = "Entries";
const char* const kOutputs = "Outputs";

constexpr int32_t kSeparatorBit = std::numeric_limits<int32_t>::min();
constexpr int32_t kEveryKind = -1 & ~kSeparatorBit;

struct KindName
{
    const char* name;
    int32_t     kind;
};

constexpr KindName kKindNames[] = {{"job", cmd_Job}, {"output", cmd_Output}, {"admin", cmd_Admin}};

/// The NAME of a section "KIND NAME"; false when it is of another kind.
bool TakeName(const tolvan::ModuleFile& file, const String& section, const String& kind,
              String& name)
{
    const size_t blank = section.find_first_of(" \t");
    if (!String(section.substr(0, blank)).EqualsNoCase(kind))
    {
        return false;
    }
    name = blank == String::npos ? String() : String(section.substr(blank)).Trim();
    if (name.empty())
    {
        file.Complain(0, "[" + section + "] needs a name after \"" + kind + "\"");
    }
    return true;
}

constexpr struct
{
    const char*        name;
    JobParamInfo::Kind kind;
} kParamKinds[] = {{"text", JobParamInfo::Kind::kText},
                   {"integer", JobParamInfo::Kind::kInteger},
                   {"number", JobParamInfo::Kind::kNumber},
                   {"file", JobParamInfo::Kind::kFile},
                   {"folder", JobParamInfo::Kind::kFolder}};

JobParamInfo::Kind ReadKind(const tolvan::ModuleFile& file, const String& section)
{
    const String text = file.Get(section, "Type").Trim();
    if (text.empty())
    {
        return JobParamInfo::Kind::kText;
    }
    for (const auto& known : kParamKinds)
    {
        if (text.EqualsNoCase(known.name))
        {
            return known.kind;
        }
    }
    file.Complain(section, "Type",
                  "there is no type \"" + text + "\", only text, integer, number, file and folder");
}

/// Finite, and nothing else in the text.
bool ToNumber(const String& text, double& number)
{
    const char* const end = text.data() + text.size();
    const auto        result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(number);
}

bool IsReference(const String& bound)
{
    return bound.size() > 2 && bound.front() == '%' && bound.back() == '%';
}

String ReadBound(const tolvan::ModuleFile& file, const String& section, const String& key,
                 JobParamInfo::Kind kind)
{
    const String bound = file.Get(section, key).Trim();
    double       number = 0;
    if (!bound.empty() && !IsReference(bound) && !ToNumber(bound, number))
    {
        file.Complain(section, key, "\"" + bound + "\" is neither a number nor %Parameter%");
    }
    if (!bound.empty() && kind != JobParamInfo::Kind::kInteger &&
        kind != JobParamInfo::Kind::kNumber)
    {
        file.Complain(section, key, "only an integer or a number has a range");
    }
    return bound;
}

/// The bound as it is for a job; empty when it is none there.
String BoundFor(const String& bound, const JobParamInfo::Lookup& lookup)
{
    const String text =
        IsReference(bound) ? lookup(bound.substr(1, bound.size() - 2)).Trim() : String(bound);
    double number = 0;
    return ToNumber(text, number) ? text : String();
}

bool IsInteger(const String& text)
{
    return String::FromInt(text.ToInt(0)) == text;
}

JobParamInfo ReadParameter(tolvan::ModuleFile& file, const String& section, const String& name)
{
    file.ReportUnknownKeys(section,
                           {"Description", "Default", "Choices", "Type", "Minimum", "Maximum"});
    JobParamInfo info;
    info.name = name;
    info.description = file.Get(section, "Description");
    info.value = file.Get(section, "Default");
    info.choices = file.GetList(section, "Choices");
    const auto& choices = info.choices;
    if (!choices.empty() && !info.value.empty() &&
        std::find(choices.begin(), choices.end(), info.value) == choices.end())
    {
        file.Complain(section, "Default",
                      "the default \"" + info.value + "\" is not among the choices");
    }
    info.kind = ReadKind(file, section);
    info.minimum = ReadBound(file, section, "Minimum", info.kind);
    info.maximum = ReadBound(file, section, "Maximum", info.kind);
    const auto none = [](const String&) { return String(); };
    if (!info.Accepts(info.value, none))
    {
        file.Complain(section, "Default",
                      "the default \"" + info.value + "\" is not " + info.Requirement(none));
    }
    return info;
}

int32_t ReadFlags(const tolvan::ModuleFile& file, const String& section, int32_t otherwise)
{
    const std::vector<String> names = file.GetList(section, "Flags");
    int32_t                   flags = names.empty() ? otherwise : 0;
    for (const String& name : names)
    {
        const auto* const found =
            std::find_if(std::begin(kKindNames), std::end(kKindNames),
                         [&](const KindName& known) { return name.EqualsNoCase(known.name); });
        if (found == std::end(kKindNames))
        {
            file.Complain(section, "Flags",
                          "there is no flag \"" + name + "\", only job, output and admin");
        }
        flags |= found->kind;
    }
    return flags;
}

CommandInfo ReadCommand(tolvan::ModuleFile& file, const String& section, const String& name)
{
    file.ReportUnknownKeys(section, {"Flags", "Description", "Items", "States", "Separator"});
    const bool  isSeparator = file.GetBool(section, "Separator");
    CommandInfo info;
    info.name = name;
    info.flags = isSeparator ? ReadFlags(file, section, kEveryKind) | kSeparatorBit
                             : ReadFlags(file, section, cmd_Job);
    info.description = file.Get(section, "Description");
    info.items = file.Get(section, "Items");
    info.states = file.Get(section, "States");
    return info;
}

} // namespace

boost::shared_ptr<const JobTypeInfo> JobTypeInfo::Load(const Path& path)
{
    tolvan::ModuleFile file(path, k_Limit);
    const auto         info = boost::shared_ptr<JobTypeInfo>(new JobTypeInfo);
    info->m_File = path;
    if (!file.HasSection(kType))
    {
        file.Complain(0, "there is no section [Type]");
    }
    file.ReportUnknownKeys(kType, {"Id", "Name", "Description", "Execute", "Folder"});
    const String id = file.Require(kType, "Id");
    info->m_Id = UID(id);
    if (info->m_Id.IsNull())
    {
        file.Complain(kType, "Id", "\"" + id + "\" is no identifier (or the null one)");
    }
    info->m_Name = file.Require(kType, "Name");
    info->m_Description = file.Get(kType, "Description");
    info->m_Execute = file.Get(kType, "Execute");
    info->m_Folder = file.Get(kType, "Folder");
    info->m_Entries = file.GetMap(kEntries);
    info->m_Outputs = file.GetMap(kOutputs);

    for (const String& section : file.Sections())
    {
        String name;
        if (TakeName(file, section, kParameter, name))
        {
            info->m_Params.push_back(ReadParameter(file, section, name));
        }
        else if (TakeName(file, section, kCommand, name))
        {
            info->m_Commands.push_back(ReadCommand(file, section, name));
        }
        else if (!section.EqualsNoCase(kType) && !section.EqualsNoCase(kEntries) &&
                 !section.EqualsNoCase(kOutputs))
        {
            file.ReportUnknownSection(section);
        }
    }
    file.ReportTheRest();
    return info;
}

String JobParamInfo::Requirement(const Lookup& lookup) const
{
    if (!choices.empty())
    {
        return "one of its choices";
    }
    if (kind != Kind::kInteger && kind != Kind::kNumber)
    {
        return String();
    }
    const String low = BoundFor(minimum, lookup);
    const String high = BoundFor(maximum, lookup);
    const String text = kind == Kind::kInteger ? "a whole number" : "a number";
    if (!low.empty() && !high.empty())
    {
        return text + " from " + low + " to " + high;
    }
    return text + (low.empty() ? String() : " of at least " + low) +
           (high.empty() ? String() : " of at most " + high);
}

bool JobParamInfo::Accepts(const String& text, const Lookup& lookup) const
{
    if (!choices.empty())
    {
        return std::find(choices.begin(), choices.end(), text) != choices.end() ||
               (text.empty() && value.empty());
    }
    const String trimmed = text.Trim();
    if ((kind != Kind::kInteger && kind != Kind::kNumber) || (trimmed.empty() && value.empty()))
    {
        return true;
    }
    double number = 0;
    double bound = 0;
    return ToNumber(trimmed, number) && (kind == Kind::kNumber || IsInteger(trimmed)) &&
           (!ToNumber(BoundFor(minimum, lookup), bound) || number >= bound) &&
           (!ToNumber(BoundFor(maximum, lookup), bound) || number <= bound);
}

const JobParamInfo& JobTypeInfo::GetParam(int index) const
{
    if (index < 0 || index >= ParamCount())
    {
        Exception::Throw("JobTypeInfo", "GetParam", ec_BadData,
                         SFormat("The type \"%s\" has no parameter %d", m_Name.c_str(), index));
    }
    return m_Params[static_cast<size_t>(index)];
}
