#pragma once

#include <wx/menu.h>

#include <vector>

struct wxDBListColumn;

namespace listviews
{
/// The menu of a list's columns: each of them to hide and show, and what can be done to all.
class ColumnMenu : public wxMenu
{
public:
    enum class Choice
    {
        None,
        Column, ///< `Column()` is to be hidden or shown.
        FitAll,
        Reset
    };

    /// The last column that is shown can't be hidden.
    explicit ColumnMenu(const std::vector<wxDBListColumn>& columns);

    Choice Chosen() const { return m_Choice; }
    int    Column() const { return m_Column; } ///< Its index then; otherwise -1.

private:
    void OnCommand(wxCommandEvent& event);

    Choice m_Choice = Choice::None;
    int    m_Column = -1;
};
} // namespace listviews
