#pragma once

#include "textviews/search/FinderChoice.h"

inline textviews::LineStore StoreOf(const std::vector<String>& lines)
{
    textviews::LineStore store;
    for (const String& line : lines)
    {
        store.Append(line);
    }
    return store;
}

inline std::shared_ptr<textviews::HitFinder>
FinderFor(const String& text, bool matchCase, bool wholeWords = false, bool expression = false)
{
    textviews::QueryProblem problem;
    return textviews::MakeFinder({text, matchCase, wholeWords, expression}, problem);
}

/// All hits in the line, looked for in steps of that many bytes.
inline std::vector<textviews::ByteSpan> HitsIn(textviews::HitFinder& finder, std::string_view line,
                                               size_t step = 1'000'000)
{
    std::vector<textviews::ByteSpan> hits;
    for (size_t from = 0; from < line.size();)
    {
        size_t budget = step;
        finder.HitsIn(line, textviews::PieceAt(line, from, finder.Reach()), from, budget, hits);
    }
    return hits;
}
