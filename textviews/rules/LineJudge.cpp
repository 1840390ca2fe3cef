#include "textviews/rules/LineJudge.h"

#include "textviews/escapes/EscapeSequence.h"
#include "textviews/rules/RuledPieces.h"

#include <algorithm>
#include <cstring>

namespace textviews
{
namespace
{
constexpr size_t kLeastBudget = 16 * 1024;

void Pay(size_t& budget, size_t cost)
{
    budget -= std::min(budget, std::max<size_t>(cost, 1));
}

/// What is left of a budget, or a little more: something has to come of every step. What is used of
/// it is paid in the end.
struct _Allowance
{
    explicit _Allowance(size_t& paying)
        : budget(paying), given(std::max(paying, kLeastBudget)), left(given)
    {
    }
    ~_Allowance() { Pay(budget, given - left); }
    _Allowance(const _Allowance&) = delete;
    _Allowance& operator=(const _Allowance&) = delete;

    size_t&      budget;
    const size_t given;
    size_t       left;
};

LineMarks MarksFor(wxTextRule::Kind kind)
{
    switch (kind)
    {
    case wxTextRule::Kind::Error:
        return k_ErrorMark;
    case wxTextRule::Kind::Warning:
        return k_WarningMark;
    default:
        return 0;
    }
}

bool Holds(std::string_view bytes, char wanted)
{
    return std::memchr(bytes.data(), wanted, bytes.size()) != nullptr;
}

size_t BytesOf(const LineStore::Block& block, int from, int end)
{
    return (end < block.lineCount ? block.StartOf(end) : block.bytes.size()) - block.StartOf(from);
}
} // namespace

RuleJudge::RuleJudge(const std::shared_ptr<const RuleSet>& rules, bool folded)
    : m_Rules(std::make_shared<const RuleSet>(rules->ForMarks())), m_IsFolded(folded)
{
}

// What the view shows of those lines; of others nothing.
LineStore::Block RuleJudge::Shown(const LineStore::Block& block, int from, int end)
{
    m_Bytes.clear();
    m_Starts.assign(static_cast<size_t>(block.lineCount), 0);
    for (int i = 0; i < block.lineCount; ++i)
    {
        m_Starts[static_cast<size_t>(i)] = static_cast<uint32_t>(m_Bytes.size());
        if (i < from || i >= end)
        {
            continue;
        }
        const std::string_view line = block.Line(i);
        if (!LineFolder::Folds(line))
        {
            m_Bytes += line.substr(0, kMostFolded);
        }
        else if (line.size() <= kMostFolded)
        {
            m_Bytes += *RuledText(line, m_Folder.Fold(line, false));
        }
    }
    return {block.firstLine, block.lineCount, m_Bytes, m_Starts.data(), 0};
}

// True when all of it has been looked at.
bool RuleJudge::JudgeLine(std::string_view text, int line, size_t& budget,
                          std::vector<MarkedLine>& marked)
{
    if (line != m_Line)
    {
        m_Line = line;
        m_Work = {};
    }
    if (!m_Rules->GoOn(text, 0, m_Work, budget))
    {
        return false;
    }
    m_Line = -1;
    if (const LineMarks marks = MarksFor(m_Rules->KindOf(m_Work)))
    {
        marked.push_back({line, marks});
    }
    return true;
}

void RuleJudge::Judge(const LineStore::Block& block, int& from, int end, size_t& budget,
                      std::vector<MarkedLine>& marked)
{
    const bool isLong = block.bytes.size() > kPieceBytes;
    end = isLong ? from + 1 : end; // it is alone, or nearly so
    Pay(budget, isLong ? 1 : BytesOf(block, from, end) + static_cast<size_t>(end - from));
    _Allowance             allowance(budget);
    const std::string_view bytes = block.bytes.substr(0, kMostFolded);
    const bool             isResumed = isLong && m_Line == block.firstLine + from;
    LineStore::Block       shown = block;
    if (m_IsFolded && (Holds(bytes, k_Escape) || Holds(bytes, '\r')))
    {
        shown = isResumed ? LineStore::Block{block.firstLine, block.lineCount, m_Bytes,
                                             m_Starts.data(), 0}
                          : Shown(block, from, end);
    }
    const std::vector<int> lines =
        isLong ? std::vector<int>{from} : m_Rules->LinesIn(shown, from, end);
    for (const int line : lines)
    {
        if (!JudgeLine(shown.Line(line), block.firstLine + line, allowance.left, marked))
        {
            from = line;
            return;
        }
    }
    from = end;
}

// True when that is known.
bool HitJudge::HasHit(std::string_view text, size_t& budget, bool& hit)
{
    m_Hits.clear();
    while (m_Byte < text.size() && m_Hits.empty())
    {
        if (budget == 0)
        {
            return false;
        }
        m_Finder->HitsIn(text, PieceAt(text, m_Byte, m_Finder->Reach()), m_Byte, budget, m_Hits);
    }
    m_Byte = 0;
    hit = !m_Hits.empty();
    return true;
}

void HitJudge::Judge(const LineStore::Block& block, int& from, int end, size_t& budget,
                     std::vector<MarkedLine>& marked)
{
    const bool isLong = block.bytes.size() > kPieceBytes;
    end = isLong ? from + 1 : end;
    Pay(budget, isLong ? 1 : BytesOf(block, from, end) + static_cast<size_t>(end - from));
    _Allowance             allowance(budget);
    const bool             isSure = !isLong && m_Finder->IsSureOfLines();
    const std::vector<int> lines =
        isLong ? std::vector<int>{from} : m_Finder->LinesIn(block, from, end, false);
    for (const int line : lines)
    {
        bool hit = isSure;
        if (!isSure && !HasHit(block.Line(line), allowance.left, hit))
        {
            from = line;
            return;
        }
        if (hit)
        {
            marked.push_back({block.firstLine + line, k_HitMark});
        }
    }
    from = end;
}
} // namespace textviews
