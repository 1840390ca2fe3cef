#include "textviews/wxTextLineCtrl.h"

#include "internal/port/PopUps.h"
#include "internal/port/Scrollbars.h"
#include "internal/scrolling/ScrollModel.h"
#include "textviews/drawing/DrawnLines.h"
#include "textviews/drawing/FontExtents.h"
#include "textviews/drawing/StyleColours.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/follow/OwnMove.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/rules/Ruling.h"
#include "textviews/saving/LineRun.h"
#include "textviews/search/LineWatcher.h"
#include "textviews/search/MarkedHit.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextSource.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/app.h>

#include <algorithm>
#include <climits>

namespace
{
constexpr int kLimitBlocks = 16; // of the lines kept, one is dropped at a time

String WithoutTabs(const String& line)
{
    String expanded;
    expanded.reserve(line.size() + 32);
    for (const char c : line)
    {
        if (c == '\t')
        {
            expanded += textviews::k_TabReplacement;
        }
        else
        {
            expanded += c;
        }
    }
    return expanded;
}

int Saturated(int64_t count)
{
    return static_cast<int>(std::min<int64_t>(count, INT_MAX - 1));
}

// On any thread, and which view it was may be no more.
void ShowLateLines()
{
    textviews::Wrapping::LinesCame();
    if (wxTheApp)
    {
        wxTheApp->CallAfter(&wxDoubleBufferedWindow::RedrawAll);
    }
}
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxTextLineCtrl, wxDoubleBufferedWindow)
    EVT_LEFT_DOWN(wxTextLineCtrl::OnLeftClick)
    EVT_LEFT_DCLICK(wxTextLineCtrl::OnLeftDouble)
    EVT_LEFT_UP(wxTextLineCtrl::OnLeftUp)
    EVT_MOUSE_CAPTURE_LOST(wxTextLineCtrl::OnCaptureLoss)
    EVT_MOTION(wxTextLineCtrl::OnMouseMove)
    EVT_LEAVE_WINDOW(wxTextLineCtrl::OnMouseLeave)
    EVT_RIGHT_DOWN(wxTextLineCtrl::OnRightClick)
    EVT_CONTEXT_MENU(wxTextLineCtrl::OnContextMenu)
    EVT_KEY_DOWN(wxTextLineCtrl::OnKey)
    EVT_MOUSEWHEEL(wxTextLineCtrl::OnWheel)
    EVT_SIZE(wxTextLineCtrl::OnSize)
    EVT_MENU_RANGE(id_SelectAll, id_CopyPlain, wxTextLineCtrl::OnMenu)
    EVT_MENU(id_OnlyMatching, wxTextLineCtrl::OnMenu)
    EVT_MENU_RANGE(id_GoToLine, id_WrapLines, wxTextLineCtrl::OnMenu)
    EVT_MENU_RANGE(id_NextError, id_PreviousError, wxTextLineCtrl::OnMenu)
wxEND_EVENT_TABLE()
// clang-format on

wxTextLineCtrl::wxTextLineCtrl(wxWindow* parent)
    : wxTextLineCtrl(parent, std::make_unique<textviews::LineStore>(&ShowLateLines))
{
    MakeSearchPanel();
}

