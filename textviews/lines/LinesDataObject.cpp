#include "textviews/lines/LinesDataObject.h"

#include "appearance/wxTolvanString.h"
#include "internal/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace textviews
{
namespace
{
const char* const kBytesFormat = "application/octet-stream";
const char* const kMimeText = "text/plain;charset=utf-8"; // what Wayland's programs ask for

std::array<wxDataFormat, 4> Formats()
{
    return {wxDataFormat(wxDF_UNICODETEXT), wxDataFormat(wxDF_TEXT), wxDataFormat(kMimeText),
            wxDataFormat(kBytesFormat)};
}
} // namespace

LinesDataObject::LinesDataObject(String bytes) : m_Bytes(std::move(bytes))
{
    if (!internal::IsValidUtf8(m_Bytes.data(), m_Bytes.data() + m_Bytes.size()))
    {
        m_Text = wxtFromWx(wxtToWx(m_Bytes));
    }
}

wxDataFormat LinesDataObject::GetPreferredFormat(Direction) const
{
    return wxDF_UNICODETEXT;
}

size_t LinesDataObject::GetFormatCount(Direction direction) const
{
    return direction == Get ? Formats().size() : 0;
}

void LinesDataObject::GetAllFormats(wxDataFormat* formats, Direction direction) const
{
    if (direction == Get)
    {
        const auto all = Formats();
        std::copy(all.begin(), all.end(), formats);
    }
}

const String& LinesDataObject::In(const wxDataFormat& format) const
{
    return m_Text.empty() || format == wxDataFormat(kBytesFormat) ? m_Bytes : m_Text;
}

size_t LinesDataObject::GetDataSize(const wxDataFormat& format) const
{
    return In(format).size();
}

bool LinesDataObject::GetDataHere(const wxDataFormat& format, void* buffer) const
{
    const String& data = In(format);
    std::memcpy(buffer, data.data(), data.size());
    return true;
}
} // namespace textviews
