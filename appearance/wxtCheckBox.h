#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/checkbox.h>
#include <wx/radiobut.h>

#include <memory>
#include <vector>

namespace appearance
{
class ForeignKey;
}
class wxDC;

/// A check box in the colours of the scheme: filled with the selection's colour when it is checked.
/// It sends `wxEVT_CHECKBOX` with the new value when the user clicks it or presses the space bar.
/// Main thread.
class TOLVAN_API wxtCheckBox : public wxCheckBoxBase, public wxtColorManaged
{
public:
    /// The arguments of a stock check box; three states are not supported.
    wxtCheckBox(wxWindow* parent, wxWindowID id, const wxString& label = wxEmptyString,
                const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                long style = 0, const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxCheckBoxNameStr));
    ~wxtCheckBox() override;

    /// Sends no event.
    void SetValue(bool value) override;
    bool GetValue() const override { return m_Value; }
    bool Enable(bool enable = true) override;
    bool SetFont(const wxFont& font) override;
    /// A letter behind a "&" is the mnemonic: Alt with it clicks the box.
    void SetLabel(const wxString& label) override;

    /// Draws the box alone. `flags`: the control's state, as for the renderer.
    virtual void        DrawButton(wxDC& dc, const wxRect& rect, int flags);
    virtual wxEventType ClickEventType() const;
    /// What a click does to the value.
    virtual void HandleClick();

protected:
    wxSize DoGetBestClientSize() const override;
    /// `HandleClick` and the event that tells of it.
    void DoClick();

private:
    void Paint(wxPaintEvent& event);
    void Click(wxMouseEvent& event);
    void Hover(wxMouseEvent& event);
    void Focus(wxFocusEvent& event);
    void KeyDown(wxKeyEvent& event);
    void Press(wxKeyEvent& event);
    void Mnemonic(wxKeyEvent& event);
    void OnEnabled(internal::EnabledEvent& event);
    void Size(wxSizeEvent& event);

    int  StateFlags() const;
    void DrawLabel(wxDC& dc, const wxRect& box);
    void DrawFocus(wxDC& dc, const wxRect& box);
    void LimitHeight();

    bool     m_Value = false;
    bool     m_Hover = false; ///< The mouse is over the control.
    wxString m_Label;

    std::unique_ptr<appearance::ForeignKey> m_ForeignKey;

    wxDECLARE_EVENT_TABLE();
};

/// A radio button in the colours of the scheme. Checking it clears the others of its group: its
/// sibling radio buttons up to those that start a group (`wxRB_GROUP`), whatever other controls
/// stand among them. It sends `wxEVT_RADIOBUTTON`; the arrow keys move within the group.
/// Main thread.
class TOLVAN_API wxtRadioButton : public wxtCheckBox
{
public:
    /// The arguments of a stock radio button. The first of a group starts checked.
    wxtRadioButton(wxWindow* parent, wxWindowID id, const wxString& label = wxEmptyString,
                   const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                   long style = 0, const wxValidator& validator = wxDefaultValidator,
                   const wxString& name = wxASCII_STR(wxRadioButtonNameStr));

    void        SetValue(bool value) override;
    void        DrawButton(wxDC& dc, const wxRect& rect, int flags) override;
    wxEventType ClickEventType() const override;
    void        HandleClick() override;
    /// To the checked button of the group, if that can be used.
    void SetFocusFromKbd() override;

private:
    void ArrowKey(wxKeyEvent& event);

    bool StartsGroup() const { return HasFlag(wxRB_GROUP); }
    bool IsTabStop() const;
    bool IsUsableAndChecked() const;
    /// The others of the group: those before it, the nearest first, and those after it.
    std::vector<wxtRadioButton*> GroupBefore() const;
    std::vector<wxtRadioButton*> GroupAfter() const;
    std::vector<wxtRadioButton*> Group() const; ///< With itself.

    wxDECLARE_EVENT_TABLE();
};
