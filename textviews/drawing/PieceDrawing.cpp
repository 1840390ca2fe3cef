#include "textviews/drawing/PieceDrawing.h"

#include <algorithm>
#include <array>
#include <limits>

namespace textviews
{
namespace
{
constexpr int64_t kNoLimit = std::numeric_limits<int64_t>::max();
constexpr int     kUnderlineShare = 14; // of a line's height
constexpr int     kUnderlineGap = 1;    // pixels below it
constexpr size_t  kMostStyles = 8;      // of a line that is drawn style by style

using Place = ShownPieces::const_iterator;

/// One line that is being drawn.
class _PieceDrawing
{
public:
    _PieceDrawing(LinePainter& painter, const TextGeometry& geometry, const LineLook& look,
                  int line, std::string_view stored, const LinePainter::Cells& cells)
        : m_Painter(painter),
          m_Geometry(geometry),
          m_Look(look),
          m_Line(line),
          m_Stored(stored),
          m_Cells(cells)
    {
    }

    // Grounds first: a glyph may reach a little into the next cell, and what is filled ends what
    // could be drawn at once.
    void Draw(Place first, Place end)
    {
        ForEach(first, end, [this](const ShownPiece& piece) { FillGround(piece); });
        DrawTexts(first, end);
        m_Painter.SetBold(false);
        m_Painter.Flush();
        ForEach(first, end, [this](const ShownPiece& piece) { Underline(piece); });
    }

private:
    template <class Do> void ForEach(Place first, Place end, Do act)
    {
        for (Place piece = first; piece != end; ++piece)
        {
            if (piece == first || !(piece->style == m_Style))
            {
                m_Style = piece->style;
                m_Inks = m_Look.InksOf(m_Style);
            }
            act(*piece);
        }
    }
    // Style by style: text of one colour can be drawn at once. Where there are very many it is not
    // worth the looking.
    void DrawTexts(Place first, Place end)
    {
        std::array<const TextStyle*, kMostStyles> styles{};
        size_t                                    count = 0;
        for (Place piece = first; piece != end; ++piece)
        {
            const auto known =
                std::find_if(styles.begin(), styles.begin() + count,
                             [&piece](const TextStyle* style) { return *style == piece->style; });
            if (known == styles.begin() + count)
            {
                if (count == kMostStyles)
                {
                    ForEach(first, end, [this](const ShownPiece& each) { DrawText(each); });
                    return;
                }
                styles[count++] = &piece->style;
            }
        }
        for (size_t i = 0; i < count; ++i)
        {
            m_Style = *styles[i];
            m_Inks = m_Look.InksOf(m_Style);
            std::for_each(first, end,
                          [&](const ShownPiece& piece)
                          {
                              if (piece.style == m_Style)
                              {
                                  DrawText(piece);
                              }
                          });
        }
    }
    wxRect BoxOf(const ShownPiece& piece) const
    {
        const int left = m_Geometry.XOf(std::max(piece.cell, m_Cells.first));
        const int right = m_Geometry.XOf(std::min(piece.End(), m_Cells.end));
        return wxRect(left, m_Geometry.TopOf(m_Line), right - left, m_Geometry.lineHeight);
    }
    void FillGround(const ShownPiece& piece) { m_Painter.Fill(BoxOf(piece), m_Inks.ground); }
    void Underline(const ShownPiece& piece)
    {
        if (piece.style.underlined)
        {
            wxRect    box = BoxOf(piece);
            const int thick = std::max(box.height / kUnderlineShare, 1);
            box.y += box.height - thick - kUnderlineGap;
            box.height = thick;
            m_Painter.Fill(box, m_Inks.ink);
        }
    }
    void DrawText(const ShownPiece& piece)
    {
        std::string_view text = piece.In(m_Stored);
        int64_t          cell = piece.cell;
        if (cell < m_Cells.first)
        {
            const TextPlace place = PlaceWithin(piece, m_Cells.first - cell);
            text.remove_prefix(static_cast<size_t>(place.byte));
            cell += place.cell;
        }
        m_Painter.SetInks(m_Inks);
        m_Painter.SetBold(piece.style.bold);
        m_Painter.DrawPart(m_Line, text, cell, m_Cells.end);
    }
    TextPlace PlaceWithin(const ShownPiece& piece, int64_t cell) const
    {
        TextPlace place;
        if (piece.cells == static_cast<int64_t>(piece.bytes)) // all of one byte
        {
            return {cell, cell, cell};
        }
        AdvancePlace(piece.In(m_Stored), place, {kNoLimit, kNoLimit, cell});
        return place;
    }

    LinePainter&              m_Painter;
    const TextGeometry&       m_Geometry;
    const LineLook&           m_Look;
    int                       m_Line;
    std::string_view          m_Stored;
    const LinePainter::Cells& m_Cells;
    TextStyle                 m_Style;
    TextInks                  m_Inks; ///< Of the style.
};
} // namespace

void DrawPieces(LinePainter& painter, const TextGeometry& geometry, const LineLook& look, int line,
                std::string_view stored, const ShownPieces& pieces, const LinePainter::Cells& cells)
{
    const auto first = std::partition_point(pieces.begin(), pieces.end(),
                                            [&cells](const ShownPiece& piece)
                                            { return piece.End() <= cells.first; });
    const auto end = std::partition_point(
        first, pieces.end(), [&cells](const ShownPiece& piece) { return piece.cell < cells.end; });
    _PieceDrawing(painter, geometry, look, line, stored, cells).Draw(first, end);
}
} // namespace textviews
