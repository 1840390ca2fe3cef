#pragma once

#include "textviews/escapes/LineFolder.h"
#include "textviews/lines/TextCells.h"

#include <map>

namespace textviews
{
/// How a view shows its lines: as they are stored, or folded. Those that are long and folded are
/// remembered, for otherwise each of its paintings would go through the whole of them.
class ShownLines final : public TextPlaces
{
public:
    static constexpr size_t k_LongLine = 16 * 1024; ///< Bytes; see `RememberFrom`.

    /// How long folded lines are that are remembered; all is forgotten.
    void RememberFrom(size_t bytes);
    /// What is remembered is forgotten.
    void Show(bool folded, bool coloured);
    bool IsFolded() const { return m_IsFolded; }

    /// Null where the line is shown as it is stored. Valid until the next call.
    const ShownPieces* PiecesOf(int line, std::string_view stored);
    int64_t            CellCountOf(std::string_view stored);
    /// No fewer than those, found more quickly.
    int64_t MostCellsOf(std::string_view stored) const;
    /// Where so many characters of the stored line from that one on are shown, as far as they are.
    std::vector<ShownCells> CellsOfHit(int line, std::string_view stored, int column, int length);
    /// What the line shows, as plain text.
    std::string PlainTextOf(std::string_view stored);

    /// The place in the stored line, with the cell where the view shows it.
    TextPlace AtColumn(int line, std::string_view stored, int64_t column) override;
    void      Forget() override;

private:
    bool                       m_IsFolded = false;
    bool                       m_IsColoured = false;
    LineFolder                 m_Folder;
    size_t                     m_RememberFrom = k_LongLine;
    std::map<int, ShownPieces> m_Long;           ///< By line.
    size_t                     m_LongPieces = 0; ///< In all of them.
};
} // namespace textviews
