#include "monitor/FrameList.h"

#include "monitor/FramePictures.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "jobwidgets/JobMarks.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxListMenu.h"
#include "vesta/Application.h"

#include <wx/intl.h>
#include <wx/listbase.h>

#include <algorithm>
#include <utility>

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
    int         width; // dialog units
} kColumns[] = {{"Frame", 30}, {"State", 40}, {"Time", 40}, {"File", 100}};

const char* const kSection = "FrameList";
const char* const kWidths = "Columns";
const char* const kOrder = "Order";
} // namespace

// The arranger's items are the frames, counted from 0.
FrameList::FrameList(wxWindow* parent, const FarmJobs& jobs, std::function<void()> selectionChanged)
    : wxDBListCtrl(parent, wxID_ANY, false),
      m_Jobs(jobs),
      m_SelectionChanged(std::move(selectionChanged))
{
    for (const auto& column : kColumns)
    {
        AddColumn(GetColumnCount(), wxtFromWx(wxGetTranslation(column.title)),
                  ConvertDialogToPixels(wxSize(column.width, -1)).x);
    }
    RestoreColumnLayout(kSection, kWidths);
    wxAddListMenu(*this, [this](const wxPoint& where)
                  { ShowFrameMenu(*this, m_Jobs, FramesIn(GetSelection()), where); });
    Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { Select(event, true); });
    Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { Select(event, false); });
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &FrameList::OnActivate, this);
    const auto number = [](int item, int type)
    { return type == column_Number ? std::optional<double>(item) : std::nullopt; };
    m_Arranger = std::make_unique<wxListArranger>(
        *this, wxListArranger::Items{[this] { return m_Count; },
                                     [this](int item, int type) { return TextOf(item + 1, type); },
                                     number});
    m_Arranger->RestoreSorting(kSection, kOrder);
}

// The views first: they ask for cells as long as they are there.
FrameList::~FrameList()
{
    DestroyChildren();
}

void FrameList::SaveLayout()
{
    const OptionsFile::PauseAutoWrite pause(Application::the_Application->Options());
    SaveColumnLayout(kSection, kWidths);
    m_Arranger->SaveSorting(kSection, kOrder);
}

void FrameList::LoadAnew()
{
    m_Done = -1;
    OnTick();
}

int FrameList::FrameAt(int row) const
{
    return m_Arranger->ItemAt(row) + 1;
}

void FrameList::Select(wxListEvent& event, bool selected)
{
    event.Skip();
    const int row = static_cast<int>(event.GetIndex());
    const int frame = FrameAt(row);
    if (frame > 0 && (selected ? m_Selected.insert(frame).second : m_Selected.erase(frame) > 0))
    {
        RedrawItem(row);
        m_SelectionChanged();
    }
}

void FrameList::ShowJob(const String& id)
{
    if (id == m_Id)
    {
        return;
    }
    m_Id = id;
    m_Selected.clear();
    m_Count = 0;
    m_Done = -1;
    SetLastSelect(-1);
    SetScrollPos(wxVERTICAL, 0);
    OnTick();
}

void FrameList::OnTick()
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    const int            count = job ? std::max(job->frameCount, 0) : 0;
    const int            done = job ? job->framesDone : 0;
    if (count == m_Count && done == m_Done)
    {
        return;
    }
    m_Done = done;
    if (count < m_Count)
    {
        m_Selected.erase(m_Selected.upper_bound(count), m_Selected.end());
        m_SelectionChanged();
    }
    m_Count = count;
    m_Arranger->ItemsChanged();
    Redraw();
}

bool FrameList::IsRowSelected(int row)
{
    return m_Selected.count(FrameAt(row)) > 0;
}

std::vector<int> FrameList::GetSelection()
{
    std::vector<int> rows;
    for (int row = 0; row < GetItemCount() && rows.size() < m_Selected.size(); ++row)
    {
        if (IsRowSelected(row))
        {
            rows.push_back(row);
        }
    }
    return rows;
}

int FrameList::SelectedFrame()
{
    const int focus = FrameAt(GetFocusRow());
    return m_Selected.count(focus) > 0 ? focus : m_Selected.empty() ? 0 : *m_Selected.begin();
}

std::vector<FrameId> FrameList::FramesIn(const std::vector<int>& rows) const
{
    std::vector<FrameId> frames;
    frames.reserve(rows.size());
    for (const int row : rows)
    {
        frames.push_back({m_Id, FrameAt(row)});
    }
    return frames;
}

String FrameList::TextOf(int frame, int type) const
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (!job || frame < 1)
    {
        return String();
    }
    const JobFrames::Frame* const known = job->frames.Find(frame);
    switch (type)
    {
    case column_Number:
        return String::FromInt(frame);
    case column_State:
        return FrameState(*job, frame);
    case column_Took:
        return known ? known->took : String();
    case column_File:
        return known ? known->file : String();
    default:
        return String();
    }
}

String FrameList::GetDisplayText(int row, int column)
{
    return TextOf(FrameAt(row), GetColumn(column).type);
}

void FrameList::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    if (GetColumn(column).type == column_State)
    {
        rect = wxtDrawJobMark(dc, rect, GetDisplayText(row, column));
    }
    wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
}

int FrameList::GetCellWidth(wxDC& dc, int row, int column)
{
    const bool isMarked = GetColumn(column).type == column_State;
    return wxDBListCtrl::GetCellWidth(dc, row, column) +
           (isMarked ? wxtJobMarkWidth(GetRowHeight()) : 0);
}

void FrameList::OnActivate(wxListEvent& event)
{
    const int row = static_cast<int>(event.GetIndex());
    if (FrameAt(row) > 0)
    {
        OpenPictures(m_Jobs, FramesIn(IsRowSelected(row) ? GetSelection() : std::vector{row}),
                     wxGetTopLevelParent(this));
    }
}
