#include "dialogs/wxtProgressDlg.h"

#include "dialogs/progress/ProgressWindow.h"
#include "dialogs/progress/TimeLeft.h"
#include "vesta/CallEntry.h"

#include <wx/evtloop.h>

namespace
{
constexpr long kOpenMs = 500;
constexpr long kShowMs = 50;
} // namespace

wxtProgressDlg::wxtProgressDlg(wxWindow* parent, const wxString& title, const wxString& message,
                               int total, bool canCancel)
    : m_Parent(parent), m_Title(title), m_Message(message), m_Total(total), m_CanCancel(canCancel)
{
}

wxtProgressDlg::~wxtProgressDlg()
{
    if (m_Window)
    {
        m_Window->Destroy();
    }
}

void wxtProgressDlg::Open()
{
    m_Opened = true;
    m_Window =
        new dialogs::ProgressWindow(m_Parent.get(), m_Title, m_Message, m_Total, m_CanCancel);
}

bool wxtProgressDlg::Update(int done, const wxString& message)
{
    CALL_ENTRY("wxtProgressDlg::Update");
    if (!message.empty())
    {
        m_Message = message;
    }
    const long now = m_Time.Time();
    if (now < kOpenMs || now < m_ShownMs + kShowMs || WasCancelled())
    {
        return !WasCancelled();
    }
    if (!m_Opened)
    {
        Open();
    }
    m_Window->ShowProgress(done, m_Message, dialogs::TimeLeft(now, done, m_Total));
    if (wxEventLoopBase* const loop = wxEventLoopBase::GetActive())
    {
        loop->YieldFor(wxEVT_CATEGORY_ALL);
    }
    m_ShownMs = m_Time.Time();
    return !WasCancelled();
}

bool wxtProgressDlg::WasCancelled() const
{
    return m_Opened && (!m_Window || m_Window->IsCancelled());
}
