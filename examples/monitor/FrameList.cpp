#include "monitor/FrameList.h"

#include "listviews/wxListMenu.h"
#include "monitor/FramePictures.h"
#include "monitor/JobColors.h"
#include "monitor/JobCommands.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "listviews/wxDBListBody.h"

#include <wx/clipbrd.h>
#include <wx/intl.h>
#include <wx/listbase.h>
#include <wx/menu.h>

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

enum
{
    id_OpenPictures = 22200,
    id_OpenFolder,
    id_CopyPaths,
    id_CopyRows
};

wxString OpenLabel(size_t pictures)
{
    if (pictures <= 1)
    {
        return wxGetTranslation("&Open Picture");
    }
    return pictures <= k_MostWindowsAtOnce
               ? wxString::Format(wxGetTranslation("&Open %zu Pictures"), pictures)
               : wxString::Format(wxGetTranslation("&Open %zu of %zu Pictures"),
                                  k_MostWindowsAtOnce, pictures);
}

// The frames in those rows whose pictures are known.
std::vector<int> FramesWithPictures(const FarmJob& job, const std::vector<int>& rows)
{
    std::vector<int> frames;
    for (const int row : rows)
    {
        if (!PictureOf(job, row + 1).IsEmpty())
        {
            frames.push_back(row + 1);
        }
    }
    return frames;
}

// A job that runs works on the frame behind the last one done.
const String& StateOf(const FarmJob& job, int number)
{
    if (number <= job.framesDone)
    {
        return state_Done;
    }
    const bool           isNext = number == job.framesDone + 1;
    const FarmJob::Phase phase = job.CurrentPhase();
    if (phase == FarmJob::kEnded || (isNext && phase != FarmJob::kWaits))
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
    RestoreColumnLayout(k_Section, k_Widths);
    wxAddListMenu(*this, [this](const wxPoint& where) { ShowMenu(where); });
    Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { Select(event, true); });
    Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { Select(event, false); });
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &FrameList::OnActivate, this);
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
    switch (GetColumn(column).type)
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

void FrameList::OnActivate(wxListEvent& event)
{
    const int row = static_cast<int>(event.GetIndex());
    if (row >= 0 && row < GetItemCount())
    {
        OpenPictures(m_Id, IsRowSelected(row) ? GetSelection() : std::vector{row});
    }
}

void FrameList::ShowMenu(const wxPoint& where)
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (!job)
    {
        return;
    }
    // While the menu is open the list may turn to another job.
    const String           id = m_Id;
    const std::vector<int> rows = GetSelection();
    const size_t           pictures = FramesWithPictures(*job, rows).size();
    wxMenu                 menu;
    menu.Append(id_OpenPictures, OpenLabel(pictures))->Enable(pictures > 0);
    menu.Append(id_CopyPaths, pictures > 1 ? wxGetTranslation("&Copy File Names")
                                           : wxGetTranslation("&Copy File Name"))
        ->Enable(pictures > 0);
    menu.Append(id_CopyRows, wxGetTranslation("Copy &Rows\tCtrl+C"));
    menu.AppendSeparator();
    menu.Append(id_OpenFolder, wxGetTranslation("Open Output &Folder"));
    switch (GetPopupMenuSelectionFromUser(menu, ScreenToClient(where)))
    {
    case id_OpenPictures:
        OpenPictures(id, rows);
        break;
    case id_CopyPaths:
        CopyPaths(id, rows);
        break;
    case id_CopyRows:
        CopySelection();
        break;
    case id_OpenFolder:
        OpenFolder(id);
        break;
    default:
        break;
    }
}

void FrameList::OpenPictures(const String& id, const std::vector<int>& rows)
{
    const FarmJob* const job = m_Jobs.Find(id);
    if (!job || rows.empty())
    {
        return;
    }
    std::vector<int> frames = FramesWithPictures(*job, rows);
    if (frames.empty())
    {
        frames.push_back(rows.front() + 1); // to say what is wrong with it
    }
    frames.resize(std::min(frames.size(), k_MostWindowsAtOnce));
    for (const int frame : frames)
    {
        String problem = PictureProblem(*job, frame);
        if (problem.empty() && !OpenOnDesktop(PictureOf(*job, frame)))
        {
            problem =
                "The desktop has no program to show a picture:\n" + PictureOf(*job, frame).Text();
        }
        if (!problem.empty())
        {
            TellFailure(problem, wxGetTopLevelParent(this));
            return;
        }
    }
}

void FrameList::OpenFolder(const String& id)
{
    if (const FarmJob* const job = m_Jobs.Find(id))
    {
        OpenOutputFolders({job->job}, wxGetTopLevelParent(this));
    }
}

void FrameList::CopyPaths(const String& id, const std::vector<int>& rows) const
{
    const FarmJob* const job = m_Jobs.Find(id);
    if (!job || !wxTheClipboard->Open())
    {
        return;
    }
    String text;
    for (const int frame : FramesWithPictures(*job, rows))
    {
        text += (text.empty() ? "" : "\n") + PictureOf(*job, frame).Text();
    }
    wxTheClipboard->SetData(new wxTextDataObject(wxtToWx(text)));
    wxTheClipboard->Close();
}
