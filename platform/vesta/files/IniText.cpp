#include "vesta/files/IniText.h"

namespace vesta
{
namespace
{

const char* const kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

int HexDigit(char c)
{
    const char lower = static_cast<char>(c | 0x20);
    return c >= '0' && c <= '9' ? c - '0' : lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

String TrimBlanks(const String& line, size_t start, size_t end)
{
    start = IniText::SkipBlanks(line, start, end);
    while (end > start && IsBlank(line[end - 1]))
    {
        --end;
    }
    return line.substr(start, end - start);
}

/// Reads the escape whose backslash stands at `position` and gives the position behind it. A
/// backslash before anything else stands for itself, as in the names of other systems' files.
size_t ReadEscape(const String& line, size_t position, size_t end, String& text)
{
    const char kind = position + 1 < end ? line[position + 1] : '\0';
    switch (kind)
    {
    case '\\':
    case '"':
        text += kind;
        return position + 2;
    case 'n':
        text += '\n';
        return position + 2;
    case 'r':
        text += '\r';
        return position + 2;
    case 't':
        text += '\t';
        return position + 2;
    case 'x':
        if (position + 3 < end && HexDigit(line[position + 2]) >= 0 &&
            HexDigit(line[position + 3]) >= 0)
        {
            text +=
                static_cast<char>(HexDigit(line[position + 2]) * 16 + HexDigit(line[position + 3]));
            return position + 4;
        }
        break;
    default:
        break;
    }
    text += '\\';
    return position + 1;
}

String Quoted(const String& text)
{
    String result = "\"";
    for (const char c : text)
    {
        if (c == '"' || c == '\\')
        {
            result += '\\';
            result += c;
        }
        else if (c == '\n')
        {
            result += "\\n";
        }
        else if (c == '\r')
        {
            result += "\\r";
        }
        else if (c == '\t')
        {
            result += "\\t";
        }
        else if (IsControl(c))
        {
            result += SFormat("\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
        }
        else
        {
            result += c;
        }
    }
    return result + "\"";
}

/// Whether quotes are needed wherever the text stands.
bool NeedsQuotes(const String& text)
{
    if (text.empty())
    {
        return false;
    }
    for (const char end : {text.front(), text.back()})
    {
        if (IsBlank(end) || end == '"')
        {
            return true;
        }
    }
    for (const char c : text)
    {
        if (IsControl(c))
        {
            return true;
        }
    }
    return false;
}

} // namespace

size_t IniText::ContentLength(const String& line)
{
    size_t length = line.size();
    if (length > 0 && line[length - 1] == '\n')
    {
        --length;
    }
    if (length > 0 && line[length - 1] == '\r')
    {
        --length;
    }
    return length;
}

size_t IniText::SkipBlanks(const String& line, size_t start, size_t end)
{
    while (start < end && IsBlank(line[start]))
    {
        ++start;
    }
    return start;
}

size_t IniText::ReadQuoted(const String& line, size_t start, size_t end, String& text)
{
    text.clear();
    for (size_t i = start + 1; i < end;)
    {
        if (line[i] == '"')
        {
            return i + 1;
        }
        if (line[i] == '\\')
        {
            i = ReadEscape(line, i, end, text);
        }
        else
        {
            text += line[i++];
        }
    }
    return String::npos;
}

bool IniText::ReadSectionName(const String& line, size_t bracket, String& name)
{
    const size_t end = ContentLength(line);
    const size_t start = SkipBlanks(line, bracket + 1, end);
    size_t       close = String::npos;
    if (start < end && line[start] == '"')
    {
        close = ReadQuoted(line, start, end, name);
        close = close == String::npos ? close : SkipBlanks(line, close, end);
    }
    if (close == String::npos || close >= end || line[close] != ']')
    {
        close = line.find(']', start);
        if (close == String::npos || close >= end)
        {
            return false;
        }
        name = TrimBlanks(line, start, close);
    }
    const size_t rest = SkipBlanks(line, close + 1, end);
    return rest == end || line[rest] == ';' || line[rest] == '#';
}

bool IniText::ReadKey(const String& line, size_t start, String& key, size_t& valueStart)
{
    const size_t end = ContentLength(line);
    size_t       equals = String::npos;
    if (start < end && line[start] == '"')
    {
        equals = ReadQuoted(line, start, end, key);
        equals = equals == String::npos ? equals : SkipBlanks(line, equals, end);
    }
    if (equals == String::npos || equals >= end || line[equals] != '=')
    {
        equals = line.find('=', start);
        if (equals == String::npos || equals >= end)
        {
            return false;
        }
        key = TrimBlanks(line, start, equals);
        if (key.empty())
        {
            return false;
        }
    }
    valueStart = SkipBlanks(line, equals + 1, end);
    return true;
}

String IniText::ReadValue(const String& line, size_t valueStart)
{
    const size_t end = ContentLength(line);
    if (valueStart < end && line[valueStart] == '"')
    {
        String       text;
        const size_t behind = ReadQuoted(line, valueStart, end, text);
        if (behind != String::npos && SkipBlanks(line, behind, end) == end)
        {
            return text;
        }
    }
    return TrimBlanks(line, valueStart, end);
}

String IniText::WriteSectionName(const String& name)
{
    const bool plain = !NeedsQuotes(name) && name.find(']') == String::npos;
    return plain ? name : Quoted(name);
}

String IniText::WriteKey(const String& key)
{
    const bool plain = !key.empty() && !NeedsQuotes(key) && key.find('=') == String::npos &&
                       String(";#[").find(key.front()) == String::npos &&
                       !key.StartsWith(kByteOrderMark);
    return plain ? key : Quoted(key);
}

String IniText::WriteValue(const String& value)
{
    return NeedsQuotes(value) ? Quoted(value) : value;
}
} // namespace vesta
