#include "listviews/keys/RowSearch.h"

#include "listviews/model/ListModel.h"
#include "listviews/wxDBListSource.h"

#include <algorithm>

namespace listviews
{
RowSearch::RowSearch(wxDBListSource& source, const ListModel& model)
    : m_Source(source), m_Model(model)
{
}

void RowSearch::Begin(const TypedText& text, int column)
{
    m_Text = text;
    m_Column = column;
    m_Row = std::max(m_Model.FocusRow(), -1) + (text.MayStay() && m_Model.FocusRow() >= 0 ? -1 : 0);
    m_Left = m_Model.rowCount;
}

// Rows may have gone since the last slice: the search goes on with the first one.
RowSearch::State RowSearch::Work(TypedText::Clock::duration slice)
{
    const auto end = TypedText::Clock::now() + slice;
    while (m_Left > 0)
    {
        --m_Left;
        m_Row = m_Row + 1 < m_Model.rowCount ? m_Row + 1 : 0;
        if (m_Model.HasRow(m_Row) && m_Text.IsStartOf(m_Source.GetDisplayText(m_Row, m_Column)))
        {
            m_Left = 0;
            return State::Found;
        }
        if (TypedText::Clock::now() >= end)
        {
            break;
        }
    }
    return m_Left > 0 ? State::Running : State::Idle;
}
} // namespace listviews
