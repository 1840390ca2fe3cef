#include "textviews/follow/FollowButton.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

wxDEFINE_EVENT(wxtEVT_TEXT_FOLLOW, wxCommandEvent);

void wxTextLineCtrl::SetFollowEnd(bool follow)
{
    CALL_ENTRY("wxTextLineCtrl::SetFollowEnd");
    m_MayFollow = follow;
    m_FollowEnd = follow;
    TellFollowing();
}

void wxTextLineCtrl::SetFollowing(bool follow)
{
    CALL_ENTRY("wxTextLineCtrl::SetFollowing");
    m_MayFollow = true;
    m_FollowEnd = follow;
    if (follow)
    {
        ScrollToBottom();
    }
    TellFollowing();
}

bool wxTextLineCtrl::IsFollowing() const
{
    return m_FollowEnd && IsAtEnd();
}

bool wxTextLineCtrl::IsAtEnd() const
{
    if (IsWrapped())
    {
        return !(TopNow() < Wrap().End());
    }
    return GetScrollPos(wxVERTICAL) + GetScrollThumb(wxVERTICAL) >= GetScrollRange(wxVERTICAL);
}

textviews::FollowButton* wxTextLineCtrl::FollowButton() const
{
    return static_cast<textviews::FollowButton*>(m_FollowButton.get());
}

void wxTextLineCtrl::ShowFollowButton(bool show)
{
    CALL_ENTRY("wxTextLineCtrl::ShowFollowButton");
    if (show == (FollowButton() != nullptr))
    {
        return;
    }
    if (wxTextLineSearchPanel* const panel = GetSearchPanel())
    {
        panel->ShowFollowButton(show);
    }
    if (!show)
    {
        FollowButton()->Destroy();
        m_FollowButton = nullptr;
        return;
    }
    auto* const button =
        new textviews::CornerFollowButton(this, [this] { SetFollowing(!IsFollowing()); });
    button->ShowState(IsFollowing());
    m_FollowButton = button;
    button->KeepClearOf(OverviewWidth());
}

// Every way of scrolling comes here. Away from the end nobody wants to be taken back by the next
// line; at the end everybody does.
void wxTextLineCtrl::SetScrollPos(int orientation, int position, bool refresh)
{
    if (orientation == wxVERTICAL && IsWrapped())
    {
        position = Wrap().MoveToPixel(position);
    }
    wxDoubleBufferedWindow::SetScrollPos(orientation, position, refresh);
    if (m_MayFollow && orientation == wxVERTICAL)
    {
        m_FollowEnd = IsAtEnd();
        TellFollowing();
    }
}

// Later, so that whoever hears of it may do with the view what they like.
void wxTextLineCtrl::TellFollowing()
{
    const bool following = IsFollowing();
    if (following == m_ToldFollowing)
    {
        return;
    }
    m_ToldFollowing = following;
    if (textviews::FollowButton* const button = FollowButton())
    {
        button->ShowState(following);
        if (wxTextLineSearchPanel* const panel = GetSearchPanel())
        {
            panel->ShowFollowing(following);
        }
    }
    wxCommandEvent event(wxtEVT_TEXT_FOLLOW, GetId());
    event.SetEventObject(this);
    event.SetInt(following ? 1 : 0);
    QueueEvent(event.Clone());
}
