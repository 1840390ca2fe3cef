#include "appearance/wxtMenuKey.h"

#include "internal/port/MenuKeys.h"
#include "vesta/CallEntry.h"

#include <memory>

bool wxtShowMenuKey(wxMenuItem& item, const wxString& key)
{
    CALL_ENTRY("wxtShowMenuKey");
    const std::unique_ptr<wxAcceleratorEntry> entry(wxAcceleratorEntry::Create("\t" + key));
    return entry && internal::WriteKey(item, *entry);
}
