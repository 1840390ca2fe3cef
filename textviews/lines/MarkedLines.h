#pragma once

#include "textviews/search/LineWatcher.h"

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace textviews
{
/// Some lines of a text, few of them, such as those that a user has marked to come back to. They
/// stay the same ones when it is told of those that come and go. Main thread.
class MarkedLines final : public LineWatcher
{
public:
    bool IsEmpty() const { return m_Lines.empty(); }
    bool Has(int line) const { return m_Lines.count(m_Erased + line) > 0; }
    void Set(int line, bool on);
    void Clear() { m_Lines.clear(); }

    std::vector<int> All() const; ///< From top to bottom.
    /// The nearest one below (above) that line, else the first (last) of all; none without any.
    std::optional<int> Next(int line, bool forward) const;

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override { Clear(); }

private:
    void ShiftFrom(int line, int by);

    std::set<int64_t> m_Lines;      ///< Each plus `m_Erased`.
    int64_t           m_Erased = 0; ///< Lines erased at the very start: very many go there.
};
} // namespace textviews
