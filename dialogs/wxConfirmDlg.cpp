#include "dialogs/wxConfirmDlg.h"

#include "appearance/wxTolvanString.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/intl.h>
#include <wx/richmsgdlg.h>

namespace
{
const char* const kSection = "Confirm";

void Remember(const String& key, bool remembered)
{
    OptionsFile&    options = Application::the_Application->Options();
    const WriteLock lock(options.Lock());
    options.SetValue(kSection, key, remembered ? "1" : "0");
}
} // namespace

bool wxTolvanMessageBox(const wxString& message, const String& key, wxWindow* parent)
{
    CALL_ENTRY("wxTolvanMessageBox");
    LogInfo(wxtFromWx(message));
    if (Application::the_Application->Options().GetBool(kSection, key, false))
    {
        return true;
    }
    wxRichMessageDialog box(parent, message, wxMessageBoxCaptionStr, wxOK | wxCANCEL | wxCENTRE);
    box.ShowCheckBox(wxGetTranslation("Don't tell me again"));
    const bool confirmed = box.ShowModal() == wxID_OK;
    if (confirmed)
    {
        Remember(key, box.IsCheckBoxChecked());
    }
    return confirmed;
}
