#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

class wxWindow;

namespace dialogs
{
/// A control that shows a message as it stands, "&" and line breaks included, no larger than
/// `limit` (pixels): a label where that is large enough, wrapped if need be, else a text that
/// scrolls.
wxWindow* NewMessage(wxWindow* parent, const wxString& message, const wxSize& limit);
} // namespace dialogs
