#include "appearance/_Vocabulary.h"

#include "tolvan/Job.h"
#include "tolvan/JobFactory.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"

#include <algorithm>

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

Words CollectWords()
{
    CALL_ENTRY("_Vocabulary::CollectWords");
    Words words = {k_Yes, k_No, k_True, k_False, k_On, k_Off};
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
    AddNames(words, Platform::GetLiveEnv());
    return words;
}
} // namespace

_Vocabulary::_Vocabulary(Words words) : m_Words(std::move(words))
{
    std::stable_sort(m_Words.begin(), m_Words.end(), String::ciless());
    const auto same = [](const String& a, const String& b) { return !String::ciless()(a, b); };
    m_Words.erase(std::unique(m_Words.begin(), m_Words.end(), same), m_Words.end());
}

const _Vocabulary& _Vocabulary::Get()
{
    static const _Vocabulary vocabulary(CollectWords());
    return vocabulary;
}

const String* _Vocabulary::LowerBound(const String& word) const
{
    return std::lower_bound(m_Words.data(), End(), word, String::ciless());
}
