#pragma once

#include <wx/gdicmn.h>

#include <vector>

namespace listviews
{
/// How the picture of the rows was drawn, as far as pointer and keys change it.
class DrawnRows
{
public:
    wxPoint scroll; ///< Pixels scrolled off the top left.
    wxRect  focus;  ///< The frame of the row that the keys are on, or of them all.

    int  First() const { return m_First; }
    int  End() const { return m_First + static_cast<int>(m_Selected.size()); }
    bool IsSelected(int row) const { return m_Selected[static_cast<size_t>(row - m_First)]; }

    /// Before rows are drawn: [first, end) are seen now.
    void Show(int first, int end)
    {
        if (first != m_First || end != End())
        {
            m_First = first;
            m_Selected.assign(static_cast<size_t>(end - first), false);
        }
    }
    void Draw(int row, bool selected) { m_Selected[static_cast<size_t>(row - m_First)] = selected; }

private:
    int               m_First = 0;
    std::vector<bool> m_Selected;
};
} // namespace listviews
