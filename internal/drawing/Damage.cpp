#include "internal/drawing/Damage.h"

#include <algorithm>

namespace internal
{
namespace
{
int64_t Area(const wxRect& rect)
{
    return static_cast<int64_t>(rect.width) * rect.height;
}

// Pixels that one rectangle around both has more than they have.
int64_t Waste(const wxRect& a, const wxRect& b)
{
    return Area(wxRect(a).Union(b)) - Area(a) - Area(b);
}
} // namespace

void Damage::Add(const wxRect& rect)
{
    m_IsAsked = true;
    if (m_All || rect.IsEmpty())
    {
        return;
    }
    const auto byWaste = [&rect](const wxRect& a, const wxRect& b)
    { return Waste(a, rect) < Waste(b, rect); };
    const auto nearest = std::min_element(m_Rects.begin(), m_Rects.end(), byWaste);
    if (nearest != m_Rects.end() && (m_Rects.size() >= k_MostRects || Waste(*nearest, rect) <= 0))
    {
        nearest->Union(rect);
        return;
    }
    m_Rects.push_back(rect);
}

void Damage::Add(const Damage& other)
{
    m_IsAsked |= other.m_IsAsked;
    if (other.m_All)
    {
        AddAll();
    }
    for (const wxRect& rect : other.m_Rects)
    {
        Add(rect);
    }
}

void Damage::AddAll()
{
    m_IsAsked = true;
    m_All = true;
    m_Rects.clear();
}

void Damage::Clear()
{
    *this = Damage();
}

std::vector<wxRect> Damage::Within(const wxSize& picture) const
{
    const wxRect whole(picture);
    if (m_All)
    {
        return {whole};
    }
    std::vector<wxRect> rects;
    for (const wxRect& rect : m_Rects)
    {
        const wxRect part = wxRect(rect).Intersect(whole);
        if (!part.IsEmpty())
        {
            rects.push_back(part);
        }
    }
    return rects;
}
} // namespace internal
