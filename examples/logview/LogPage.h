#pragma once

#include "logview/LogReader.h"
#include "logview/OpenedFiles.h"

#include "appearance/wxTolvanColors.h"
#include "shell/wxTimed.h"

#include <optional>

class FollowingText;
class wxTextLineCtrl;

/// One file in the viewer, or several that are one text: its text and the search bar under it. The
/// text is there, and the file is read, once the page is shown, so that hundreds of files may be
/// open; a page that is hidden is looked after now and then. A thread reads, and the page shows
/// what has come bit by bit, so that neither a huge file nor a slow disk holds up the program.
class LogPage : public wxtPanel, private wxTimed
{
public:
    /// At that place of the file, once there is so much of it; the user may scroll before. With
    /// its bookmarks and its search.
    LogPage(wxWindow* parent, const OpenedFile& file);
    ~LogPage() override;

    bool Show(bool show = true) override;

    wxTextLineCtrl&          Text();
    const Path&              File() const { return m_Reader.FileName(); } ///< The first one.
    const std::vector<Path>& Files() const { return m_Reader.FileNames(); }
    bool                     IsMerged() const { return m_Reader.FileNames().size() > 1; }
    bool                     IsInput() const; ///< The standard input is in it.
    /// Gives it its name among the pages; at first by the names of the files without their folders.
    void     CallIt(const String& name) { m_Name = name; }
    wxString Title() const;    ///< That name, if need be shortened.
    wxString FullName() const; ///< In one line, whatever it holds.
    /// One line about the file: where it is, how much of it is shown, or what is wrong.
    wxString StatusText() const;

    OpenedFile Place() const; ///< To come back to, with all that the user has made of it.
    bool       IsFollowing() const;
    /// Whether the view stays at the end of the text as it grows.
    void SetFollowing(bool follow);

private:
    void OnTick() override;
    void NeedText();
    void Start();
    void ShowPieces();
    void ShowPiece(const LogReader::Piece& piece);
    bool HasAll() const;
    void ReturnToPlace();
    void ReturnBookmarks();
    void ReturnSearch();
    void LogState();
    void OnIdle(wxIdleEvent& event);
    void ShowLine(const String& line);
    int  AddLine(const String& line);
    void ShowPartialLine(const String& line);
    void ShowNote(const String& text);
    void ShowStored(const LogReader::Piece& piece);
    void ShowOrigins();
    int  OriginOf(int line) const;
    void EndFull();

    String                       m_Name;
    FollowingText*               m_Text = nullptr; ///< Null until the page is shown.
    LogReader                    m_Reader;
    std::deque<LogReader::Piece> m_Pieces;    ///< Have come and are not shown yet.
    OpenedFile                   m_Opened;    ///< As it was opened.
    std::optional<int>           m_Place;     ///< The first line that is to be seen yet.
    std::deque<int>              m_Bookmarks; ///< To be set yet.
    std::deque<uint8_t>          m_Origins;   ///< Of merged lines: which file each is of.
    int                          m_Ticks = 0;
    int                          m_PartialLine = -1; ///< Where the unfinished last line stands.
    bool                m_WasBookmarked = false;     ///< The unfinished line that was taken away.
    bool                m_IsStarted = false;
    bool                m_IsLogged = false; ///< The state is, once all was read.
    FileFollower::State m_LoggedState = FileFollower::State::kMissing;
};
