#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <map>
#include <vector>

/// The text of an ini file as lines, with an index of its values. What is not changed is given
/// back to the byte: comments, blank lines, unknown keys, the order and lines that are no ini at
/// all. Sections and keys compare without regard to the case of ASCII letters; the values before
/// the first section header stand in the unnamed section (the empty name). Where a section or a key
/// stands more than once, the last value counts and is the one that is changed.
///
/// A value, key or section name that the plain form cannot hold (line breaks, control characters,
/// blanks or quotes at an end) is written between double quotes with backslash escapes.
/// Not thread-safe.
class TOLVAN_API IniDocument
{
public:
    /// Replaces the content. Lines that cannot be understood are kept and their numbers (from 1)
    /// returned.
    std::vector<int> Parse(const String& text);
    String           ToText() const;

    bool   HasSection(const String& section) const;
    bool   Has(const String& section, const String& key) const;
    /// Empty when there is none.
    String Get(const String& section, const String& key) const;
    int    LineOf(const String& section, const String& key) const; ///< From 1; 0 when there is none.

    std::vector<String> Sections() const;                  ///< In order of appearance.
    std::vector<String> Keys(const String& section) const; ///< In order of appearance.

    void InsertSection(const String& section); ///< Nothing when it is there.
    void Set(const String& section, const String& key, const String& value);
    void Remove(const String& section, const String& key);
    void ClearSection(const String& section); ///< Removes all its keys; its comments stay.

private:
    struct Line
    {
        enum Kind { kOther, kSection, kValue } kind = kOther;
        String text;    ///< As in the file, without its line end.
        String section; ///< The section that the line belongs to.
        String key;
        String value;
    };
    using Index = std::map<String, size_t, String::ciless>;

    void   Reindex();
    size_t EndOfSection(const String& section) const;

    std::vector<Line>                         m_Lines;
    std::map<String, Index, String::ciless>   m_Index;      ///< Section, key: line.
    std::vector<String>                       m_SectionOrder;
    String                                    m_LineEnd = "\n";
    bool                                      m_EndsWithLineEnd = true;
};
