#include "monitor/FrameList.h"

#include "monitor/JobColors.h"
#include "monitor/ListKeys.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"

#include <wx/intl.h>
#include <wx/listbase.h>

#include <algorithm>

namespace
{
enum
{
    column_Number,
    column_State,
    column_Took,
    column_File
};

const struct
{
    const char* title;
    int         width; // pixels
} kColumns[] = {{"Frame", 60}, {"State", 80}, {"Time", 80}, {"File", 200}};

// A job that runs works on the frame behind the last one done.
const String& StateOf(const FarmJob& job, int number)
{
    if (number <= job.framesDone)
    {
        return state_Done;
    }
    const bool isNext = number == job.framesDone + 1;
    if (job.CurrentPhase() == FarmJob::kEnded || (isNext && job.CurrentPhase() == FarmJob::kActive))
    {
        return job.state;
    }
    return state_Waiting;
}
} // namespace

FrameList::FrameList(wxWindow* parent, const FarmJobs& jobs)
    : wxDBListCtrl(parent, wxID_ANY, false), m_Jobs(jobs)
{
    for (const auto& column : kColumns)
    {
        AddColumn(GetColumnCount(), wxtFromWx(wxGetTranslation(column.title)), column.width);
    }
    RestoreColumnSizes(k_Section, k_Widths);
    AddListKeys(*this);
    Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { Select(event, true); });
    Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { Select(event, false); });
}

void FrameList::Select(wxListEvent& event, bool selected)
{
    event.Skip();
    const int row = static_cast<int>(event.GetIndex());
    if (selected && row < GetItemCount())
    {
        m_Selected.insert(row);
    }
    else
    {
        m_Selected.erase(row);
    }
    RedrawItem(row);
}

void FrameList::ShowJob(const String& id)
{
    if (id == m_Id)
    {
        return;
    }
    m_Id = id;
    m_Selected.clear();
    m_Done = -1;
    SetLastSelect(-1);
    Clear();
    SetScrollPos(wxVERTICAL, 0);
    OnTick();
}

void FrameList::OnTick()
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    const int            count = job ? std::max(job->frameCount, 0) : 0;
    const int            more = count - GetItemCount();
    if (more > 0)
    {
        Insert(GetItemCount(), static_cast<unsigned long>(more), true);
    }
    else if (more < 0)
    {
        Remove(count, static_cast<unsigned long>(-more));
        m_Selected.erase(m_Selected.lower_bound(count), m_Selected.end());
    }
    if (job && job->framesDone != m_Done)
    {
        m_Done = job->framesDone;
        Redraw();
    }
}

String FrameList::GetDisplayText(int row, int column)
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (!job)
    {
        return String();
    }
    const JobFrames::Frame* const frame = job->frames.Find(row + 1);
    switch (column)
    {
    case column_Number:
        return String::FromInt(row + 1);
    case column_State:
        return StateOf(*job, row + 1);
    case column_Took:
        return frame ? frame->took : String();
    case column_File:
        return frame ? frame->file : String();
    default:
        return String();
    }
}

wxColour FrameList::GetRowColor(int row)
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    return job ? wxtGetColor(ColorOfState(StateOf(*job, row + 1))) : wxDBListCtrl::GetRowColor(row);
}
