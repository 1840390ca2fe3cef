#include "listviews/columns/ColumnMenu.h"

#include "appearance/wxTolvanString.h"
#include "listviews/wxDBListColumn.h"

#include <wx/control.h>
#include <wx/intl.h>

#include <algorithm>

namespace listviews
{
namespace
{
enum // of this menu only, which tells nobody else
{
    id_FitAll = 1,
    id_Reset,
    id_FirstColumn
};
constexpr size_t kMostEntries = 1000; // of a menu that the port can still show
} // namespace

ColumnMenu::ColumnMenu(const std::vector<wxDBListColumn>& columns)
{
    const auto shown = std::count_if(columns.begin(), columns.end(),
                                     [](const wxDBListColumn& column) { return column.visible; });
    for (size_t index = 0; index < std::min(columns.size(), kMostEntries); ++index)
    {
        const wxDBListColumn& column = columns[index];
        // A column without a title, too, is an entry.
        wxString label = wxControl::EscapeMnemonics(wxtToWx(column.label));
        label = label.Trim().empty() ? wxString::Format("%zu", index + 1) : label;
        wxMenuItem* const item = AppendCheckItem(id_FirstColumn + static_cast<int>(index), label);
        item->Check(column.visible);
        item->Enable(!column.visible || shown > 1);
    }
    AppendSeparator();
    Append(id_FitAll, wxGetTranslation("&Fit All"));
    Append(id_Reset, wxGetTranslation("&Reset"));
    Bind(wxEVT_MENU, &ColumnMenu::OnCommand, this);
}

void ColumnMenu::OnCommand(wxCommandEvent& event)
{
    m_Choice = event.GetId() == id_FitAll  ? Choice::FitAll
               : event.GetId() == id_Reset ? Choice::Reset
                                           : Choice::Column;
    m_Column = m_Choice == Choice::Column ? event.GetId() - id_FirstColumn : -1;
}
} // namespace listviews
