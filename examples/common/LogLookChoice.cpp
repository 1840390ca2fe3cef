#include "common/LogLookChoice.h"

#include "common/FollowingText.h"

#include <wx/intl.h>

LogLookChoice::LogLookChoice(wxWindow* parent)
    : wxtCheckBox(parent, wxID_ANY, wxGetTranslation("Reada&ble text on selected lines"))
{
    SetValue(FollowingText::IsReadableWanted());
}

bool LogLookChoice::TransferDataFromWindow()
{
    FollowingText::WantReadable(GetValue());
    return true;
}
