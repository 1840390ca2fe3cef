#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <vector>

/// The words that text fields complete. Of words that differ only in the case of ASCII letters the
/// first stays; they are ordered without regard to that case, byte by byte otherwise.
class TOLVAN_API _Vocabulary
{
public:
    explicit _Vocabulary(std::vector<String> words);

    /// The process's, collected when it is first asked for and never changed afterwards.
    static const _Vocabulary& Get();

    /// The first word that is not less than the given one.
    const String* LowerBound(const String& word) const;
    const String* End() const { return m_Words.data() + m_Words.size(); }

private:
    std::vector<String> m_Words;
};
