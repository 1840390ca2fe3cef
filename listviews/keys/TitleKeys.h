#pragma once

#include "listviews/keys/KeyTable.h"

class wxDBListHeader;
class wxWindow;

namespace listviews
{
struct ColumnActions;
struct ListModel;

/// The keys of a list's titles: a cursor goes from one to the other, and what a hand does to a
/// title is done to that one.
class TitleKeys
{
public:
    TitleKeys(wxWindow& list, wxDBListHeader& header, ListModel& model,
              const ColumnActions& actions);

    /// False when the key is not for the titles. The list may be gone.
    bool Do(KeyAction action);
    /// Escape: ends the drag of a title, or takes the cursor away; whether there was either.
    bool GiveUp();

private:
    void MoveCursor(int step);
    void MoveColumn(int step);
    void ShowCursor(int column);
    bool HasCursor() const;

    wxWindow&            m_List;
    wxDBListHeader&      m_Header;
    ListModel&           m_Model;
    const ColumnActions& m_Actions;
};
} // namespace listviews
