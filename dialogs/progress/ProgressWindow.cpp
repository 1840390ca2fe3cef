#include "dialogs/progress/ProgressWindow.h"

#include "appearance/wxtButton.h"
#include "appearance/wxtStockControls.h"
#include "dialogs/progress/ProgressBar.h"
#include "dialogs/progress/TimeLeft.h"
#include "internal/port/PopUps.h"

#include <wx/evtloop.h>
#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>

namespace dialogs
{
namespace
{
// Pixels.
constexpr int kBorder = 20;
constexpr int kGap = 10;
constexpr int kWidth = 400;
constexpr int kWidest = 600; // of the message, whatever it holds
} // namespace

ProgressWindow::ProgressWindow(wxWindow* parent, const wxString& title, const wxString& message,
                               int total, bool canCancel)
    : wxTolvanDlg(parent, title, String(), false), m_Total(total), m_CanCancel(canCancel)
{
    m_Message = NewStatic(wxString(), false, false, 0, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE);
    m_Message->SetLabelText(message);
    m_Message->SetMinSize(wxSize(std::min(m_Message->GetBestSize().x, kWidest), -1));
    m_TimeLeft = NewStatic(wxString(), false, false, 0, wxST_NO_AUTORESIZE);
    m_Bar = new ProgressBar(this);

    wxBoxSizer* const whole = StartControls();
    whole->Add(m_Message, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    whole->Add(m_Bar, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(m_TimeLeft, 1, wxALIGN_CENTRE_VERTICAL);
    if (canCancel)
    {
        auto* const cancel = new wxtButton(this, wxID_CANCEL, wxGetTranslation("Cancel"));
        row->Add(cancel, 0, wxLEFT, kGap);
        // In place of closing it.
        Bind(
            wxEVT_BUTTON, [this](wxCommandEvent&) { Cancel(); }, wxID_CANCEL);
    }
    whole->Add(row, 0, wxEXPAND | wxALL, kBorder);
    whole->SetMinSize(kWidth, -1);
    Bind(wxEVT_CLOSE_WINDOW,
         [this](wxCloseEvent& event)
         {
             Cancel();
             event.Veto(event.CanVeto());
         });
    Fit();
    CentreOnParent();
}

void ProgressWindow::Cancel()
{
    if (m_CanCancel && !m_Cancelled)
    {
        m_Cancelled = true;
        m_TimeLeft->SetLabelText(wxGetTranslation("Stopping..."));
        FindWindow(wxID_CANCEL)->Disable();
    }
}

void ProgressWindow::ShowProgress(int done, const wxString& message, long leftMs)
{
    if (!IsShown())
    {
        internal::ShutOutOthers(*this);
        wxTolvanDlg::Show();
    }
    const auto show = [](wxtStaticText& label, const wxString& text)
    {
        if (label.GetLabelText() != text)
        {
            label.SetLabelText(text);
        }
    };
    show(*m_Message, message);
    if (!m_Cancelled)
    {
        show(*m_TimeLeft, TimeLeftText(leftMs));
    }
    m_Bar->Set(done, m_Total);
}
} // namespace dialogs
