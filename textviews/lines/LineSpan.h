#pragma once

#include "textviews/lines/ByteSpan.h"

#include <string_view>

namespace textviews
{
enum class SpanUnit : int
{
    Characters,
    Words
};

/// A part of one line that is selected, from where it began to where the mouse is: by characters,
/// or by words, of which the first one stays in it.
class LineSpan
{
public:
    int      Line() const { return m_Line; } ///< -1 when there is none.
    bool     IsEmpty() const { return m_Bytes.IsEmpty(); }
    ByteSpan Bytes() const { return m_Bytes; }
    SpanUnit Unit() const { return m_By; }

    /// With the word under the pointer; by characters with the place next to it, so that nothing
    /// is selected yet.
    void Begin(int line, const ByteSpan& what, SpanUnit by);
    /// As far as another word or place of its line.
    void Drag(const ByteSpan& what);
    void Clear() { *this = {}; }
    /// It is in that line, whose number has become another.
    void MoveTo(int line) { m_Line = line; }

    /// Keep it on its line; a line that is erased takes it along.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    /// @}

private:
    int      m_Line = -1;
    SpanUnit m_By = SpanUnit::Characters;
    ByteSpan m_Start; ///< Stays in it.
    ByteSpan m_Bytes;
};

/// The word that holds the byte, or the stretch of blanks, or of other characters, within some
/// thousand bytes. Behind the text it is the last one.
ByteSpan WordAt(std::string_view text, size_t byte);
} // namespace textviews
