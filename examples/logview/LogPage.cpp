#include "logview/LogPage.h"

#include "appearance/wxTolvanString.h"
#include "common/FollowingText.h"
#include "logview/LogFiles.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "textviews/wxTextSource.h"
#include "vesta/Log.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/numformatter.h>

#include <algorithm>
#include <chrono>

namespace
{
// How long pieces are shown between two looks at the user's events.
constexpr auto   kSlice = std::chrono::milliseconds(5);
constexpr int    kPiecesAtOnce = 64; // between two looks at the clock
constexpr size_t kTitleLength = 40;  // characters
constexpr int    kHiddenTicks = 16;  // between two looks at the file of a page that nobody sees

// A file may have any name; a title and a status are one line.
wxString InOneLine(const String& name)
{
    wxString line = wxtToWx(name);
    std::replace_if(
        line.begin(), line.end(), [](const wxUniChar& c) { return c < 0x20; }, L' ');
    return line;
}

// Of files that are one text: all, or how many there are besides the first one.
String NameOf(const std::vector<Path>& files)
{
    const std::vector<String> names = NamesApart(files);
    String                    all;
    for (const String& name : names)
    {
        all += (all.empty() ? "" : " + ") + name;
    }
    return all.size() <= kTitleLength ? all : names.front() + SFormat(" + %zu", names.size() - 1);
}
} // namespace

LogPage::LogPage(wxWindow* parent, const OpenedFile& file)
    : wxtPanel(parent),
      m_Reader(file.merged.empty() ? std::vector<Path>{file.name} : file.merged,
               [] { wxWakeUpIdle(); }),
      m_Opened(file),
      m_Bookmarks(file.bookmarks.begin(), file.bookmarks.end())
{
    if (!file.follows)
    {
        m_Place = file.firstLine;
    }
    if (IsMerged())
    {
        m_Name = NameOf(m_Reader.FileNames());
    }
    Bind(wxEVT_IDLE, &LogPage::OnIdle, this);
}

LogPage::~LogPage() = default;

void LogPage::NeedText()
{
    if (!m_Text)
    {
        m_Text = new FollowingText(this);
        if (m_Place)
        {
            m_Text->SetFollowing(false);
        }
        Layout();
        ShowOrigins();
        ReturnSearch();
    }
}

wxTextLineCtrl& LogPage::Text()
{
    NeedText();
    return *m_Text;
}

bool LogPage::Show(bool show)
{
    if (show)
    {
        Start();
    }
    return wxtPanel::Show(show);
}

void LogPage::Start()
{
    NeedText();
    m_IsStarted = true;
    m_Reader.Look();
}

OpenedFile LogPage::Place() const
{
    OpenedFile place = m_Opened;
    if (!m_Text)
    {
        return place;
    }
    place.firstLine = m_Place.value_or(m_Text->FirstSeenLine());
    place.follows = !m_Place && IsFollowing();
    place.bookmarks = m_Text->GetBookmarks();
    place.bookmarks.insert(place.bookmarks.end(), m_Bookmarks.begin(), m_Bookmarks.end());
    if (const wxTextLineSearchPanel* const panel = m_Text->GetSearchPanel())
    {
        const wxTextSearchState state = panel->GetState();
        place.search = {wxtFromWx(state.text), state.matchCase, state.wholeWords,
                        state.expression,      state.isOpen,    state.onlyMatching};
    }
    return place;
}

void LogPage::ReturnSearch()
{
    const OpenedSearch&          search = m_Opened.search;
    wxTextLineSearchPanel* const panel = m_Text->GetSearchPanel();
    if (panel && (!search.text.empty() || search.isOpen || search.onlyMatching))
    {
        panel->SetState({wxtToWx(search.text), search.matchCase, search.wholeWords,
                         search.expression, search.isOpen, search.onlyMatching});
    }
}

bool LogPage::HasAll() const
{
    return m_Pieces.empty() && m_Reader.IsIdle();
}

