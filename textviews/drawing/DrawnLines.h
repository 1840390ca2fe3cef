#pragma once

#include "textviews/drawing/TextPalette.h"

#include <wx/gdicmn.h>

#include <optional>
#include <vector>

namespace textviews
{
/// How the lines of the picture looked when they were drawn. Where lines wrap, each row counts as
/// one.
class DrawnLines
{
public:
    /// It begins with that line, scrolled there (as `TextGeometry::Place` tells).
    bool IsAt(const wxPoint& scroll, int first) const
    {
        return scroll == m_Scroll && first == m_First;
    }
    /// Before lines are drawn that begin so.
    void Show(const wxPoint& scroll, int first)
    {
        if (!IsAt(scroll, first))
        {
            m_Scroll = scroll;
            m_First = first;
            m_States.clear();
        }
    }
    /// A line from the first one on is drawn so.
    void Draw(int line, const LineState& state)
    {
        const auto index = static_cast<size_t>(line - m_First);
        if (index >= m_States.size())
        {
            m_States.resize(index + 1);
        }
        m_States[index] = state;
    }
    bool IsAs(int line, const LineState& state) const
    {
        const auto index = static_cast<size_t>(line - m_First);
        return index < m_States.size() && m_States[index] == state;
    }

private:
    wxPoint                               m_Scroll;
    int                                   m_First = 0;
    std::vector<std::optional<LineState>> m_States; ///< Of lines not drawn yet: none.
};
} // namespace textviews
