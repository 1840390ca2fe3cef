#include "textviews/escapes/ShownLines.h"

namespace textviews
{
namespace
{
constexpr size_t kMostPieces = 1u << 20; // remembered; those of a single line may be more
} // namespace

void ShownLines::RememberFrom(size_t bytes)
{
    m_RememberFrom = bytes;
    Forget();
}

void ShownLines::Show(bool folded, bool coloured)
{
    m_IsFolded = folded;
    m_IsColoured = coloured;
    Forget();
}

const ShownPieces* ShownLines::PiecesOf(int line, std::string_view stored)
{
    if (!m_IsFolded || !LineFolder::Folds(stored))
    {
        return nullptr;
    }
    if (stored.size() < m_RememberFrom)
    {
        return &m_Folder.Fold(stored, m_IsColoured);
    }
    const auto known = m_Long.find(line);
    if (known != m_Long.end())
    {
        return &known->second;
    }
    const ShownPieces& pieces = m_Folder.Fold(stored, m_IsColoured);
    m_LongPieces += pieces.size();
    if (m_LongPieces > kMostPieces)
    {
        m_Long.clear();
        m_LongPieces = pieces.size();
    }
    return &m_Long.emplace(line, pieces).first->second;
}

int64_t ShownLines::CellCountOf(std::string_view stored)
{
    return m_IsFolded && LineFolder::Folds(stored) ? EndOf(m_Folder.Fold(stored, m_IsColoured))
                                                   : CellCount(stored);
}

int64_t ShownLines::MostCellsOf(std::string_view stored) const
{
    return m_IsFolded ? LineFolder::MostCells(stored) : static_cast<int64_t>(stored.size());
}

std::vector<ShownCells> ShownLines::CellsOfHit(int line, std::string_view stored, int column,
                                               int length)
{
    const TextPlace first = TextPlaces::AtColumn(line, stored, column);
    const TextPlace end = TextPlaces::AtColumn(line, stored, static_cast<int64_t>(column) + length);
    if (const ShownPieces* const pieces = PiecesOf(line, stored))
    {
        return CellsOf(stored, *pieces, static_cast<size_t>(first.byte),
                       static_cast<size_t>(end.byte));
    }
    return {{first.cell, end.cell}};
}

std::string ShownLines::PlainTextOf(std::string_view stored)
{
    return PlainText(stored, m_Folder.Fold(stored, false));
}

TextPlace ShownLines::AtColumn(int line, std::string_view stored, int64_t column)
{
    TextPlace place = TextPlaces::AtColumn(line, stored, column);
    if (const ShownPieces* const pieces = PiecesOf(line, stored))
    {
        place.cell = CellOf(stored, *pieces, static_cast<size_t>(place.byte));
    }
    return place;
}

void ShownLines::Forget()
{
    TextPlaces::Forget();
    m_Long.clear();
    m_LongPieces = 0;
}
} // namespace textviews