// A file that has become shorter has lost them.
void LogPage::ReturnBookmarks()
{
    while (!m_Bookmarks.empty() && m_Bookmarks.front() < m_Text->GetLineCount())
    {
        m_Text->SetBookmark(m_Bookmarks.front());
        m_Bookmarks.pop_front();
    }
    if (HasAll())
    {
        m_Bookmarks.clear();
    }
}

// The view stands at the start of its text until then. Whoever scrolls, or follows, meanwhile wants
// to be elsewhere.
void LogPage::ReturnToPlace()
{
    if (!m_Place)
    {
        return;
    }
    if (m_Text->FirstSeenLine() != 0 || IsFollowing())
    {
        m_Place.reset();
        return;
    }
    // Less would be the end of the text, which the view would follow from then on.
    const bool isThere = m_Text->GetLineCount() - *m_Place > m_Text->LinesInSight() + 1;
    if (isThere || HasAll())
    {
        m_Text->ShowFrom(*m_Place);
        m_Place.reset();
    }
}

bool LogPage::IsFollowing() const
{
    return !m_Text || m_Text->IsFollowing();
}

wxString LogPage::Title() const
{
    if (IsInput() && !IsMerged())
    {
        return wxGetTranslation("Standard Input");
    }
    const wxString name = InOneLine(m_Name.empty() ? File().Leaf() : m_Name);
    return name.length() <= kTitleLength
               ? name
               : name.Left(kTitleLength / 2) + wxUniChar(0x2026) + name.Right(kTitleLength / 2);
}

wxString LogPage::FullName() const
{
    wxString names;
    for (const Path& file : m_Reader.FileNames())
    {
        names += (names.empty() ? "" : ", ") + InOneLine(file.Text());
    }
    return IsInput() && !IsMerged() ? Title() : names;
}

bool LogPage::IsInput() const
{
    const std::vector<Path>& files = m_Reader.FileNames();
    return std::any_of(files.begin(), files.end(), &FileFollower::IsInput);
}

void LogPage::ShowOrigins()
{
    if (IsMerged())
    {
        m_Text->ShowOrigins(NamesApart(m_Reader.FileNames()),
                            [this](int line) { return OriginOf(line); });
    }
}

int LogPage::OriginOf(int line) const
{
    const auto index = static_cast<size_t>(line);
    return line >= 0 && index < m_Origins.size() ? m_Origins[index] : -1;
}

wxString LogPage::StatusText() const
{
    const auto     count = static_cast<unsigned>(m_Reader.FileNames().size());
    const wxString name =
        IsMerged() ? wxString::Format(wxGetTranslation("%u files by time"), count) : FullName();
    const LogReader::Status status = m_Reader.StatusNow();
    switch (status.state)
    {
    case FileFollower::State::kMissing:
        return wxString::Format(wxGetTranslation("%s does not exist yet"), name);
    case FileFollower::State::kUnreadable:
        return wxString::Format(wxGetTranslation("%s cannot be read: %s"), name,
                                wxtToWx(status.problem));
    case FileFollower::State::kFollowing:
    case FileFollower::State::kGone:
        break;
    }
    const int  lines = m_Text ? m_Text->GetLineCount() : 0;
    const auto grouped = [](wxLongLong_t number)
    { return wxNumberFormatter::ToString(number, wxNumberFormatter::Style_WithThousandsSep); };
    wxString text =
        wxString::Format(wxGetTranslation("%s: %s line, %s bytes", "%s: %s lines, %s bytes",
                                          static_cast<unsigned>(lines)),
                         name, grouped(lines), grouped(status.position));
    if (m_Text && m_Text->GetReachableLines() != lines)
    {
        text += wxString::Format(wxGetTranslation("; the first %s can be scrolled to"),
                                 grouped(m_Text->GetReachableLines()));
    }
    if (status.state == FileFollower::State::kGone)
    {
        text += wxGetTranslation("; the file is no longer there");
    }
    return text;
}

void LogPage::SetFollowing(bool follow)
{
    NeedText();
    m_Text->SetFollowing(follow);
}

void LogPage::OnTick()
{
    if (m_IsStarted && (IsShown() || ++m_Ticks % kHiddenTicks == 0))
    {
        ShowPieces();
        m_Reader.Look();
    }
}

