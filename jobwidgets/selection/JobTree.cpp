#include "jobwidgets/selection/JobTree.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "internal/drawing/ColorMix.h"
#include "jobwidgets/JobColors.h"
#include "jobwidgets/selection/JobTreeModel.h"
#include "vesta/Application.h"

#include <wx/dc.h>
#include <wx/intl.h>

namespace jobwidgets
{
namespace
{
constexpr double  kSelectedShare = 0.5; // of the state's colour; the rest is the text's
constexpr int     kBarMargin = 2;       // pixels around a progress bar in its cell
const char* const kColumns = "Columns";
const char* const kSortColumn = "SortColumn";
const char* const kDescending = "SortDescending";

const struct
{
    int         type;
    const char* title;
    const char* key;
    int         width; // pixels, before the user has chosen
} kTitles[] = {{column_Name, "Name", "name", 220},
               {column_State, "State", "state", 80},
               {column_Progress, "Progress", "progress", 80},
               {column_Product, "Product", "product", 110},
               {column_User, "User", "user", 90}};
} // namespace

JobTree::JobTree(wxWindow* parent, JobTreeModel& model, bool singleSelection)
    : wxDBTreeListCtrl(parent, wxID_ANY, singleSelection), m_Jobs(model)
{
    for (const auto& title : kTitles)
    {
        InsertColumn(GetColumnCount(), title.type, wxtFromWx(wxGetTranslation(title.title)),
                     title.key, title.width);
    }
    Bind(wxEVT_LIST_COL_CLICK, &JobTree::OnTitle, this);
}

void JobTree::SaveLayout(const String& section)
{
    SaveColumnLayout(section, kColumns);
    OptionsFile&    options = Application::the_Application->Options();
    const WriteLock lock(options.Lock());
    options.SetValue(section, kSortColumn, String::FromInt(m_SortedBy));
    options.SetValue(section, kDescending, String::FromBool(m_Descending));
}

void JobTree::RestoreLayout(const String& section)
{
    RestoreColumnLayout(section, kColumns);
    const OptionsFile& options = Application::the_Application->Options();
    const auto         type = static_cast<int>(options.GetValue(section, kSortColumn).ToInt(-1));
    SortBy(FindColumnByType(type) < 0 ? -1 : type, options.GetBool(section, kDescending, false));
}

void JobTree::SortBy(int type, bool descending)
{
    m_SortedBy = type;
    m_Descending = descending;
    for (int i = 0; i < GetColumnCount(); ++i)
    {
        const bool isIt = GetColumn(i).type == type;
        SetColumnImage(i, !isIt ? image_None : descending ? image_Descending : image_Ascending);
    }
    SortChildren(type < 0 ? std::vector<wxDBTreeSort>()
                          : std::vector{wxDBTreeSort{type, descending}});
}

// A click sorts by the column, the next one the other way round, and the third one no more.
void JobTree::OnTitle(wxListEvent& event)
{
    event.Skip();
    if (event.GetColumn() < 0 || event.GetColumn() >= GetColumnCount())
    {
        return;
    }
    const int type = GetColumn(event.GetColumn()).type;
    if (type != m_SortedBy)
    {
        SortBy(type, false);
    }
    else if (!m_Descending)
    {
        SortBy(type, true);
    }
    else
    {
        SortBy(-1, false);
    }
}

String JobTree::GetDisplayText(int row, int column)
{
    const String       text = wxDBTreeListCtrl::GetDisplayText(row, column);
    const wxDBTreeNode node = NodeAt(row);
    const size_t       count = m_Jobs.CountIn(node);
    const bool         isTitle = count > 0 && GetColumn(column).type == column_Name;
    return text + (isTitle ? SFormat(" (%zu)", count) : String());
}

void JobTree::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    const JobFacts* const job = m_Jobs.JobOf(NodeAt(row));
    const int             type = GetColumn(column).type;
    if (job && type == column_Progress)
    {
        wxtDrawJobProgress(dc, wxRect(rect).Deflate(kBarMargin), job->state, job->progress);
    }
    wxColour ink = dc.GetTextForeground();
    if (job && type == column_State)
    {
        // The ground of what is selected has a colour of its own.
        ink = internal::MixColours(wxtGetColor(wxtJobStateColor(job->state)), ink,
                                   selected ? kSelectedShare : 1.0);
    }
    const wxDCTextColourChanger colour(dc, ink.IsOk() ? ink : dc.GetTextForeground());
    wxDBTreeListCtrl::DrawCell(dc, row, column, rect, selected);
}
} // namespace jobwidgets
