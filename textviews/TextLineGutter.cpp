#include "appearance/wxTolvanString.h"
#include "internal/text/OneLine.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/gutter/GutterPainter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>
#include <climits>

namespace
{
constexpr size_t kOriginLength = 18; // characters that a place's name takes

// Names of files differ at both ends.
std::string ShortName(const String& name)
{
    const wxString whole = internal::OneLine(wxtToWx(name));
    const size_t   half = kOriginLength / 2;
    const wxString cut = whole.Left(half) + wxUniChar(0x2026) + whole.Right(half - 1);
    return wxtFromWx(whole.length() <= kOriginLength ? whole : cut);
}
} // namespace

void wxTextLineCtrl::ShowLineNumbers(bool show)
{
    CALL_ENTRY("wxTextLineCtrl::ShowLineNumbers");
    m_Gutter->showNumbers = show;
    FitGutter();
}

bool wxTextLineCtrl::HasLineNumbers() const
{
    return m_Gutter->showNumbers;
}

void wxTextLineCtrl::ShowArrivalTimes(bool show)
{
    CALL_ENTRY("wxTextLineCtrl::ShowArrivalTimes");
    m_Gutter->showTimes = show;
    FitGutter();
}

bool wxTextLineCtrl::HasArrivalTimes() const
{
    return m_Gutter->showTimes;
}

void wxTextLineCtrl::KeepArrivalTimes()
{
    CALL_ENTRY("wxTextLineCtrl::KeepArrivalTimes");
    if (!m_Gutter->arrivals)
    {
        m_Gutter->arrivals = std::make_unique<textviews::ArrivalTimes>(m_Lines->Count());
        Watch(*m_Gutter->arrivals, true);
        FitGutter();
    }
}

void wxTextLineCtrl::ShowOrigins(const std::vector<String>&   names,
                                 std::function<int(int line)> originOf)
{
    CALL_ENTRY("wxTextLineCtrl::ShowOrigins");
    m_Gutter->origins = names;
    m_Gutter->originOf = std::move(originOf);
    m_Gutter->shownOrigins.clear();
    for (const String& name : names)
    {
        m_Gutter->shownOrigins.push_back(ShortName(name));
    }
    FitGutter();
    TellLook();
    Redraw();
}

const std::vector<String>& wxTextLineCtrl::GetOrigins() const
{
    return m_Gutter->origins;
}

int wxTextLineCtrl::OriginOf(int line) const
{
    return m_Gutter->originOf ? m_Gutter->originOf(line) : -1;
}

int64_t wxTextLineCtrl::NumberOf(int line) const
{
    return m_Gutter->NumberOf(line);
}

bool wxTextLineCtrl::IsMarked(int line) const
{
    return m_Gutter->bookmarks.Has(line);
}

textviews::GutterRow wxTextLineCtrl::GutterRowOf(int line) const
{
    textviews::GutterRow row;
    if (m_Gutter->columns.digits > 0)
    {
        row.number = std::to_string(NumberOf(line));
    }
    if (m_Gutter->columns.timeCells > 0)
    {
        row.time = m_Gutter->arrivals->TextOf(line);
    }
    const int place = m_Gutter->columns.hasOrigins ? OriginOf(line) : -1;
    if (place >= 0 && place < static_cast<int>(m_Gutter->shownOrigins.size()))
    {
        row.place = place;
        row.origin = m_Gutter->columns.originCells > 0
                         ? m_Gutter->shownOrigins[static_cast<size_t>(place)]
                         : std::string();
    }
    return row;
}

// By the window's whole width: the scrollbars come and go with what the gutter takes.
void wxTextLineCtrl::FitGutter()
{
    const textviews::GutterColumns columns =
        textviews::FittingColumns(m_Gutter->Wanted(m_Lines->Count()), m_ColumnWidth, GetSize().x);
    if (columns == m_Gutter->columns)
    {
        return;
    }
    m_VisibleColumns += m_Gutter->CellsTaken(m_ColumnWidth);
    m_Gutter->Show(columns, m_ColumnWidth);
    m_VisibleColumns -= m_Gutter->CellsTaken(m_ColumnWidth);
    FitContentWidth();
    AdjustScrollbarsLater();
    Redraw();
}

void wxTextLineCtrl::FitContentWidth()
{
    if (IsWrapped())
    {
        m_ContentWidth = 0; // nothing is beside the view
        return;
    }
    const int beside = m_Gutter->layout.width + OverviewWidth();
    m_ContentWidth = std::min(m_TextWidth, INT_MAX - beside) + beside;
}

void wxTextLineCtrl::OnSize(wxSizeEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnSize");
    Resize(event);
    m_VisibleColumns -= m_Gutter->CellsTaken(m_ColumnWidth); // a page is as much as is seen of text
    FitGutter();
}
