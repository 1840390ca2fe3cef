#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/combobox.h>
#include <wx/odcombo.h>

namespace appearance
{
struct ItemLook;
}

/// A text field with a drop-down list of proposals, in the colours of the scheme: a stand-in for
/// the stock `wxComboBox`, with its events (`wxEVT_TEXT`, `wxEVT_TEXT_ENTER` with
/// `wxTE_PROCESS_ENTER`, `wxEVT_COMBOBOX` and those of the list that opens and closes), hints,
/// client data and validators. With `wxCB_READONLY` it only lets choose: a text that is none of the
/// items is not taken. F4, Alt+Down and Alt+Up open and close the list, the arrow keys and the
/// wheel choose without opening it, and so does typing how an item begins in a read-only one. In
/// the open list Enter and a click choose, Tab does so and goes on, and Esc leaves everything as it
/// was. A handler may destroy the control. Flat, with the themed drop button; the list is drawn the
/// same way and follows the scheme even while it is open. An item is shown on one line, whatever it
/// holds, and shortened where it is too long. Main thread.
class TOLVAN_API wxtComboBox : public wxOwnerDrawnComboBox, public wxtColorManaged
{
public:
    /// @name Construction
    /// The arguments of a stock combo box.
    /// @{
    explicit wxtComboBox(wxWindow* parent, wxWindowID id = wxID_ANY,
                         const wxString&      value = wxEmptyString,
                         const wxPoint&       position = wxDefaultPosition,
                         const wxSize&        size = wxDefaultSize,
                         const wxArrayString& choices = wxArrayString(), long style = 0,
                         const wxValidator& validator = wxDefaultValidator,
                         const wxString&    name = wxASCII_STR(wxComboBoxNameStr));
    wxtComboBox(wxWindow* parent, wxWindowID id, const wxString& value, const wxPoint& position,
                const wxSize& size, int count, const wxString choices[], long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString&    name = wxASCII_STR(wxComboBoxNameStr));
    /// @}
    ~wxtComboBox() override;

    /// The item whose text is shown; `wxNOT_FOUND` where the user has typed something else.
    int  GetSelection() const override;
    void GetSelection(long* from, long* to) const override;

    /// @name The selected item
    /// By the names that the stock controls have for them: the selected item and its text.
    /// @{
    int      GetCurrentSelection() const { return GetSelection(); }
    wxString GetStringSelection() const override { return wxItemContainer::GetStringSelection(); }
    /// @}

    bool SetFont(const wxFont& font) override;
    bool Show(bool show = true) override;
    void SetCanFocus(bool can) override;
    /// Of the text, characters; 0 for any. Too long a one is told with `wxEVT_TEXT_MAXLEN`.
    void SetMaxLength(unsigned long characters) override;
    /// A selected item's new text is shown where nothing else can be typed.
    void SetString(unsigned int item, const wxString& text) override;
    void ForceUpper() override;

    void Popup() override;
    void HidePopup(bool generateEvent = false) override;
    bool IsKeyPopupToggle(const wxKeyEvent& event) const override;

    void PrepareBackground(wxDC& dc, const wxRect& rect, int flags) const override;

protected:
    int  DoInsertItems(const wxArrayStringsAdapter& items, unsigned int position, void** clientData,
                       wxClientDataType type) override;
    void DoClear() override;
    void DoSetPopupControl(wxComboPopup* popup) override;

    void    OnThemeChange() override;
    void    DrawButton(wxDC& dc, const wxRect& rect, int flags) override;
    void    OnDrawBackground(wxDC& dc, const wxRect& rect, int item, int flags) const override;
    void    OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const override;
    wxCoord OnMeasureItem(size_t item) const override;
    wxCoord OnMeasureItemWidth(size_t item) const override;
    wxSize  DoGetBestSize() const override;
    void    DoShowPopup(const wxRect& rect, int flags) override;
    void    PositionTextCtrl(int xAdjust, int yAdjust) override;
    void    DoEnable(bool enabled) override;

private:
    appearance::ItemLook LookOf(int item, int flags) const;
    void                 ColourParts();
    void                 KeepListEvent(wxCommandEvent& event);
    void                 PostClosing(wxCommandEvent& event);
    void                 TellOfLength(wxCommandEvent& event);
    void                 Press(wxMouseEvent& event);
    void                 CloseUnseen(wxIdleEvent& event);
    void                 KeyForList(wxKeyEvent& event);

    /// @name Measures
    /// Of the font, pixels; 0 before they are asked for. Finding them takes the toolkit long.
    /// @{
    mutable int m_CharWidth = 0;
    mutable int m_ItemHeight = 0;
    /// @}

    wxDECLARE_EVENT_TABLE();
};
