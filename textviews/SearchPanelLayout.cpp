#include "appearance/wxtTextCtrl.h"
#include "textviews/search/searchCancel.xpm"
#include "textviews/wxTextLineSearchPanel.h"

#include <wx/dcclient.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int    kFieldWidth = 220; // pixels
constexpr int    kLeastField = 80;  // pixels, where there are two rows
constexpr int    kGap = 6;          // pixels between the controls
constexpr int    kMargin = 4;       // pixels around them
constexpr int    kManyHits = 1'000'000;
constexpr size_t kShownText = 200; // characters of the text that a notice is about

wxString WithText(wxString notice, const wxString& text)
{
    notice.Replace("%s", text, false);
    return notice;
}
} // namespace

void wxTextLineSearchPanel::MakeControls()
{
    m_Close = new wxtBitmapButton(this, wxID_ANY, wxBitmap(searchCancel_xpm), wxDefaultPosition,
                                  wxDefaultSize, wxBORDER_NONE);
    m_Close->SetToolTip(_("Close"));
    m_Field = new wxtTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition,
                              wxSize(kFieldWidth, -1), wxTE_PROCESS_ENTER);
    m_Field->AutoComplete(nullptr); // it is lines of text that are looked for
    m_Previous = new wxtButton(this, wxID_ANY, _("Previous"));
    m_Next = new wxtButton(this, wxID_ANY, _("Next"));
    m_MatchCase = new wxtCheckBox(this, wxID_ANY, _("Match Case"));
    m_Stop = new wxtButton(this, wxID_ANY, _("Stop"));
    m_HitCount = new wxtStaticText(this, wxID_ANY, wxEmptyString);
    m_Message = new wxtStaticText(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                                  wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    m_Message->SetMinSize(wxSize(1, wxDefaultCoord)); // however long it is
    m_Stop->Hide();
}

void wxTextLineSearchPanel::LayOutControls()
{
    const wxSizerFlags one = wxSizerFlags().CentreVertical().Border(wxRIGHT, kGap);
    const wxSizerFlags wide = wxSizerFlags(1).CentreVertical();
    auto* const        text = new wxBoxSizer(wxHORIZONTAL);
    text->Add(m_Close, one);
    text->Add(m_Field, wxSizerFlags(wide).Border(wxRIGHT, kGap));
    text->Add(m_Previous, one);
    text->Add(m_Next, one);
    auto* const outcome = new wxBoxSizer(wxHORIZONTAL);
    outcome->Add(m_MatchCase, one);
    outcome->Add(m_HitCount, one);
    outcome->Add(m_Stop, one);
    outcome->Add(m_Message, wide);
    outcome->SetMinSize(0, m_Stop->GetBestSize().y); // also while the button is hidden
    m_Rows = new wxBoxSizer(wxHORIZONTAL);
    m_Rows->Add(text, wxSizerFlags().Expand());
    m_Rows->Add(outcome, wxSizerFlags(1).Expand().Border(wxTOP, 0));
    auto* const frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(m_Rows, wxSizerFlags().Expand().Border(wxALL, kMargin));
    SetSizer(frame);
    Fit();
}

// With room for everything that may ever be shown, so that rows do not come and go with it.
int wxTextLineSearchPanel::WidthOfOneRow() const
{
    const wxString notice = WithText(_("'%s' not found in that direction"), "0123456789");
    int            width = kFieldWidth + GetTextExtent(HitsText(kManyHits, false)).x +
                GetTextExtent(notice).x + 2 * kMargin + 2 * kGap;
    for (const wxWindow* const control :
         {static_cast<wxWindow*>(m_Close), static_cast<wxWindow*>(m_Previous),
          static_cast<wxWindow*>(m_Next), static_cast<wxWindow*>(m_MatchCase),
          static_cast<wxWindow*>(m_Stop)})
    {
        width += control->GetBestSize().x + kGap;
    }
    return width;
}

// True when there were as many rows as that width takes already.
bool wxTextLineSearchPanel::ArrangeRows(int width)
{
    const bool two = width < WidthOfOneRow();
    if (two == (m_Rows->GetOrientation() == wxVERTICAL))
    {
        return true;
    }
    m_Rows->SetOrientation(two ? wxVERTICAL : wxHORIZONTAL);
    wxSizerItem* const outcome = m_Rows->GetItem(size_t{1});
    outcome->SetProportion(two ? 0 : 1);
    outcome->SetBorder(two ? kGap : 0);
    m_Field->SetMinSize(wxSize(two ? kLeastField : kFieldWidth, m_Field->GetMinHeight()));
    InvalidateBestSize();
    return false;
}

bool wxTextLineSearchPanel::InformFirstDirection(int direction, int size, int availableOtherDir)
{
    if (direction != wxHORIZONTAL || size <= 0)
    {
        return wxtPanel::InformFirstDirection(direction, size, availableOtherDir);
    }
    ArrangeRows(size);
    return true;
}

// For a parent without a sizer, which has not told the width before.
void wxTextLineSearchPanel::OnSize(wxSizeEvent& event)
{
    event.Skip();
    if (!ArrangeRows(event.GetSize().x))
    {
        SetSize(event.GetSize().x, GetBestSize().y);
    }
}

wxString wxTextLineSearchPanel::HitsText(int hits, bool counted)
{
    return wxString::Format(wxPLURAL("%d hit", "%d hits", static_cast<unsigned>(hits)), hits) +
           (counted ? wxString() : wxString::FromUTF8("\u2026"));
}

void wxTextLineSearchPanel::ShowMessage(const wxString& notice, const wxString& text)
{
    m_Notice = notice;
    m_NoticeText = text;
    m_Message->SetToolTip(WithText(notice, text.Left(kShownText))); // the row may be too short
    FitMessage();
}

// Where the room is short it is the text that is shortened: what came of it has to stay readable.
void wxTextLineSearchPanel::FitMessage()
{
    const wxClientDC dc(m_Message);
    const int        room = m_Message->GetSize().x - dc.GetTextExtent(WithText(m_Notice, "")).x;
    const wxString   text = wxControl::Ellipsize(m_NoticeText.Left(kShownText), dc, wxELLIPSIZE_END,
                                                 std::max(room, 0), wxELLIPSIZE_FLAGS_NONE);
    const wxString   message = WithText(m_Notice, text);
    if (message != m_Message->GetLabelText())
    {
        m_Message->SetLabelText(message);
    }
}

wxString wxTextLineSearchPanel::GetMessage() const
{
    return WithText(m_Notice, m_NoticeText);
}