wxTextLineCtrl::wxTextLineCtrl(wxWindow* parent, std::unique_ptr<textviews::LineStore> lines)
    : wxDoubleBufferedWindow(parent, wxID_ANY, wxBORDER_NONE | wxWANTS_CHARS),
      m_Font(&textviews::_FontExtents::Get()),
      m_Lines(std::move(lines)),
      m_Places(std::make_unique<textviews::ShownLines>()),
      m_Shown(static_cast<textviews::ShownLines*>(m_Places.get())),
      m_Colours(std::make_unique<textviews::StyleColours>()),
      m_Hits(std::make_unique<textviews::VisibleHits>()),
      m_Hit(std::make_unique<textviews::MarkedHit>()),
      m_Selection(std::make_unique<textviews::TextSelection>()),
      m_Drawn(std::make_unique<textviews::DrawnLines>()),
      m_Gutter(std::make_unique<textviews::Gutter>()),
      m_Ruling(std::make_unique<textviews::Ruling>(*m_Lines, &wxWakeUpIdle)),
      m_Wrap(std::make_unique<textviews::Wrapping>(*m_Lines, *m_Shown)),
      m_TextSize(textviews::_FontExtents::k_Points)
{
    CALL_ENTRY("wxTextLineCtrl::wxTextLineCtrl");
    Manage(this);
    m_BackgroundName = color_WindowBGLighter;
    RefreshColors();
    internal::RefuseNativeScrollKeys(*this); // every key is passed on, and would scroll once more
    SetFont(m_Font->font);
    m_Buffer.UseScreen();
    m_KeepsDrawn = true;
    m_Gather = [this] { AskForChangedLines(); };
    m_ColumnWidth = static_cast<int>(m_Font->columnWidth);
    m_LineHeight = static_cast<int>(m_Font->lineHeight);
    SetScrollbar(wxHORIZONTAL, 0, 0, 0);
    SetScrollbar(wxVERTICAL, 0, 0, 0);
    const auto redraw = [this](wxFocusEvent& event)
    {
        event.Skip();
        Redraw();
    };
    Bind(wxEVT_IDLE, &wxTextLineCtrl::OnRulesIdle, this);
    Bind(wxEVT_IDLE, &wxTextLineCtrl::OnRunIdle, this);
    Bind(wxEVT_SET_FOCUS, redraw);
    Bind(wxEVT_KILL_FOCUS, redraw);
}

wxTextLineCtrl::~wxTextLineCtrl()
{
    CALL_ENTRY("wxTextLineCtrl::~wxTextLineCtrl");
    SendDestroyEvent(); // who shows its lines elsewhere leaves them while they are there
    if (m_MenuIsOpen)
    {
        internal::ClosePopUps(); // its commands would go to a window that is no more
    }
    if (m_OwnsSearchPanel && m_SearchPanel && GetParent() && !GetParent()->IsBeingDeleted())
    {
        m_SearchPanel->Destroy();
    }
}

// Nothing here may cost more than constant time, measure text or touch the native scrollbars:
// programs append millions of lines.
int wxTextLineCtrl::Append(const String& line, bool sorted)
{
    CALL_ENTRY("wxTextLineCtrl::Append");
    if (line.find('\t') != String::npos)
    {
        return Append(WithoutTabs(line), sorted);
    }
    if (m_Lines->IsFull())
    {
        LogWarning("wxTextLineCtrl::Append: there are as many lines as can be counted");
        return -1;
    }
    int index = m_Lines->Count();
    if (sorted)
    {
        index = InsertSorted(line);
    }
    else
    {
        m_Lines->Append(line);
    }
    TellInserted(index, 1);
    Extend(line, index);
    return std::max(index - DropOldest(), -1);
}

int wxTextLineCtrl::Append(const String& line, Time came)
{
    const textviews::ArrivalTimes::AllCame then(m_Gutter->arrivals.get(), came);
    return Append(line, false);
}

void wxTextLineCtrl::TellInserted(int first, int count)
{
    for (textviews::LineWatcher* const watcher : m_Watchers)
    {
        for (int line = first; line < first + count; ++line)
        {
            watcher->LineInserted(line);
        }
    }
}

int wxTextLineCtrl::AppendStored(const std::shared_ptr<const wxTextSource>& source,
                                 const std::vector<wxTextStretch>&          stretches)
{
    CALL_ENTRY("wxTextLineCtrl::AppendStored");
    const int before = m_Lines->Count();
    int64_t   cells = 0;
    for (const wxTextStretch& stretch : stretches)
    {
        m_Lines->AppendStored(source, stretch);
        cells = std::max(cells, stretch.cells);
    }
    const int count = m_Lines->Count() - before;
    if (count > 0)
    {
        TellInserted(before, count);
        m_StoredCells = std::max(m_StoredCells, cells);
        WidenTo(cells);
        m_LineCount = m_Lines->Count();
        FitGutter();
        AdjustScrollbarsLater();
        GatherLater();
        DropOldest();
    }
    return count;
}

int wxTextLineCtrl::GetReachableLines() const
{
    return std::min(m_Lines->Count(), INT_MAX / m_LineHeight);
}

