#include "appearance/completion/Vocabulary.h"

#include "appearance/wxTolvanString.h"
#include "tolvan/Job.h"
#include "tolvan/JobFactory.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"

#include <glib.h>

#include <algorithm>

namespace appearance
{
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
    CALL_ENTRY("Vocabulary::CollectWords");
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

Vocabulary::Vocabulary(const Words& words)
{
    m_Words.reserve(words.size());
    for (const String& word : words)
    {
        m_Words.push_back({word, Fold(word)});
    }
    std::stable_sort(m_Words.begin(), m_Words.end(),
                     [](const VocabularyWord& a, const VocabularyWord& b)
                     { return a.folded < b.folded; });
    const auto same = [](const VocabularyWord& a, const VocabularyWord& b)
    { return a.folded == b.folded; };
    m_Words.erase(std::unique(m_Words.begin(), m_Words.end(), same), m_Words.end());
}

const Vocabulary& Vocabulary::Get()
{
    static const Vocabulary vocabulary(CollectWords());
    return vocabulary;
}

// Not by the run-time's functions: those know ASCII only where the locale is "C".
String Vocabulary::Fold(const String& text)
{
    std::wstring wide = wxtToWx(text).ToStdWstring();
    for (wchar_t& c : wide)
    {
        c = static_cast<wchar_t>(g_unichar_tolower(static_cast<gunichar>(c)));
    }
    return wxtFromWx(wxString(std::move(wide)));
}

const VocabularyWord* Vocabulary::LowerBound(const String& folded) const
{
    return std::lower_bound(m_Words.data(), End(), folded,
                            [](const VocabularyWord& word, const String& key)
                            { return word.folded < key; });
}
} // namespace appearance
