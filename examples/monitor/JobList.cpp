#include "monitor/JobList.h"

#include "listviews/wxListMenu.h"
#include "monitor/JobColors.h"
#include "monitor/JobCommands.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/Application.h"

#include <wx/dc.h>
#include <wx/intl.h>
#include <wx/listbase.h>

#include <algorithm>
#include <utility>

namespace
{
constexpr int     kBarMargin = 2; // pixels around a progress bar in its cell
const char* const kSection = "JobList";
const char* const kWidths = "Columns";
const char* const kSortColumn = "SortColumn";
const char* const kDescending = "SortDescending";

// Half of each, so that the figure on it can be read in every scheme.
wxColour Half(const wxColour& a, const wxColour& b)
{
    const auto half = [](int x, int y) { return static_cast<unsigned char>((x + y) / 2); };
    return wxColour(half(a.Red(), b.Red()), half(a.Green(), b.Green()), half(a.Blue(), b.Blue()));
}
} // namespace

JobList::JobList(wxWindow* parent, FarmJobs& jobs, Actions actions)
    : wxDBListCtrl(parent, wxID_ANY, false), m_Jobs(jobs), m_Actions(std::move(actions))
{
    AddColumns();
    wxAddListMenu(*this,
                  [this](const wxPoint& where) { m_Actions.showMenu(SelectedJobs(), where); });
    Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { OnSelect(event, true); });
    Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { OnSelect(event, false); });
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &JobList::OnActivate, this);
    Bind(wxEVT_LIST_COL_CLICK, &JobList::OnTitle, this);
    GetHeader()->Bind(wxEVT_LEFT_UP, &JobList::OnTitleRelease, this);
    m_Jobs.Changed.Connect(this,
                           [this](const FarmJobs::News& news)
                           {
                               m_IsStale |= !news.changed.empty();
                               m_IsListStale |= news.isListChanged;
                               if (news.isListChanged)
                               {
                                   Refill(); // the jobs that have gone are gone now
                               }
                           });
}

JobList::~JobList()
{
    DisconnectAll();
}

void JobList::AddColumns()
{
    for (int column = 0; column < k_JobColumns; ++column)
    {
        AddColumn(column, wxtFromWx(wxGetTranslation(InfoOf(column).title)), InfoOf(column).width);
    }
    const OptionsFile& options = Application::the_Application->Options();
    RestoreColumnLayout(kSection, kWidths);
    m_Table.SortBy(static_cast<int>(options.GetValue(kSection, kSortColumn).ToInt(-1)),
                   options.GetBool(kSection, kDescending, false));
    ShowSort();
}

void JobList::SaveLayout()
{
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    SaveColumnLayout(kSection, kWidths);
    const WriteLock lock(options.Lock());
    options.SetValue(kSection, kSortColumn, String::FromInt(m_Table.SortColumn()));
    options.SetValue(kSection, kDescending, m_Table.IsDescending() ? "1" : "0");
}

void JobList::ShowSort()
{
    for (int column = 0; column < GetColumnCount(); ++column)
    {
        const bool isSorted = GetColumn(column).type == m_Table.SortColumn();
        SetColumnImage(column, !isSorted                ? image_None
                               : m_Table.IsDescending() ? image_Descending
                                                        : image_Ascending);
    }
    SetHighlightColumn(m_Table.SortColumn() < 0 ? -1 : FindColumnByType(m_Table.SortColumn()));
}

void JobList::OnTick()
{
    m_Now = Time::CurrentTime();
    if (std::exchange(m_IsStale, false) || m_Table.IsSortedByWhatChanges())
    {
        Refill();
    }
    else if (m_Jobs.Summarize().running + m_Jobs.Summarize().suspended > 0)
    {
        RedrawColumn(
            FindColumnByType(column_Elapsed)); // the time that has passed changes by itself
    }
}

