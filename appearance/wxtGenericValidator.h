#pragma once

#include "vesta/Export.h"

#include <wx/valgen.h>

/// The toolkit's generic validator, which knows its own controls by their classes, for the themed
/// ones as well: an `int` holds the selection of a `wxtChoice` or `wxtComboBox`, a text what it
/// shows, a list of numbers the checked items of a `wxtCheckListBox`. Everything else is the
/// toolkit's. Main thread.
class TOLVAN_API wxtGenericValidator : public wxGenericValidator
{
public:
    using wxGenericValidator::wxGenericValidator;

    wxObject* Clone() const override;
    bool      TransferToWindow() override;
    bool      TransferFromWindow() override;
};
