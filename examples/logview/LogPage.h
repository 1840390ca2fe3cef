#pragma once

#include "logview/FileFollower.h"

#include "appearance/wxTolvanColors.h"
#include "shell/wxTimed.h"

class FollowingText;
class wxTextLineCtrl;

/// One file in the viewer: its text and the search bar under it. The text is there, and the file is
/// read, once the page is shown, so that hundreds of files may be open; a page that is hidden is
/// looked after now and then. It reads in slices, so that even a huge file leaves the program
/// usable while it loads.
class LogPage : public wxtPanel, private wxTimed
{
public:
    LogPage(wxWindow* parent, const Path& file);
    ~LogPage() override;

    bool Show(bool show = true) override;

    wxTextLineCtrl& Text();
    const Path&     File() const { return m_Follower.FileName(); }
    wxString        Title() const;    ///< The file's name without its folder, if need be shortened.
    wxString        FullName() const; ///< In one line, whatever it holds.
    /// One line about the file: where it is, how much of it is shown, or what is wrong.
    wxString StatusText() const;

    bool IsFollowing() const;
    /// Whether the view stays at the end of the text as it grows.
    void SetFollowing(bool follow);

private:
    void OnTick() override;
    void NeedText();
    void ReadSlice();
    void OnIdle(wxIdleEvent& event);
    void OnKey(wxKeyEvent& event);
    void ShowLine(const String& line);
    int  AddLine(const String& line);
    void ShowPartialLine(const String& line);
    void ShowNotice(const String& text);

    FollowingText* m_Text = nullptr; ///< Null until the page is shown.
    FileFollower   m_Follower;
    int            m_Ticks = 0;
    int            m_PartialLine = -1;      ///< Where the unfinished last line stands.
    bool           m_WasBookmarked = false; ///< The unfinished line that has been taken away.
    bool           m_Reading = false;       ///< A further slice is on its way.
};
