#pragma once

#include "vesta/String.h"

#include <chrono>
#include <string>

namespace listviews
{
/// What a user types to find a row: its characters, as long as they come one soon after another.
/// The same character again and again leads from row to row.
class TypedText
{
public:
    using Clock = std::chrono::steady_clock;
    static constexpr auto k_Memory = std::chrono::seconds(1);

    void Add(wchar_t character, Clock::time_point now);
    void Forget() { m_Text.clear(); }
    bool IsOpen(Clock::time_point now) const { return !m_Text.empty() && now - m_Last < k_Memory; }
    /// Whether the row that the keys are on may stay; else the search begins with the next one.
    bool MayStay() const { return !m_IsCycle; }
    /// Whether a cell begins with it, in any case of the letters.
    bool IsStartOf(const String& cell) const;

private:
    std::wstring      m_Text; ///< In lower case.
    Clock::time_point m_Last;
    bool              m_IsCycle = false; ///< All characters are the same.
};
} // namespace listviews
