#pragma once

#include "vesta/String.h"

#include <wx/dataobj.h>

namespace listviews
{
/// Rows on the clipboard: as text for every program, as HTML for those that know tables, and as
/// "application/octet-stream" byte for byte, because the others can't carry what is no valid text.
/// The HTML is made when somebody asks for it.
class TableDataObject : public wxDataObject
{
public:
    explicit TableDataObject(String table); ///< As `TableText` makes it.

    wxDataFormat GetPreferredFormat(Direction direction = Get) const override;
    size_t       GetFormatCount(Direction direction = Get) const override;
    void         GetAllFormats(wxDataFormat* formats, Direction direction = Get) const override;
    size_t       GetDataSize(const wxDataFormat& format) const override;
    bool         GetDataHere(const wxDataFormat& format, void* buffer) const override;

private:
    const String& In(const wxDataFormat& format) const;

    String         m_Bytes;
    String         m_Text; ///< Empty when the bytes are valid text themselves.
    mutable String m_Html; ///< Between the question for its size and that for itself.
};
} // namespace listviews
