#include "monitor/JobForm.h"

#include "monitor/FarmJob.h"

#include "tolvan/Job.h"

#include <algorithm>
#include <utility>

namespace
{
const char* const kFirstPriority = "50";
constexpr size_t  kMostLabel = 60; // characters

bool IsControl(char byte)
{
    return static_cast<unsigned char>(byte) < ' ' || byte == 0x7F;
}
} // namespace

JobForm::JobForm(boost::shared_ptr<const JobTypeInfo> type)
    : priority(kFirstPriority), m_Type(std::move(type))
{
    for (int i = 0; i < m_Type->ParamCount(); ++i)
    {
        const JobParamInfo& info = m_Type->GetParam(i);
        const bool          takesFirst = info.value.empty() && !info.choices.empty();
        values.push_back(takesFirst ? info.choices.front() : info.value);
    }
}

JobForm::JobForm(boost::shared_ptr<const JobTypeInfo> type, const Job& job)
    : JobForm(std::move(type))
{
    const std::map<String, String> params = job.Params();
    const std::vector<String>      common = Job::CommonParameterNames();
    name = job.GetParam(p_Name);
    priority = job.GetParam(p_Priority);
    for (size_t i = 0; i < values.size(); ++i)
    {
        const String& param = m_Type->GetParam(static_cast<int>(i)).name;
        const auto    found = params.find(param);
        // One that is called as what every job has stands for that in a job.
        if (found != params.end() && std::find(common.begin(), common.end(), param) == common.end())
        {
            values[i] = found->second;
        }
    }
}

String JobForm::FindProblem(int& field) const
{
    field = kName;
    if (String problem = NameProblem(); !problem.empty())
    {
        return problem;
    }
    field = kPriority;
    if (String problem = PriorityProblem(priority); !problem.empty())
    {
        return problem;
    }
    size_t bytes = name.size();
    for (size_t i = 0; i < values.size(); ++i)
    {
        field = static_cast<int>(i);
        if (String problem = ValueProblem(i); !problem.empty())
        {
            return problem;
        }
        bytes += m_Type->GetParam(field).name.size() + values[i].size();
    }
    field = kNone;
    return bytes <= k_MostInAll
               ? String()
               : SFormat("The parameters hold %zu bytes together; %zu are possible.", bytes,
                         k_MostInAll);
}

String JobForm::NameProblem() const
{
    if (std::any_of(name.begin(), name.end(), IsControl))
    {
        return "The name holds a line break or another control character.";
    }
    return name.size() <= k_MostName ? String()
                                     : SFormat("The name is longer than %zu bytes.", k_MostName);
}

String JobForm::PriorityProblem(const String& entered)
{
    const String text = entered.Trim();
    const auto   number = text.ToInt(-1);
    const bool   isNumber = String::FromInt(number) == text;
    return isNumber && number >= 0 && number <= k_MostPriority
               ? String()
               : SFormat("The priority must be a whole number from 0 to %d.", k_MostPriority);
}

String JobForm::ValueProblem(size_t index) const
{
    const JobParamInfo& info = m_Type->GetParam(static_cast<int>(index));
    const String&       value = values[index];
    const String        label = "\"" + OneLine(info.Label(), kMostLabel) + "\"";
    if (value.find('\0') != String::npos)
    {
        return label + " holds a NUL character.";
    }
    if (value.size() > k_MostValue)
    {
        return label + SFormat(" holds %zu bytes; %zu are possible.", value.size(), k_MostValue);
    }
    const auto lookup = [this](const String& other) { return ValueOf(other); };
    return info.Accepts(value, lookup) ? String()
                                       : label + " must be " + info.Requirement(lookup) + ".";
}

String JobForm::ValueOf(const String& param) const
{
    for (size_t i = 0; i < values.size(); ++i)
    {
        if (m_Type->GetParam(static_cast<int>(i)).name.EqualsNoCase(param))
        {
            return values[i];
        }
    }
    return String();
}

Message JobForm::ToMessage(const String& request) const
{
    Message message(msg_Submit);
    for (size_t i = 0; i < values.size(); ++i)
    {
        const JobParamInfo& param = m_Type->GetParam(static_cast<int>(i));
        const bool          isNumber =
            param.kind == JobParamInfo::Kind::kInteger || param.kind == JobParamInfo::Kind::kNumber;
        message.Set(param.name, isNumber ? values[i].Trim() : values[i]);
    }
    // Last: a parameter of one of these names must not stand in for them.
    return message.Set("Request", request)
        .Set(p_Type, m_Type->Id().ToString())
        .Set(p_Name, name.Trim())
        .Set(p_Priority, priority.Trim());
}
