#include "gallery/GallerySections.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtStockControls.h"
#include "jobwidgets/JobSelector.h"
#include "jobwidgets/JobSelectorDlg.h"
#include "tolvan/Job.h"

#include <wx/sizer.h>

namespace
{
constexpr int kGap = 6; // pixels
constexpr int kJobs = 9;
constexpr int kStep = 12; // percent
const wxSize  kViewSize(600, 160);

// Some jobs of some users, and what becomes of them.
class Farm
{
public:
    Farm()
    {
        static const char* const kUsers[] = {"amelia", "jonas", "mei"};
        static const char* const kNames[] = {"orbit", "bounce", "checksum"};
        static const char* const kProducts[] = {"Ray Tracer", "Ray Tracer", "Checksum"};
        for (int i = 0; i < kJobs; ++i)
        {
            const boost::shared_ptr<Job> job(new Job);
            job->SetParam(p_Id, SFormat("00000000-0000-4000-8000-%012d", i + 1));
            job->SetParam(p_Name, SFormat("%s_sh%03d", kNames[i % 3], 10 * (i + 1)));
            job->SetParam(p_User, kUsers[i / 3]);
            job->SetParam(p_Type, kProducts[i % 3]);
            m_All.push_back(job);
        }
        GoOn();
    }

    // A step further for each job; the first one has gone when it is done.
    void GoOn()
    {
        ++m_Steps;
        for (int i = 0; i < kJobs; ++i)
        {
            const int percent = kStep * (m_Steps + 2 - i % 4);
            Job&      job = *m_All[static_cast<size_t>(i)];
            job.SetParam(p_Progress, String::FromInt(percent));
            job.SetParam(p_State, i == 4            ? state_Failed
                                  : i == 7          ? state_Suspended
                                  : percent >= 100  ? state_Done
                                  : percent > kStep ? state_Running
                                                    : state_Waiting);
            jobs.Put(m_All[static_cast<size_t>(i)]);
        }
        if (m_All.front()->GetParam(p_State) == state_Done)
        {
            jobs.Remove(UID(m_All.front()->GetParam(p_Id)));
        }
    }

    JobSet jobs;

private:
    std::vector<boost::shared_ptr<Job>> m_All;
    int                                 m_Steps = 0;
};

void AskForJobs(wxWindow* parent, JobSet& jobs, wxtStaticText& answer)
{
    JobSelectorDlg dialog(wxGetTopLevelParent(parent), "Pick Jobs", jobs, false);
    if (dialog.ShowModal() != wxID_OK)
    {
        return;
    }
    wxString names;
    for (const UID& id : dialog.GetSelection())
    {
        names += (names.empty() ? "" : ", ") + wxtToWx(jobs.Find(id)->name);
    }
    answer.SetLabelText(names);
}

// The one of the window that is there.
std::shared_ptr<Farm> TheFarm()
{
    static std::weak_ptr<Farm> s_Farm;
    std::shared_ptr<Farm>      farm = s_Farm.lock();
    if (!farm)
    {
        s_Farm = farm = std::make_shared<Farm>();
    }
    return farm;
}
} // namespace

void AddJobs(wxWindow* parent, wxSizer* sizer)
{
    const auto  farm = TheFarm();
    auto* const selector = new JobSelector(parent, wxID_ANY, farm->jobs, true);
    selector->SetMinSize(kViewSize);
    // It is there as long as the control is.
    selector->Bind(wxtEVT_JOBS_PICKED, [farm](wxCommandEvent& event) { event.Skip(); });
    sizer->Add(selector, 1, wxEXPAND);
}

void AddJobDialog(wxWindow* parent, wxSizer* sizer)
{
    const auto  farm = TheFarm();
    auto* const pick = new wxtButton(parent, wxID_ANY, "Pick &Jobs...");
    auto* const goOn = new wxtButton(parent, wxID_ANY, "Go On");
    auto* const answer = new wxtStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                           wxDefaultSize, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    pick->Bind(wxEVT_BUTTON, [=](wxCommandEvent&) { AskForJobs(parent, farm->jobs, *answer); });
    goOn->Bind(wxEVT_BUTTON, [farm](wxCommandEvent&) { farm->GoOn(); });
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(pick, 0, wxRIGHT, kGap);
    row->Add(goOn);
    sizer->Add(row, 0, wxBOTTOM, kGap);
    sizer->Add(answer, 0, wxEXPAND);
}
