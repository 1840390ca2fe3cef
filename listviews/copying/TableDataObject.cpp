#include "listviews/copying/TableDataObject.h"

#include "appearance/wxTolvanString.h"
#include "internal/text/Utf8.h"
#include "listviews/copying/TableText.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace listviews
{
namespace
{
const char* const kBytesFormat = "application/octet-stream";
const char* const kMimeText = "text/plain;charset=utf-8"; // what Wayland's programs ask for

std::array<wxDataFormat, 5> Formats()
{
    return {wxDataFormat(wxDF_UNICODETEXT), wxDataFormat(wxDF_TEXT), wxDataFormat(kMimeText),
            wxDataFormat(wxDF_HTML), wxDataFormat(kBytesFormat)};
}
} // namespace

TableDataObject::TableDataObject(String table) : m_Bytes(std::move(table))
{
    if (!internal::IsValidUtf8(m_Bytes.data(), m_Bytes.data() + m_Bytes.size()))
    {
        m_Text = wxtFromWx(wxtToWx(m_Bytes));
    }
}

wxDataFormat TableDataObject::GetPreferredFormat(Direction) const
{
    return wxDF_UNICODETEXT;
}

size_t TableDataObject::GetFormatCount(Direction direction) const
{
    return direction == Get ? Formats().size() : 0;
}

void TableDataObject::GetAllFormats(wxDataFormat* formats, Direction direction) const
{
    if (direction == Get)
    {
        const auto all = Formats();
        std::copy(all.begin(), all.end(), formats);
    }
}

const String& TableDataObject::In(const wxDataFormat& format) const
{
    if (format == wxDataFormat(wxDF_HTML))
    {
        if (m_Html.empty())
        {
            m_Html = HtmlOf(m_Text.empty() ? m_Bytes : m_Text);
        }
        return m_Html;
    }
    return m_Text.empty() || format == wxDataFormat(kBytesFormat) ? m_Bytes : m_Text;
}

size_t TableDataObject::GetDataSize(const wxDataFormat& format) const
{
    return In(format).size();
}

bool TableDataObject::GetDataHere(const wxDataFormat& format, void* buffer) const
{
    const String& data = In(format);
    std::memcpy(buffer, data.data(), data.size());
    m_Html = String(); // several times what the text takes
    return true;
}
} // namespace listviews
