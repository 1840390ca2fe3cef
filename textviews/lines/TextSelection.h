#pragma once

#include "textviews/lines/LineIndex.h"
#include "textviews/lines/LineSpan.h"

namespace textviews
{
/// The selected lines: all from the smaller to the larger of anchor and end. The anchor is where
/// the mouse went down, the end follows it. Or a part of one line: selecting the one leaves the
/// other.
class TextSelection
{
public:
    int  Anchor() const { return m_Anchor; }        ///< -1 when nothing is selected.
    int  End() const { return m_End; }              ///< -1 when nothing is selected.
    bool IsEmpty() const { return m_Anchor == -1; } ///< No lines are selected.
    /// Where keys and menus go on: the end, or the line that a part of is selected; -1 when nothing
    /// is.
    int  Place() const { return m_Span.Line() == -1 ? m_End : m_Span.Line(); }
    int  First() const { return m_Anchor < m_End ? m_Anchor : m_End; }
    int  Last() const { return m_Anchor < m_End ? m_End : m_Anchor; }
    bool Contains(int line) const { return line >= 0 && line >= First() && line <= Last(); }

    /// The part of a line; with one no lines are selected.
    const LineSpan& Span() const { return m_Span; }
    void            BeginSpan(int line, const ByteSpan& what, SpanUnit by);
    void            DragSpan(const ByteSpan& what) { m_Span.Drag(what); }
    void            PutSpan(const LineSpan& span); ///< Selects it alone.

    /// Selects that line alone; a line at or beyond `count` selects nothing.
    void Click(int line, int count);
    /// Selects as far as that line; -1 stands for below the last line, and selects to it. A
    /// selection that has no anchor yet gets it at the line of the part that was selected, or else
    /// at the first line that it is dragged over.
    void Drag(int line, int count);
    void SelectAll(int count);
    void Clear();

    /// Keep the selection on its lines when others come or go before them.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    /// @}

private:
    int      m_Anchor = -1;
    int      m_End = -1;
    LineSpan m_Span;
};

/// How many lines a key with Shift moves the selection's end down, in a view of `page` whole lines;
/// 0: it is no such key. Those to the first and the last line go further than any line.
int SelectionStep(int key, bool ctrl, int page);
/// The line so many below that one, of `count`, at least one.
int LineAfter(int line, int step, int count);
} // namespace textviews
