#pragma once

#include "vesta/String.h"

#include <vector>

namespace appearance
{
/// A word that text fields complete.
struct VocabularyWord
{
    String text;
    String folded; ///< In lower case, to be compared.
};

/// The words that text fields complete. Of words that differ only in case the first stays; they are
/// ordered without regard to it.
class Vocabulary
{
public:
    explicit Vocabulary(const std::vector<String>& words);

    /// The process's, collected when it is first asked for and never changed afterwards.
    static const Vocabulary& Get();

    /// The text in lower case, in every locale. Bytes that are not UTF-8 count as characters.
    static String Fold(const String& text);

    /// The first word that is not less than the given one.
    const VocabularyWord* LowerBound(const String& folded) const;
    const VocabularyWord* End() const { return m_Words.data() + m_Words.size(); }

private:
    std::vector<VocabularyWord> m_Words;
};
} // namespace appearance
