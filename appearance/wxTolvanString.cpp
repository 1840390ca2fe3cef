#include "appearance/wxTolvanString.h"

#include "internal/text/Utf8.h"

wxString wxtToWx(const char* bytes, size_t count)
{
    const char* const end = bytes + count;
    std::wstring      text;
    text.reserve(count);
    for (const char* at = bytes; at != end;)
    {
        const internal::Utf8Char character = internal::DecodeUtf8(at, end);
        text.push_back(static_cast<wchar_t>(character.code));
        at += character.length;
    }
    return wxString(text);
}

wxString wxtToWx(const String& text)
{
    return wxtToWx(text.data(), text.size());
}

String wxtFromWx(const wxString& text)
{
    const wxScopedCharBuffer bytes = text.utf8_str();
    return String(bytes.data(), bytes.length());
}
