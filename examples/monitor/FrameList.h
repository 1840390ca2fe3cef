#pragma once

#include "monitor/FarmJobs.h"
#include "monitor/FrameMenu.h"

#include "listviews/wxDBListCtrl.h"
#include "listviews/wxListArranger.h"
#include "shell/wxTimed.h"

#include <functional>
#include <memory>
#include <set>

class wxListEvent;

/// The frames of one job as a list, live. A double click or Enter opens the frames' pictures, and a
/// menu does more with them; a click on a title sorts. It remembers how its columns are arranged
/// and what it is sorted by.
class FrameList : public wxDBListCtrl, private wxTimed
{
public:
    /// `jobs` must outlive the list. `selectionChanged`: other frames are selected.
    FrameList(wxWindow* parent, const FarmJobs& jobs, std::function<void()> selectionChanged);
    ~FrameList() override;

    /// Shows the frames of that job; none for an empty identifier.
    void          ShowJob(const String& id);
    const String& GetJob() const { return m_Id; }
    /// The selected frame that the keys are on, or the first of those selected; 0 for none.
    int             SelectedFrame();
    void            SaveLayout();
    void            LoadAnew(); ///< Everything is asked for and drawn anew.
    wxListArranger& Arranger() { return *m_Arranger; }

    bool             IsRowSelected(int row) override;
    std::vector<int> GetSelection() override;
    String           GetDisplayText(int row, int column) override;
    void             DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;
    int              GetCellWidth(wxDC& dc, int row, int column) override;

private:
    void                 OnTick() override;
    void                 Select(wxListEvent& event, bool selected);
    void                 OnActivate(wxListEvent& event);
    std::vector<FrameId> FramesIn(const std::vector<int>& rows) const;
    int                  FrameAt(int row) const; ///< 0 where there is none.
    String               TextOf(int frame, int type) const;

    const FarmJobs&                 m_Jobs;
    std::function<void()>           m_SelectionChanged;
    String                          m_Id;
    int                             m_Count = 0;
    int                             m_Done = -1; ///< Frames that are shown as done.
    std::set<int>                   m_Selected;  ///< Numbers of frames.
    std::unique_ptr<wxListArranger> m_Arranger;
};
