#include "monitor/JobList.h"

#include "monitor/FramePictures.h"
#include "monitor/JobCommands.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "jobwidgets/JobColors.h"
#include "jobwidgets/JobMarks.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxListMenu.h"
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
const char* const kOrder = "Order";
const char* const kGrouping = "Grouping";
const char* const kFrames = "Frames";
const char* const kClosed = "ClosedGroups";

bool ChangesByItself(const JobOrder& order)
{
    return std::any_of(order.begin(), order.end(),
                       [](const JobSort& by) { return by.column == column_Elapsed; });
}
} // namespace

JobList::JobList(wxWindow* parent, FarmJobs& jobs, Actions actions)
    : wxDBTreeListCtrl(parent, wxID_ANY, false), m_Jobs(jobs), m_Actions(std::move(actions))
{
    for (int column = 0; column < k_JobColumns; ++column)
    {
        const JobColumnInfo& info = InfoOf(column);
        AddColumn(column, wxtFromWx(wxGetTranslation(info.title)),
                  ConvertDialogToPixels(wxSize(info.width, -1)).x);
    }
    SetTreeColumn(column_Name);
    RestoreLayout();
    wxAddListMenu(*this, [this](const wxPoint& where) { ShowMenu(where); });
    const auto onSelection = [this](wxListEvent& event)
    {
        event.Skip();
        m_Actions.selectionChanged();
    };
    Bind(wxEVT_LIST_ITEM_SELECTED, onSelection);
    Bind(wxEVT_LIST_ITEM_DESELECTED, onSelection);
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &JobList::OnActivate, this);
    Bind(wxEVT_LIST_COL_CLICK, &JobList::OnTitle, this);
    Bind(wxEVT_DBTREELIST_ARRANGED,
         [this](wxCommandEvent& event)
         {
             event.Skip();
             OnArranged();
             m_Actions.selectionChanged(); // whatever was asked for meanwhile
             if (const auto where = std::exchange(m_MenuDue, std::nullopt))
             {
                 ShowMenu(*where);
             }
         });
    SetModel(&m_Model);
    Arrange();
    m_Jobs.Changed.Connect(this,
                           [this](const FarmJobs::News& news)
                           {
                               m_IsStale |= !news.changed.empty();
                               m_IsListStale |= news.isListChanged;
                               // Those that have gone are gone now, and the first are awaited.
                               if (news.isAnyGone || (m_IsListStale && GetItemCount() == 0))
                               {
                                   Arrange();
                               }
                           });
}

// The views first: they ask for cells as long as they are there.
JobList::~JobList()
{
    DisconnectAll();
    SetModel(nullptr);
}

void JobList::RestoreLayout()
{
    const OptionsFile& options = Application::the_Application->Options();
    RestoreColumnLayout(kSection, kWidths);
    m_Grouping =
        jobwidgets::GroupingNamed(options.GetValue(kSection, kGrouping), JobGrouping::kNone);
    m_ShowsFrames = options.GetBool(kSection, kFrames, false);
    m_Closed.Read(options.GetValue(kSection, kClosed));
    SortBy(OrderFrom(options.GetValue(kSection, kOrder), k_JobColumns));
}

void JobList::SaveLayout()
{
    NoteClosed();
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    SaveColumnLayout(kSection, kWidths);
    const WriteLock lock(options.Lock());
    options.SetValue(kSection, kOrder, TextOf(m_Order));
    options.SetValue(kSection, kGrouping, jobwidgets::NameOf(m_Grouping));
    options.SetValue(kSection, kFrames, m_ShowsFrames ? "1" : "0");
    options.SetValue(kSection, kClosed, m_Closed.ToText());
}

void JobList::SortBy(JobOrder order)
{
    m_Order = std::move(order);
    for (int i = 0; i < GetColumnCount(); ++i)
    {
        const auto by = std::find_if(m_Order.begin(), m_Order.end(),
                                     [type = GetColumn(i).type](const JobSort& each)
                                     { return each.column == type; });
        const bool isSorted = by != m_Order.end();
        SetColumnImage(i, !isSorted        ? image_None
                          : by->descending ? image_Descending
                                           : image_Ascending);
        SetColumnRank(i, isSorted && m_Order.size() > 1 ? static_cast<int>(by - m_Order.begin()) + 1
                                                        : 0);
    }
    SetHighlightColumn(m_Order.empty() ? -1 : FindColumnByType(m_Order.front().column));
    std::vector<wxDBTreeSort> sorts;
    for (const JobSort& each : m_Order)
    {
        sorts.push_back({each.column, each.descending});
    }
    SortChildren(sorts);
}

void JobList::OnTick()
{
    m_Model.now = Time::CurrentTime();
    const bool isStale = std::exchange(m_IsStale, false);
    const bool dependsOnValues = !m_Order.empty() || IsFiltered();
    if (m_IsListStale || (isStale && m_ShowsFrames))
    {
        Arrange();
    }
    else if ((isStale && dependsOnValues) || ChangesByItself(m_Order))
    {
        ModelChanged();
    }
    else if (isStale)
    {
        GetBody()->Redraw();
    }
    else if (m_Jobs.Summarize().running + m_Jobs.Summarize().suspended > 0)
    {
        RedrawColumn(
            FindColumnByType(column_Elapsed)); // the time that has passed changes by itself
    }
}

