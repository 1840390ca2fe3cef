#include "common/LogLook.h"

#include "common/FollowingText.h"

#include "vesta/Application.h"

#include <wx/intl.h>

namespace
{
const char* const kSection = "Logs";
const char* const kReadable = "ReadableSelection";
} // namespace

bool LogLook::IsSelectionReadable()
{
    return Application::the_Application->Options().GetBool(kSection, kReadable, true);
}

void LogLook::SetSelectionReadable(bool on)
{
    Application::the_Application->Options().SetValue(kSection, kReadable, on ? "1" : "0");
    FollowingText::ForEach([on](FollowingText& text) { text.SetReadableSelection(on); });
}

LogLookChoice::LogLookChoice(wxWindow* parent)
    : wxtCheckBox(parent, wxID_ANY, wxGetTranslation("Readable text on selected lines"))
{
    SetValue(LogLook::IsSelectionReadable());
}

bool LogLookChoice::TransferDataFromWindow()
{
    LogLook::SetSelectionReadable(GetValue());
    return true;
}
