#pragma once

#include "textviews/wxTextLineCtrl.h"

/// What a view of live lines keeps, so that its program can run for months.
constexpr int k_MostLiveLines = 1000000;

/// A view of lines that come without end: while it follows, it stays at its end, unless the user
/// scrolls away from there or the search bar has found something that the next line would push out
/// of sight.
class FollowingText : public wxTextLineCtrl
{
public:
    /// Fills the parent, with the search bar below.
    explicit FollowingText(wxWindow* parent);
    ~FollowingText() override;

    /// Whether the user wants selected lines to be readable, which the scheme's own colours do not
    /// promise; without a choice they do. It is kept, and shown by all of the program.
    static bool IsReadableWanted();
    static void WantReadable(bool wanted);

    /// Adds a line at the end; its index.
    int Add(const String& line);
    /// Goes to the end and stays there, or no longer does.
    void SetFollowing(bool follow);
    /// Whether the next line would be followed.
    bool IsFollowing() const;

private:
    bool IsAtEnd() const;
    bool HoldsHit() const;

    bool m_Follow = true;
    int  m_PassedHit = -1; ///< The hit that the user has left behind to follow again; -1: none.
};

/// Appends what a menu bar offers of a text view, to be passed on to its `OnMenu`, with the keys at
/// which the view does so by itself.
void AppendTextCommands(wxMenu& menu);
/// The same for saving its lines, where the view has the keys throughout.
void AppendSave(wxMenu& menu, const wxString& label);
