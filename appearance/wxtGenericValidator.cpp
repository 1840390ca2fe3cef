#include "appearance/wxtGenericValidator.h"

#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtComboBox.h"
#include "vesta/CallEntry.h"

#include <algorithm>

namespace
{
bool IsIn(const wxArrayInt& numbers, int number)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}
} // namespace

wxObject* wxtGenericValidator::Clone() const
{
    return new wxtGenericValidator(*this);
}

bool wxtGenericValidator::TransferToWindow()
{
    CALL_ENTRY("wxtGenericValidator::TransferToWindow");
    auto* const combo = dynamic_cast<wxtComboBox*>(GetWindow());
    auto* const list = dynamic_cast<wxtCheckListBox*>(GetWindow());
    if (combo && m_pInt && *m_pInt >= wxNOT_FOUND && *m_pInt < static_cast<int>(combo->GetCount()))
    {
        combo->SetSelection(*m_pInt);
        return true;
    }
    if (combo && m_pString)
    {
        combo->SetValue(*m_pString);
        return true;
    }
    if (list && m_pArrayInt)
    {
        for (unsigned i = 0; i < list->GetCount(); ++i)
        {
            list->Check(i, IsIn(*m_pArrayInt, static_cast<int>(i)));
        }
        return true;
    }
    return wxGenericValidator::TransferToWindow();
}

bool wxtGenericValidator::TransferFromWindow()
{
    CALL_ENTRY("wxtGenericValidator::TransferFromWindow");
    const auto* const combo = dynamic_cast<wxtComboBox*>(GetWindow());
    const auto* const list = dynamic_cast<wxtCheckListBox*>(GetWindow());
    if (combo && m_pInt)
    {
        *m_pInt = combo->GetCurrentSelection();
        return true;
    }
    if (combo && m_pString)
    {
        *m_pString = combo->GetValue();
        return true;
    }
    if (list && m_pArrayInt)
    {
        list->GetCheckedItems(*m_pArrayInt);
        return true;
    }
    return wxGenericValidator::TransferFromWindow();
}
