#pragma once

#include "monitor/FarmJobs.h"

#include "listviews/wxDBListCtrl.h"
#include "shell/wxTimed.h"

#include <set>

class wxListEvent;

/// The frames of one job as a list, live. A double click or Enter opens the frames' pictures, and a
/// menu does more with them. It remembers the widths of its columns.
class FrameList : public wxDBListCtrl, private wxTimed
{
public:
    /// `jobs` must outlive the list.
    FrameList(wxWindow* parent, const FarmJobs& jobs);

    /// Shows the frames of that job; none for an empty identifier.
    void ShowJob(const String& id);
    void SaveLayout() { SaveColumnLayout(k_Section, k_Widths); }

    bool             IsRowSelected(int row) override { return m_Selected.count(row) > 0; }
    std::vector<int> GetSelection() override { return {m_Selected.begin(), m_Selected.end()}; }
    String           GetDisplayText(int row, int column) override;
    wxColour         GetRowColor(int row) override;

private:
    static constexpr const char* k_Section = "FrameList";
    static constexpr const char* k_Widths = "Columns";

    void OnTick() override;
    void Select(wxListEvent& event, bool selected);
    void OnActivate(wxListEvent& event);
    void ShowMenu(const wxPoint& where);

    /// What the menu does, with the frames of the job that are in those rows.
    /// @{
    void OpenPictures(const String& id, const std::vector<int>& rows);
    void OpenFolder(const String& id);
    void CopyPaths(const String& id, const std::vector<int>& rows) const;
    /// @}

    const FarmJobs& m_Jobs;
    String          m_Id;
    int             m_Done = -1; ///< Frames that are shown as done.
    std::set<int>   m_Selected;
};
