#include "appearance/wxtSearchField.h"

#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/inputs/InputColors.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/wxtStockControls.h"
#include "internal/input/PadKey.h"
#include "internal/port/Enabling.h"
#include "internal/port/FieldStyle.h"
#include "internal/text/Digits.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/textctrl.h>

#include <algorithm>

namespace
{
constexpr int kFrame = 1;       // pixels around everything
constexpr int kOverText = 6;    // pixels, of the height
constexpr int kGap = 4;         // pixels beside the note
constexpr int kLeastField = 64; // pixels of the field that the note leaves
constexpr int kBestWidth = 200; // pixels
constexpr int kCross = 7;       // pixels of the button's cross
constexpr int kClearWidth = 18; // pixels
} // namespace

// A text field that does not frame itself: the whole control is framed.
class wxtSearchField::_Field : public wxTextCtrl, public wxtColorManaged
{
public:
    explicit _Field(wxWindow* parent)
        : wxTextCtrl(parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                     wxBORDER_NONE)
    {
        Manage(this);
        appearance::UseInputColors(*this);
        appearance::KeepFieldColoured(*this, false);
    }
    // The list of completions, if a host has asked for one, tells the field of its end.
    ~_Field() override { AutoComplete(nullptr); }

    bool SetHint(const wxString& hint) override
    {
        return internal::ShowHint(*this, hint) || wxTextCtrl::SetHint(hint);
    }
};

// Keys clear by Esc: it is not for the Tab key.
class wxtSearchField::_ClearButton : public wxWindow, public wxtColorManaged
{
public:
    explicit _ClearButton(wxWindow* parent)
        : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)
    {
        Manage(this);
        appearance::UseInputColors(*this);
        SetCursor(*wxSTANDARD_CURSOR);
        SetToolTip(_("Clear"));
        Bind(wxEVT_PAINT, &_ClearButton::Paint, this);
        Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent&) { Light(true); });
        Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { Light(false); });
    }
    bool AcceptsFocus() const override { return false; }

private:
    void Light(bool on)
    {
        m_Lit = on;
        Refresh();
    }
    void Paint(wxPaintEvent&)
    {
        wxPaintDC      dc(this);
        const wxRect   place = wxRect(0, 0, kCross, kCross).CentreIn(wxRect(GetClientSize()));
        const wxColour ink = wxtReadableColor(wxtGetColor(m_Lit ? color_Text : color_TextGrey),
                                              GetBackgroundColour());
        for (int i = 0; i < kCross; ++i)
        {
            for (const int x : {i, kCross - 1 - i})
            {
                appearance::FillGround(dc, wxRect(place.x + x, place.y + i, 2, 1), ink);
            }
        }
    }

    bool m_Lit = false;
};

wxtSearchField::wxtSearchField(wxWindow* parent, wxWindowID id, const wxString& hint,
                               const wxPoint& position, const wxSize& size)
    : wxtPanel(parent, id, position, size, wxTAB_TRAVERSAL | wxBORDER_NONE)
{
    CALL_ENTRY("wxtSearchField::wxtSearchField");
    appearance::UseInputColors(*this);
    m_Field = new _Field(this);
    m_Field->SetHint(hint);
    auto* const note = new wxtStaticText(this, wxID_ANY, wxEmptyString);
    note->m_ForegroundName = note->m_DisabledForegroundName = color_TextGrey;
    note->m_ForegroundOffset = note->m_DisabledForegroundOffset = 0;
    note->KeepReadable();
    m_Note = note;
    m_Clear = new _ClearButton(this);
    m_Clear->Hide();
    SetInitialSize(size);
    m_Field->Bind(wxEVT_TEXT, &wxtSearchField::OnText, this);
    m_Clear->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { Clear(); });
    m_Note->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { m_Field->SetFocus(); });
    Bind(wxEVT_CHAR_HOOK, &wxtSearchField::OnKey, this);
    Bind(wxEVT_PAINT, &wxtSearchField::OnPaint, this);
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             event.Skip();
             LayOut();
         });
    Bind(internal::EVT_ENABLED,
         [this](internal::EnabledEvent& event)
         {
             event.Skip();
             LayOut(); // a disabled one is not cleared
         });
    const auto redraw = [this](wxFocusEvent& event)
    {
        event.Skip();
        Refresh();
    };
    m_Field->Bind(wxEVT_SET_FOCUS, redraw);
    m_Field->Bind(wxEVT_KILL_FOCUS, redraw);
    LayOut();
}

