#include "jobwidgets/ProductChoice.h"

#include "appearance/wxTolvanString.h"
#include "tolvan/JobFactory.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/clntdata.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>

#include <map>
#include <vector>

const String ProductChoice::k_HideSection = "Hide Products";

namespace
{
/// The product that an item stands for.
class _ListUID : public wxClientData, public UID
{
public:
    explicit _ListUID(const UID& id) : UID(id) {}
};

using Products = std::map<String, UID, String::ciless>;

bool IsHidden(const UID& id)
{
    return Application::the_Application->Options().GetBool(ProductChoice::k_HideSection,
                                                           id.ToString(), false);
}

Products VisibleProducts()
{
    JobFactory& factory = *JobFactory::s_JobFactory;
    Products    products;
    for (const UID& id : factory.ListTypes())
    {
        // A module file may have been taken away since.
        const auto type = factory.GetTypeInfo(id, true);
        if (type && !IsHidden(id))
        {
            products.emplace(type->Name(), id);
        }
    }
    return products;
}
} // namespace

ProductChoice::ProductChoice(wxWindow* parent, int id)
    : wxtChoice(parent, id, wxDefaultPosition, wxDefaultSize, wxArrayString(), wxBORDER_NONE,
                wxDefaultValidator, "choice")
{
    CALL_ENTRY("ProductChoice::ProductChoice");
    Fill();
}

void ProductChoice::Fill()
{
    const Products products = VisibleProducts();
    if (products.empty())
    {
        ShowNone();
        return;
    }
    wxArrayString              names;
    std::vector<wxClientData*> ids; // the items own them
    names.reserve(products.size());
    ids.reserve(products.size());
    for (const auto& [name, id] : products)
    {
        names.push_back(wxtToWx(name));
        ids.push_back(new _ListUID(id));
    }
    Append(names, ids.data()); // at once: thousands, one by one, take their time
    SetSelection(0);
}

void ProductChoice::ShowNone()
{
    wxMessageBox(wxGetTranslation("No job modules are installed for this instance of the graphical "
                                  "client.\nPlease check the path of the job module directory and "
                                  "the modules in it."),
                 wxGetTranslation("No Job Modules"), wxOK | wxCENTRE);
    Append(wxGetTranslation("None Installed"));
    SetSelection(0);
}

UID ProductChoice::GetProduct(int index) const
{
    CALL_ENTRY("ProductChoice::GetProduct");
    if (index < 0 || index >= static_cast<int>(GetCount()) || !HasClientObjectData())
    {
        return UID::Null;
    }
    const auto* const product =
        dynamic_cast<_ListUID*>(GetClientObject(static_cast<unsigned int>(index)));
    return product ? *product : UID::Null;
}

void ProductChoice::SetSelectedProduct(const UID& product)
{
    CALL_ENTRY("ProductChoice::SetSelectedProduct");
    const int count = product.IsNull() ? 0 : static_cast<int>(GetCount());
    for (int index = 0; index < count; ++index)
    {
        if (GetProduct(index) == product)
        {
            SetSelection(index);
            NotifySelected(index);
            return;
        }
    }
}

void ProductChoice::NotifySelected(int index)
{
    wxCommandEvent event(wxEVT_COMBOBOX, GetId());
    event.SetEventObject(this);
    event.SetInt(index);
    event.SetString(GetString(static_cast<unsigned int>(index)));
    event.SetClientObject(GetClientObject(static_cast<unsigned int>(index)));
    ProcessWindowEvent(event);
}
