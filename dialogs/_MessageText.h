#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

class wxWindow;

/// A control that shows a message as it stands, "&" and line breaks included, no larger than
/// `limit` (pixels): a label where that is large enough, wrapped if need be, else a text that
/// scrolls.
wxWindow* _NewMessage(wxWindow* parent, const wxString& message, const wxSize& limit);