void wxTextLineCtrl::SetLineLimit(int lines)
{
    CALL_ENTRY("wxTextLineCtrl::SetLineLimit");
    m_LineLimit = std::max(lines, 0);
    DropOldest();
}

// The number of lines that are gone.
int wxTextLineCtrl::DropOldest()
{
    const int tooMany = m_Lines->Count() - m_LineLimit;
    if (m_LineLimit == 0 || tooMany <= 0)
    {
        return 0;
    }
    const int                   count = tooMany + m_LineLimit / kLimitBlocks;
    const long long             position = GetScrollPos(wxVERTICAL);
    const bool                  follows = IsFollowing();
    const textviews::TextAnchor first = TopAnchor();
    for (int i = 0; i < count; ++i)
    {
        Drop(0);
    }
    m_Gutter->dropped += count;
    LinesMoved();
    if (!follows && IsWrapped())
    {
        GoToAnchor(first.line < count ? textviews::TextAnchor()
                                      : textviews::TextAnchor{first.line - count, first.cell});
    }
    else if (!follows)
    {
        const textviews::OwnMove move(m_MayFollow);
        ScrollTo(wxVERTICAL, position - static_cast<long long>(count) * m_LineHeight);
    }
    return count;
}

int wxTextLineCtrl::InsertSorted(const String& line)
{
    const int index = m_Lines->LowerBound(line);
    if (index < m_Lines->Count())
    {
        m_Selection->LineInserted(index);
        m_MarkedLine = textviews::IndexAfterInsert(m_MarkedLine, index);
        m_HoverLine = textviews::IndexAfterInsert(m_HoverLine, index);
        m_MenuLine = textviews::IndexAfterInsert(m_MenuLine, index);
        m_Wrap->LineInserted(index);
        m_Places->Forget();
        m_Hits->Forget();
        m_Ruling->visible.Forget();
    }
    m_Lines->Insert(index, line);
    return index;
}

void wxTextLineCtrl::Extend(const String& line, int index)
{
    Widen(line);
    if (index < m_Lines->Count() - 1)
    {
        LinesMoved();
        return;
    }
    m_LineCount = m_Lines->Count();
    FitGutter();
    AdjustScrollbarsLater();
    GatherLater(); // a line that is not in view changes no picture
}

void wxTextLineCtrl::Widen(std::string_view line)
{
    const auto width = [this](int64_t cells)
    { return internal::ScrollRange(Saturated(cells) + 1, m_ColumnWidth); };
    // No line has more cells than bytes. Most are not counted: they are shorter than the longest.
    if (width(static_cast<int64_t>(line.size())) > m_TextWidth &&
        width(m_Shown->MostCellsOf(line)) > m_TextWidth)
    {
        WidenTo(m_Shown->CellCountOf(line));
    }
}

void wxTextLineCtrl::WidenTo(int64_t cells)
{
    m_TextWidth = std::max(m_TextWidth, internal::ScrollRange(Saturated(cells) + 1, m_ColumnWidth));
    FitContentWidth();
}

// Lines that lie in a file are not read for it: they are as wide as their bytes, at most.
void wxTextLineCtrl::MeasureAll()
{
    m_TextWidth = 0;
    WidenTo(m_StoredCells);
    for (int line = m_Lines->NextInMemory(0); line < m_Lines->Count();)
    {
        const textviews::LineStore::Block block = m_Lines->BlockOf(line);
        for (int i = 0; i < block.lineCount; ++i)
        {
            Widen(block.Line(i));
        }
        line = m_Lines->NextInMemory(block.firstLine + block.lineCount);
    }
}

void wxTextLineCtrl::LinesMoved()
{
    m_LineCount = m_Lines->Count();
    FitGutter();
    AdjustScrollbarsLater();
    Redraw();
}

void wxTextLineCtrl::Erase(int index)
{
    CALL_ENTRY("wxTextLineCtrl::Erase");
    if (IsLine(index, "Erase"))
    {
        Drop(index);
        LinesMoved();
    }
}

