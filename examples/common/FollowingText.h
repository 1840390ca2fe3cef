#pragma once

#include "textviews/wxTextLineCtrl.h"

#include <climits>

/// A view of lines that come without end: while it follows, it stays at its end, unless the user
/// scrolls away from there or the search bar has found something that the next line would push out
/// of sight.
class FollowingText : public wxTextLineCtrl
{
public:
    /// `mostLines`: of more, the first ones are dropped.
    explicit FollowingText(wxWindow* parent, int mostLines = INT_MAX);

    /// Adds a line at the end; its index.
    int Add(const String& line);
    /// Goes to the end and stays there, or no longer does.
    void SetFollowing(bool follow);
    /// Whether the next line would be followed.
    bool IsFollowing() const;

protected:
    void TellSaveProblem(const wxString& reason) override;

private:
    bool IsAtEnd() const;
    bool HoldsHit() const;

    int  m_MostLines;
    bool m_Follow = true;
    int  m_PassedHit = -1; ///< The hit that the user has left behind to follow again; -1: none.
};
