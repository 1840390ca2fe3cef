#include "listviews/arranging/FilterQuery.h"

#include "internal/text/Folding.h"

#include <algorithm>

namespace listviews
{
namespace
{
constexpr size_t kNoQuote = std::string::npos;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

std::string Lower(std::string_view text)
{
    std::string folded;
    internal::AppendFolded(folded, text);
    return folded;
}
} // namespace

// A quote may stand anywhere in a word, and one that is not closed yet reaches to the end: the user
// is still typing.
FilterQuery::FilterQuery(const String& text, const std::vector<Column>& columns)
    : m_Columns(columns), m_Folded(columns.size())
{
    std::string word;
    size_t      quoted = kNoQuote;
    bool        inQuotes = false;
    for (const char c : text)
    {
        if (c == '"')
        {
            inQuotes = !inQuotes;
            quoted = std::min(quoted, word.size());
        }
        else if (IsBlank(c) && !inQuotes)
        {
            AddTerm(word, quoted);
            word.clear();
            quoted = kNoQuote;
        }
        else
        {
            word += c;
        }
    }
    AddTerm(word, quoted);
}

// `quoted`: where quotes begin; a minus or a colon within them is text.
void FilterQuery::AddTerm(std::string_view word, size_t quoted)
{
    Term term;
    if (!word.empty() && word[0] == '-' && quoted > 0)
    {
        term.negated = true;
        word.remove_prefix(1);
        quoted -= quoted == kNoQuote ? 0 : 1;
    }
    const size_t colon = word.find(':');
    if (colon != std::string_view::npos && colon < quoted)
    {
        term.column = Named(word.substr(0, colon));
        word.remove_prefix(term.IsAnywhere() ? 0 : colon + 1);
    }
    term.needle = Lower(word);
    if (m_Terms.size() == k_MostTerms)
    {
        m_IsCutOff |= !term.needle.empty();
    }
    else if (!term.needle.empty())
    {
        // Those that look at one column only come first: they say no at less cost.
        m_Terms.insert(term.IsAnywhere() ? m_Terms.end() : m_Terms.begin(), std::move(term));
    }
}

// The whole title or key, or else the beginning of one title only.
size_t FilterQuery::Named(std::string_view name) const
{
    const std::string wanted = Lower(name);
    size_t            found = k_Anywhere;
    int               count = 0;
    for (size_t i = 0; i < m_Columns.size() && !wanted.empty(); ++i)
    {
        const std::string title = Lower(m_Columns[i].title);
        if (title == wanted || Lower(m_Columns[i].key) == wanted)
        {
            return i;
        }
        if (title.compare(0, wanted.size(), wanted) == 0)
        {
            found = i;
            ++count;
        }
    }
    return count == 1 ? found : k_Anywhere;
}

// The text of a column is asked for once, however many terms look there.
const std::string& FilterQuery::FoldedOf(size_t column, const TextOf& text) const
{
    Folded& folded = m_Folded[column];
    if (folded.round != m_Round)
    {
        folded.round = m_Round;
        folded.text.clear();
        internal::AppendFolded(folded.text, text(m_Columns[column].type));
    }
    return folded.text;
}

bool FilterQuery::Holds(const Term& term, const TextOf& text) const
{
    if (!term.IsAnywhere())
    {
        return Has(FoldedOf(term.column, text), term.needle);
    }
    for (size_t column = 0; column < m_Columns.size(); ++column)
    {
        if (m_Columns[column].isShown && Has(FoldedOf(column, text), term.needle))
        {
            return true;
        }
    }
    return false;
}

bool FilterQuery::Matches(const TextOf& text, const Hits& above) const
{
    ++m_Round;
    for (size_t i = 0; i < m_Terms.size(); ++i)
    {
        const bool occurs = (i < above.size() && above[i]) || Holds(m_Terms[i], text);
        if (occurs == m_Terms[i].negated)
        {
            return false;
        }
    }
    return true;
}

FilterQuery::Hits FilterQuery::HitsOf(const TextOf& text, const Hits& above) const
{
    ++m_Round;
    Hits hits = above;
    hits.resize(m_Terms.size());
    for (size_t i = 0; i < m_Terms.size(); ++i)
    {
        hits[i] = hits[i] || Holds(m_Terms[i], text);
    }
    return hits;
}

bool FilterQuery::HasWanted(const Hits& hits) const
{
    for (size_t i = 0; i < hits.size(); ++i)
    {
        if (hits[i] && !m_Terms[i].negated)
        {
            return true;
        }
    }
    return false;
}

// Whether one of the query's own terms says at least what this one does.
bool FilterQuery::Implies(const Term& term) const
{
    return std::any_of(m_Terms.begin(), m_Terms.end(),
                       [&](const Term& own)
                       {
                           if (own.negated != term.negated || own.column != term.column)
                           {
                               return false;
                           }
                           // A longer text occurs more rarely.
                           const std::string& rarer = own.negated ? term.needle : own.needle;
                           const std::string& oftener = own.negated ? own.needle : term.needle;
                           return Has(rarer, oftener);
                       });
}

bool FilterQuery::IsOf(const std::vector<Column>& columns) const
{
    return std::equal(m_Columns.begin(), m_Columns.end(), columns.begin(), columns.end(),
                      [](const Column& left, const Column& right)
                      { return left.type == right.type && left.isShown == right.isShown; });
}

bool FilterQuery::IsWithin(const FilterQuery& other) const
{
    return other.IsEmpty() || (IsOf(other.m_Columns) &&
                               std::all_of(other.m_Terms.begin(), other.m_Terms.end(),
                                           [this](const Term& term) { return Implies(term); }));
}
} // namespace listviews