void JobList::Refill()
{
    m_Now = Time::CurrentTime();
    const auto idAt = [this](int row)
    { return m_Table.HasRow(row) ? m_Table.IdAt(row) : String(); };
    const String anchor = idAt(GetLastSelect());
    const String focus = idAt(GetFocusRow());
    const size_t selected = m_Selected.size();
    m_Table.SetJobs(m_Jobs.InOrder(), m_Now);
    if (std::exchange(m_IsListStale, false))
    {
        for (auto id = m_Selected.begin(); id != m_Selected.end();)
        {
            id = m_Table.RowOf(*id) < 0 ? m_Selected.erase(id) : std::next(id);
        }
    }
    const int more = m_Table.RowCount() - GetItemCount();
    if (more > 0)
    {
        Insert(GetItemCount(), static_cast<unsigned long>(more), false);
    }
    else if (more < 0)
    {
        Remove(m_Table.RowCount(), static_cast<unsigned long>(-more));
    }
    SetLastSelect(anchor.empty() ? -1 : m_Table.RowOf(anchor));
    SetFocusRow(focus == anchor ? -1 : m_Table.RowOf(focus));
    GetBody()->Redraw();
    if (m_Selected.size() != selected)
    {
        m_Actions.selectionChanged();
    }
}

std::vector<String> JobList::SelectedJobs() const
{
    std::vector<std::pair<int, String>> rows;
    for (const String& id : m_Selected)
    {
        rows.emplace_back(m_Table.RowOf(id), id);
    }
    std::sort(rows.begin(), rows.end());
    std::vector<String> jobs;
    jobs.reserve(rows.size());
    for (const auto& row : rows)
    {
        jobs.push_back(row.second);
    }
    return jobs;
}

bool JobList::IsRowSelected(int row)
{
    return m_Table.HasRow(row) && m_Selected.count(m_Table.JobAt(row).id) > 0;
}

std::vector<int> JobList::GetSelection()
{
    std::vector<int> rows;
    for (const String& id : m_Selected)
    {
        rows.push_back(m_Table.RowOf(id));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

String JobList::GetDisplayText(int row, int column)
{
    return m_Table.HasRow(row) ? InfoOf(GetColumn(column).type).text(m_Table.JobAt(row), m_Now)
                               : String();
}

void JobList::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    if (!m_Table.HasRow(row))
    {
        return;
    }
    const FarmJob& job = m_Table.JobAt(row);
    const int      type = GetColumn(column).type;
    if (type == column_Progress)
    {
        DrawProgress(dc, job, wxRect(rect).Deflate(kBarMargin));
    }
    if (type != column_State)
    {
        wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
        return;
    }
    const wxColour              ink = wxtGetColor(ColorOfState(job.state));
    const wxDCTextColourChanger colour(dc, ink.IsOk() ? ink : dc.GetTextForeground());
    wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
}

// In the colour of the job's state, behind the figure.
void JobList::DrawProgress(wxDC& dc, const FarmJob& job, const wxRect& rect)
{
    const wxColour full = wxtGetColor(ColorOfBar(job.state));
    const wxColour frame = wxtGetColor(color_WindowBGLighter);
    if (!full.IsOk() || !frame.IsOk() || rect.width < 1)
    {
        return;
    }
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const wxDCBrushChanger brush(dc, wxBrush(frame));
    dc.DrawRectangle(rect);
    dc.SetBrush(wxBrush(Half(full, frame)));
    dc.DrawRectangle(rect.x, rect.y, rect.width * job.progress / 100, rect.height);
}

void JobList::OnSelect(wxListEvent& event, bool selected)
{
    event.Skip();
    const int row = static_cast<int>(event.GetIndex());
    if (!m_Table.HasRow(row))
    {
        return;
    }
    const String& id = m_Table.JobAt(row).id;
    const bool    isOther = selected ? m_Selected.insert(id).second : m_Selected.erase(id) > 0;
    if (isOther)
    {
        RedrawItem(row);
        m_Actions.selectionChanged();
    }
}

void JobList::OnActivate(wxListEvent& event)
{
    const int row = static_cast<int>(event.GetIndex());
    if (!m_Table.HasRow(row))
    {
        return;
    }
    std::vector<String> jobs = IsRowSelected(row) ? SelectedJobs() : std::vector{m_Table.IdAt(row)};
    jobs.resize(std::min(jobs.size(), k_MostWindowsAtOnce));
    for (const String& id : jobs)
    {
        m_Actions.open(id);
    }
}

// Before the header tells of the click, which it does wherever the button is let go.
void JobList::OnTitleRelease(wxMouseEvent& event)
{
    event.Skip();
    m_IsReleasedOutside = !GetHeader()->GetClientRect().Contains(event.GetPosition());
}

void JobList::OnTitle(wxListEvent& event)
{
    if (event.GetColumn() >= 0 && !std::exchange(m_IsReleasedOutside, false))
    {
        m_Table.SortBy(GetColumn(event.GetColumn()).type);
        ShowSort();
        Refill();
    }
}
