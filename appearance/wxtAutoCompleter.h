#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/textcompleter.h>

namespace appearance
{
struct VocabularyWord;
}

/// Completes the word at the end of a text field from one vocabulary for the whole process: words
/// for yes and no, names of job parameters and of the commands in their texts, everything that the
/// job types name, and the variables of the environment. Words are parted by blanks, parentheses,
/// full stops, colons and vertical bars; case does not count. What stands before the word stays to
/// the letter. Main thread.
class TOLVAN_API wxtAutoCompleter : public wxTextCompleter
{
public:
    /// Looks for completions of the field's text. False when there is no word to complete.
    bool Start(const wxString& text) override;
    /// The next proposal, a whole text for the field; empty after the last one.
    wxString GetNext() override;

private:
    String   m_Word; ///< Folded.
    wxString m_Prefix;
    /// @name What is still to be offered
    /// The next entry of the vocabulary to offer, and the vocabulary's end.
    /// @{
    const appearance::VocabularyWord* m_Next = nullptr;
    const appearance::VocabularyWord* m_End = nullptr;
    /// @}
};
