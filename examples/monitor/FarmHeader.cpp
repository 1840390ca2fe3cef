#include "monitor/FarmHeader.h"

#include "appearance/wxtStockControls.h"

#include <wx/intl.h>
#include <wx/sizer.h>

namespace
{
constexpr int kBorder = 8; // pixels
} // namespace

FarmHeader::FarmHeader(wxWindow* parent)
    : wxtPanel(parent),
      m_Connection(new wxtStaticText(this, wxID_ANY, wxString())),
      m_Summary(new wxtStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxSize(1, -1),
                                  wxALIGN_RIGHT | wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END))
{
    m_container.DisableSelfFocus(); // there is nothing to do in it
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(m_Connection, 0, wxALL, kBorder);
    sizer->Add(m_Summary, 1, wxALL, kBorder);
    SetSizer(sizer);
    ShowConnection(false);
    ShowSummary(FarmJobs::Summary());
}

void FarmHeader::ShowConnection(bool connected)
{
    m_Connection->m_ForegroundName = connected ? color_TextGreen : color_TextRed;
    m_Connection->KeepReadable();
    SetText(*m_Connection, connected ? wxGetTranslation("Connected to the master")
                                     : wxGetTranslation("No connection to the master"));
}

void FarmHeader::ShowSummary(const FarmJobs::Summary& summary)
{
    SetText(*m_Summary,
            wxString::Format(wxGetTranslation("%d jobs: %d running, %d suspended, %d waiting, "
                                              "%d done, %d failed or killed"),
                             summary.jobs, summary.running, summary.suspended, summary.waiting,
                             summary.done, summary.failed));
}

void FarmHeader::SetText(wxtStaticText& label, const wxString& text)
{
    if (text != label.GetLabel())
    {
        label.SetLabel(text);
        Layout();
    }
}
