#pragma once

#include "vesta/Export.h"

#include <string>
#include <utility>
#include <vector>

/// A byte string, UTF-8 in a UTF-8 locale. It holds any bytes, NUL included, and never changes
/// them by itself: what is no valid text is stored, compared and written as it came.
class TOLVAN_API String : public std::string
{
public:
    /// Orders strings without regard to the case of ASCII letters, as strcasecmp does.
    struct TOLVAN_API ciless
    {
        bool operator()(const String& left, const String& right) const;
    };

    String() = default;
    using std::string::string;
    /// A null pointer is an empty string.
    String(const char* text) : std::string(text ? text : "") {}
    String(const std::string& text) : std::string(text) {}
    String(std::string&& text) noexcept : std::string(std::move(text)) {}

    String ToUpper() const; ///< ASCII letters only; other bytes stay.
    String ToLower() const; ///< ASCII letters only; other bytes stay.
    String Trim() const;    ///< Without blanks, tabs and line ends at both ends.
    bool   StartsWith(const String& prefix) const;
    bool   EqualsNoCase(const String& other) const; ///< Same but for the case of ASCII letters.

    /// The number at the start of the text, in base 10; `otherwise` when there is none or it does
    /// not fit.
    long long ToInt(long long otherwise = 0) const;
    /// Reads the words for yes and no in any case ("yes", "true", "on", "1" and their opposites);
    /// `otherwise` for any other text.
    bool ToBool(bool otherwise) const;

    static String FromInt(long long value); ///< Decimal, without grouping in any locale.
    static String FromBool(bool value);     ///< `k_Yes` or `k_No`.
};

/// @name Truth values
/// The platform's words for the two truth values, in settings files and vocabularies.
/// @{
extern TOLVAN_API const String k_Yes;
extern TOLVAN_API const String k_No;
extern TOLVAN_API const String k_True;
extern TOLVAN_API const String k_False;
extern TOLVAN_API const String k_On;
extern TOLVAN_API const String k_Off;
/// @}

/// printf into a String.
TOLVAN_API String SFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Cuts a text into pieces at any of the separator bytes. Inside quotes a separator is an ordinary
/// byte; the escape byte takes the next byte as it is. Quotes and escapes are not part of a piece.
/// "a,,b" has three pieces, the second empty; an empty text has none.
class TOLVAN_API StringTokenizer
{
public:
    StringTokenizer(const String& text, const String& separators, char quote = '"',
                    char escape = '\\');

    bool   HasMore() const;
    String Next(); ///< An empty string when there is no further piece.

    static std::vector<String> Split(const String& text, const String& separators);

private:
    String m_Text;
    String m_Separators;
    char   m_Quote;
    char   m_Escape;
    size_t m_Position = 0;
    bool   m_More;
};
