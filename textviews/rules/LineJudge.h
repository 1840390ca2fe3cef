#pragma once

#include "textviews/escapes/LineFolder.h"
#include "textviews/rules/LineBands.h"
#include "textviews/rules/RuleSet.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace textviews
{
/// @name Marks of lines
/// @{
constexpr LineMarks k_ErrorMark = 1;
constexpr LineMarks k_WarningMark = 2;
constexpr LineMarks k_HitMark = 4;
constexpr LineMarks k_BookmarkMark = 8;
/// @}

/// Finds the lines that have marks. Main thread.
class LineJudge
{
public:
    virtual ~LineJudge() = default;

    /// Goes through the lines [from, end) of the block, counted within it, until about `budget`
    /// bytes have been looked at, which it takes off; `from` is then where to go on. Adds those
    /// that have marks, with the numbers that they have in the view.
    virtual void Judge(const LineStore::Block& block, int& from, int end, size_t& budget,
                       std::vector<MarkedLine>& marked) = 0;
    /// Lines have come or gone, so that their numbers are others.
    virtual void Forget() = 0;
};

/// Marks what the rules say of a line: errors and warnings.
class RuleJudge final : public LineJudge
{
public:
    /// `folded`: lines are shown without their escape sequences.
    RuleJudge(const std::shared_ptr<const RuleSet>& rules, bool folded);

    void Judge(const LineStore::Block& block, int& from, int end, size_t& budget,
               std::vector<MarkedLine>& marked) override;
    void Forget() override { m_Line = -1; }

private:
    bool JudgeLine(std::string_view text, int line, size_t& budget,
                   std::vector<MarkedLine>& marked);

    LineStore::Block Shown(const LineStore::Block& block, int from, int end);

    std::shared_ptr<const RuleSet> m_Rules;
    bool                           m_IsFolded;
    LineFolder                     m_Folder;
    std::string                    m_Bytes; ///< Of what is shown of a block's lines.
    std::vector<uint32_t>          m_Starts;
    int                            m_Line = -1; ///< That has been looked at in part.
    RuleWork                       m_Work;      ///< Of it.
};

/// Marks the lines that the search has hits in.
class HitJudge final : public LineJudge
{
public:
    explicit HitJudge(std::shared_ptr<HitFinder> finder) : m_Finder(std::move(finder)) {}

    void Judge(const LineStore::Block& block, int& from, int end, size_t& budget,
               std::vector<MarkedLine>& marked) override;
    void Forget() override { m_Byte = 0; }

private:
    bool HasHit(std::string_view text, size_t& budget, bool& hit);

    std::shared_ptr<HitFinder> m_Finder;
    size_t                     m_Byte = 0; ///< Where to go on in a long line.
    std::vector<ByteSpan>      m_Hits;
};
} // namespace textviews