void LogPage::ShowPieces()
{
    const auto end = std::chrono::steady_clock::now() + kSlice;
    const bool wasEmpty = m_Text->GetLineCount() == 0;
    const bool follows = IsFollowing();
    if (m_Pieces.empty())
    {
        m_Pieces = m_Reader.Take();
    }
    for (int i = 1; !m_Pieces.empty(); ++i)
    {
        const LogReader::Piece piece = std::move(m_Pieces.front());
        m_Pieces.pop_front();
        ShowPiece(piece);
        const bool isLarge = piece.kind == LogReader::Kind::kStored; // of thousands of lines
        if ((isLarge || i % kPiecesAtOnce == 0) && std::chrono::steady_clock::now() >= end)
        {
            break;
        }
    }
    if (follows && wasEmpty && m_Text->GetLineCount() > 0)
    {
        m_Text->ScrollToBottom();
    }
    if (!m_Pieces.empty())
    {
        wxWakeUpIdle();
    }
    ReturnToPlace();
    ReturnBookmarks();
    LogState();
}

// When the file has been read for the first time, and when something is wrong or right again.
void LogPage::LogState()
{
    if (HasAll())
    {
        const FileFollower::State state = m_Reader.StatusNow().state;
        if (!m_IsLogged || state != m_LoggedState)
        {
            LogInfo(wxtFromWx(StatusText()));
        }
        m_IsLogged = true;
        m_LoggedState = state;
        m_Text->KeepArrivalTimes(); // what was there before came at some other time
    }
}

void LogPage::ShowPiece(const LogReader::Piece& piece)
{
    switch (piece.kind)
    {
    case LogReader::Kind::kLine:
        ShowLine(piece.text);
        break;
    case LogReader::Kind::kPartialLine:
        ShowPartialLine(piece.text);
        break;
    case LogReader::Kind::kCut:
        m_Text->SetGoesOn(m_Text->GetLineCount() - 1);
        break;
    case LogReader::Kind::kNote:
        ShowNote(piece.text);
        break;
    case LogReader::Kind::kStored:
        ShowStored(piece);
        break;
    }
}

// All that the user does comes before, and so does the end of the program: a timer that is due
// again after each slice would keep windows that have been closed from ever being destroyed.
void LogPage::OnIdle(wxIdleEvent& event)
{
    if (m_IsStarted)
    {
        ShowPieces();
    }
    event.Skip();
}

void LogPage::ShowLine(const String& line)
{
    if (AddLine(line) < 0)
    {
        EndFull();
    }
}

// A line that has grown comes anew, and keeps its bookmark.
int LogPage::AddLine(const String& line)
{
    const int index = m_Text->Add(line);
    if (m_WasBookmarked && index >= 0)
    {
        m_Text->SetBookmark(index);
    }
    m_WasBookmarked = false;
    return index;
}

void LogPage::ShowPartialLine(const String& line)
{
    if (m_PartialLine >= 0 && m_PartialLine < m_Text->GetLineCount())
    {
        m_WasBookmarked = m_Text->HasBookmark(m_PartialLine);
        m_Text->Erase(m_PartialLine);
    }
    m_PartialLine = line.empty() ? -1 : AddLine(line);
}

void LogPage::ShowNote(const String& text)
{
    m_PartialLine = -1;
    LogInfo(wxtFromWx(FullName()) + ": " + text);
    m_Text->Add("--- " + text + " ---");
}

void LogPage::ShowStored(const LogReader::Piece& piece)
{
    int lines = 0;
    for (const wxTextStretch& stretch : piece.stretches)
    {
        lines += stretch.lines;
    }
    m_Origins.insert(m_Origins.end(), piece.origins.begin(), piece.origins.end());
    if (m_Text->AppendStored(piece.source, piece.stretches) < lines)
    {
        EndFull();
    }
}

// The note needs a place, too.
void LogPage::EndFull()
{
    m_Reader.Stop();
    m_Pieces.clear();
    m_Text->Erase(m_Text->GetLineCount() - 1);
    ShowNote("There are more lines than can be shown; the rest is left out");
}
