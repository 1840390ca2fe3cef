#include "internal/windows/UpperFloors.h"

#include "tolvan/ClientOptions.h"
#include "tolvan/Job.h"
#include "tolvan/JobFactory.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"

// The words of the job model for text fields, which stand below it.

namespace
{
using Words = std::vector<String>;

void AddAll(Words& words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
}

void AddNames(Words& words, const std::map<String, String>& named)
{
    for (const auto& entry : named)
    {
        words.push_back(entry.first);
    }
}

void AddType(Words& words, const JobTypeInfo& type)
{
    words.push_back(type.Name());
    AddNames(words, type.Entries());
    for (int i = 0; i < type.ParamCount(); ++i)
    {
        words.push_back(type.GetParam(i).name);
        AddAll(words, type.GetParam(i).choices);
    }
    AddNames(words, type.Outputs());
    for (const CommandInfo& command : type.Commands())
    {
        if (command.flags >= 0) // not a separator
        {
            words.push_back(command.name);
        }
    }
}

void AddTypes(Words& words)
{
    JobFactory& factory = *JobFactory::s_JobFactory;
    for (const UID& id : factory.ListTypes())
    {
        if (const auto type = factory.GetTypeInfo(id, false))
        {
            AddType(words, *type);
        }
    }
}

void AddJobWords(Words& words)
{
    CALL_ENTRY("JobWords::AddJobWords");
    AddAll(words, Job::CommonParameterNames());
    AddAll(words, Job::ParameterCommandNames());
    try
    {
        AddTypes(words);
    }
    catch (Exception* e)
    {
        // A word less to propose is no reason to keep somebody from typing.
        e->Log(log_Warning);
        delete e;
    }
}

bool OptionsAllowCompletion()
{
    Application* const application = Application::the_Application;
    return application
               ? application->Options().GetBool("Window", o_AutoComplete, o_AutoCompleteDefault)
               : o_AutoCompleteDefault;
}

const bool kServesBelow = (internal::g_UpperFloors.addWords = AddJobWords,
                           internal::g_UpperFloors.mayComplete = OptionsAllowCompletion, true);
} // namespace
