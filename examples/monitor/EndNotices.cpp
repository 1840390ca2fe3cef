#include "monitor/EndNotices.h"

#include "monitor/DesktopNotice.h"
#include "monitor/JobNotice.h"

#include "vesta/Application.h"
#include "vesta/Platform.h"

#include <wx/intl.h>

#include <utility>

namespace
{
const char* const kSection = "Notices";
const char* const kWanted = "JobsEnded";
} // namespace

EndNotices::EndNotices(FarmJobs& jobs, std::function<bool()> isLookedAt)
    : m_Jobs(jobs), m_IsLookedAt(std::move(isLookedAt))
{
    m_Jobs.Changed.Connect(this, [this](const FarmJobs::News& news) { OnNews(news); });
}

bool EndNotices::AreWanted()
{
    return Application::the_Application->Options().GetBool(kSection, kWanted, true);
}

void EndNotices::OnNews(const FarmJobs::News& news)
{
    if (news.ended.empty() || m_IsLookedAt() || !AreWanted())
    {
        return;
    }
    std::vector<const FarmJob*> ended;
    for (const String& id : news.ended)
    {
        if (const FarmJob* const job = m_Jobs.Find(id))
        {
            ended.push_back(job);
        }
    }
    if (const auto notice = NoticeOf(ended, Platform::GetCurrentUserName()))
    {
        ShowDesktopNotice(notice->title, notice->text, notice->isFailure);
    }
}

NoticeChoice::NoticeChoice(wxWindow* parent)
    : wxtCheckBox(parent, wxID_ANY,
                  wxGetTranslation("Tell when a job of mine is done or has failed"))
{
    SetValue(EndNotices::AreWanted());
}

bool NoticeChoice::TransferDataFromWindow()
{
    Application::the_Application->Options().SetValue(kSection, kWanted, GetValue() ? "1" : "0");
    return true;
}
