#pragma once

#include "vesta/String.h"

#include <vector>

namespace textviews
{
/// The last texts that were looked for, and a way through them.
class SearchHistory
{
public:
    static constexpr size_t k_Most = 20;

    /// The latest first. Begins anew with the way through them.
    void                       Set(std::vector<String> texts);
    const std::vector<String>& Texts() const { return m_Texts; }
    /// Looked for just now: it is the first, and stands there once.
    void Add(const String& text);

    /// The one before (after) the one shown; where that is none of them, because it is being
    /// typed, it comes back after the latest one.
    const String& Older(const String& shown);
    const String& Newer(const String& shown);

private:
    const String& At(const String& shown) const;

    std::vector<String> m_Texts;
    size_t              m_Place = 0; ///< Texts before the one shown; 0: it is being typed.
    String              m_Typed;
};
} // namespace textviews
