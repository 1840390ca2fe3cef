#include "logview/LogPage.h"

#include "appearance/wxTolvanString.h"
#include "common/FollowingText.h"
#include "vesta/Log.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/numformatter.h>

#include <algorithm>

namespace
{
// Bytes read between two looks at the user's events: some 5 ms.
constexpr size_t kSlice = 1u << 20;
constexpr size_t kTitleLength = 40; // characters
constexpr int    kHiddenTicks = 16; // between two looks at the file of a page that nobody sees

// A file may have any name; a title and a status are one line.
wxString InOneLine(const String& name)
{
    wxString line = wxtToWx(name);
    std::replace_if(
        line.begin(), line.end(), [](const wxUniChar& c) { return c < 0x20; }, L' ');
    return line;
}

FileFollower::Sink SinkOf(std::function<void(const String&)> onLine,
                          std::function<void(const String&)> onPartialLine,
                          std::function<void(const String&)> onRestart)
{
    return {std::move(onLine), std::move(onPartialLine), std::move(onRestart)};
}
} // namespace

LogPage::LogPage(wxWindow* parent, const Path& file)
    : wxtPanel(parent),
      m_Follower(file, SinkOf([this](const String& line) { ShowLine(line); },
                              [this](const String& line) { ShowPartialLine(line); },
                              [this](const String& how) { ShowNotice(how); }))
{
    Bind(wxEVT_IDLE, &LogPage::OnIdle, this);
    Bind(wxEVT_CHAR_HOOK, &LogPage::OnKey, this);
    m_Follower.Read(0);
}

LogPage::~LogPage() = default;

void LogPage::NeedText()
{
    if (!m_Text)
    {
        m_Text = new FollowingText(this);
        Layout();
    }
}

wxTextLineCtrl& LogPage::Text()
{
    NeedText();
    return *m_Text;
}

bool LogPage::Show(bool show)
{
    if (show && !m_Reading)
    {
        ReadSlice();
    }
    return wxtPanel::Show(show);
}

bool LogPage::IsFollowing() const
{
    return !m_Text || m_Text->IsFollowing();
}

wxString LogPage::Title() const
{
    const wxString name = InOneLine(m_Follower.FileName().Leaf());
    return name.length() <= kTitleLength
               ? name
               : name.Left(kTitleLength / 2) + wxUniChar(0x2026) + name.Right(kTitleLength / 2);
}

wxString LogPage::FullName() const
{
    return InOneLine(m_Follower.FileName().Text());
}

wxString LogPage::StatusText() const
{
    const wxString name = FullName();
    switch (m_Follower.CurrentState())
    {
    case FileFollower::State::kMissing:
        return wxString::Format(wxGetTranslation("%s does not exist yet"), name);
    case FileFollower::State::kUnreadable:
        return wxString::Format(wxGetTranslation("%s cannot be read: %s"), name,
                                wxtToWx(m_Follower.Problem()));
    case FileFollower::State::kFollowing:
        break;
    }
    const int  lines = m_Text ? m_Text->GetLineCount() : 0;
    const auto grouped = [](wxLongLong_t number)
    { return wxNumberFormatter::ToString(number, wxNumberFormatter::Style_WithThousandsSep); };
    return wxString::Format(wxGetTranslation("%s: %s line, %s bytes", "%s: %s lines, %s bytes",
                                             static_cast<unsigned>(lines)),
                            name, grouped(lines), grouped(m_Follower.Position()));
}

void LogPage::SetFollowing(bool follow)
{
    NeedText();
    m_Text->SetFollowing(follow);
}

void LogPage::OnTick()
{
    const bool isTime = IsShown() || (m_Text && ++m_Ticks % kHiddenTicks == 0);
    if (isTime && !m_Reading)
    {
        ReadSlice();
    }
}

void LogPage::ReadSlice()
{
    const bool isFirst = !m_Text;
    NeedText();
    const auto before = m_Follower.CurrentState();
    const bool wasEmpty = m_Text->GetLineCount() == 0;
    const bool follows = IsFollowing();
    m_Reading = m_Follower.Read(kSlice);
    if (!m_Reading)
    {
        m_Text->KeepArrivalTimes(); // what was there before came at some other time
    }
    if (isFirst || m_Follower.CurrentState() != before)
    {
        LogInfo(wxtFromWx(StatusText()));
    }
    if (follows && wasEmpty && m_Text->GetLineCount() > 0)
    {
        m_Text->ScrollToBottom();
    }
    if (m_Reading)
    {
        wxWakeUpIdle();
    }
}

// All that the user does comes before, and so does the end of the program: a timer that is due
// again after each slice would keep windows that have been closed from ever being destroyed.
void LogPage::OnIdle(wxIdleEvent& event)
{
    if (m_Reading)
    {
        ReadSlice();
    }
    event.Skip();
}

// A window that a page has for itself has no menu bar, and so none of its keys; those of the text
// are the view's own.
void LogPage::OnKey(wxKeyEvent& event)
{
    const auto* const frame = dynamic_cast<wxFrame*>(wxGetTopLevelParent(this));
    if (event.GetKeyCode() == WXK_F5 && !event.HasAnyModifiers() && frame && !frame->GetMenuBar())
    {
        SetFollowing(!IsFollowing());
        return;
    }
    event.Skip();
}

void LogPage::ShowLine(const String& line)
{
    AddLine(line);
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

void LogPage::ShowNotice(const String& text)
{
    m_PartialLine = -1;
    LogInfo(m_Follower.FileName().Text() + ": " + text);
    m_Text->Add("--- " + text + " ---");
}
