#include "textviews/search/SearchedLines.h"

namespace textviews
{
void SearchedLines::ReadAsShown(bool shown)
{
    m_AreAsShown = shown;
    m_Starts.clear();
}

// Whether one of its lines is shown otherwise than it is stored.
bool SearchedLines::IsFolded(const LineStore::Block& block) const
{
    using Finding = LineStore::Finding;
    if (block.finding != Finding::None)
    {
        return block.finding == Finding::Folded;
    }
    bool folds = LineFolder::Folds(block.bytes);
    if (folds) // it may be that only the ends of lines are like those on Windows
    {
        folds = false;
        for (int line = 0; line < block.lineCount && !folds; ++line)
        {
            folds = LineFolder::Folds(block.Line(line));
        }
    }
    m_Lines->Note(block.firstLine, folds ? Finding::Folded : Finding::Plain);
    return folds;
}

bool SearchedLines::IsKept(int index) const
{
    return m_Changes == m_Lines->Changes() && index >= m_First &&
           index - m_First < static_cast<int>(m_Starts.size());
}

void SearchedLines::Keep(const LineStore::Block& block) const
{
    m_Bytes.clear();
    m_Starts.clear();
    for (int line = 0; line < block.lineCount; ++line)
    {
        m_Starts.push_back(static_cast<uint32_t>(m_Bytes.size()));
        m_Folder.AppendText(block.Line(line), m_Bytes);
    }
    m_First = block.firstLine;
    m_Changes = m_Lines->Changes();
}

LineStore::Block SearchedLines::Kept() const
{
    LineStore::Block kept;
    kept.firstLine = m_First;
    kept.lineCount = static_cast<int>(m_Starts.size());
    kept.bytes = m_Bytes;
    kept.starts = m_Starts.data();
    return kept;
}

LineStore::Block SearchedLines::AsShown(const LineStore::Block& block) const
{
    if (!IsFolded(block))
    {
        return block;
    }
    Keep(block);
    return Kept();
}

std::optional<LineStore::Block> SearchedLines::BlockOf(int index) const
{
    if (!m_WaitsForDisk)
    {
        return BlockSoon(index);
    }
    if (!m_AreAsShown)
    {
        return m_Lines->BlockOf(index);
    }
    return IsKept(index) ? Kept() : AsShown(m_Lines->BlockOf(index));
}

std::optional<LineStore::Block> SearchedLines::BlockSoon(int index) const
{
    if (m_AreAsShown && IsKept(index))
    {
        return Kept();
    }
    const auto block = m_Lines->BlockSoon(index);
    return block && m_AreAsShown ? AsShown(*block) : block;
}

std::optional<std::string_view> SearchedLines::LineOf(int index) const
{
    const std::optional<LineStore::Block> block = BlockOf(index);
    return block ? std::optional<std::string_view>(block->Line(index - block->firstLine))
                 : std::nullopt;
}
} // namespace textviews
