#include "appearance/wxtAutoCompleter.h"

#include "appearance/completion/Vocabulary.h"
#include "appearance/wxTolvanString.h"
#include "vesta/CallEntry.h"

namespace
{
const char* const kSeparators = " ().:|"; // between words
} // namespace

bool wxtAutoCompleter::Start(const wxString& text)
{
    CALL_ENTRY("wxtAutoCompleter::Start");
    const size_t   separator = text.find_last_of(kSeparators);
    const size_t   start = separator == wxString::npos ? 0 : separator + 1;
    const wxString word = text.Mid(start);
    if (word.empty())
    {
        return false;
    }
    m_Word = appearance::Vocabulary::Fold(wxtFromWx(word));
    m_Prefix = text.Left(start);
    const appearance::Vocabulary& vocabulary = appearance::Vocabulary::Get();
    m_Next = vocabulary.LowerBound(m_Word);
    m_End = vocabulary.End();
    return true;
}

wxString wxtAutoCompleter::GetNext()
{
    CALL_ENTRY("wxtAutoCompleter::GetNext");
    if (m_Next == m_End)
    {
        return wxString();
    }
    const appearance::VocabularyWord& entry = *m_Next++;
    // The words that begin alike stand together: the first other one ends the list.
    if (!entry.folded.StartsWith(m_Word))
    {
        m_Next = m_End;
        return wxString();
    }
    return m_Prefix + wxtToWx(entry.text);
}
