#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <list>
#include <map>
#include <vector>

/// The text of an ini file as lines, with an index of its values. What is not changed is given
/// back to the byte: comments, blank lines, unknown keys, the order and lines that are no ini at
/// all. Sections and keys compare without regard to the case of ASCII letters; the values before
/// the first section header stand in the unnamed section (the empty name). Where a section or a key
/// stands more than once, the last value counts and is the one that is changed. A new key goes
/// behind the last value of its section.
///
/// A value, key or section name that the plain form cannot hold (line breaks, control characters,
/// blanks or quotes at an end) is written between double quotes with backslash escapes (`\\`, `\"`,
/// `\n`, `\r`, `\t` and `\x` with two hexadecimal digits). A value that only begins with a quote is
/// plain. Reading may go on on several threads as long as none changes anything.
class TOLVAN_API IniDocument
{
public:
    IniDocument();
    ~IniDocument();
    IniDocument(const IniDocument& other);
    IniDocument& operator=(const IniDocument& other);
    IniDocument(IniDocument&&) noexcept;
    IniDocument& operator=(IniDocument&&) noexcept;

    /// Replaces the content. Lines that cannot be understood are kept and their numbers (from 1)
    /// returned.
    std::vector<int> Parse(const String& text);
    String           ToText() const;

    bool HasSection(const String& section) const;
    bool Has(const String& section, const String& key) const;
    /// Empty when there is none.
    String Get(const String& section, const String& key) const;
    /// From 1; 0 when there is none. Counts the lines up to it: for messages.
    int LineOf(const String& section, const String& key) const;

    /// In order of appearance; the unnamed one only where it has or had a value.
    std::vector<String> Sections() const;
    std::vector<String> Keys(const String& section) const; ///< In order of appearance.

    void InsertSection(const String& section); ///< Nothing when it is there.
    void Set(const String& section, const String& key, const String& value);
    void Remove(const String& section, const String& key);
    void ClearSection(const String& section); ///< Removes all its keys; its comments stay.

private:
    struct Section;

    struct Line
    {
        String   text;              ///< As in the file, with its line end.
        Section* section = nullptr; ///< Of a header or a value; null for every other line.
        size_t   valueStart = 0;    ///< Where the value begins in the text; 0 for a header.
    };
    using Lines = std::list<Line>;

    struct Entry
    {
        Lines::iterator line;          ///< The last one with this key.
        size_t          order = 0;     ///< Greater than that of every earlier key or section.
        bool            twice = false; ///< There are earlier lines with this key.
    };
    struct Section
    {
        std::map<String, Entry, String::ciless> entries;
        /// The last header or value of the section, after which a new value goes. None only in the
        /// unnamed section.
        Lines::iterator last;
        bool            hasLast = false;
        size_t          order = 0;
    };
    using SectionMap = std::map<String, Section, String::ciless>;

    /// @name Parsing
    /// These return whether the line was understood.
    /// @{
    bool ParseLine(Lines::iterator line, Section*& current);
    bool ParseHeader(Lines::iterator line, size_t bracket, Section*& current);
    bool ParseValue(Lines::iterator line, size_t start, Section* current);
    /// @}
    Section*        GetSection(const String& name);
    const Entry*    Find(const String& section, const String& key) const;
    Lines::iterator InsertLine(Lines::iterator before, const String& text);
    Lines::iterator PlaceOfFirstUnnamed();
    void            AddValue(Section& section, const String& key, const String& value);
    void            EraseLine(Lines::iterator line);
    void            EraseValues(Section& section, const String* key); ///< Null: all.

    Lines      m_Lines;
    SectionMap m_Sections;
    String     m_LineEnd = "\n";  ///< That of the first line; new lines get it.
    bool       m_HasMark = false; ///< The text began with a UTF-8 byte order mark.
    size_t     m_NextOrder = 1;   ///< 0 is the unnamed section's.
};
