#pragma once

#include "vesta/String.h"

#include <wx/dataobj.h>

#include <functional>

namespace internal
{
/// Text on the clipboard: as text for every program, and as "application/octet-stream" byte for
/// byte, because the text form can't carry what is no valid text (it shows such bytes as the views
/// do). Valid text is the same in both, NUL and control characters included. Main thread.
class TextDataObject : public wxDataObject
{
public:
    /// `bytes` is called once, when somebody asks; what is made of the text then by `html`, if
    /// anything, is the form for programs that know tables.
    explicit TextDataObject(std::function<String()>                   bytes,
                            std::function<String(const String& text)> html = nullptr);

    wxDataFormat GetPreferredFormat(Direction direction = Get) const override;
    size_t       GetFormatCount(Direction direction = Get) const override;
    void         GetAllFormats(wxDataFormat* formats, Direction direction = Get) const override;
    size_t       GetDataSize(const wxDataFormat& format) const override;
    bool         GetDataHere(const wxDataFormat& format, void* buffer) const override;

private:
    const String& In(const wxDataFormat& format) const;
    const String& Text() const;
    void          TakeBytes() const;

    mutable std::function<String()>      m_Take; ///< Until it has been called.
    std::function<String(const String&)> m_MakeHtml;
    mutable String                       m_Bytes;
    mutable String                       m_Text; ///< Empty when the bytes are valid themselves.
    mutable String m_Html; ///< Between the question for its size and that for itself.
};
} // namespace internal
