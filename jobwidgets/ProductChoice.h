#pragma once

#include "appearance/wxtChoice.h"
#include "vesta/Export.h"
#include "vesta/UID.h"

/// A drop-down list of the job types (products), to choose one from: those that the job factory
/// knows when it is made, without those that the user has hidden, in the order of their names
/// without regard to case. Of several names that differ in case only, the type that the factory
/// lists first is there. It sends what `wxtChoice` sends. Main thread.
class TOLVAN_API ProductChoice : public wxtChoice
{
public:
    /// Section of the options file with the types that are left out: "<UID> = yes".
    static const String k_HideSection;

    /// The first product is selected. When there is none, a message box tells the user so, and the
    /// list says "None Installed".
    ProductChoice(wxWindow* parent, int id);

    /// The product at an index; `UID::Null` for "None Installed" and for an index out of range.
    UID GetProduct(int index) const;
    /// Selects the product and sends `wxEVT_COMBOBOX`, as if the user had picked it. Nothing
    /// happens when it is not in the list.
    void SetSelectedProduct(const UID& product);

private:
    void Fill();
    void ShowNone();
    void NotifySelected(int index);
};
