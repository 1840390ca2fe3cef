#include "textviews/follow/FollowButton.h"
#include "textviews/search/BarRows.h"
#include "textviews/search/SearchField.h"
#include "textviews/search/searchCancel.xpm"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int kFieldWidth = 220; // pixels
constexpr int kLeastField = 80;  // pixels, where there is no room for more
constexpr int kGap = 6;          // pixels between the controls
constexpr int kMargin = 4;       // pixels around them
constexpr int kManyHits = 1'000'000;
} // namespace

void wxTextLineSearchPanel::MakeControls()
{
    m_Close = new wxtBitmapButton(this, wxID_ANY, wxBitmap(searchCancel_xpm), wxDefaultPosition,
                                  wxDefaultSize, wxBORDER_NONE);
    m_Close->SetToolTip(_("Close"));
    m_Field = new textviews::SearchField(this, kFieldWidth);
    m_Previous = new wxtButton(this, wxID_ANY, _("Previous"));
    m_Next = new wxtButton(this, wxID_ANY, _("Next"));
    m_Follow = new textviews::FollowButton(this,
                                           [this]
                                           {
                                               if (m_View)
                                               {
                                                   m_View->SetFollowing(!m_View->IsFollowing());
                                               }
                                           });
    m_Follow->Hide();
    m_MatchCase = new wxtCheckBox(this, wxID_ANY, _("Match Case"));
    m_WholeWords = new wxtCheckBox(this, wxID_ANY, _("Whole Words"));
    m_Expression = new wxtCheckBox(this, wxID_ANY, _("Regular Expression"));
    m_MarkAll = new wxtCheckBox(this, wxID_ANY, _("Mark All"));
    m_AsYouType = new wxtCheckBox(this, wxID_ANY, _("As You Type"));
    m_OnlyMatching = new wxtCheckBox(this, wxID_ANY, _("Only Matching Lines"));
    m_OnlyMatching->Hide();
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
    m_FieldPart = new wxBoxSizer(wxHORIZONTAL);
    m_FieldPart->Add(m_Close, one);
    m_FieldPart->Add(m_Field, wxSizerFlags(wide).Border(wxRIGHT, kGap));
    m_FieldPart->Add(m_Previous, one);
    m_FieldPart->Add(m_Next, wxSizerFlags().CentreVertical());
    m_FieldPart->Add(m_Follow, wxSizerFlags().CentreVertical().Border(wxLEFT, kGap));
    m_OutcomePart = new wxBoxSizer(wxHORIZONTAL);
    m_OutcomePart->Add(m_HitCount, one);
    m_OutcomePart->Add(m_Stop, one);
    m_OutcomePart->Add(m_Message, wide);
    m_OutcomePart->SetMinSize(0, m_Stop->GetBestSize().y); // also while the button is hidden
    m_Rows = new wxBoxSizer(wxVERTICAL);
    auto* const frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(m_Rows, wxSizerFlags().Expand().Border(wxALL, kMargin));
    SetSizer(frame);
    FitParts();
}

// As wide as the field's part, whatever the rows: a host that asks for it must not get wide.
void wxTextLineSearchPanel::FitParts()
{
    const std::vector<int> widths = WidthsOfParts();
    PutIntoRows(textviews::RowsFor(widths, kGap, widths.front()));
    SetMinSize(wxSize(widths.front() + 2 * kMargin, wxDefaultCoord));
    Fit();
}

void wxTextLineSearchPanel::ShowFollowButton(bool show)
{
    CALL_ENTRY("wxTextLineSearchPanel::ShowFollowButton");
    if (m_Follow->HasFocus())
    {
        m_Field->SetFocus(); // a button that goes would take the keyboard with it
    }
    m_Follow->Show(show);
    ShowFollowing(m_View && m_View->IsFollowing());
    FitParts();
    if (GetParent())
    {
        GetParent()->Layout();
    }
}

void wxTextLineSearchPanel::ShowFollowing(bool following)
{
    CALL_ENTRY("wxTextLineSearchPanel::ShowFollowing");
    m_Follow->ShowState(following);
}

// Those that are there.
std::vector<wxtCheckBox*> wxTextLineSearchPanel::Choices() const
{
    std::vector<wxtCheckBox*> choices{m_MatchCase, m_WholeWords, m_Expression, m_MarkAll,
                                      m_AsYouType};
    if (OffersOnlyMatching())
    {
        choices.push_back(m_OnlyMatching);
    }
    return choices;
}

// With room for everything that may ever be shown, so that rows do not come and go with it.
std::vector<int> wxTextLineSearchPanel::WidthsOfParts() const
{
    const auto widthOf = [](const wxWindow* control) { return control->GetBestSize().x; };
    wxString   notice = _("'%s' not found in that direction");
    notice.Replace("%s", "0123456789", false);
    const int        follow = m_Follow->IsShown() ? widthOf(m_Follow) + kGap : 0;
    std::vector<int> widths{kFieldWidth + widthOf(m_Close) + widthOf(m_Previous) + widthOf(m_Next) +
                            follow + 3 * kGap};
    for (const wxtCheckBox* const choice : Choices())
    {
        widths.push_back(widthOf(choice));
    }
    widths.push_back(GetTextExtent(TextFor(kManyHits, kManyHits, false)).x + widthOf(m_Stop) +
                     GetTextExtent(notice).x + 3 * kGap);
    return widths;
}

// True when they are there already.
bool wxTextLineSearchPanel::ArrangeRows(int width)
{
    const std::vector<int> widths = WidthsOfParts();
    const int              room = width - 2 * kMargin;
    const std::vector<int> rows = textviews::RowsFor(widths, kGap, room);
    const int              least = room < widths.front() ? kLeastField : kFieldWidth;
    if (rows == m_RowOfPart && m_Field->GetMinWidth() == least)
    {
        return true;
    }
    m_Field->SetMinSize(wxSize(least, m_Field->GetMinHeight()));
    PutIntoRows(rows);
    InvalidateBestSize();
    return false;
}

// The outcome is as wide as its row lets it be, and so is the field in a row without that.
void wxTextLineSearchPanel::PutIntoRows(const std::vector<int>& rows)
{
    for (wxSizerItem* const row : m_Rows->GetChildren())
    {
        while (!row->GetSizer()->IsEmpty())
        {
            row->GetSizer()->Detach(0);
        }
    }
    m_Rows->Clear();
    m_RowOfPart = rows;
    const std::vector<wxtCheckBox*> choices = Choices();
    std::vector<wxBoxSizer*>        sizers;
    const auto                      rowOf = [&](size_t part)
    {
        while (static_cast<int>(sizers.size()) <= rows[part])
        {
            sizers.push_back(new wxBoxSizer(wxHORIZONTAL));
            const int gap = sizers.size() > 1 ? kGap : 0;
            m_Rows->Add(sizers.back(), wxSizerFlags().Expand().Border(wxTOP, gap));
        }
        return sizers[static_cast<size_t>(rows[part])];
    };
    const auto one = [](int proportion)
    { return wxSizerFlags(proportion).CentreVertical().Border(wxRIGHT, kGap); };
    const bool isAlone = rows.front() != rows.back();
    rowOf(0)->Add(m_FieldPart, one(isAlone ? 1 : 0));
    for (size_t i = 0; i < choices.size(); ++i)
    {
        rowOf(i + 1)->Add(choices[i], one(0));
    }
    rowOf(rows.size() - 1)->Add(m_OutcomePart, wxSizerFlags(1).CentreVertical());
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
