#include "vesta/String.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

const String k_Yes = "Yes";
const String k_No = "No";
const String k_True = "True";
const String k_False = "False";
const String k_On = "On";
const String k_Off = "Off";

namespace
{

const char* const kBlanks = " \t\r\n";

// The C library's functions go by the locale and would change bytes of multi-byte characters.
char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

bool String::ciless::operator()(const String& left, const String& right) const
{
    const size_t common = left.size() < right.size() ? left.size() : right.size();
    for (size_t i = 0; i < common; ++i)
    {
        const auto a = static_cast<unsigned char>(Lower(left[i]));
        const auto b = static_cast<unsigned char>(Lower(right[i]));
        if (a != b)
        {
            return a < b;
        }
    }
    return left.size() < right.size();
}

String String::ToUpper() const
{
    String result = *this;
    for (char& c : result)
    {
        c = Upper(c);
    }
    return result;
}

String String::ToLower() const
{
    String result = *this;
    for (char& c : result)
    {
        c = Lower(c);
    }
    return result;
}

String String::Trim() const
{
    const size_t first = find_first_not_of(kBlanks);
    if (first == npos)
    {
        return String();
    }
    return substr(first, find_last_not_of(kBlanks) - first + 1);
}

bool String::StartsWith(const String& prefix) const
{
    return compare(0, prefix.size(), prefix) == 0;
}

bool String::EqualsNoCase(const String& other) const
{
    if (size() != other.size())
    {
        return false;
    }
    for (size_t i = 0; i < size(); ++i)
    {
        if (Lower((*this)[i]) != Lower(other[i]))
        {
            return false;
        }
    }
    return true;
}

long long String::ToInt(long long otherwise) const
{
    char* end = nullptr;
    errno = 0;
    const long long value = std::strtoll(c_str(), &end, 10);
    return end == c_str() || errno == ERANGE ? otherwise : value;
}

bool String::ToBool(bool otherwise) const
{
    const String word = Trim();
    for (const String& yes : {k_Yes, k_True, k_On, String("1")})
    {
        if (word.EqualsNoCase(yes))
        {
            return true;
        }
    }
    for (const String& no : {k_No, k_False, k_Off, String("0")})
    {
        if (word.EqualsNoCase(no))
        {
            return false;
        }
    }
    return otherwise;
}

String String::FromInt(long long value)
{
    return std::to_string(value);
}

String String::FromBool(bool value)
{
    return value ? k_Yes : k_No;
}

String SFormat(const char* format, ...)
{
    char    small[256];
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(small, sizeof small, format, arguments);
    va_end(arguments);

    String result;
    if (length < 0)
    {
        // A wide argument that the locale cannot express: the bare format still says something.
        result = format;
    }
    else if (static_cast<size_t>(length) < sizeof small)
    {
        result.assign(small, static_cast<size_t>(length));
    }
    else
    {
        result.resize(static_cast<size_t>(length));
        std::vsnprintf(&result[0], result.size() + 1, format, again);
    }
    va_end(again);
    return result;
}

StringTokenizer::StringTokenizer(const String& text, const String& separators, char quote,
                                 char escape)
    : m_Text(text),
      m_Separators(separators),
      m_Quote(quote),
      m_Escape(escape),
      m_More(!text.empty())
{
}

bool StringTokenizer::HasMore() const
{
    return m_More;
}

String StringTokenizer::Next()
{
    String piece;
    bool   quoted = false;
    while (m_Position < m_Text.size())
    {
        const char c = m_Text[m_Position++];
        if (c == m_Escape && m_Position < m_Text.size())
        {
            piece += m_Text[m_Position++];
        }
        else if (c == m_Quote)
        {
            quoted = !quoted;
        }
        else if (!quoted && m_Separators.find(c) != String::npos)
        {
            return piece; // What follows is a piece even when the text ends here.
        }
        else
        {
            piece += c;
        }
    }
    m_More = false;
    return piece;
}

std::vector<String> StringTokenizer::Split(const String& text, const String& separators)
{
    std::vector<String> pieces;
    StringTokenizer     tokenizer(text, separators);
    while (tokenizer.HasMore())
    {
        pieces.push_back(tokenizer.Next());
    }
    return pieces;
}
