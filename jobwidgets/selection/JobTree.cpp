#include "jobwidgets/selection/JobTree.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "jobwidgets/JobColors.h"
#include "jobwidgets/JobMarks.h"
#include "jobwidgets/selection/JobTreeModel.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/Application.h"

#include <wx/dc.h>
#include <wx/intl.h>

#include <algorithm>

namespace jobwidgets
{
namespace
{
constexpr int     kBarMargin = 2; // pixels around a progress bar in its cell
const char* const kColumns = "Columns";
const char* const kSortColumn = "SortColumn";
const char* const kDescending = "SortDescending";

const struct
{
    int         type;
    const char* title;
    const char* key;
    int         width; // dialog units, before the user has chosen
} kTitles[] = {{column_Name, "Name", "name", 98},
               {column_State, "State", "state", 53},
               {column_Progress, "Progress", "progress", 40},
               {column_Product, "Product", "product", 55},
               {column_User, "User", "user", 45}};
} // namespace

JobTree::JobTree(wxWindow* parent, JobTreeModel& model, bool singleSelection)
    : wxDBTreeListCtrl(parent, wxID_ANY, singleSelection), m_Jobs(model)
{
    for (const auto& title : kTitles)
    {
        const int column = GetColumnCount();
        const int width = ConvertDialogToPixels(wxSize(title.width, -1)).x;
        InsertColumn(column, title.type, wxtFromWx(wxGetTranslation(title.title)), title.key,
                     width);
        SetColumnWidth(column, std::max(width, GetHeader()->TitleWidth(column)));
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
    SetHighlightColumn(FindColumnByType(type));
    SortChildren(type < 0 ? std::vector<wxDBTreeSort>()
                          : std::vector{wxDBTreeSort{type, descending}});
}

// A click sorts by the column, the next one the other way round, and the third one no more.
void JobTree::OnTitle(wxListEvent& event)
{
    event.Skip();
    if (!IsOnTitles(event) || event.GetColumn() < 0 || event.GetColumn() >= GetColumnCount())
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
    const String text = wxDBTreeListCtrl::GetDisplayText(row, column);
    const bool   isTitle = m_Jobs._IsHeading(NodeAt(row)) && GetColumn(column).type == column_Name;
    return text + (isTitle ? GetCountText(row) : String());
}

void JobTree::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    const JobFacts* const job = m_Jobs.JobOf(NodeAt(row));
    const int             type = GetColumn(column).type;
    if (job && type == column_Progress)
    {
        wxtDrawJobProgress(dc, wxRect(rect).Deflate(kBarMargin), job->state, job->progress);
    }
    if (job && type == column_State && column != GetTreeColumn())
    {
        rect = wxtDrawJobMark(dc, rect, job->state);
    }
    wxDBTreeListCtrl::DrawCell(dc, row, column, rect, selected);
}

int JobTree::GetCellWidth(wxDC& dc, int row, int column)
{
    const bool isMarked = GetColumn(column).type == column_State && column != GetTreeColumn() &&
                          m_Jobs.JobOf(NodeAt(row));
    return wxDBTreeListCtrl::GetCellWidth(dc, row, column) +
           (isMarked ? wxtJobMarkWidth(GetRowHeight()) : 0);
}
} // namespace jobwidgets
