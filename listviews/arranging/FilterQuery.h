#pragma once

#include "vesta/String.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace listviews
{
/// What a user types to see only some of a list's rows: words that all have to occur, in any case
/// and anywhere in the shown columns. "-word" must not occur, "column:word" only counts there, and
/// quotes keep blanks together: `beauty -failed state:"on hold"`. Main thread.
class FilterQuery
{
public:
    /// A column that can be named, by its title, the beginning of it or its key.
    struct Column
    {
        int    type = 0;
        String title;
        String key;
        bool   isShown = true; ///< Words without a column are looked for in it.
    };

    /// What follows is left out: somebody has pasted a text that is none of words to look for.
    static constexpr size_t k_MostTerms = 64;

    using TextOf = std::function<String(int type)>; ///< The text of a column's cell.
    /// Which of the words have occurred.
    using Hits = std::vector<bool>;

    FilterQuery() = default;
    FilterQuery(const String& text, const std::vector<Column>& columns);

    bool IsEmpty() const { return m_Terms.empty(); }     ///< Every item matches.
    bool IsCutOff() const { return m_IsCutOff; }         ///< Words are left out.
    bool IsOf(const std::vector<Column>& columns) const; ///< It was made for them.
    /// `above`: what has occurred in that which it belongs to, and counts for it too.
    bool Matches(const TextOf& text, const Hits& above = {}) const;
    Hits HitsOf(const TextOf& text, const Hits& above = {}) const;
    /// Whether a word that has to occur is among them.
    bool HasWanted(const Hits& hits) const;
    /// Whether every item that matches this one matches `other` too: what does not match `other`
    /// need not be looked at again.
    bool IsWithin(const FilterQuery& other) const;

private:
    static constexpr size_t k_Anywhere = std::string::npos;

    struct Term
    {
        std::string needle;              ///< In lower case.
        size_t      column = k_Anywhere; ///< Its index.
        bool        negated = false;

        bool IsAnywhere() const { return column == k_Anywhere; }
    };
    /// A column's text of what is looked at.
    struct Folded
    {
        std::string text;
        size_t      round = 0; ///< In which it was asked for.
    };

    void               AddTerm(std::string_view word, size_t quoted);
    size_t             Named(std::string_view name) const;
    bool               Holds(const Term& term, const TextOf& text) const;
    bool               Implies(const Term& term) const;
    const std::string& FoldedOf(size_t column, const TextOf& text) const;

    std::vector<Column>         m_Columns;
    std::vector<Term>           m_Terms;
    bool                        m_IsCutOff = false;
    mutable std::vector<Folded> m_Folded; ///< By column.
    mutable size_t              m_Round = 0;
};
} // namespace listviews
