#include "textviews/gutter/Gutter.h"
#include "textviews/gutter/GutterPainter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>
#include <climits>

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
