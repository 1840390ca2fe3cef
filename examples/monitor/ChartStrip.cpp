#include "monitor/ChartStrip.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "textviews/wxBarHistoryCtrl.h"
#include "vesta/Application.h"

#include <wx/intl.h>

#include <algorithm>

namespace
{
constexpr int      kTicksPerSecond = 4; // of the master timer
constexpr int      kGap = 6;            // pixels
constexpr uint32_t kFirstFrames = 8;
constexpr uint32_t kFirstLines = 50;
const wxSize       kLeastChart(120, 48); // pixels

// From where the meter warns: three quarters of the range.
uint32_t MidOf(uint32_t upper)
{
    return upper - upper / 4;
}

// A panel is closed until the user opens it; these are to be seen without being looked for.
void ShowAtFirst(const String& section, const String& key)
{
    OptionsFile&    options = Application::the_Application->Options();
    const WriteLock lock(options.Lock());
    if (!options.HasValue(section, key))
    {
        options.SetValue(section, key, "1");
    }
}
} // namespace

ChartStrip::ChartStrip(wxWindow* parent, const FarmJobs& jobs)
    : wxExpandablePanel(parent, wxVERTICAL),
      m_Jobs(jobs),
      m_FramesUpper(kFirstFrames),
      m_LinesUpper(kFirstLines)
{
    m_Section = "Charts";
    m_Key = "Shown";
    ShowAtFirst(m_Section, m_Key);
    m_CollapsedCaption = wxGetTranslation("Charts");
    m_ExpandedCaption = m_CollapsedCaption;
    CreateInfrastructure(wxGetTranslation("Shows or hides the charts"), true);
    UnsetToolTip(); // the charts have their own
    m_Load.Read();
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    m_Processor = AddChart(*row, wxGetTranslation("Processor load, %"), 100);
    m_Memory = AddChart(*row, wxGetTranslation("Memory in use, MiB"),
                        static_cast<uint32_t>(std::max<int64_t>(m_Load.MemoryTotal(), 1)));
    m_Frames = AddChart(*row, wxGetTranslation("Running frames"), m_FramesUpper);
    m_Lines = AddChart(*row, wxGetTranslation("Lines of output per second"), m_LinesUpper);
    m_ContentSizer->Add(row, 1, wxEXPAND | wxALL, kGap);
    m_LinesBefore = jobs.Summarize().outputLines;
}

wxBarHistoryCtrl* ChartStrip::AddChart(wxSizer& row, const wxString& title, uint32_t upper)
{
    auto* const chart = new wxBarHistoryCtrl(this, wxID_ANY);
    chart->SetMinSize(kLeastChart);
    chart->SetBounds(0, upper);
    chart->SetMidBound(MidOf(upper));
    chart->SetTooltipText(wxtFromWx(title), String());
    auto* const column = new wxBoxSizer(wxVERTICAL);
    // However long it is, all charts are as wide.
    column->Add(new wxtStaticText(this, wxID_ANY, title, wxDefaultPosition, wxSize(1, -1),
                                  wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END),
                0, wxEXPAND);
    column->Add(chart, 1, wxEXPAND);
    row.Add(column, 1, wxEXPAND | wxRIGHT, kGap);
    return chart;
}

uint32_t ChartStrip::RunningFrames() const
{
    return static_cast<uint32_t>(std::count_if(
        m_Jobs.InOrder().begin(), m_Jobs.InOrder().end(),
        [](const FarmJob* job) { return job->state == state_Running && job->frameCount > 0; }));
}

// The range grows so that the highest value still fits.
void ChartStrip::Push(wxBarHistoryCtrl& chart, uint32_t value, uint32_t& upper)
{
    while (value > upper && upper < UINT32_MAX / 2)
    {
        upper *= 2;
        chart.SetBounds(0, upper);
        chart.SetMidBound(MidOf(upper));
    }
    chart.PushValue(value);
}

void ChartStrip::OnTick()
{
    if (++m_Ticks % kTicksPerSecond != 0)
    {
        return;
    }
    if (m_Load.Read())
    {
        m_Processor->PushValue(static_cast<uint32_t>(m_Load.ProcessorPercent()));
        m_Memory->PushValue(static_cast<uint32_t>(m_Load.MemoryUsed()));
    }
    const long long lines = m_Jobs.Summarize().outputLines;
    Push(*m_Frames, RunningFrames(), m_FramesUpper);
    Push(*m_Lines, static_cast<uint32_t>(std::max(0LL, lines - m_LinesBefore)), m_LinesUpper);
    m_LinesBefore = lines;
}
