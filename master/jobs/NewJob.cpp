#include "master/jobs/NewJob.h"

#include "tolvan/Job.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/IniFile.h"

#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

#include <algorithm>

namespace master
{
namespace
{

const char* const kJob = "Job";
const char* const kParameters = "Parameters";
const char* const kRequest = "Request";
const char* const kExtension = "job";

bool IsCommon(const String& name)
{
    const std::vector<String> common = Job::CommonParameterNames();
    return std::any_of(common.begin(), common.end(),
                       [&](const String& one) { return one.EqualsNoCase(name); });
}

void TakeParameter(NewJob& job, const String& name, const String& value)
{
    if (!IsCommon(name))
    {
        job.params[name] = value;
    }
}

} // namespace

NewJob NewJob::FromMessage(const Message& message)
{
    NewJob job;
    job.type = message.Get(p_Type);
    job.name = message.Get(p_Name);
    job.priority = message.Get(p_Priority);
    for (const auto& [name, value] : message.Fields())
    {
        if (name != kRequest)
        {
            TakeParameter(job, name, value);
        }
    }
    return job;
}

NewJob NewJob::FromFile(const Path& file)
{
    IniFile ini(file);
    ini.Load(true, true);
    NewJob job;
    job.type = ini.GetValue(kJob, p_Type);
    if (job.type.empty())
    {
        Exception::Throw("NewJob", "FromFile", ec_BadData,
                         file.Text() + " names no type in its section [Job]");
    }
    job.name = ini.GetValue(kJob, p_Name);
    job.priority = ini.GetValue(kJob, p_Priority);
    for (const String& name : ini.Keys(kParameters))
    {
        TakeParameter(job, name, ini.GetValue(kParameters, name));
    }
    boost::uuids::name_generator_sha1 fromName(boost::uuids::ns::url());
    job.id = boost::uuids::to_string(fromName(std::string("file:") + file.Text()));
    return job;
}

std::vector<Path> FindJobFiles(const Path& folder)
{
    std::vector<Path> files;
    for (const String& name : File::List(folder))
    {
        if (Path(name).Extension() == kExtension)
        {
            files.push_back(folder / name);
        }
    }
    return files;
}
} // namespace master
