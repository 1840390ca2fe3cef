#pragma once

#include "textviews/drawing/TextPalette.h"

#include <wx/gdicmn.h>

#include <optional>
#include <vector>

namespace textviews
{
/// How the lines of the picture looked when they were drawn.
class DrawnLines
{
public:
    const wxPoint& Scroll() const { return m_Scroll; } ///< Pixels scrolled off the top left.

    /// Before lines are drawn: what is scrolled there begins with that line.
    void Show(const wxPoint& scroll, int first)
    {
        if (scroll != m_Scroll || first != m_First)
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