void JobList::Arrange()
{
    m_IsListStale = false;
    m_Model.now = Time::CurrentTime();
    NoteClosed();
    if (m_Grouping == JobGrouping::kState)
    {
        Keep(); // what has another state moves to another group
    }
    ArrangeRows();
}

// While a menu is open the list may have rows ready that are shown once it is closed.
void JobList::ArrangeRows()
{
    m_IsOldDue = IsArranging();
    m_IsOutdated = true;
    m_Model.rows.Arrange(m_Jobs.InOrder(), m_Grouping, m_ShowsFrames);
    ModelChanged();
}

void JobList::LoadAnew()
{
    Arrange();
    Redraw();
}

void JobList::SetGrouping(JobGrouping grouping)
{
    ArrangeAs(grouping, m_ShowsFrames);
}

void JobList::ShowFrames(bool show)
{
    ArrangeAs(m_Grouping, show);
}

void JobList::ArrangeAs(JobGrouping grouping, bool showsFrames)
{
    m_IsListStale = false;
    NoteClosed();
    Keep();
    m_Closed.StartAnew();
    m_Grouping = grouping;
    m_ShowsFrames = showsFrames;
    ArrangeRows();
}

String JobList::GetDisplayText(int row, int column)
{
    const String text = wxDBTreeListCtrl::GetDisplayText(row, column);
    const bool   isTitle = m_Model._IsHeading(NodeAt(row)) && GetColumn(column).type == column_Name;
    return text + (isTitle ? GetCountText(row) : String());
}

void JobList::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    const wxDBTreeNode   node = NodeAt(row);
    const JobRows::Frame frame = m_Model.rows.FrameAt(node);
    const int            type = GetColumn(column).type;
    if (type == column_Progress && frame.number == 0)
    {
        DrawProgress(dc, node, wxRect(rect).Deflate(kBarMargin));
    }
    if (frame.job && type == column_State)
    {
        rect = wxtDrawJobMark(
            dc, rect, frame.number > 0 ? FrameState(*frame.job, frame.number) : frame.job->state);
    }
    if (m_Model.rows.IsTree())
    {
        wxDBTreeListCtrl::DrawCell(dc, row, column, rect, selected);
    }
    else
    {
        wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
    }
}

int JobList::GetCellWidth(wxDC& dc, int row, int column)
{
    const int mark = GetColumn(column).type == column_State && m_Model.rows.FrameAt(NodeAt(row)).job
                         ? wxtJobMarkWidth(GetRowHeight())
                         : 0;
    return mark + (m_Model.rows.IsTree() ? wxDBTreeListCtrl::GetCellWidth(dc, row, column)
                                         : wxDBListCtrl::GetCellWidth(dc, row, column));
}

// In the colour of the job's state, behind the figure.
void JobList::DrawProgress(wxDC& dc, wxDBTreeNode node, const wxRect& rect)
{
    const FarmJob* const        job = m_Model.rows.FrameAt(node).job;
    const JobRows::Group* const group = m_Model.rows.FindGroup(node);
    const String                state = job ? job->state : group ? group->name : String();
    if (node != wxDBTreeModel::k_Root)
    {
        wxtDrawJobProgress(dc, rect, state, m_Model.rows.Progress(node));
    }
}

void JobList::OnActivate(wxListEvent& event)
{
    const int            row = static_cast<int>(event.GetIndex());
    const wxDBTreeNode   node = NodeAt(row);
    const JobRows::Frame frame = m_Model.rows.FrameAt(node);
    if (frame.job && frame.number > 0)
    {
        const FrameId id{frame.job->id, frame.number};
        OpenPictures(m_Jobs, IsRowSelected(row) ? SelectedFrames() : std::vector{id},
                     wxGetTopLevelParent(this));
    }
    else if (frame.job)
    {
        std::vector<String> jobs = IsRowSelected(row) ? SelectedJobs() : std::vector{frame.job->id};
        jobs.resize(std::min(jobs.size(), k_MostWindowsAtOnce));
        for (const String& id : jobs)
        {
            m_Actions.open(id);
        }
    }
    else if (!Close(row))
    {
        Open(row);
    }
}

// Of frames alone it is their own menu. While the rows are being arranged they may stand for others
// than those that were clicked: it waits.
void JobList::ShowMenu(const wxPoint& where)
{
    if (IsArranging())
    {
        m_MenuDue = where;
        return;
    }
    const std::vector<FrameId> frames = SelectedFrames();
    if (!frames.empty() && frames.size() == GetSelection().size())
    {
        ShowFrameMenu(*this, m_Jobs, frames, where);
    }
    else
    {
        m_Actions.showMenu(SelectedJobs(), where);
    }
}

void JobList::OnTitle(wxListEvent& event)
{
    if (event.GetColumn() >= 0 && IsOnTitles(event))
    {
        SortBy(Clicked(m_Order, GetColumn(event.GetColumn()).type, wxGetKeyState(WXK_SHIFT)));
    }
}
