#pragma once

#include "vesta/String.h"

namespace textviews
{
/// What is looked for in the lines of a view.
struct SearchQuery
{
    String text; ///< Empty: it is found nowhere.
    bool   matchCase = false;
    bool   wholeWords = false; ///< No letter, digit or underscore right before or after a hit.
    bool   expression = false; ///< The text is a regular expression.

    bool operator==(const SearchQuery& other) const
    {
        return text == other.text && matchCase == other.matchCase &&
               wholeWords == other.wholeWords && expression == other.expression;
    }
};

/// What is wrong with an expression, in plain words that are not translated yet. "%s" in them
/// stands for the part that it is about.
struct QueryProblem
{
    const char* text = nullptr; ///< Null: nothing.
    String      part;
};
} // namespace textviews
