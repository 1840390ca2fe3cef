#include "textviews/search/ValidText.h"

#include "internal/text/Utf8.h"
#include "textviews/lines/TextCells.h"

namespace textviews
{
namespace
{
constexpr size_t kStandInBytes = 4;

// Of characters for private use, those at the very end.
void AppendStandIn(std::string& text, char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    text += "\xf4\x8f";
    text += static_cast<char>(0xBC | value >> 6);
    text += static_cast<char>(0x80 | (value & 0x3F));
}
} // namespace

ValidText::ValidText(std::string_view bytes) : m_Bytes(bytes), m_Text(bytes)
{
    const char* const end = bytes.data() + bytes.size();
    if (IsAscii(bytes) || internal::IsValidUtf8(bytes.data(), end))
    {
        return;
    }
    for (const char* at = bytes.data(); at < end;)
    {
        const internal::Utf8Char character = internal::DecodeUtf8(at, end);
        if (character.valid)
        {
            m_Valid.append(at, static_cast<size_t>(character.length));
        }
        else
        {
            AppendStandIn(m_Valid, *at);
        }
        at += character.length;
    }
    m_Text = m_Valid;
}

size_t ValidText::Find(size_t Place::*known, size_t target, size_t Place::*wanted)
{
    if (m_Valid.empty())
    {
        return target;
    }
    if (m_Place.*known > target)
    {
        m_Place = {};
    }
    while (m_Place.*known < target && m_Place.byte < m_Bytes.size())
    {
        const TextCell cell = CellAt(m_Bytes, m_Place.byte);
        const auto     size = static_cast<size_t>(cell.bytes);
        const bool     isInvalid = size == 1 && cell.code >= kInvalidByteBase;
        m_Place.byte += size;
        m_Place.text += isInvalid ? kStandInBytes : size;
    }
    return m_Place.*wanted;
}

size_t ValidText::TextPlace(size_t byte)
{
    return Find(&Place::byte, byte, &Place::text);
}

size_t ValidText::BytePlace(size_t place)
{
    return Find(&Place::text, place, &Place::byte);
}
} // namespace textviews
