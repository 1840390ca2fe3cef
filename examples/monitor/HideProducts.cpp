#include "monitor/HideProducts.h"

#include "appearance/wxTolvanString.h"
#include "jobwidgets/ProductChoice.h"
#include "tolvan/JobFactory.h"
#include "vesta/Application.h"

#include <map>

namespace
{
constexpr int kRows = 6; // shown at once

OptionsFile& Options()
{
    return Application::the_Application->Options();
}
} // namespace

HideProducts::HideProducts(wxWindow* parent) : wxtCheckListBox(parent)
{
    std::multimap<String, UID, String::ciless> products;
    for (const UID& id : JobFactory::s_JobFactory->ListTypes())
    {
        if (const auto type = JobFactory::s_JobFactory->GetTypeInfo(id, false))
        {
            products.emplace(type->Name(), id);
        }
    }
    wxArrayString names;
    for (const auto& [name, id] : products)
    {
        names.push_back(wxtToWx(name));
        m_Products.push_back(id);
    }
    if (!names.empty())
    {
        Append(names);
        SetSelection(0);
    }
    for (size_t i = 0; i < m_Products.size(); ++i)
    {
        Check(static_cast<unsigned int>(i),
              Options().GetBool(ProductChoice::k_HideSection, m_Products[i].ToString(), false));
    }
    SetMinSize(wxSize(-1, GetCharHeight() * 3 / 2 * kRows));
}

bool HideProducts::TransferDataFromWindow()
{
    OptionsFile&                      options = Options();
    const OptionsFile::PauseAutoWrite pause(options);
    const WriteLock                   lock(options.Lock());
    for (size_t i = 0; i < m_Products.size(); ++i)
    {
        const String key = m_Products[i].ToString();
        if (IsChecked(static_cast<unsigned int>(i)))
        {
            options.SetValue(ProductChoice::k_HideSection, key, k_Yes);
        }
        else if (options.HasValue(ProductChoice::k_HideSection, key))
        {
            options.RemoveValue(ProductChoice::k_HideSection, key);
        }
    }
    return true;
}
