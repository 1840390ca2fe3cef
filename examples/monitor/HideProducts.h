#pragma once

#include "appearance/wxtCheckListBox.h"
#include "vesta/UID.h"

#include <vector>

/// The installed products, with a check mark at those that are left out where a product is chosen.
/// What the user has changed is kept when the dialog that it is in is confirmed.
class HideProducts : public wxtCheckListBox
{
public:
    explicit HideProducts(wxWindow* parent);

    bool TransferDataFromWindow() override;

private:
    std::vector<UID> m_Products; ///< One an item.
};