bool wxTextLineCtrl::IsLine(int line, const char* where) const
{
    const bool isLine = line >= 0 && line < m_Lines->Count();
    if (!isLine)
    {
        LogWarning(SFormat("wxTextLineCtrl::%s: there is no line %d among %d", where, line,
                           m_Lines->Count()));
    }
    return isLine;
}

void wxTextLineCtrl::SetGoesOn(int line)
{
    CALL_ENTRY("wxTextLineCtrl::SetGoesOn");
    if (IsLine(line, "SetGoesOn"))
    {
        m_Lines->SetGoesOn(line);
    }
}

void wxTextLineCtrl::Drop(int index)
{
    if (!m_Watchers.empty())
    {
        m_Lines->LineNow(index); // they may look at it, and a disk is waited for here
    }
    for (textviews::LineWatcher* const watcher : m_Watchers)
    {
        watcher->LineErased(index);
    }
    m_Lines->Erase(index);
    m_Selection->LineErased(index);
    m_MarkedLine = textviews::IndexAfterErase(m_MarkedLine, index);
    m_HoverLine = textviews::IndexAfterErase(m_HoverLine, index);
    m_MenuLine = textviews::IndexAfterErase(m_MenuLine, index);
    m_Wrap->LineErased(index);
    m_Places->Forget();
    m_Hits->Forget();
    m_Ruling->visible.Forget();
}

void wxTextLineCtrl::Clear()
{
    CALL_ENTRY("wxTextLineCtrl::Clear");
    m_Lines->Clear();
    m_StoredCells = 0;
    m_Places->Forget();
    m_Hits->Forget();
    m_Ruling->visible.Forget();
    SelectNone();
    m_MarkedLine = -1;
    m_MenuLine = -1;
    m_Gutter->dropped = 0;
    for (size_t i = 0; i < m_Watchers.size(); ++i) // whoever hears of it may stop to watch
    {
        m_Watchers[i]->LinesCleared();
    }
    Redraw();
}

void wxTextLineCtrl::Watch(textviews::LineWatcher& watcher, bool on)
{
    CALL_ENTRY("wxTextLineCtrl::Watch");
    m_Watchers.erase(std::remove(m_Watchers.begin(), m_Watchers.end(), &watcher), m_Watchers.end());
    if (on)
    {
        m_Watchers.push_back(&watcher);
    }
}

void wxTextLineCtrl::TellLook()
{
    for (size_t i = 0; i < m_Watchers.size(); ++i)
    {
        m_Watchers[i]->LookChanged();
    }
}

int wxTextLineCtrl::GetLineCount() const
{
    return m_Lines->Count();
}

String wxTextLineCtrl::GetLine(int index) const
{
    CALL_ENTRY("wxTextLineCtrl::GetLine");
    return String(std::string(m_Lines->LineNow(index)));
}

void wxTextLineCtrl::SelectAll()
{
    CALL_ENTRY("wxTextLineCtrl::SelectAll");
    m_Selection->SelectAll(m_Lines->Count());
    GatherLater();
}

void wxTextLineCtrl::SelectNone()
{
    CALL_ENTRY("wxTextLineCtrl::SelectNone");
    if (m_Selection->Place() != -1)
    {
        m_Selection->Clear();
        StopSelecting();
        GatherLater();
    }
}

void wxTextLineCtrl::StopSelecting()
{
    CALL_ENTRY("wxTextLineCtrl::StopSelecting");
    if (m_Selecting)
    {
        m_Selecting = false;
        LetMouseGo();
    }
}

void wxTextLineCtrl::SetReadableSelection(bool on)
{
    CALL_ENTRY("wxTextLineCtrl::SetReadableSelection");
    if (on != m_ReadableSelection)
    {
        m_ReadableSelection = on;
        TellLook();
        Redraw();
    }
}

int wxTextLineCtrl::GetSelectionAnchor() const
{
    return m_Selection->Anchor();
}

int wxTextLineCtrl::GetSelectionEnd() const
{
    return m_Selection->End();
}

void wxTextLineCtrl::SetHighlightLine(int line)
{
    CALL_ENTRY("wxTextLineCtrl::SetHighlightLine");
    if (line != m_HoverLine)
    {
        m_HoverLine = line;
        GatherLater();
    }
}
