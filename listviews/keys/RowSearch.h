#pragma once

#include "listviews/keys/TypedText.h"

#include <functional>

class wxDBListSource;

namespace listviews
{
struct ListModel;

/// Looks for the row whose cell begins with what was typed, a few milliseconds at a time: a list of
/// millions of rows takes long to ask.
class RowSearch
{
public:
    enum class State
    {
        Idle,
        Running,
        Found
    };

    RowSearch(wxDBListSource& source, const ListModel& model);

    /// From the row that the keys are on, all around.
    void  Begin(const TypedText& text, int column);
    void  Stop() { m_Left = 0; }
    State Work(TypedText::Clock::duration slice);
    bool  IsRunning() const { return m_Left > 0; }
    int   Row() const { return m_Row; } ///< The one that was found.

private:
    wxDBListSource&  m_Source;
    const ListModel& m_Model;
    TypedText        m_Text;
    int              m_Column = 0;
    int              m_Row = 0;
    int              m_Left = 0; ///< Rows to look at.
};
} // namespace listviews