wxTextCtrl* wxtSearchField::GetField() const
{
    return m_Field;
}

wxString wxtSearchField::GetValue() const
{
    return m_Field->GetValue();
}

void wxtSearchField::SetValue(const wxString& text)
{
    CALL_ENTRY("wxtSearchField::SetValue");
    m_Field->SetValue(text);
}

void wxtSearchField::ChangeValue(const wxString& text)
{
    CALL_ENTRY("wxtSearchField::ChangeValue");
    m_Field->ChangeValue(text);
    LayOut();
}

void wxtSearchField::SetShown(int shown, int total)
{
    CALL_ENTRY("wxtSearchField::SetShown");
    m_Notes.clear();
    if (total >= 0)
    {
        const wxString some = internal::Grouped(shown);
        const wxString all = internal::Grouped(total);
        m_Notes = {wxString::Format(_("%s of %s shown"), some, all),
                   wxString::Format(_("%s of %s"), some, all), some};
    }
    LayOut();
}

wxString wxtSearchField::GetNote() const
{
    return m_Note->GetLabel();
}

// The field's own event stays here: a host hears of this control.
void wxtSearchField::OnText(wxCommandEvent&)
{
    CALL_ENTRY("wxtSearchField::OnText");
    LayOut();
    wxCommandEvent event(wxEVT_TEXT, GetId());
    event.SetEventObject(this);
    event.SetString(GetValue());
    ProcessWindowEvent(event);
}

void wxtSearchField::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxtSearchField::OnKey");
    const int key = internal::OffThePad(event.GetKeyCode());
    if (event.HasAnyModifiers())
    {
        event.Skip();
    }
    else if (key == WXK_ESCAPE && !GetValue().empty())
    {
        Clear();
    }
    else if (key == WXK_DOWN && m_Next)
    {
        m_Next->SetFocus();
    }
    else
    {
        event.Skip();
    }
}

void wxtSearchField::Clear()
{
    const wxWeakRef<wxtSearchField> self(this);
    m_Field->SetFocus();
    if (self && IsEnabled())
    {
        m_Field->Clear(); // last: its handler may destroy the control
    }
}

void wxtSearchField::OnPaint(wxPaintEvent&)
{
    wxPaintDC    dc(this);
    const wxRect whole(GetClientSize());
    if (m_Field->HasFocus())
    {
        wxtDrawFocus(dc, whole, {GetBackgroundColour()});
    }
    else
    {
        appearance::DrawFrame(dc, whole, wxtGetColor(color_3DDark));
    }
}

wxSize wxtSearchField::DoGetBestSize() const
{
    const int height =
        m_Field ? std::max(m_Field->GetBestSize().y, GetCharHeight() + kOverText) : 0;
    return wxSize(kBestWidth, height + 2 * kFrame);
}

// The pixels that it takes.
int wxtSearchField::FitNote(int room)
{
    const auto fits = [&](const wxString& note)
    { return GetTextExtent(note).x + 2 * kGap <= room; };
    const auto     found = std::find_if(m_Notes.begin(), m_Notes.end(), fits);
    const wxString note = found == m_Notes.end() ? wxString() : *found;
    if (note != m_Note->GetLabel())
    {
        m_Note->SetLabel(note);
    }
    m_Note->Show(!note.empty());
    return note.empty() ? 0 : GetTextExtent(note).x + 2 * kGap;
}

void wxtSearchField::LayOut()
{
    const wxRect inside = wxRect(GetClientSize()).Deflate(kFrame);
    const bool   clears = !m_Field->IsEmpty() && IsEnabled();
    int          right = inside.GetRight() + 1;
    if (clears)
    {
        right -= kClearWidth;
        m_Clear->SetSize(right, inside.y, kClearWidth, inside.height);
    }
    m_Clear->Show(clears);
    right -= FitNote(right - inside.x - kLeastField);
    const wxSize note = m_Note->GetBestSize();
    const int    height = std::min(note.y, inside.height); // the frame is around it
    m_Note->SetSize(right + kGap, inside.y + (inside.height - height) / 2, note.x, height);
    m_Field->SetSize(inside.x, inside.y, std::max(right - inside.x, 1), inside.height);
}
