#pragma once

#include <wx/gdicmn.h>

#include <vector>

namespace internal
{
/// What of a picture is to be drawn anew: a few rectangles, or everything; or, where it has only
/// been asked for with an empty one, nothing. Pixels.
class Damage
{
public:
    void Add(const wxRect& rect);
    void Add(const Damage& other);
    void AddAll();
    void Clear();

    bool IsAsked() const { return m_IsAsked; } ///< Something has been added.
    bool HasAny() const { return m_All || !m_Rects.empty(); }
    /// Those within a picture of that size, or all of it; together they cover what was added, and
    /// may cover more: of many, neighbours are taken together.
    std::vector<wxRect> Within(const wxSize& picture) const;

private:
    static constexpr size_t k_MostRects = 16;

    bool                m_IsAsked = false;
    bool                m_All = false;
    std::vector<wxRect> m_Rects;
};
} // namespace internal
