#include "monitor/JobDetails.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtStockControls.h"

#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int kRowGap = 2;     // pixels
constexpr int kColumnGap = 12; // pixels
wxString      NameOf(const DetailRow& row)
{
    return wxGetTranslation(wxtToWx(row.name));
}

bool HasSameNames(const std::vector<DetailRow>& a, const std::vector<DetailRow>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const DetailRow& one, const DetailRow& other)
                      { return one.name == other.name && one.isLong == other.isLong; });
}

// A grid of names and values, the latter as wide as there is room.
wxFlexGridSizer* NewGrid(int pairs)
{
    auto* const grid = new wxFlexGridSizer(2 * pairs, kRowGap, kColumnGap);
    for (int pair = 0; pair < pairs; ++pair)
    {
        grid->AddGrowableCol(static_cast<size_t>(2 * pair + 1), 1);
    }
    return grid;
}
} // namespace

JobDetails::JobDetails(wxWindow* parent) : wxtPanel(parent)
{
    m_container.DisableSelfFocus(); // there is nothing to do in it
    SetSizer(new wxBoxSizer(wxVERTICAL));
}

bool JobDetails::Show(const std::vector<DetailRow>& rows)
{
    if (!HasSameNames(rows, m_Rows))
    {
        Build(rows);
        return true;
    }
    for (size_t i = 0; i < rows.size(); ++i)
    {
        if (rows[i].value != m_Rows[i].value)
        {
            m_Values[i]->SetLabelText(wxtToWx(rows[i].value));
        }
    }
    m_Rows = rows;
    return false;
}

void JobDetails::Build(const std::vector<DetailRow>& rows)
{
    m_Values.clear();
    GetSizer()->Clear(true);
    auto* const shortOnes = NewGrid(2);
    auto* const longOnes = NewGrid(1);
    int         nameWidth = 0;
    for (const DetailRow& row : rows)
    {
        nameWidth = std::max(nameWidth, GetTextExtent(NameOf(row)).x);
    }
    for (const DetailRow& row : rows)
    {
        AddRow(row.isLong ? *longOnes : *shortOnes, row, nameWidth);
    }
    GetSizer()->Add(shortOnes, 0, wxEXPAND);
    GetSizer()->AddSpacer(kRowGap);
    GetSizer()->Add(longOnes, 0, wxEXPAND);
    m_Rows = rows;
    Layout();
}

void JobDetails::AddRow(wxSizer& grid, const DetailRow& row, int nameWidth)
{
    auto* const name = new wxtStaticText(this, wxID_ANY, wxString());
    name->SetLabelText(NameOf(row));
    name->SetMinSize(wxSize(nameWidth, -1));
    name->m_ForegroundName = color_TextGrey;
    name->KeepReadable();
    // Its size comes from the sizer: a changed text must not move anything.
    auto* const value =
        new wxtStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxSize(1, -1),
                          wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE);
    value->SetLabelText(wxtToWx(row.value));
    grid.Add(name);
    grid.Add(value, 0, wxEXPAND);
    m_Values.push_back(value);
}
