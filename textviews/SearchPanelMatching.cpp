#include "textviews/search/BackgroundSearch.h"
#include "textviews/search/SearchCompanion.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

#include <utility>

void wxTextLineSearchPanel::OfferOnlyMatching(std::function<void(bool)> onChoice)
{
    CALL_ENTRY("wxTextLineSearchPanel::OfferOnlyMatching");
    m_OnOnlyMatching = std::move(onChoice);
    m_OnlyMatching->Show(OffersOnlyMatching());
    FitParts();
    if (GetParent())
    {
        GetParent()->Layout();
    }
}

bool wxTextLineSearchPanel::GetOnlyMatching() const
{
    return m_OnlyMatching->GetValue();
}

void wxTextLineSearchPanel::SetOnlyMatching(bool on)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetOnlyMatching");
    if (OffersOnlyMatching() && on != GetOnlyMatching())
    {
        m_OnlyMatching->SetValue(on);
        m_OnOnlyMatching(on);
    }
}

// Without a text there would be nothing to see: the user is asked for it.
void wxTextLineSearchPanel::ToggleOnlyMatching()
{
    CALL_ENTRY("wxTextLineSearchPanel::ToggleOnlyMatching");
    if (!OffersOnlyMatching())
    {
        return;
    }
    SetOnlyMatching(!GetOnlyMatching());
    Remember();
    if (GetOnlyMatching() && GetText().empty() && !IsShown())
    {
        Expand();
    }
}

// By a click.
void wxTextLineSearchPanel::OnOnlyMatching()
{
    Remember();
    m_OnOnlyMatching(GetOnlyMatching());
}

void wxTextLineSearchPanel::Accompany(textviews::SearchCompanion* companion)
{
    CALL_ENTRY("wxTextLineSearchPanel::Accompany");
    m_Companion = companion;
    TellCompanion();
}

void wxTextLineSearchPanel::TellCompanion()
{
    if (m_Companion)
    {
        m_Companion->LookFor(m_Search->Finder(), m_Search->LooksAtShown());
    }
}
