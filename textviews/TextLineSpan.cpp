#include "textviews/drawing/LinePainter.h"
#include "textviews/drawing/TextPalette.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>

// A part of one line that is selected.

namespace
{
constexpr int64_t kFar = INT64_MAX;

// Where what is shown in the cell begins, or with `end` what is shown before it ends: between two
// pieces there may be bytes that are not shown, and empty cells.
size_t ByteOfCell(std::string_view text, const textviews::ShownPieces& pieces, int64_t cell,
                  bool end)
{
    size_t last = 0;
    for (const textviews::ShownPiece& piece : pieces)
    {
        if (cell < piece.End() || (end && cell == piece.End()))
        {
            textviews::TextPlace place;
            textviews::AdvancePlace(piece.In(text), place,
                                    {kFar, kFar, std::max<int64_t>(cell - piece.cell, 0)});
            return piece.stored + static_cast<size_t>(place.byte);
        }
        last = piece.stored + piece.bytes;
    }
    return last;
}

textviews::ByteSpan WordOfCell(std::string_view text, const textviews::ShownPieces& pieces,
                               int64_t cell)
{
    const std::string    shown = textviews::PlainText(text, pieces);
    textviews::TextPlace place;
    textviews::AdvancePlace(shown, place, {kFar, kFar, cell});
    const textviews::ByteSpan word = textviews::WordAt(shown, static_cast<size_t>(place.byte));
    const std::string_view    before = std::string_view(shown).substr(0, word.begin);
    const std::string_view    through = std::string_view(shown).substr(0, word.end);
    return {ByteOfCell(text, pieces, textviews::CellCount(before), false),
            ByteOfCell(text, pieces, textviews::CellCount(through), true)};
}
} // namespace

void wxTextLineCtrl::SelectWithinLines(bool on)
{
    CALL_ENTRY("wxTextLineCtrl::SelectWithinLines");
    m_SelectsWithinLines = on;
    if (!on && m_Selection->Span().Line() != -1)
    {
        SelectNone();
    }
    TellLook();
}

String wxTextLineCtrl::GetSelectedPart() const
{
    const textviews::LineSpan& span = m_Selection->Span();
    if (span.IsEmpty())
    {
        return String();
    }
    const textviews::ByteSpan bytes = span.Bytes();
    const std::string_view    line = m_Lines->LineNow(span.Line());
    return String(line.substr(std::min(bytes.begin, line.size()), bytes.end - bytes.begin));
}

// What a selection goes to when the pointer is there: the place between two characters that is
// nearest to it, or the word under it, as it is shown.
textviews::ByteSpan wxTextLineCtrl::PartAt(const wxPoint& place, int line,
                                           textviews::SpanUnit by) const
{
    const bool    isNearest = by == textviews::SpanUnit::Characters;
    const int64_t cell = Geometry().CellAt(place, line, isNearest);
    const auto    text = m_Lines->Line(line);
    const auto*   pieces = m_Shown->PiecesOf(line, text);
    if (!pieces)
    {
        const auto byte = static_cast<size_t>(m_Places->AtCell(line, text, cell).byte);
        return isNearest ? textviews::ByteSpan{byte, byte} : textviews::WordAt(text, byte);
    }
    if (isNearest)
    {
        const size_t byte = ByteOfCell(text, *pieces, cell, false);
        return {byte, byte};
    }
    return WordOfCell(text, *pieces, cell);
}

// False: the press selects lines.
bool wxTextLineCtrl::BeginPart(const wxMouseEvent& event, int line)
{
    const textviews::LineSpan& span = m_Selection->Span();
    if (!m_SelectsWithinLines || line == -1 || event.GetX() < Geometry().textLeft)
    {
        return false;
    }
    if (event.ShiftDown() && !span.IsEmpty() && line == span.Line())
    {
        DragPart(event.GetPosition());
        return true;
    }
    // Many window managers move windows by Alt and a drag.
    if (event.ShiftDown() || !(event.AltDown() || event.ControlDown()))
    {
        return false;
    }
    const auto by = textviews::SpanUnit::Characters;
    m_Selection->BeginSpan(line, PartAt(event.GetPosition(), line, by), by);
    return true;
}

void wxTextLineCtrl::OnLeftDouble(wxMouseEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnLeftDouble");
    const textviews::TextGeometry geometry = Geometry();
    const int                     line = geometry.LineAt(event.GetY());
    if (!m_SelectsWithinLines || line == -1 || event.GetX() < geometry.textLeft)
    {
        event.Skip();
        return;
    }
    const auto by = textviews::SpanUnit::Words;
    m_Selection->BeginSpan(line, PartAt(event.GetPosition(), line, by), by);
    m_Selecting = true;
    GatherLater();
    HoldMouse();
}

// Whatever the line that the pointer is on. One column for every motion outside the view, or where
// lines wrap one row, as far as the line goes.
void wxTextLineCtrl::DragPart(const wxPoint& place)
{
    const textviews::LineSpan& span = m_Selection->Span();
    m_Selection->DragSpan(PartAt(place, span.Line(), span.Unit()));
    GatherLater();
    if (IsWrapped())
    {
        const textviews::TextGeometry geometry = Geometry();
        const bool                    isAbove = place.y < 0 && geometry.TopOf(span.Line()) < 0;
        const bool isBelow = place.y >= geometry.client.y && geometry.GoesOn(span.Line());
        if (isAbove || isBelow)
        {
            AutoScroll(place.y);
        }
        return;
    }
    if (place.x < Geometry().textLeft)
    {
        ScrollBy(wxEVT_SCROLLWIN_LINEUP, wxHORIZONTAL);
    }
    else if (place.x > GetClientSize().x)
    {
        ScrollBy(wxEVT_SCROLLWIN_LINEDOWN, wxHORIZONTAL);
    }
}

// As whole lines are drawn that are selected.
void wxTextLineCtrl::DrawSpan(const textviews::TextGeometry& geometry,
                              const textviews::TextPalette&  palette,
                              textviews::LinePainter& painter, int line) const
{
    const textviews::LineSpan& span = m_Selection->Span();
    if (line != span.Line() || span.IsEmpty())
    {
        return;
    }
    textviews::LineState state = StateOf(line);
    state.selected = true;
    const textviews::LineLook look = LookOf(state, palette);
    std::vector<wxRect>       boxes = BoxesOf(geometry, line, {span.Bytes()});
    for (wxRect& box : boxes)
    {
        box = wxRect(box.x, geometry.TopOf(line), box.width + 1, geometry.lineHeight);
        painter.Fill(box, look.band);
    }
    painter.ClipTo(boxes);
    DrawText(geometry, look, painter, line);
    painter.Unclip();
}
