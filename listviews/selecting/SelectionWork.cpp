#include "listviews/selecting/SelectionWork.h"

#include "listviews/cells/ListGeometry.h"
#include "listviews/model/ListModel.h"
#include "listviews/wxDBListBase.h"
#include "listviews/wxDBListSource.h"
#include "vesta/CallEntry.h"

#include <wx/listbase.h>
#include <wx/weakref.h>

#include <algorithm>

namespace listviews
{
namespace
{
constexpr int kFewRows = 64; // between two looks at the clock
}

struct SelectionWork::Job
{
    RowsToTell            rows;
    std::function<void()> then;
    int                   offColumn = -1;
    int                   column = -1;
    size_t                told = 0;          // of those that are deselected
    bool                  isTelling = false; // within one of the handlers

    size_t Left() const
    {
        const long long selected = static_cast<long long>(rows.last) - rows.first + 1;
        return rows.off.size() - told + static_cast<size_t>(std::max(selected, 0LL));
    }
};

SelectionWork::SelectionWork(wxDBListBase& view, wxDBListSource& source, const ListModel& model)
    : m_View(view),
      m_Source(source),
      m_Model(model),
      m_Slices(
          [this]
          {
              if (IsWaiting())
              {
                  Run(false);
              }
          })
{
}

SelectionWork::~SelectionWork() = default;

bool SelectionWork::Begin(RowsToTell rows, std::function<void()> then)
{
    const ListGeometry geometry = m_View.Geometry();
    m_Job = std::make_shared<Job>();
    m_Job->offColumn = geometry.ColumnAt(0);
    m_Job->column = geometry.ColumnAt(rows.point.x);
    m_Job->rows = std::move(rows);
    m_Job->then = std::move(then);
    return Run(m_Job->Left() <= k_MostAtOnce);
}

bool SelectionWork::Finish()
{
    return !IsWaiting() || Run(true);
}

void SelectionWork::Drop()
{
    if (IsWaiting())
    {
        m_Job.reset();
    }
}

bool SelectionWork::IsBusy() const
{
    return m_Job != nullptr;
}

bool SelectionWork::IsWaiting() const
{
    return m_Job && !m_Job->isTelling;
}

// To the next row that there is something to tell of; false when there is none.
bool SelectionWork::Skip(Job& job) const
{
    RowsToTell& rows = job.rows;
    if (!rows.onlyChanges)
    {
        return job.told < rows.off.size() ||
               rows.first <= std::min(rows.last, m_Model.rowCount - 1);
    }
    const auto isToTell = [&](int row, bool selected)
    { return m_Model.HasRow(row) && m_Source.IsRowSelected(row) != selected; };
    while (job.told < rows.off.size() && !isToTell(rows.off[job.told], false))
    {
        ++job.told;
    }
    if (job.told < rows.off.size())
    {
        return true;
    }
    const int last = std::min(rows.last, m_Model.rowCount - 1);
    while (rows.first <= last && !isToTell(rows.first, true))
    {
        ++rows.first;
    }
    return rows.first <= last;
}

bool SelectionWork::TellNext(Job& job)
{
    RowsToTell& rows = job.rows;
    if (job.told < rows.off.size())
    {
        const int row = rows.off[job.told++];
        return m_View.SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), job.offColumn, row);
    }
    return m_View.SendListEvent(wxEVT_LIST_ITEM_SELECTED, rows.point, job.column, rows.first++);
}

bool SelectionWork::Run(bool toTheEnd)
{
    CALL_ENTRY("SelectionWork::Run");
    const std::shared_ptr<Job>    job = m_Job;
    const wxWeakRef<wxDBListBase> view(&m_View);
    const auto                    end = EndOfSlice();
    job->isTelling = true;
    try
    {
        for (int told = 1; Skip(*job); ++told)
        {
            if (!TellNext(*job))
            {
                return false;
            }
            if (m_Job != job)
            {
                return true; // a handler has had the user wish for something else
            }
            const bool isOver =
                !toTheEnd && told % kFewRows == 0 && std::chrono::steady_clock::now() >= end;
            if (isOver && Skip(*job)) // else the last of the rows was the last that is told
            {
                job->isTelling = false;
                m_Slices.GoOn();
                return true;
            }
        }
    }
    catch (...)
    {
        if (view && m_Job == job)
        {
            m_Job.reset();
        }
        throw;
    }
    m_Job.reset();
    if (job->then)
    {
        job->then();
    }
    return view && !view->IsBeingDeleted();
}

void SelectionWork::RowsInserted(int row, int count)
{
    if (!IsWaiting())
    {
        return;
    }
    const auto  move = [=](int& at) { at += at >= row ? count : 0; };
    RowsToTell& rows = m_Job->rows;
    std::for_each(rows.off.begin() + static_cast<std::ptrdiff_t>(m_Job->told), rows.off.end(),
                  move);
    move(rows.first);
    move(rows.last);
}

void SelectionWork::RowsRemoved(int first, int last)
{
    if (!IsWaiting())
    {
        return;
    }
    RowsToTell& rows = m_Job->rows;
    const int   count = last - first + 1;
    const auto  left = rows.off.begin() + static_cast<std::ptrdiff_t>(m_Job->told);
    rows.off.erase(
        std::remove_if(left, rows.off.end(), [=](int row) { return row >= first && row <= last; }),
        rows.off.end());
    std::for_each(left, rows.off.end(), [=](int& row) { row -= row > last ? count : 0; });
    // `beside`: of an end that goes itself.
    const auto move = [=](int& at, int beside) {
        at = at > last ? at - count : at >= first ? beside : at;
    };
    move(rows.first, first);
    move(rows.last, first - 1);
}

void SelectionWork::RowsMoved(int first, int last)
{
    if (!IsWaiting())
    {
        return;
    }
    RowsToTell& rows = m_Job->rows;
    rows.first = first;
    rows.last = last;
    if (m_Job->told == rows.off.size())
    {
        return;
    }
    // They are told before the others: what is selected now was so before.
    rows.off.clear();
    m_Job->told = 0;
    for (const int row : m_Source.GetSelection())
    {
        if (row < first || row > last)
        {
            rows.off.push_back(row);
        }
    }
}

std::optional<std::pair<int, int>> SelectionWork::Waiting() const
{
    return IsWaiting() ? std::optional(std::pair(m_Job->rows.first, m_Job->rows.last))
                       : std::nullopt;
}
} // namespace listviews
