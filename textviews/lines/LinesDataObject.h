#pragma once

#include "vesta/String.h"

#include <wx/dataobj.h>

namespace textviews
{
/// Text on the clipboard: as text for every program, and as "application/octet-stream" byte for
/// byte, because the text form can't carry what is no valid text (it shows such bytes as the views
/// do). Valid text is the same in both, NUL and control characters included.
class LinesDataObject : public wxDataObject
{
public:
    explicit LinesDataObject(String bytes);

    wxDataFormat GetPreferredFormat(Direction direction = Get) const override;
    size_t       GetFormatCount(Direction direction = Get) const override;
    void         GetAllFormats(wxDataFormat* formats, Direction direction = Get) const override;
    size_t       GetDataSize(const wxDataFormat& format) const override;
    bool         GetDataHere(const wxDataFormat& format, void* buffer) const override;

private:
    const String& In(const wxDataFormat& format) const;

    String m_Bytes;
    String m_Text; ///< Empty when the bytes are valid text themselves.
};
} // namespace textviews
