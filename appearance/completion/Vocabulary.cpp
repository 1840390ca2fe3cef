#include "appearance/completion/Vocabulary.h"

#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"
#include "vesta/Platform.h"

#include <glib.h>

#include <algorithm>

namespace appearance
{
namespace
{
using Words = std::vector<String>;

Words CollectWords()
{
    CALL_ENTRY("Vocabulary::CollectWords");
    Words words = {k_Yes, k_No, k_True, k_False, k_On, k_Off};
    internal::g_UpperFloors.addWords(words);
    for (const auto& variable : Platform::GetLiveEnv())
    {
        words.push_back(variable.first);
    }
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
    return wxtFromWx(wxString(wide));
}

const VocabularyWord* Vocabulary::LowerBound(const String& folded) const
{
    return std::lower_bound(m_Words.data(), End(), folded,
                            [](const VocabularyWord& word, const String& key)
                            { return word.folded < key; });
}
} // namespace appearance
