#include "vesta/IniDocument.h"

#include "vesta/CallEntry.h"
#include "vesta/files/IniText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

const String kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlankLine(const String& line)
{
    const size_t end = vesta::IniText::ContentLength(line);
    return vesta::IniText::SkipBlanks(line, 0, end) == end;
}

/// The names of a map's entries, sorted by their `order`.
template <class Map> std::vector<String> NamesInOrder(const Map& map)
{
    std::vector<std::pair<size_t, const String*>> found;
    found.reserve(map.size());
    for (const auto& item : map)
    {
        found.emplace_back(item.second.order, &item.first);
    }
    std::sort(found.begin(), found.end());
    std::vector<String> names;
    names.reserve(found.size());
    for (const auto& item : found)
    {
        names.push_back(*item.second);
    }
    return names;
}

} // namespace

IniDocument::IniDocument() = default;
IniDocument::~IniDocument() = default;
IniDocument::IniDocument(IniDocument&&) noexcept = default;
IniDocument& IniDocument::operator=(IniDocument&&) noexcept = default;

IniDocument::IniDocument(const IniDocument& other)
{
    // The index points into the lines: it is built anew instead of copied.
    Parse(other.ToText());
}

IniDocument& IniDocument::operator=(const IniDocument& other)
{
    if (this != &other)
    {
        *this = IniDocument(other);
    }
    return *this;
}

std::vector<int> IniDocument::Parse(const String& text)
{
    CALL_ENTRY("IniDocument::Parse");
    *this = IniDocument();
    m_HasMark = text.StartsWith(kByteOrderMark);

    std::vector<int> damaged;
    Section*         current = nullptr;
    int              number = 0;
    for (size_t start = m_HasMark ? kByteOrderMark.size() : 0; start < text.size();)
    {
        const size_t newline = text.find('\n', start);
        const size_t end = newline == String::npos ? text.size() : newline + 1;
        const auto   line = m_Lines.emplace(m_Lines.end());
        line->text.assign(text, start, end - start);
        ++number;
        if (!ParseLine(line, current))
        {
            damaged.push_back(number);
        }
        start = end;
    }
    if (!m_Lines.empty() && m_Lines.front().text.size() >= 2 &&
        m_Lines.front().text.compare(m_Lines.front().text.size() - 2, 2, "\r\n") == 0)
    {
        m_LineEnd = "\r\n";
    }
    return damaged;
}

bool IniDocument::ParseLine(Lines::iterator line, Section*& current)
{
    const size_t end = vesta::IniText::ContentLength(line->text);
    const size_t start = vesta::IniText::SkipBlanks(line->text, 0, end);
    if (start == end || line->text[start] == ';' || line->text[start] == '#')
    {
        return true;
    }
    return line->text[start] == '[' ? ParseHeader(line, start, current)
                                    : ParseValue(line, start, current);
}

bool IniDocument::ParseHeader(Lines::iterator line, size_t bracket, Section*& current)
{
    String name;
    if (!vesta::IniText::ReadSectionName(line->text, bracket, name))
    {
        return false;
    }
    current = GetSection(name);
    current->last = line;
    current->hasLast = true;
    line->section = current;
    return true;
}

bool IniDocument::ParseValue(Lines::iterator line, size_t start, Section* current)
{
    String key;
    size_t valueStart = 0;
    if (!vesta::IniText::ReadKey(line->text, start, key, valueStart))
    {
        return false;
    }
    Section* const section = current ? current : GetSection(String());
    const auto     place = section->entries.emplace(key, Entry());
    Entry&         entry = place.first->second;
    entry.twice = !place.second;
    entry.order = place.second ? m_NextOrder++ : entry.order;
    entry.line = line;
    line->section = section;
    line->valueStart = valueStart;
    section->last = line;
    section->hasLast = true;
    return true;
}

String IniDocument::ToText() const
{
    String text = m_HasMark ? kByteOrderMark : String();
    size_t size = text.size();
    for (const Line& line : m_Lines)
    {
        size += line.text.size();
    }
    text.reserve(size);
    for (const Line& line : m_Lines)
    {
        text += line.text;
    }
    return text;
}

bool IniDocument::HasSection(const String& section) const
{
    return m_Sections.count(section) != 0;
}

bool IniDocument::Has(const String& section, const String& key) const
{
    return Find(section, key) != nullptr;
}

String IniDocument::Get(const String& section, const String& key) const
{
    const Entry* const entry = Find(section, key);
    return entry ? vesta::IniText::ReadValue(entry->line->text, entry->line->valueStart) : String();
}

int IniDocument::LineOf(const String& section, const String& key) const
{
    const Entry* const entry = Find(section, key);
    if (!entry)
    {
        return 0;
    }
    const Lines::const_iterator line = entry->line;
    return static_cast<int>(std::distance(m_Lines.begin(), line)) + 1;
}

std::vector<String> IniDocument::Sections() const
{
    return NamesInOrder(m_Sections);
}

std::vector<String> IniDocument::Keys(const String& section) const
{
    const auto found = m_Sections.find(section);
    return found == m_Sections.end() ? std::vector<String>() : NamesInOrder(found->second.entries);
}

