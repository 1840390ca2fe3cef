#include "internal/clipboard/TextDataObject.h"

#include "internal/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace internal
{
namespace
{
const char* const kBytesFormat = "application/octet-stream";
const char* const kMimeText = "text/plain;charset=utf-8"; // what Wayland's programs ask for
const char* const kPlainText = "text/plain";              // and what programs without a toolkit do

std::array<wxDataFormat, 6> Formats()
{
    return {wxDataFormat(wxDF_UNICODETEXT), wxDataFormat(wxDF_TEXT),    wxDataFormat(kMimeText),
            wxDataFormat(kPlainText),       wxDataFormat(kBytesFormat), wxDataFormat(wxDF_HTML)};
}

// With each byte that is no UTF-8 as the character of its number.
String ValidText(const String& bytes)
{
    String            text;
    const char* const end = bytes.data() + bytes.size();
    for (const char* at = bytes.data(); at != end;)
    {
        const Utf8Char character = DecodeUtf8(at, end);
        if (character.valid)
        {
            text.append(at, static_cast<size_t>(character.length));
        }
        else
        {
            text += static_cast<char>(0xC0 | character.code >> 6);
            text += static_cast<char>(0x80 | (character.code & 0x3F));
        }
        at += character.length;
    }
    return text;
}
} // namespace

TextDataObject::TextDataObject(std::function<String()>                   bytes,
                               std::function<String(const String& text)> html)
    : m_Take(std::move(bytes)), m_MakeHtml(std::move(html))
{
}

wxDataFormat TextDataObject::GetPreferredFormat(Direction) const
{
    return wxDF_UNICODETEXT;
}

size_t TextDataObject::GetFormatCount(Direction direction) const
{
    return direction == Get ? Formats().size() - (m_MakeHtml ? 0 : 1) : 0;
}

void TextDataObject::GetAllFormats(wxDataFormat* formats, Direction direction) const
{
    const auto all = Formats();
    std::copy_n(all.begin(), GetFormatCount(direction), formats);
}

void TextDataObject::TakeBytes() const
{
    if (const std::function<String()> take = std::exchange(m_Take, nullptr))
    {
        m_Bytes = take();
        const char* const begin = m_Bytes.data();
        m_Text = IsValidUtf8(begin, begin + m_Bytes.size()) ? String() : ValidText(m_Bytes);
    }
}

const String& TextDataObject::Text() const
{
    return m_Text.empty() ? m_Bytes : m_Text;
}

const String& TextDataObject::In(const wxDataFormat& format) const
{
    TakeBytes();
    if (format == wxDataFormat(wxDF_HTML) && m_MakeHtml)
    {
        if (m_Html.empty())
        {
            m_Html = m_MakeHtml(Text());
        }
        return m_Html;
    }
    return format == wxDataFormat(kBytesFormat) ? m_Bytes : Text();
}

size_t TextDataObject::GetDataSize(const wxDataFormat& format) const
{
    return In(format).size();
}

bool TextDataObject::GetDataHere(const wxDataFormat& format, void* buffer) const
{
    const String& data = In(format);
    std::memcpy(buffer, data.data(), data.size());
    m_Html = String(); // several times what the text takes
    return true;
}
} // namespace internal
