#pragma once

#include "monitor/FarmJobs.h"
#include "monitor/MachineLoad.h"

#include "appearance/wxExpandablePanel.h"
#include "shell/wxTimed.h"

class wxBarHistoryCtrl;

/// Charts of this machine's load and of what the farm does, a value a second. Whether they are
/// shown is remembered.
class ChartStrip : public wxExpandablePanel, private wxTimed
{
public:
    /// `jobs` must outlive the strip.
    ChartStrip(wxWindow* parent, const FarmJobs& jobs);

private:
    wxBarHistoryCtrl* AddChart(wxSizer& row, const wxString& title, uint32_t upper);
    void              OnTick() override;
    void              Push(wxBarHistoryCtrl& chart, uint32_t value, uint32_t& upper);
    uint32_t          RunningFrames() const;

    const FarmJobs&   m_Jobs;
    MachineLoad       m_Load;
    wxBarHistoryCtrl* m_Processor;
    wxBarHistoryCtrl* m_Memory;
    wxBarHistoryCtrl* m_Frames;
    wxBarHistoryCtrl* m_Lines;
    uint32_t          m_FramesUpper; ///< Of the range shown; grows with what comes.
    uint32_t          m_LinesUpper;
    long long         m_LinesBefore = 0;
    int               m_Ticks = 0;
};
