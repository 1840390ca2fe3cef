#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

class wxWindow;

namespace dialogs
{
/// Room for a message over that window: buttons and the dialog's frame must find theirs on the
/// display too. Pixels.
wxSize MessageLimit(const wxWindow* window);
/// A control that shows a message as it stands, "&" and line breaks included, no larger than
/// `limit` (pixels): a label where that is large enough, wrapped if need be, else a text that
/// scrolls.
wxWindow* NewMessage(wxWindow* parent, const wxString& message, const wxSize& limit);
} // namespace dialogs
