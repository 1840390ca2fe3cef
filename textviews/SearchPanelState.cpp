#include "textviews/search/BackgroundSearch.h"
#include "textviews/search/SearchField.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

wxTextSearchState wxTextLineSearchPanel::GetState() const
{
    return {GetText(),       GetMatchCase(), GetWholeWords(),
            GetExpression(), IsShown(),      GetOnlyMatching()};
}

// Typing would go to a hit, and so away from the place that the host has brought back, too.
void wxTextLineSearchPanel::SetState(const wxTextSearchState& state)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetState");
    m_Field->ChangeValue(state.text);
    m_MatchCase->SetValue(state.matchCase);
    m_WholeWords->SetValue(state.wholeWords);
    m_Expression->SetValue(state.expression);
    if (IsShown() && !state.isOpen)
    {
        const wxWeakRef<wxTextLineSearchPanel> self(this);
        Expand();
        if (!self)
        {
            return; // whoever has heard of the focus has closed the page
        }
    }
    else if (state.isOpen && !IsShown())
    {
        Show();
        Recall();
        if (GetParent())
        {
            GetParent()->Layout();
        }
    }
    LookAnew();
    if (!IsShown())
    {
        m_Search->Count(false); // nobody sees how many there are
        KeepWatch();
    }
    SetOnlyMatching(state.onlyMatching);
}