void IniDocument::InsertSection(const String& section)
{
    if (section.empty() || HasSection(section))
    {
        return;
    }
    if (!m_Lines.empty() && !IsBlankLine(m_Lines.back().text))
    {
        InsertLine(m_Lines.end(), String());
    }
    Section* const added = GetSection(section);
    added->last = InsertLine(m_Lines.end(), "[" + vesta::IniText::WriteSectionName(section) + "]");
    added->last->section = added;
    added->hasLast = true;
}

void IniDocument::Set(const String& section, const String& key, const String& value)
{
    if (const Entry* const entry = Find(section, key))
    {
        Line& line = *entry->line;
        if (vesta::IniText::ReadValue(line.text, line.valueStart) != value)
        {
            const size_t end = vesta::IniText::ContentLength(line.text);
            line.text.replace(line.valueStart, end - line.valueStart,
                              vesta::IniText::WriteValue(value));
        }
        return;
    }
    InsertSection(section);
    AddValue(*GetSection(section), key, value);
}

void IniDocument::Remove(const String& section, const String& key)
{
    const auto found = m_Sections.find(section);
    if (found != m_Sections.end())
    {
        EraseValues(found->second, &key);
    }
}

void IniDocument::ClearSection(const String& section)
{
    const auto found = m_Sections.find(section);
    if (found != m_Sections.end())
    {
        EraseValues(found->second, nullptr);
    }
}

IniDocument::Section* IniDocument::GetSection(const String& name)
{
    const auto place = m_Sections.emplace(name, Section());
    if (place.second)
    {
        // The unnamed one stands before all others, also if it gets its first value last.
        place.first->second.order = name.empty() ? 0 : m_NextOrder++;
    }
    return &place.first->second;
}

const IniDocument::Entry* IniDocument::Find(const String& section, const String& key) const
{
    const auto found = m_Sections.find(section);
    if (found == m_Sections.end())
    {
        return nullptr;
    }
    const auto entry = found->second.entries.find(key);
    return entry == found->second.entries.end() ? nullptr : &entry->second;
}

IniDocument::Lines::iterator IniDocument::InsertLine(Lines::iterator before, const String& text)
{
    if (before != m_Lines.begin())
    {
        String& previous = std::prev(before)->text;
        if (previous.back() == '\r')
        {
            previous += '\n';
        }
        else if (previous.back() != '\n')
        {
            previous += m_LineEnd;
        }
    }
    const auto line = m_Lines.emplace(before);
    line->text = text + m_LineEnd;
    return line;
}

IniDocument::Lines::iterator IniDocument::PlaceOfFirstUnnamed()
{
    const auto header = std::find_if(m_Lines.begin(), m_Lines.end(),
                                     [](const Line& line) { return line.section != nullptr; });
    // A comment right above the first header belongs to it; the one that opens the file does not.
    auto place = header;
    while (place != m_Lines.begin() && !IsBlankLine(std::prev(place)->text))
    {
        --place;
    }
    return place == m_Lines.begin() ? header : place;
}

void IniDocument::AddValue(Section& section, const String& key, const String& value)
{
    const auto   before = section.hasLast ? std::next(section.last) : PlaceOfFirstUnnamed();
    const String start = vesta::IniText::WriteKey(key) + (value.empty() ? " =" : " = ");
    const auto   line = InsertLine(before, start + vesta::IniText::WriteValue(value));
    line->section = &section;
    line->valueStart = start.size();
    section.last = line;
    section.hasLast = true;

    Entry& entry = section.entries[key];
    entry.line = line;
    entry.order = m_NextOrder++;
}

void IniDocument::EraseLine(Lines::iterator line)
{
    Section& section = *line->section;
    auto     previous = line;
    bool     isLast = section.hasLast && section.last == line;
    while (isLast && previous != m_Lines.begin())
    {
        --previous;
        if (previous->section)
        {
            // The nearest header or value above belongs to the same section: a header opens it.
            section.last = previous;
            isLast = false;
        }
    }
    section.hasLast = section.hasLast && !isLast;
    m_Lines.erase(line);
}

void IniDocument::EraseValues(Section& section, const String* key)
{
    bool twice = false;
    for (auto it = key ? section.entries.find(*key) : section.entries.begin();
         it != section.entries.end();)
    {
        twice = twice || it->second.twice;
        if (!it->second.twice)
        {
            EraseLine(it->second.line);
        }
        it = section.entries.erase(it);
        if (key)
        {
            break;
        }
    }
    // Earlier lines with the same key would come to the fore: all of them go.
    for (auto line = m_Lines.begin(); twice && line != m_Lines.end();)
    {
        const auto current = line++;
        String     name;
        size_t     valueStart = 0;
        if (current->section == &section && current->valueStart > 0 &&
            (!key || (vesta::IniText::ReadKey(current->text, current->text.find_first_not_of(" \t"),
                                              name, valueStart) &&
                      name.EqualsNoCase(*key))))
        {
            EraseLine(current);
        }
    }
}
