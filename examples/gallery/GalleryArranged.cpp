#include "gallery/FontSizes.h"
#include "gallery/GallerySections.h"

#include "gallery/MarkedList.h"

#include "appearance/wxtSearchField.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxListArranger.h"

#include <wx/listbase.h>
#include <wx/sizer.h>

#include <memory>

namespace
{
constexpr int kItems = 1000000;
constexpr int kGap = 6; // pixels
const wxSize  kViewSize(600, 130);

enum Column
{
    column_Name,
    column_State,
    column_Frames
};

int FramesOf(int item)
{
    return static_cast<int>(item * 7919LL % 1000);
}

// A million generated items, which nobody keeps: what is selected is all that there is of them.
class LargeList : public MarkedList<wxDBListCtrl, column_State>
{
public:
    explicit LargeList(wxWindow* parent) : MarkedList(parent, wxID_ANY, false)
    {
        AddColumn(column_Name, "Name", InFontOf(*this, 200));
        AddColumn(column_State, "State", InFontOf(*this, 110));
        AddColumn(column_Frames, "Frames", InFontOf(*this, 110));
        m_Selected.resize(kItems);
        Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { Select(event, true); });
        Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { Select(event, false); });
        m_Arranger = std::make_unique<wxListArranger>(
            *this, wxListArranger::Items{[] { return kItems; }, &TextOf, &NumberOf});
    }
    ~LargeList() override { DestroyChildren(); }

    bool IsRowSelected(int row) override
    {
        const int item = m_Arranger->ItemAt(row);
        return item >= 0 && m_Selected[static_cast<size_t>(item)];
    }
    std::vector<int> GetSelection() override
    {
        std::vector<int> rows;
        for (int row = 0; row < GetItemCount(); ++row)
        {
            if (IsRowSelected(row))
            {
                rows.push_back(row);
            }
        }
        return rows;
    }
    String GetDisplayText(int row, int column) override
    {
        const int item = m_Arranger->ItemAt(row);
        return item < 0 ? String() : TextOf(item, GetColumn(column).type);
    }
    wxListArranger& Arranger() { return *m_Arranger; }

private:
    static String TextOf(int item, int type)
    {
        static const char* const s_States[] = {"Running", "Waiting", "Suspended", "Done", "Failed"};
        switch (type)
        {
        case column_Name:
            return "shot " + String::FromInt(item % 1000) + " take " +
                   String::FromInt(item / 1000 + 1);
        case column_State:
            return s_States[FramesOf(item) % 5];
        default:
            return String::FromInt(FramesOf(item));
        }
    }
    static std::optional<double> NumberOf(int item, int type)
    {
        return type == column_Frames ? std::optional<double>(FramesOf(item)) : std::nullopt;
    }
    void Select(const wxListEvent& event, bool selected)
    {
        const int item = m_Arranger->ItemAt(static_cast<int>(event.GetIndex()));
        if (item >= 0)
        {
            m_Selected[static_cast<size_t>(item)] = selected;
            Redraw();
        }
    }

    std::vector<bool>               m_Selected; // by item
    std::unique_ptr<wxListArranger> m_Arranger;
};
} // namespace

void AddArrangedList(wxWindow* parent, wxSizer* sizer)
{
    auto* const field = new wxtSearchField(parent, wxID_ANY, "Search, state:failed, -shot");
    auto* const list = new LargeList(parent);
    list->SetMinSize(kViewSize);
    list->Arranger().Follow(*field);
    sizer->Add(field, 0, wxEXPAND | wxBOTTOM, kGap);
    sizer->Add(list, 1, wxEXPAND);
}
