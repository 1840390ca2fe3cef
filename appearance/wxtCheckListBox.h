#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/arrstr.h>
#include <wx/checklst.h>
#include <wx/ctrlsub.h>
#include <wx/dynarray.h>
#include <wx/time.h>
#include <wx/vlbox.h>

#include <memory>
#include <vector>

namespace appearance
{
struct ItemLook;
}

/// A list of items with a check box each, in the colours of the scheme: a stand-in for the stock
/// `wxCheckListBox` with a single selection. It sends `wxEVT_CHECKLISTBOX` (with the item's index)
/// when the user clicks a box or presses the space bar, `wxEVT_LISTBOX` when the selection moves
/// and `wxEVT_LISTBOX_DCLICK`. The arrow keys move the selection, and so does typing how an item
/// begins. Items may carry client data, plain or as objects, which the list owns. An index out of
/// range has no effect. Main thread.
class TOLVAN_API wxtCheckListBox : public wxWindowWithItems<wxVListBox, wxItemContainer>,
                                   public wxtColorManaged
{
public:
    /// @name Construction
    /// The arguments of a stock check list box. Of its styles `wxLB_SORT` counts.
    /// @{
    explicit wxtCheckListBox(wxWindow* parent, wxWindowID id = wxID_ANY,
                             const wxPoint&       position = wxDefaultPosition,
                             const wxSize&        size = wxDefaultSize,
                             const wxArrayString& choices = wxArrayString(), long style = 0,
                             const wxValidator& validator = wxDefaultValidator,
                             const wxString&    name = wxASCII_STR(wxListBoxNameStr));
    wxtCheckListBox(wxWindow* parent, wxWindowID id, const wxPoint& position, const wxSize& size,
                    int count, const wxString choices[], long style = 0,
                    const wxValidator& validator = wxDefaultValidator,
                    const wxString&    name = wxASCII_STR(wxListBoxNameStr));
    /// @}
    ~wxtCheckListBox() override;

    bool IsChecked(unsigned int item) const;
    /// Sends no event.
    void Check(unsigned int item, bool check = true);
    /// Indexes of the checked items, ascending; returns their number.
    unsigned int GetCheckedItems(wxArrayInt& checked) const;

    /// @name Items
    /// As of the stock list.
    /// @{
    unsigned int GetCount() const override { return static_cast<unsigned>(m_Items.size()); }
    wxString     GetString(unsigned int item) const override;
    void         SetString(unsigned int item, const wxString& text) override;
    bool         IsSorted() const override { return HasFlag(wxLB_SORT); }
    /// Sends no event; `wxNOT_FOUND` for none.
    void SetSelection(int item) override;
    int  GetSelection() const override { return wxVListBox::GetSelection(); }
    void Select(int item) { SetSelection(item); }
    bool IsSelected(int item) const { return item >= 0 && item == GetSelection(); }
    bool IsEmpty() const { return m_Items.empty(); }
    void Clear() override { wxItemContainer::Clear(); }
    void EnsureVisible(int item);
    /// The item at a place of the client area; `wxNOT_FOUND` for none.
    int  HitTest(const wxPoint& point) const { return VirtualHitTest(point.y); }
    bool SetFont(const wxFont& font) override;
    /// @}

    /// The box of a visible item, client coordinates; empty for any other.
    wxRect GetBoxRect(unsigned int item) const;

protected:
    int  DoInsertItems(const wxArrayStringsAdapter& items, unsigned int position, void** clientData,
                       wxClientDataType type) override;
    void DoSetItemClientData(unsigned int item, void* data) override;
    void* DoGetItemClientData(unsigned int item) const override;
    void  DoClear() override;
    void  DoDeleteOneItem(unsigned int item) override;

    void     OnDrawItem(wxDC& dc, const wxRect& rect, size_t item) const override;
    void     OnDrawBackground(wxDC& dc, const wxRect& rect, size_t item) const override;
    wxCoord  OnMeasureItem(size_t item) const override;
    void     InitEvent(wxCommandEvent& event, int item) override;
    wxSize   DoGetBestClientSize() const override;
    wxBorder GetDefaultBorder() const override { return wxBORDER_NONE; }
    void     DoEnable(bool enabled) override;
    void     DoMoveWindow(int x, int y, int width, int height) override;

private:
    struct Item
    {
        explicit Item(const wxString& itsText) : text(itsText) {}

        wxString text;
        void*    data = nullptr; ///< A `wxClientData` when the list's data are objects.
        bool     checked = false;
    };

    void                 Click(wxMouseEvent& event);
    void                 Key(wxKeyEvent& event);
    void                 Char(wxKeyEvent& event);
    void                 Focus(wxFocusEvent& event);
    void                 Toggle(int item);
    appearance::ItemLook LookOf(size_t item) const;
    unsigned             Place(const wxString& text) const;
    void                 Recount(int selection);
    int                  PageRows() const;
    void                 MoveSelection(int item);
    bool                 IsTyping() const;
    void                 Type(wxChar character);

    std::vector<std::unique_ptr<Item>> m_Items;          ///< Pointers are moved faster than texts.
    mutable int                        m_ItemHeight = 0; ///< Pixels; 0 before it is asked for.
    wxString                           m_Typed;          ///< So far, of how an item begins.
    wxMilliClock_t                     m_TypedAt = 0;

    wxDECLARE_EVENT_TABLE();
};
